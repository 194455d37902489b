#include "raster/MeasuredCases.h"
#include "support/Folders.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>

namespace pintalux {

namespace {

std::vector<std::string> Words(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

Pixel HexadecimalPixel(const std::string& text) {
    return static_cast<Pixel>(std::stoul(text, nullptr, 16)) & 0xFFFFFF;
}

bool Repeats(const std::string& row) {
    return row.size() > 1 && row[0] == 'x' &&
           std::all_of(row.begin() + 1, row.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
}

// The result of a case: rows of letters, or rows of hexadecimal colours.
class ResultReader {
  public:
    explicit ResultReader(MeasuredCase& target) : target_(target) {
        target_.expected = Bitmap(target.width, target.height, target.background);
        palette_['.'] = target.background;
    }

    void Name(const std::vector<std::string>& words) {
        palette_[words.at(1)[0]] = HexadecimalPixel(words.at(2));
    }
    void StartAt(int row) { row_ = row; }
    void StartHexadecimal() { hexadecimal_ = true; }

    void Row(const std::string& text) {
        if (Repeats(text)) {
            for (int times = std::stoi(text.substr(1)); times > 0; --times)
                Put();
            return;
        }
        pixels_.clear();
        if (hexadecimal_) {
            for (const std::string& word : Words(text))
                pixels_.push_back(HexadecimalPixel(word));
        } else {
            for (const char c : text)
                pixels_.push_back(palette_.at(c));
        }
        Put();
    }

  private:
    void Put() {
        if (row_ >= target_.height) throw std::runtime_error("too many rows: " + target_.name);
        for (std::size_t x = 0; x < pixels_.size(); ++x)
            target_.expected.Set(static_cast<int>(x), row_, pixels_[x]);
        ++row_;
    }

    MeasuredCase& target_;
    std::map<char, Pixel> palette_;
    bool hexadecimal_ = false;
    int row_ = 0;
    std::vector<Pixel> pixels_;
};

MeasuredCase ReadCase(const std::vector<std::string>& lines) {
    MeasuredCase read;
    const auto head = Words(lines.at(0));
    read.name = head.at(1);
    read.width = std::stoi(head.at(2));
    read.height = std::stoi(head.at(3));
    read.background = HexadecimalPixel(head.at(4));
    ResultReader result(read);
    bool inRows = false;
    for (std::size_t i = 1; i < lines.size(); ++i) {
        const auto words = Words(lines[i]);
        if (inRows) {
            result.Row(lines[i]);
        } else if (words.at(0) == "=>") {
            read.steps.back().value = lines[i].substr(3);
        } else if (words[0] == "pal") {
            result.Name(words);
        } else if (words[0] == "hex") {
            result.StartHexadecimal();
            inRows = true;
        } else if (words[0][0] == '@') {
            result.StartAt(std::stoi(words[0].substr(1)));
            inRows = true;
        } else {
            read.steps.push_back({words, {}});
        }
    }
    return read;
}

void ReadFamily(const std::filesystem::path& path, std::vector<MeasuredCase>& cases) {
    std::ifstream file(path);
    std::vector<std::string> lines;
    const auto finish = [&] {
        if (!lines.empty()) cases.push_back(ReadCase(lines));
        lines.clear();
    };
    for (std::string line; std::getline(file, line);) {
        if (line.empty()) continue;
        if (line.starts_with("case ")) finish();
        lines.push_back(line);
    }
    finish();
}

} // namespace

std::vector<MeasuredCase> ReadMeasuredCases() {
    std::vector<std::filesystem::path> families;
    for (const auto& entry : std::filesystem::directory_iterator(TestData() + "/drawing-cases")) {
        families.push_back(entry.path());
    }
    std::sort(families.begin(), families.end());
    std::vector<MeasuredCase> cases;
    for (const auto& family : families)
        ReadFamily(family, cases);
    return cases;
}

} // namespace pintalux
