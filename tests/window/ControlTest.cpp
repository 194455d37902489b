#include "surface/window/Display.h"
#include "surface/window/Layout.h"
#include "window/WindowTest.h"

#include <QCursor>

namespace pintalux {
namespace {

TEST(Control, PixelContainerKeepsTheAssignedValueAndTheWidgetRoundsHalfToEven) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Surface frame(form, "frame");
    Display display(frame, "display");
    display.Width(18.75);
    display.Left(2.5);
    display.Top(3.5);
    display.Height(6.5);
    EXPECT_EQ(display.Width(), 18.75);
    EXPECT_EQ(display.Left(), 2.5);
    EXPECT_EQ(display.Top(), 3.5);
    EXPECT_EQ(display.Height(), 6.5);
    EXPECT_EQ(FindWidget("display")->geometry(), QRect(2, 4, 19, 6));
}

TEST(Control, BitmapOfASurfaceRoundsItsSizeHalfToEven) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Surface surface(form, "surface");
    surface.Move(0.4, 0.6, 18.75, 6.5);
    EXPECT_EQ(surface.Image().Width(), 19);
    EXPECT_EQ(surface.Image().Height(), 6);
    EXPECT_EQ(surface.ScaleWidth(), 19);
    EXPECT_EQ(surface.Width(), 18.75);
    surface.AutoSize(true);
    surface.Picture(Picture(19, 6, 0)); // the size that the bitmap has already
    EXPECT_EQ(surface.Width(), 18.75);
    surface.Picture(Picture(20, 6, 0));
    EXPECT_EQ(surface.Width(), 20);
}

TEST(Control, PlaceBeyond32BitsOfPixelsIsOverflowAndChangesNothing) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Display display(form, "display");
    LineControl line(form, "line");
    EXPECT_EQ(ErrorOf([&] { display.Left(3e9); }), kOverflow);
    EXPECT_EQ(ErrorOf([&] { display.Move(0, 0, 3e9, 1); }), kOverflow);
    EXPECT_EQ(ErrorOf([&] { display.Width(-0.25); }), kInvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { line.X2(3e9); }), kOverflow);
    EXPECT_EQ(display.Left(), 0);
    EXPECT_EQ(display.Width(), 0);
    EXPECT_EQ(line.X2(), 0);
    line.X2(7.25);
    EXPECT_EQ(line.X2(), 7.25);
}

TEST(Control, TwipContainerKeepsTheAssignedValue) {
    PlainForm form;
    Surface surface(form, "surface");
    surface.Width(307.5);
    surface.Left(101);
    EXPECT_EQ(surface.Width(), 307.5);
    EXPECT_EQ(surface.Left(), 101);
    EXPECT_EQ(surface.ScaleWidth(), 20); // 20.5 pixels
    EXPECT_EQ(FindWidget("surface")->x(), 7);
}

TEST(Control, NegativeSizeIsRefusedAndChangesNothing) {
    PlainForm form;
    Surface surface(form, "surface");
    surface.Width(150);
    EXPECT_EQ(ErrorOf([&] { surface.Width(-15); }), kInvalidPropertyValue);
    EXPECT_EQ(ErrorOf([&] { surface.Move(1, 1, 15, -15); }), kInvalidPropertyValue);
    EXPECT_EQ(surface.Width(), 150);
    EXPECT_EQ(surface.Left(), 0);
}

TEST(Control, PlaceBeyond32BitsIsOverflow) {
    PlainForm form;
    Surface surface(form, "surface");
    EXPECT_EQ(ErrorOf([&] { surface.Left(1e12); }), kOverflow);
    EXPECT_EQ(surface.Left(), 0);
}

TEST(Control, ScaleModeKeepsChildrenInPlace) {
    PlainForm form;
    Surface surface(form, "surface");
    surface.Move(0, 0, 1500, 1500);
    Display child(surface, "child");
    child.Move(8, 12.25, 33, 40);
    surface.ScaleMode(kScalePoints);
    EXPECT_EQ(child.Left(), 6);
    EXPECT_EQ(child.Width(), 24.75);
    EXPECT_EQ(surface.ScaleWidth(), 75);
    EXPECT_EQ(FindWidget("child")->geometry(), QRect(8, 12, 33, 40));
    surface.ScaleMode(kScalePixels);
    EXPECT_EQ(child.Width(), 33);
    EXPECT_EQ(child.Top(), 12.25);
    EXPECT_EQ(ErrorOf([&] { surface.ScaleMode(9); }), kInvalidPropertyValue);
}

TEST(Control, VisibleIsThePropertyWhateverShows) {
    PlainForm form; // never shown
    Surface surface(form, "surface");
    EXPECT_TRUE(surface.Visible());
    surface.Visible(false);
    EXPECT_FALSE(surface.Visible());
    EXPECT_TRUE(FindWidget("surface")->isHidden());
}

struct Received {
    int button = 0, shift = 0;
    double x = -1, y = -1;
};

TEST(Pointer, DisplayCountsInTwips) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Display display(form, "display");
    display.Move(0, 0, 50, 50);
    Received down, move, up;
    const auto into = [](Received& to) {
        return [&to](int Button, int Shift, double X, double Y) { to = {Button, Shift, X, Y}; };
    };
    display.MouseDown = into(down);
    display.MouseMove = into(move);
    display.MouseUp = into(up);
    QWidget* widget = FindWidget("display");
    SendMouse(widget, QEvent::MouseButtonPress, {4, 6}, Qt::RightButton, Qt::RightButton,
              Qt::ControlModifier);
    SendMouse(widget, QEvent::MouseMove, {5.5, 6}, Qt::NoButton, Qt::LeftButton | Qt::RightButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {7, 8}, Qt::LeftButton, Qt::NoButton, Qt::ShiftModifier);
    EXPECT_EQ(down.button, kRightButton);
    EXPECT_EQ(down.shift, kCtrlMask);
    EXPECT_EQ(down.x, 60);
    EXPECT_EQ(down.y, 90);
    EXPECT_EQ(move.button, kLeftButton | kRightButton);
    EXPECT_EQ(move.x, 82.5);
    EXPECT_EQ(up.button, kLeftButton);
    EXPECT_EQ(up.shift, kShiftMask);
    EXPECT_EQ(up.y, 120);
}

TEST(Pointer, SurfaceCountsInItsOwnUnit) {
    PlainForm form;
    Surface surface(form, "surface");
    surface.Move(0, 0, 1500, 1500);
    double x = -1;
    surface.MouseDown = [&](int, int, double X, double) { x = X; };
    ClickAt(FindWidget("surface"), {8, 0});
    EXPECT_EQ(x, 8);
    surface.ScaleMode(kScalePoints);
    ClickAt(FindWidget("surface"), {8, 0});
    EXPECT_EQ(x, 6);
}

TEST(Pointer, ClickFollowsTheReleaseInside) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Surface surface(form, "surface");
    surface.Move(0, 0, 20, 20);
    std::string order;
    surface.MouseDown = [&](int, int, double, double) { order += "d"; };
    surface.MouseUp = [&](int, int, double, double) { order += "u"; };
    surface.Click = [&] { order += "c"; };
    QWidget* widget = FindWidget("surface");
    ClickAt(widget, {3, 3});
    EXPECT_EQ(order, "duc");
    SendMouse(widget, QEvent::MouseButtonPress, {3, 3}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {90, 3}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(order, "ducdu");
}

TEST(Pointer, QuickSecondPressIsAPressToo) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Surface surface(form, "surface");
    surface.Move(0, 0, 20, 20);
    std::string order;
    surface.MouseDown = [&](int, int, double, double) { order += "d"; };
    surface.DblClick = [&] { order += "2"; };
    SendMouse(FindWidget("surface"), QEvent::MouseButtonDblClick, {3, 3}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(order, "d2");
}

TEST(Pointer, ContainerBelowHearsNothing) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Surface surface(form, "surface");
    surface.Move(0, 0, 50, 50);
    Display display(surface, "display");
    display.Move(0, 0, 20, 20);
    int presses = 0;
    surface.MouseDown = [&](int, int, double, double) { ++presses; };
    ClickAt(FindWidget("display"), {3, 3});
    EXPECT_EQ(presses, 0);
}

TEST(Pointer, OverflowInAHandlerIsDropped) {
    UntrappedErrors errors;
    PlainForm form;
    Surface surface(form, "surface");
    surface.Move(0, 0, 1500, 1500);
    surface.MouseDown = [](int, int, double, double) { throw RuntimeError(kOverflow); };
    surface.MouseUp = [](int, int, double, double) { throw RuntimeError(kInvalidArgument); };
    ClickAt(FindWidget("surface"), {3, 3});
    EXPECT_EQ(errors.numbers, std::vector<int>{kInvalidArgument});
}

TEST(Control, APressOnWhatLeavesItsFocusGivesItToTheOther) {
    PlainForm form;
    form.Width(3000);
    form.Height(3000);
    Surface taker(form, "taker");
    taker.Move(0, 0, 300, 300);
    taker.TakesFocus(FocusBy::Tab);
    EXPECT_EQ(FindWidget("taker")->focusPolicy(), Qt::TabFocus);
    Surface leaver(form, "leaver");
    leaver.Move(0, 300, 300, 300);
    leaver.LeavesFocusTo(taker);
    EXPECT_EQ(FindWidget("leaver")->focusPolicy(), Qt::ClickFocus) << "the Tab key comes there once";
    form.Show();
    FindWidget("plain")->activateWindow();
    ASSERT_TRUE(WaitFor([] { return FindWidget("plain")->isActiveWindow(); }));
    leaver.SetFocus();
    EXPECT_TRUE(taker.HasFocus());
}

TEST(Control, PointerShapes) {
    PlainForm form;
    Surface surface(form, "surface");
    surface.MousePointer(kPointerCross);
    EXPECT_EQ(FindWidget("surface")->cursor().shape(), Qt::CrossCursor);
    surface.MousePointer(kPointerSizeAll);
    EXPECT_EQ(FindWidget("surface")->cursor().shape(), Qt::SizeAllCursor);
    surface.MousePointer(kPointerHourglass);
    EXPECT_EQ(FindWidget("surface")->cursor().shape(), Qt::WaitCursor);
    form.MousePointer(kPointerCross);
    surface.MousePointer(1); // any other number is the arrow, whatever holds the control
    EXPECT_EQ(FindWidget("surface")->cursor().shape(), Qt::ArrowCursor);
    surface.MousePointer(kPointerDefault);
    EXPECT_EQ(FindWidget("surface")->cursor().shape(), Qt::CrossCursor);
    surface.MouseIcon({":/cursors/none.svg", 0, 0});
    surface.MousePointer(kPointerCustom);
    EXPECT_EQ(FindWidget("surface")->cursor().shape(), Qt::ArrowCursor); // a picture that is not there
}

TEST(Control, OutlivesItsWidget) {
    PlainForm form;
    Surface surface(form, "surface");
    Display display(surface, "display");
    delete FindWidget("plain");
    surface.Move(15, 15, 150, 150);
    surface.PSet(1, 1, 255);
    surface.Refresh();
    surface.Visible(false);
    surface.MousePointer(kPointerCross);
    display.Picture(surface.Image());
    form.Caption("x");
    form.Show();
    form.Width(3000);
    EXPECT_EQ(surface.Point(1, 1), 255);
    EXPECT_EQ(form.Width(), 3000);
}

TEST(Label, GrowsWithItsCaptionUntilItIsSized) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    Label label(form, "label", "a");
    const double before = label.Width();
    label.Caption("a much longer caption");
    EXPECT_GT(label.Width(), before);
    EXPECT_EQ(FindWidget("label")->width(), label.Width());
    label.Width(30);
    label.Caption("another caption that is long");
    EXPECT_EQ(label.Width(), 30);
}

TEST(Label, ALongCaptionIsBrokenWhereItMayBe) {
    PlainForm form;
    Label label(form, "label");
    label.WidestLine(100 * 15);
    label.WordWrap(true);
    label.Caption("some more words than a hundred pixels can hold in one line of text");
    LayOutGrid(form, {{&label, 0, 0, 1, 1, Place::Top}});
    form.Height(400 * 15);
    form.Show();
    LetEventsRun();
    const QWidget* shown = FindWidget("label");
    EXPECT_LE(shown->width(), 100);
    EXPECT_GE(shown->height(), 3 * shown->fontMetrics().height());
}

TEST(Label, FontSizeGrowsIt) {
    PlainForm form;
    Label label(form, "label", "text");
    label.FontSize(8);
    const double before = label.Height();
    label.FontSize(30);
    EXPECT_GT(label.Height(), before);
}

TEST(Control, MayOutliveWhatHoldsIt) {
    PlainForm form;
    form.ScaleMode(kScalePixels);
    auto frame = std::make_unique<Surface>(form, "frame");
    auto display = std::make_unique<Display>(*frame, "display");
    EXPECT_EQ(display->Parent(), frame.get());
    frame.reset();
    EXPECT_EQ(display->Parent(), nullptr);
    display->Visible(false); // without a widget by now
    display.reset();
}

} // namespace
} // namespace pintalux
