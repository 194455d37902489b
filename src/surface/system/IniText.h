// The text of an INI file, kept line by line: what no key names stays as a person wrote it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pintalux {

/// Names of sections and keys are compared without blanks around them and without regard to the case of ASCII
/// letters. The first of several equal sections or keys counts. Lines that begin with a semicolon are
/// comments.
class IniText {
  public:
    /// What becomes of the lines' ends, and of a byte order mark: gone until `Text` gives all lines the same
    /// ones, or kept as another program wrote them.
    enum class LineEnds { Uniform, AsTheyAre };
    explicit IniText(std::string_view text, LineEnds ends = LineEnds::Uniform);

    /// The text behind the key's equals sign, without blanks around it.
    std::optional<std::string> Value(std::string_view section, std::string_view key) const;
    /// Puts the line "key=value" where the key's line is, else behind the section's last line.
    void Set(std::string_view section, std::string_view key, std::string_view value);
    /// False if there is no such key.
    bool Remove(std::string_view section, std::string_view key);
    /// All lines, each with `lineEnd` behind it.
    std::string Text(std::string_view lineEnd) const;

  private:
    struct Range {
        std::size_t first;
        std::size_t end;
    };
    std::optional<Range> LinesOf(std::string_view section) const;
    std::optional<std::size_t> LineOf(std::string_view section, std::string_view key) const;

    std::vector<std::string> lines_;
};

} // namespace pintalux
