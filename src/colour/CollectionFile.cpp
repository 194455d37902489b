#include "colour/CollectionFile.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "surface/system/Settings.h"

#include <cmath>

namespace pintalux {

namespace {

constexpr const char* kSection = "Colors";
constexpr std::size_t kLongestFile = std::size_t{1} << 20;

// The blank of the formatted number belongs to the key; whoever reads the profile drops it again.
std::vector<SettingText> Keys() {
    std::vector<SettingText> keys;
    keys.reserve(kCollectionCells);
    for (int i = 0; i < kCollectionCells; ++i)
        keys.push_back({FormattedNumber(i), {}});
    return keys;
}

bool IsColour(double number) {
    return number > -0.5 && number < kWhite + 0.5;
}

} // namespace

std::vector<Colour> ReadCollection(const std::string& file) {
    std::vector<SettingText> values = Keys();
    ProfileReadKeys(file, kSection, values, kLongestFile);
    std::vector<Colour> colours;
    for (const SettingText& value : values) {
        const double number = Val(value.text);
        // A number that is no colour would be drawn as white and stop whatever splits it later.
        if (!value.text.empty() && IsColour(number)) colours.push_back(ToInt32(number));
    }
    return colours;
}

void WriteCollection(const std::string& file, const CollectionTexts& texts) {
    std::vector<SettingText> values = Keys();
    for (std::size_t i = 0; i < texts.size(); ++i)
        values[i].text = texts[i];
    ProfileWriteNew(file, kSection, values);
}

} // namespace pintalux
