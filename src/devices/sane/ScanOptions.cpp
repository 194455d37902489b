#include "devices/sane/ScanOptions.h"

#include "devices/sane/SaneCalls.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <span>

namespace pintalux {

namespace {

constexpr const char* kMode = "mode";
constexpr const char* kDepth = "depth";
constexpr const char* kResolution = "resolution";
constexpr const char* kPreview = "preview";
constexpr double kMillimetresPerInch = 25.4;

bool IsNumber(const SANE_Option_Descriptor& option) {
    return (option.type == SANE_TYPE_INT || option.type == SANE_TYPE_FIXED ||
            option.type == SANE_TYPE_BOOL) &&
           option.size == static_cast<SANE_Int>(sizeof(SANE_Word));
}

double FromWord(const SANE_Option_Descriptor& option, SANE_Word word) {
    return option.type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : word;
}

SANE_Word ToWord(const SANE_Option_Descriptor& option, double value) {
    if (option.type == SANE_TYPE_FIXED) return static_cast<SANE_Word>(value * (1 << SANE_FIXED_SCALE_SHIFT));
    return static_cast<SANE_Word>(value + (value < 0 ? -0.5 : 0.5));
}

// The list of a device: its first word counts the others.
std::span<const SANE_Word> Words(const SANE_Option_Descriptor& option) {
    return {option.constraint.word_list + 1,
            static_cast<std::size_t>(std::max(0, option.constraint.word_list[0]))};
}

} // namespace

std::optional<ScanOptions::Option> ScanOptions::Find(const char* name) const {
    SANE_Int count = 0;
    if (Sane().controlOption(device_, 0, SANE_ACTION_GET_VALUE, &count, nullptr) != SANE_STATUS_GOOD)
        return {};
    for (SANE_Int i = 1; i < count; ++i) {
        const SANE_Option_Descriptor* option = Sane().optionDescriptor(device_, i);
        if (option != nullptr && option->name != nullptr && std::strcmp(option->name, name) == 0 &&
            SANE_OPTION_IS_ACTIVE(option->cap))
            return Option{i, option};
    }
    return {};
}

std::optional<double> ScanOptions::Number(const char* name) const {
    const std::optional<Option> option = Find(name);
    SANE_Word word = 0;
    if (!option || !IsNumber(*option->descriptor)) return {};
    if (Sane().controlOption(device_, option->index, SANE_ACTION_GET_VALUE, &word, nullptr) !=
        SANE_STATUS_GOOD)
        return {};
    return FromWord(*option->descriptor, word);
}

std::string ScanOptions::Text(const char* name) const {
    const std::optional<Option> option = Find(name);
    if (!option || option->descriptor->type != SANE_TYPE_STRING) return {};
    std::string text(static_cast<std::size_t>(std::max(1, option->descriptor->size)), '\0');
    if (Sane().controlOption(device_, option->index, SANE_ACTION_GET_VALUE, text.data(), nullptr) !=
        SANE_STATUS_GOOD)
        return {};
    return text.c_str();
}

std::vector<int> ScanOptions::Resolutions() const {
    // Of a range the round numbers that people ask for; its own ends belong to it.
    constexpr std::array kUsual = {75, 100, 150, 200, 300, 400, 600, 1200, 2400};
    const std::optional<Option> option = Find(kResolution);
    if (!option || !IsNumber(*option->descriptor)) return {};
    const SANE_Option_Descriptor& descriptor = *option->descriptor;
    std::vector<int> found;
    if (descriptor.constraint_type == SANE_CONSTRAINT_WORD_LIST) {
        for (const SANE_Word word : Words(descriptor))
            found.push_back(static_cast<int>(FromWord(descriptor, word)));
    } else if (descriptor.constraint_type == SANE_CONSTRAINT_RANGE) {
        const double least = FromWord(descriptor, descriptor.constraint.range->min);
        const double most = FromWord(descriptor, descriptor.constraint.range->max);
        std::copy_if(kUsual.begin(), kUsual.end(), std::back_inserter(found),
                     [&](int dots) { return dots >= least && dots <= most; });
    }
    if (const double now = Number(kResolution).value_or(0); now >= 1) found.push_back(static_cast<int>(now));
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

double ScanOptions::MillimetresPerUnit(const char* name) const {
    const std::optional<Option> option = Find(name);
    if (!option || option->descriptor->unit != SANE_UNIT_PIXEL) return 1;
    return kMillimetresPerInch / std::max(1.0, Number(kResolution).value_or(kMillimetresPerInch));
}

double ScanOptions::UpperEnd(const char* name) const {
    const std::optional<Option> option = Find(name);
    if (!option || option->descriptor->constraint_type != SANE_CONSTRAINT_RANGE) return 0;
    return FromWord(*option->descriptor, option->descriptor->constraint.range->max) *
           MillimetresPerUnit(name);
}

double ScanOptions::LowerEnd(const char* name) const {
    const std::optional<Option> option = Find(name);
    if (!option || option->descriptor->constraint_type != SANE_CONSTRAINT_RANGE) return 0;
    return FromWord(*option->descriptor, option->descriptor->constraint.range->min) *
           MillimetresPerUnit(name);
}

ScanChoices ScanOptions::Choices() const {
    ScanChoices choices;
    choices.resolutions = Resolutions();
    choices.resolution = static_cast<int>(Number(kResolution).value_or(0));
    const std::optional<Option> mode = Find(kMode);
    if (mode && mode->descriptor->constraint_type == SANE_CONSTRAINT_STRING_LIST) {
        for (const SANE_String_Const* text = mode->descriptor->constraint.string_list; *text != nullptr;
             ++text)
            choices.modes.emplace_back(*text);
    }
    choices.mode = Text(kMode);
    choices.glass = {LowerEnd("tl-x"), LowerEnd("tl-y"), UpperEnd("br-x"), UpperEnd("br-y")};
    return choices;
}

void ScanOptions::Set(const char* name, double value) const {
    const std::optional<Option> option = Find(name);
    if (!option || !IsNumber(*option->descriptor) || !SANE_OPTION_IS_SETTABLE(option->descriptor->cap))
        return;
    SANE_Word word = ToWord(*option->descriptor, value);
    Sane().controlOption(device_, option->index, SANE_ACTION_SET_VALUE, &word, nullptr);
}

void ScanOptions::Set(const char* name, const std::string& text) const {
    const std::optional<Option> option = Find(name);
    if (!option || option->descriptor->type != SANE_TYPE_STRING ||
        !SANE_OPTION_IS_SETTABLE(option->descriptor->cap))
        return;
    // The device may write what it took instead into the room that it asked for.
    std::string room(
        std::max(text.size() + 1, static_cast<std::size_t>(std::max(1, option->descriptor->size))), '\0');
    std::copy(text.begin(), text.end(), room.begin());
    Sane().controlOption(device_, option->index, SANE_ACTION_SET_VALUE, room.data(), nullptr);
}

void ScanOptions::Apply(const ScanSettings& settings) const {
    constexpr double kBitsPerChannel = 8;
    Set(kPreview, SANE_FALSE);
    if (!settings.mode.empty()) Set(kMode, settings.mode);
    if (Number(kDepth).value_or(0) > kBitsPerChannel) Set(kDepth, kBitsPerChannel);
    if (settings.resolution > 0) Set(kResolution, settings.resolution);
    if (settings.area.Empty()) return;
    const auto side = [this](const char* name, double millimetres) {
        Set(name, millimetres / MillimetresPerUnit(name));
    };
    side("tl-x", settings.area.left);
    side("tl-y", settings.area.top);
    side("br-x", settings.area.right);
    side("br-y", settings.area.bottom);
}

} // namespace pintalux
