#include "devices/fake/FakeScanner.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <deque>
#include <dlfcn.h>
#include <sstream>

namespace pintalux {

FakeScanner TheFakeScanner;

void* OpenFakeLibrary() {
    return dlopen(nullptr, RTLD_LAZY);
}

namespace {

SANE_Word WordOf(const FakeOption& option, double value) {
    return option.type == SANE_TYPE_FIXED ? SANE_FIX(value) : static_cast<SANE_Word>(value);
}

// What a descriptor points to; the library keeps it as long as its device is open.
struct Described {
    FakeOption option;
    std::vector<SANE_Word> words;
    SANE_Range range{};
    std::vector<SANE_String_Const> texts;
    SANE_Option_Descriptor descriptor{};

    explicit Described(FakeOption described) : option(std::move(described)) {
        descriptor.name = option.name.c_str();
        descriptor.type = option.type;
        descriptor.unit = option.unit;
        descriptor.cap = option.cap;
        constexpr SANE_Int kLongestText = 32;
        descriptor.size = option.type == SANE_TYPE_STRING ? kLongestText : SANE_Int{sizeof(SANE_Word)};
        if (option.range) {
            range = {WordOf(option, option.range->first), WordOf(option, option.range->second), 0};
            descriptor.constraint_type = SANE_CONSTRAINT_RANGE;
            descriptor.constraint.range = &range;
        } else if (!option.texts.empty()) {
            for (const std::string& text : option.texts)
                texts.push_back(text.c_str());
            texts.push_back(nullptr);
            descriptor.constraint_type = SANE_CONSTRAINT_STRING_LIST;
            descriptor.constraint.string_list = texts.data();
        } else if (!option.list.empty()) {
            words.push_back(static_cast<SANE_Word>(option.list.size()));
            for (const double number : option.list)
                words.push_back(WordOf(option, number));
            descriptor.constraint_type = SANE_CONSTRAINT_WORD_LIST;
            descriptor.constraint.word_list = words.data();
        }
    }
};

std::deque<Described> described;

SANE_Status Read(const FakeOption& option, void* value) {
    if (option.whenRead != SANE_STATUS_GOOD) return option.whenRead;
    if (option.type == SANE_TYPE_STRING) {
        std::strcpy(static_cast<char*>(value), option.text.c_str());
    } else {
        *static_cast<SANE_Word*>(value) = WordOf(option, option.number);
    }
    return SANE_STATUS_GOOD;
}

SANE_Status Set(FakeOption& option, const void* value) {
    std::ostringstream text;
    text << option.name << '=';
    if (option.type == SANE_TYPE_STRING) {
        option.text = static_cast<const char*>(value);
        text << option.text;
    } else {
        const SANE_Word word = *static_cast<const SANE_Word*>(value);
        option.number = option.type == SANE_TYPE_FIXED ? SANE_UNFIX(word) : word;
        text << option.number;
    }
    TheFakeScanner.set.push_back(text.str());
    return SANE_STATUS_GOOD;
}

} // namespace

} // namespace pintalux

using pintalux::described;
using pintalux::TheFakeScanner;

SANE_Status sane_init(SANE_Int* version, SANE_Auth_Callback) {
    *version = SANE_VERSION_CODE(TheFakeScanner.version, 0, 0);
    return TheFakeScanner.whenStarted;
}

void sane_exit() {}

SANE_Status sane_get_devices(const SANE_Device*** list, SANE_Bool) {
    static const SANE_Device device = {"fake:0", "Ensaio", "Um", "scanner"};
    static std::array<const SANE_Device*, 2> devices = {&device, nullptr};
    *list = devices.data();
    return TheFakeScanner.whenLookedFor;
}

SANE_Status sane_open(SANE_String_Const name, SANE_Handle* handle) {
    TheFakeScanner.opened.emplace_back(name);
    if (TheFakeScanner.whenOpened != SANE_STATUS_GOOD) return TheFakeScanner.whenOpened;
    described.clear();
    for (const pintalux::FakeOption& option : TheFakeScanner.options)
        described.emplace_back(option);
    *handle = &TheFakeScanner;
    return SANE_STATUS_GOOD;
}

void sane_close(SANE_Handle) {}

const SANE_Option_Descriptor* sane_get_option_descriptor(SANE_Handle, SANE_Int index) {
    const auto place = static_cast<std::size_t>(index - 1);
    return place < described.size() ? &described[place].descriptor : nullptr;
}

SANE_Status sane_control_option(SANE_Handle, SANE_Int index, SANE_Action action, void* value, SANE_Int*) {
    if (index == 0) {
        *static_cast<SANE_Word*>(value) = static_cast<SANE_Word>(described.size() + 1);
        return TheFakeScanner.whenCounted;
    }
    pintalux::FakeOption& option = described.at(static_cast<std::size_t>(index - 1)).option;
    return action == SANE_ACTION_SET_VALUE ? pintalux::Set(option, value) : pintalux::Read(option, value);
}

// A page of two pixels, which comes at once.

SANE_Status sane_get_parameters(SANE_Handle, SANE_Parameters* format) {
    *format = {SANE_FRAME_RGB, SANE_TRUE, 6, 2, 1, 8};
    if (TheFakeScanner.announces) TheFakeScanner.announces(*format);
    return SANE_STATUS_GOOD;
}

namespace {
bool sent = false;
}

SANE_Status sane_start(SANE_Handle) {
    sent = false;
    return SANE_STATUS_GOOD;
}

SANE_Status sane_read(SANE_Handle, SANE_Byte* bytes, SANE_Int, SANE_Int* count) {
    constexpr std::array<SANE_Byte, 6> kPixels = {1, 2, 3, 40, 50, 60};
    *count = 0;
    if (sent) {
        if (TheFakeScanner.ends) TheFakeScanner.ends();
        return SANE_STATUS_EOF;
    }
    sent = true;
    std::copy(kPixels.begin(), kPixels.end(), bytes);
    *count = static_cast<SANE_Int>(kPixels.size());
    return SANE_STATUS_GOOD;
}

void sane_cancel(SANE_Handle) {
    if (TheFakeScanner.comesToRest) TheFakeScanner.comesToRest();
}
