// Devices that offer their options in other ways than the scanner library's own test device.
#include "devices/fake/FakeScannerTest.h"

namespace pintalux {
namespace {

using ScanOptionsTest = FakeScannerTest;
using Numbers = std::vector<int>;
using Texts = std::vector<std::string>;

TEST_F(ScanOptionsTest, ResolutionsOfAListAreOfferedInOrderWithTheOneThatIsSet) {
    for (const SANE_Value_Type type : {SANE_TYPE_INT, SANE_TYPE_FIXED}) {
        SCOPED_TRACE(type);
        FakeOption resolution = Number("resolution", 150);
        resolution.type = type;
        resolution.list = {600, 75, 300, 75};
        TheFakeScanner.options = {resolution};
        EXPECT_EQ(Choices().resolutions, (Numbers{75, 150, 300, 600}));
        EXPECT_EQ(Choices().resolution, 150);
    }
}

TEST_F(ScanOptionsTest, ResolutionsOfARangeAreTheUsualOnesFromEndToEnd) {
    FakeOption resolution = Number("resolution", 90);
    resolution.range = {75, 600};
    TheFakeScanner.options = {resolution};
    EXPECT_EQ(Choices().resolutions, (Numbers{75, 90, 100, 150, 200, 300, 400, 600}));
    TheFakeScanner.options[0].range = {76, 599};
    EXPECT_EQ(Choices().resolutions, (Numbers{90, 100, 150, 200, 300, 400}));
}

TEST_F(ScanOptionsTest, AnAreaInPixelsIsOfferedAndSetInMillimetres) {
    TheFakeScanner.options = {Number("resolution", 300)};
    AddSides(SANE_TYPE_INT, SANE_UNIT_PIXEL, 30, 2550);
    const ScanArea glass = Choices().glass;
    EXPECT_DOUBLE_EQ(glass.left, 2.54);
    EXPECT_DOUBLE_EQ(glass.top, 2.54);
    EXPECT_DOUBLE_EQ(glass.right, 215.9);
    EXPECT_DOUBLE_EQ(glass.bottom, 215.9);
    // The resolution comes first: the sides are pixels of the new one.
    EXPECT_EQ(SetBy({600, "", {0, 12.7, 25.4, 50.8}}),
              (Texts{"resolution=600", "tl-x=0", "tl-y=300", "br-x=600", "br-y=1200"}));
    TheFakeScanner.options.erase(TheFakeScanner.options.begin());
    EXPECT_DOUBLE_EQ(Choices().glass.right, 2550) << "without a resolution a pixel is a millimetre";
}

TEST_F(ScanOptionsTest, AllIsSetInTheOrderInWhichOneThingAllowsTheNext) {
    FakeOption preview = Number("preview", 1);
    preview.type = SANE_TYPE_BOOL;
    FakeOption mode = Text("mode", "Color");
    mode.texts = {"Color", "Gray"};
    TheFakeScanner.options = {Number("depth", 16), Number("resolution", 100), mode, preview};
    AddSides(SANE_TYPE_FIXED, SANE_UNIT_MM, 0, 210);
    EXPECT_EQ(Choices().modes, (Texts{"Color", "Gray"}));
    EXPECT_EQ(Choices().mode, "Color");
    EXPECT_EQ(SetBy({300, "Gray", {0.5, 1, 20, 30.25}}),
              (Texts{"preview=0", "mode=Gray", "depth=8", "resolution=300", "tl-x=0.5", "tl-y=1", "br-x=20",
                     "br-y=30.25"}));
    TheFakeScanner.options[0].number = 8;
    EXPECT_EQ(SetBy({}), (Texts{"preview=0"})) << "all else keeps the device's own";
}

TEST_F(ScanOptionsTest, WhatTheDeviceHasNotOrForbidsIsNeitherOfferedNorSet) {
    FakeOption asleep = Number("resolution", 300);
    asleep.cap |= SANE_CAP_INACTIVE;
    FakeOption fixed = Text("mode", "Gray");
    fixed.cap = SANE_CAP_SOFT_DETECT;
    FakeOption wide = Number("depth", 16);
    wide.cap = SANE_CAP_SOFT_DETECT;
    TheFakeScanner.options = {asleep, fixed, wide, Text("tl-x", "left"), Text("preview", "yes")};
    const ScanChoices choices = Choices();
    EXPECT_TRUE(choices.resolutions.empty());
    EXPECT_EQ(choices.resolution, 0);
    EXPECT_TRUE(choices.modes.empty());
    EXPECT_EQ(choices.mode, "Gray");
    EXPECT_TRUE(choices.glass.Empty());
    EXPECT_EQ(SetBy({300, "Color", {0, 0, 20, 30}}), Texts{});
}

TEST_F(ScanOptionsTest, WhatCannotBeReadIsNotOffered) {
    FakeOption resolution = Number("resolution", 300);
    resolution.list = {100, 300};
    resolution.whenRead = SANE_STATUS_IO_ERROR;
    FakeOption mode = Text("mode", "Gray");
    mode.texts = {"Gray"};
    mode.whenRead = SANE_STATUS_IO_ERROR;
    TheFakeScanner.options = {resolution, mode};
    EXPECT_EQ(Choices().resolutions, (Numbers{100, 300}));
    EXPECT_EQ(Choices().resolution, 0);
    EXPECT_EQ(Choices().modes, Texts{"Gray"});
    EXPECT_EQ(Choices().mode, "");
    TheFakeScanner.whenCounted = SANE_STATUS_IO_ERROR;
    EXPECT_TRUE(Choices().resolutions.empty());
    EXPECT_TRUE(Choices().modes.empty());
}

} // namespace
} // namespace pintalux
