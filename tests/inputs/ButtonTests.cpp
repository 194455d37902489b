#include "inputs/ByHand.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Surface.h"

#include <QAccessible>
#include <QGroupBox>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>

namespace pintalux {

namespace {

class ButtonTest : public testing::Test {
  protected:
    ButtonTest() {
        ok.Move(0, 0, 1200, 400);
        cancel.Move(1500, 0, 1200, 400);
        box.Move(0, 600, 1200, 400);
        ok.Click = [this] { ++oks; };
        cancel.Click = [this] { ++cancels; };
        ok.Default(true);
        cancel.Cancel(true);
        WaitFor([&] { return WidgetOf(window)->isActiveWindow(); });
    }
    QPushButton& Ok() { return ToolkitOf<QPushButton>(ok); }

    TestWindow window;
    CommandButton ok{window, "cmdOK", "&OK"};
    CommandButton cancel{window, "cmdCancel", "Cancelar"};
    TextBox box{window, "Text1"};
    int oks = 0;
    int cancels = 0;
};

TEST_F(ButtonTest, ClickRunsOnce) {
    ClickOn(Ok());
    EXPECT_EQ(oks, 1);
}

TEST(PageHead, ItsMarkTurnsWithThePage) {
    TestWindow window;
    CommandButton head(window, "head", "Caneta");
    head.Move(0, 0, 180 * 15, 20 * 15);
    head.HeadsPage(false);
    const auto shown = [&head] { return WidgetOf(head)->grab().toImage().scaled(180, 20); };
    const QRect mark(4, 6, 8, 8);
    const QRect text(14, 0, 166, 20);
    const QImage closed = shown();
    head.HeadsPage(true);
    const QImage open = shown();
    EXPECT_NE(closed.copy(mark), open.copy(mark));
    EXPECT_EQ(closed.copy(text), open.copy(text));
    // Flat, with its text at the left.
    EXPECT_EQ(open.pixel(120, 10), open.pixel(170, 4));
    EXPECT_NE(open.copy(14, 0, 60, 18), open.copy(100, 0, 60, 18));
}

TEST(PageHead, ShowsMarkAndTextInOneInkAndAnswersThePointer) {
    TestWindow window;
    CommandButton head(window, "head", "Caneta");
    head.Move(0, 0, 180 * 15, 20 * 15);
    auto& widget = ToolkitOf<QPushButton>(head);
    QPalette colours;
    colours.setColor(QPalette::Button, Qt::white);
    colours.setColor(QPalette::Midlight, QColor(0xFF, 0xFF, 0x80));
    colours.setColor(QPalette::ButtonText, Qt::red);
    colours.setColor(QPalette::Mid, QColor(0xFF, 0x60, 0x00));
    widget.setPalette(colours);
    const auto shown = [&] { return widget.grab().toImage().scaled(180, 20); };
    for (const bool open : {false, true}) {
        head.HeadsPage(open);
        const QImage image = shown();
        int inked = 0, above = 0, before = 0; // The mark is 8 by 8 pixels from 4, 6 on.
        for (int y = 0; y < 20; ++y) {
            for (int x = 0; x < 180; ++x) {
                const QColor colour = image.pixelColor(x, y);
                ASSERT_EQ(colour.red(), 255) << x << ", " << y << ": neither ground nor ink";
                const bool ink = colour.green() < 128 && y < 19;
                inked += ink && x < 13 ? 1 : 0;
                above += ink && x < 13 && y < 10 ? 1 : 0;
                before += ink && x < 8 ? 1 : 0;
                ASSERT_TRUE(!ink || x >= 4) << "a gap before the mark";
                if (y == 19) {
                    ASSERT_EQ(colour, QColor(0xFF, 0x60, 0x00)) << x;
                }
            }
        }
        EXPECT_GT(inked, 10);
        // Down to the page where it is open, else to the text.
        EXPECT_EQ(above > inked * 3 / 5, open) << above << " of " << inked;
        EXPECT_EQ(before > inked * 3 / 5, !open) << before << " of " << inked;
        // Half of a square of 8 by 8, and its edge at most.
        EXPECT_LE(inked, 8 * 5 / 2 + 8);
    }
    widget.setDown(true);
    EXPECT_EQ(shown().pixelColor(170, 5), QColor(0xFF, 0xFF, 0x80));
    widget.setDown(false);
    EXPECT_EQ(shown().pixelColor(170, 5), QColor(Qt::white));
}

TEST_F(ButtonTest, EnterInATextBoxPressesTheDefault) {
    box.SetFocus();
    Key(ToolkitOf<QLineEdit>(box), Qt::Key_Return, "\r");
    EXPECT_EQ(oks, 1);
    Key(ToolkitOf<QLineEdit>(box), Qt::Key_Enter, "\r");
    EXPECT_EQ(oks, 2);
}

TEST_F(ButtonTest, EscapeInATextBoxPressesCancel) {
    Key(ToolkitOf<QLineEdit>(box), Qt::Key_Escape);
    EXPECT_EQ(cancels, 1);
    EXPECT_EQ(oks, 0);
}

TEST_F(ButtonTest, EscapeWithoutACancelButtonDoesNothing) {
    cancel.Cancel(false);
    Key(ToolkitOf<QLineEdit>(box), Qt::Key_Escape);
    EXPECT_EQ(cancels, 0);
    EXPECT_TRUE(WidgetOf(window)->isVisible());
}

TEST_F(ButtonTest, EnterPressesTheFocusedButtonInsteadOfTheDefault) {
    cancel.SetFocus();
    Key(ToolkitOf<QPushButton>(cancel), Qt::Key_Return, "\r");
    EXPECT_EQ(cancels, 1);
    EXPECT_EQ(oks, 0);
}

TEST_F(ButtonTest, DisabledDefaultIsNotPressed) {
    ok.Enabled(false);
    Key(ToolkitOf<QLineEdit>(box), Qt::Key_Return, "\r");
    EXPECT_EQ(oks, 0);
}

TEST_F(ButtonTest, HeldEnterPressesOnlyOnce) {
    auto& line = ToolkitOf<QLineEdit>(box);
    PressKey(line, Qt::Key_Return, "\r");
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
    QApplication::sendEvent(&line, &repeated);
    EXPECT_EQ(oks, 1);
}

TEST_F(ButtonTest, CaptionMarksTheAccessKey) {
    EXPECT_EQ(Ok().shortcut(), QKeySequence("Alt+O"));
    ok.Caption("&Sim");
    EXPECT_EQ(Ok().text(), "&Sim");
    EXPECT_EQ(ok.Caption(), "&Sim");
}

TEST_F(ButtonTest, MissingPictureLeavesTheCaption) {
    ok.Picture(":/icons/none.svg");
    EXPECT_TRUE(Ok().icon().isNull());
    EXPECT_EQ(Ok().text(), "&OK");
}

TEST_F(ButtonTest, FrameHoldsControlsInTwips) {
    Frame frame(window, "Frame1", "JPEG");
    frame.Move(0, 1500, 3000, 1500);
    CheckBox check(frame, "Check1", "");
    check.Move(150, 300, 600, 300);
    EXPECT_EQ(frame.PixelWidth(), 200);
    EXPECT_EQ(frame.ScaleHeight(), 1500);
    EXPECT_EQ(WidgetOf(check)->parentWidget(), WidgetOf(frame));
    EXPECT_EQ(WidgetOf(check)->geometry(), QRect(10, 20, 40, 20));
    EXPECT_EQ(ToolkitOf<QGroupBox>(frame).title(), "JPEG");
}

TEST_F(ButtonTest, TheBackColorIsShownExactly) {
    ok.BackColor(0x3264C8);
    EXPECT_EQ(ok.BackColor(), 0x3264C8);
    EXPECT_EQ(Ok().grab().toImage().pixelColor(8, 8), QColor(0xC8, 0x64, 0x32));
    ok.BackColor(kSystemMenu);
    EXPECT_NE(Ok().grab().toImage().pixelColor(8, 8), QColor(0xC8, 0x64, 0x32));
}

TEST_F(ButtonTest, TheCaptionCanBeReadOnEveryBackColor) {
    const auto has = [this](QColor ink) {
        const QImage image = Ok().grab().toImage();
        for (int y = 5; y < image.height() - 5; ++y) {
            for (int x = 5; x < image.width() - 5; ++x) {
                if (image.pixelColor(x, y) == ink) return true;
            }
        }
        return false;
    };
    ok.BackColor(kBlack);
    EXPECT_TRUE(has(Qt::white));
    ok.BackColor(0x00FFFF);
    EXPECT_TRUE(has(Qt::black));
}

/// The desktop's style, but for whether it underlines the keys of captions.
class Underlining final : public QProxyStyle {
  public:
    explicit Underlining(bool underlines) : underlines_(underlines) {}
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returned) const override {
        if (hint == SH_UnderlineShortcut) return underlines_ ? 1 : 0;
        return QProxyStyle::styleHint(hint, option, widget, returned);
    }

  private:
    bool underlines_;
};

TEST_F(ButtonTest, AColouredButtonUnderlinesItsKeyAsTheDesktopDoes) {
    Underlining underlining(true);
    Underlining bare(false);
    ok.BackColor(0x3264C8);
    const auto shown = [&](const char* caption, QStyle& style) {
        ok.Caption(caption);
        Ok().setStyle(&style);
        const QImage image = Ok().grab().toImage();
        Ok().setStyle(nullptr);
        return image;
    };
    const QImage plain = shown("OK", bare);
    EXPECT_EQ(shown("&OK", bare), plain);
    EXPECT_NE(shown("&OK", underlining), plain);
}

// A field of colour and a text that the keys press.
TEST(PressedByKeys, AFrameShowsTheFocusAndScreenReadersPress) {
    TestWindow window;
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    TextBox other(window, "other");
    Surface field(window, "field");
    Label text(window, "text");
    field.Move(600, 0, 600, 600);
    text.Move(1500, 0, 900, 300);
    const QColor colour = QApplication::palette().color(QPalette::Highlight);
    int pressed = 0;
    for (Control* control : std::initializer_list<Control*>{&field, &text}) {
        SCOPED_TRACE(control->Name());
        control->PressedByKeys([&] { ++pressed; });
        other.SetFocus();
        EXPECT_FALSE(Framed(WidgetOf(*control)->grab().toImage(), colour));
        control->SetFocus();
        EXPECT_TRUE(Framed(WidgetOf(*control)->grab().toImage(), colour));
        QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(WidgetOf(*control));
        EXPECT_EQ(spoken->role(), QAccessible::Button);
        const QStringList names = spoken->actionInterface()->actionNames();
        ASSERT_FALSE(names.isEmpty());
        EXPECT_EQ(names[0], QAccessibleActionInterface::pressAction());
        pressed = 0;
        spoken->actionInterface()->doAction(names[0]);
        EXPECT_EQ(pressed, 1);
        // Enter and the space bar, not with Ctrl, and once while they are held; other keys go on.
        EXPECT_TRUE(control->Key({13}) && control->Key({32}) && control->Key({13, kShiftMask}));
        EXPECT_TRUE(control->Key({13, 0, true}));
        EXPECT_FALSE(control->Key({13, kCtrlMask}) || control->Key({65}));
        EXPECT_EQ(pressed, 4);
        control->Enabled(false);
        spoken->actionInterface()->doAction(names[0]);
        EXPECT_EQ(pressed, 4);
    }
}

} // namespace

} // namespace pintalux
