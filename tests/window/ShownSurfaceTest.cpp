// A surface that draws on the screen alone: what it brings back is painted without being asked.
#include "surface/window/Surface.h"
#include "window/OnScreen.h"

namespace pintalux {
namespace {

TEST(ShownSurface, WhatItBringsBackWithoutAutoRedrawIsPainted) {
    PlainForm form;
    form.Move(0, 0, 3000, 3000);
    Surface surface(form, "surface");
    surface.Move(0, 0, 1500, 1500);
    surface.AutoRedraw(false);
    form.Show();
    ASSERT_TRUE(WaitFor([] { return FindWidget("surface")->isVisible(); }));
    LetEventsRun();
    PaintedArea painted(FindWidget("surface"));
    const auto paintedBy = [&](const std::function<void()>& act) {
        surface.PSet(50, 50, 0x0000FF);
        LetEventsRun();
        painted.region = {};
        act();
        LetEventsRun();
        EXPECT_EQ(surface.Point(50, 50), kWhite);
        return painted.region;
    };
    const QRegion whole(0, 0, 100, 100);
    EXPECT_EQ(paintedBy([&] { surface.Cls(); }), whole);
    EXPECT_EQ(paintedBy([&] { surface.Refresh(); }), whole);
    EXPECT_EQ(paintedBy([&] { surface.AutoRedraw(true); }), whole);
}

} // namespace
} // namespace pintalux
