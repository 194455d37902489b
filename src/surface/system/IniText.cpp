#include "surface/system/IniText.h"

#include <algorithm>
#include <utility>

namespace pintalux {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kBlanks = " \t\r"; // A line may have kept the first half of its end.

std::string_view Trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(Trimmed(a), Trimmed(b), {}, Lower, Lower);
}

/// The name in a line "[name]"; nothing for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
    if (line.starts_with(kByteOrderMark)) line.remove_prefix(kByteOrderMark.size());
    line = Trimmed(line);
    if (!line.starts_with('[')) return {};
    return line.substr(1, line.find(']') - 1); // a missing bracket ends with the line
}

} // namespace

IniText::IniText(std::string_view text, LineEnds ends) {
    const bool uniform = ends == LineEnds::Uniform;
    if (uniform && text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string_view line = text.substr(0, end);
        if (uniform && line.ends_with('\r')) line.remove_suffix(1);
        lines_.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

std::optional<IniText::Range> IniText::LinesOf(std::string_view section) const {
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const auto name = SectionName(lines_[i]);
        if (!name || !SameName(*name, section)) continue;
        std::size_t end = i + 1;
        while (end < lines_.size() && !SectionName(lines_[end]))
            ++end;
        return Range{i + 1, end};
    }
    return {};
}

std::optional<std::size_t> IniText::LineOf(std::string_view section, std::string_view key) const {
    const auto range = LinesOf(section);
    if (!range) return {};
    for (std::size_t i = range->first; i < range->end; ++i) {
        const std::string_view line = Trimmed(lines_[i]);
        const std::size_t equals = line.find('=');
        if (line.starts_with(';') || equals == std::string_view::npos) continue;
        if (SameName(line.substr(0, equals), key)) return i;
    }
    return {};
}

std::optional<std::string> IniText::Value(std::string_view section, std::string_view key) const {
    const auto line = LineOf(section, key);
    if (!line) return {};
    const std::string_view text = lines_[*line];
    return std::string(Trimmed(text.substr(text.find('=') + 1)));
}

void IniText::Set(std::string_view section, std::string_view key, std::string_view value) {
    std::string line(key);
    line.append("=").append(value);
    if (const auto old = LineOf(section, key)) {
        if (lines_[*old].ends_with('\r')) line += '\r';
        lines_[*old] = std::move(line);
        return;
    }
    auto range = LinesOf(section);
    if (!range) {
        std::string head = "[";
        head.append(section).append("]");
        lines_.push_back(std::move(head));
        range = Range{lines_.size(), lines_.size()};
    }
    // Blank lines before the next section stay in front of it.
    while (range->end > range->first && Trimmed(lines_[range->end - 1]).empty())
        --range->end;
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(range->end), std::move(line));
}

bool IniText::Remove(std::string_view section, std::string_view key) {
    const auto line = LineOf(section, key);
    if (line) lines_.erase(lines_.begin() + static_cast<std::ptrdiff_t>(*line));
    return line.has_value();
}

std::string IniText::Text(std::string_view lineEnd) const {
    std::string text;
    for (const std::string& line : lines_)
        text.append(line).append(lineEnd);
    return text;
}

} // namespace pintalux
