// The hand with a selection: the fixture of the selection tests, and slow models of what a lift and a merge
// do.
#pragma once

#include "document/CommandBar.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"
#include "tools/ToolTest.h"

#include <QCoreApplication>
#include <QCursor>
#include <QMouseEvent>
#include <QWidget>

namespace pintalux {

class SelectionTest : public ToolTest {
  protected:
    void TearDown() override {
        FreeSelActive = FreePasteActive = PasteFloating = false;
        ToolTest::TearDown();
    }

    /// A document of a picture in which every pixel differs.
    frmImage& OpenRandom(int width, int height, unsigned seed = 1) {
        before_ = RandomPicture(width, height, seed, 0xFFFFFF);
        return OpenPicture("random.bmp", before_);
    }
    const Bitmap& Before() const { return before_; }

    static void CutMode() { frmMain->Option4.Value(true); }
    static void CopyMode() { frmMain->Option3.Value(true); }

    /// Drags tool 13 from one view pixel to another.
    static void SelectRectangle(frmImage& image, double x1, double y1, double x2, double y2) {
        Choose("Select");
        Drag(image, {{x1, y1}, {x2, y2}});
    }

    /// Draws with tool 14 through view pixels.
    static void SelectPath(frmImage& image, const Path& points) {
        Choose("FreeSelect");
        Drag(image, points);
    }

    /// Takes the piece under the pointer, carries it by a distance in screen pixels and lets it go, as soon
    /// as the timer of the drag has seen the pointer there.
    static void Carry(Control& under, Timer& drag, int dx, int dy) {
        const QPoint start(400, 300);
        QCursor::setPos(start);
        Grab(under, QEvent::MouseButtonPress);
        QCursor::setPos(start + QPoint(dx, dy));
        bool followed = false;
        const auto tick = drag.Tick;
        drag.Tick = [&] {
            tick();
            followed = true;
        };
        EXPECT_TRUE(WaitFor([&] { return followed; }));
        drag.Tick = tick;
        Grab(under, QEvent::MouseButtonRelease);
    }
    static void CarryRectangle(frmImage& image, int dx, int dy) {
        Carry(image.SelectImage, image.Timer1, dx, dy);
    }
    static void CarryFreehand(frmImage& image, int dx, int dy) {
        Carry(image.PicFreeSelect, image.TimerFS, dx, dy);
    }

    static bool CutAndCopyEnabled() {
        const bool all = frmMain->mnuEditCut.Enabled() && frmMain->mnuEditCopy.Enabled() &&
                         frmMain->TB2.Buttons(5).Enabled() && frmMain->TB2.Buttons(6).Enabled();
        const bool any = frmMain->mnuEditCut.Enabled() || frmMain->mnuEditCopy.Enabled() ||
                         frmMain->TB2.Buttons(5).Enabled() || frmMain->TB2.Buttons(6).Enabled();
        EXPECT_EQ(all, any) << "menu and tool bar disagree";
        return all;
    }

    /// A picture with a box in one colour.
    static Bitmap WithBox(Bitmap picture, int left, int top, int width, int height, Pixel colour) {
        for (int y = top; y < top + height; ++y)
            for (int x = left; x < left + width; ++x)
                if (picture.Holds(x, y)) picture.Set(x, y, colour);
        return picture;
    }

    /// A picture with a part of another laid on it at x, y; `key` pixels let the picture through.
    static Bitmap WithPiece(Bitmap picture, const Bitmap& piece, int x, int y, Colour key = -1) {
        for (int j = 0; j < piece.Height(); ++j)
            for (int i = 0; i < piece.Width(); ++i)
                if (picture.Holds(x + i, y + j) && static_cast<Colour>(piece.At(i, j)) != key)
                    picture.Set(x + i, y + j, piece.At(i, j));
        return picture;
    }

    static Bitmap Part(const Bitmap& picture, int left, int top, int width, int height) {
        Bitmap part(width, height, 0);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                part.Set(x, y, picture.At(left + x, top + y));
        return part;
    }

  private:
    static void Grab(Control& under, QEvent::Type type) {
        const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
        QWidget& widget = WidgetFor(under);
        QMouseEvent event(type, QPointF(2, 2), widget.mapToGlobal(QPointF(2, 2)), Qt::LeftButton, held,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(&widget, &event);
    }

    Bitmap before_;
};

} // namespace pintalux
