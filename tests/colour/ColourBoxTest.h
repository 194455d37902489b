// The pointer over the colour panel: the fixture of the tests of its box.
#pragma once

#include "support/Documents.h"
#include "support/Hand.h"
#include "support/Program.h"

#include <QCursor>

namespace pintalux {

class ColourBoxTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        // The whole box must lie in the window, or the screen does not show it.
        frmMain->MDIForm::Move(0, 0, 12000, 11400);
        frmMain->Show();
        PassEvents();
        frmMain->SetCurrentColour(kBefore);
    }

    /// Puts the pointer to a place of a control, in its pixels, with the buttons that are held.
    static void PointAt(const Control& control, double x, double y, int held = 0) {
        const QPointF place(x, y);
        QCursor::setPos(WidgetFor(control).mapToGlobal(place).toPoint());
        Send(control, QEvent::MouseMove, place, 0, held);
    }

    /// A press and a release there.
    static void ClickAt(const Control& control, double x, double y, int button = kLeftButton) {
        pintalux::ClickAt(WidgetFor(control), {x, y}, Toolkit(button));
    }

    /// Commits colours as a pick does.
    static void Collect(const std::vector<Colour>& colours) {
        for (const Colour c : colours) {
            frmMain->TheColor.BackColor(c);
            frmMain->loadselected();
        }
    }

    static Colour BoxPixel(int x, int y) { return frmMain->ColorBox.Point(x, y); }

    static constexpr Colour kBefore = 0x785028; // 40, 80, 120
    static constexpr Colour kEmpty = 0xC0C0C0;

  private:
    static Qt::MouseButton Toolkit(int button) {
        return button == kRightButton  ? Qt::RightButton
               : button == kLeftButton ? Qt::LeftButton
                                       : Qt::NoButton;
    }

    static void Send(const Control& control, QEvent::Type type, const QPointF& place, int button, int held) {
        SendMouse(WidgetFor(control), type, place, Toolkit(button), Toolkit(held));
    }
};

} // namespace pintalux
