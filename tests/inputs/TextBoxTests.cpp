#include "inputs/ByHand.h"
#include "support/LineMenu.h"
#include "surface/system/ClipboardData_native.h"
#include "surface/window/Inputs.h"
#include "surface/window/TextPaste_native.h"

#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QPointer>
#include <vector>

namespace pintalux {

namespace {

bool desktopMarksTexts = false; // the invisible one does not

/// While it lives the desktop has a clipboard that tells these texts, and marks one for the middle button.
class OtherProgram {
  public:
    OtherProgram(const QString& marked, const QString& copied, const std::function<void()>& asked = {}) {
        desktopMarksTexts = true;
        AskForTextBy([=](QClipboard::Mode mode) {
            if (asked) asked();
            return mode == QClipboard::Selection ? marked : copied;
        });
    }
    ~OtherProgram() {
        desktopMarksTexts = false;
        AskForTextBy(TextOfOther);
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;
};

void ClickMiddle(QLineEdit& line, int x) {
    Mouse(line, QEvent::MouseButtonPress, {x, line.height() / 2}, Qt::MiddleButton);
    Mouse(line, QEvent::MouseButtonRelease, {x, line.height() / 2}, Qt::MiddleButton);
}

/// A text box, and the texts that its `Change` saw.
class TextBoxTest : public testing::Test {
  protected:
    TextBoxTest() {
        box.Change = [this] { changes.push_back(box.Text()); };
    }
    QLineEdit& Line() { return ToolkitOf<QLineEdit>(box); }
    void DigitsOnly() {
        box.KeyPress = [](int& KeyAscii) {
            if ((KeyAscii < '0' || KeyAscii > '9') && KeyAscii != 8) KeyAscii = 0;
        };
    }

    TestWindow window;
    TextBox box{window, "txtRed"};
    std::vector<std::string> changes;
};

TEST_F(TextBoxTest, AssignmentRunsChangeNested) {
    box.Text("255");
    EXPECT_EQ(changes, std::vector<std::string>{"255"});
    EXPECT_EQ(Line().text(), "255");
}

TEST_F(TextBoxTest, SameTextRunsNothing) {
    box.Text("1");
    box.Text("1");
    EXPECT_EQ(changes.size(), 1U);
}

TEST_F(TextBoxTest, ErrorOfChangePassesToTheAssignment) {
    box.Change = [] { throw RuntimeError(kDeviceError); };
    EXPECT_EQ(ErrorOf([&] { box.Text("x"); }), kDeviceError);
}

TEST_F(TextBoxTest, TypingRunsChangeForEachCharacter) {
    Type(Line(), "12");
    EXPECT_EQ(changes, (std::vector<std::string>{"1", "12"}));
    EXPECT_EQ(box.Text(), "12");
}

TEST_F(TextBoxTest, KeyPressSwallowsWhatItSetsTo0) {
    DigitsOnly();
    Type(Line(), "1A-2");
    EXPECT_EQ(box.Text(), "12");
}

TEST_F(TextBoxTest, BackspaceIs8) {
    DigitsOnly();
    box.Text("12");
    Key(Line(), Qt::Key_Backspace, "\b");
    EXPECT_EQ(box.Text(), "1");
    box.KeyPress = [](int& KeyAscii) { KeyAscii = 0; };
    Key(Line(), Qt::Key_Backspace, "\b");
    EXPECT_EQ(box.Text(), "1");
}

TEST_F(TextBoxTest, KeyPressMayPutAnotherCharacter) {
    box.KeyPress = [](int& KeyAscii) {
        if (KeyAscii == ',') KeyAscii = '.';
    };
    Type(Line(), "1,5");
    EXPECT_EQ(box.Text(), "1.5");
}

TEST_F(TextBoxTest, CursorKeysDeleteEnterAndShortcutsPassNoKeyPress) {
    int presses = 0;
    box.KeyPress = [&](int&) { ++presses; };
    box.Text("12");
    Key(Line(), Qt::Key_Home);
    Key(Line(), Qt::Key_Delete, QString(QChar(127)));
    Key(Line(), Qt::Key_Return, "\r");
    Key(Line(), Qt::Key_A, QString(QChar(1)), Qt::ControlModifier);
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(box.Text(), "2");
    EXPECT_EQ(Line().selectedText(), "2");
}

TEST_F(TextBoxTest, PasteByKeyPassesEachCharacter) {
    DigitsOnly();
    QApplication::clipboard()->setText("a1\nb2 3");
    Key(Line(), Qt::Key_V, QString(QChar(22)), Qt::ControlModifier);
    EXPECT_EQ(box.Text(), "123");
}

TEST_F(TextBoxTest, PasteByMenuPassesEachCharacter) {
    DigitsOnly();
    QApplication::clipboard()->setText("x42");
    PasteByMenu(Line());
    EXPECT_EQ(box.Text(), "42");
}

TEST_F(TextBoxTest, TheMiddleButtonPastesWhatIsMarkedWhereItIsPressed) {
    DigitsOnly();
    box.Move(0, 0, 3000, 400);
    box.Text("14");
    std::vector<std::string> told;
    box.KeyUp = [&](int KeyCode, int Shift) {
        told.push_back(std::to_string(KeyCode) + ' ' + std::to_string(Shift) + ' ' + box.Text());
    };
    {
        const OtherProgram other("a2b3", "9");
        ClickMiddle(Line(), 1);
        EXPECT_EQ(box.Text(), "2314");
        EXPECT_EQ(Line().cursorPosition(), 2);
        ClickMiddle(Line(), Line().width() - 5);
        EXPECT_EQ(box.Text(), "231423");
        EXPECT_EQ(told, (std::vector<std::string>{"45 1 2314", "45 1 231423"}));
        Line().setReadOnly(true);
        ClickMiddle(Line(), 1);
        Line().setReadOnly(false);
    }
    {
        const OtherProgram withoutDigits("abc", "9");
        ClickMiddle(Line(), 1);
    }
    {
        const OtherProgram other("5", "5");
        desktopMarksTexts = false; // nor can this one
        ClickMiddle(Line(), 1);
    }
    EXPECT_EQ(box.Text(), "231423");
    EXPECT_EQ(told.size(), 2U);
}

// The other program may take its time, and a log-out closes the window meanwhile.
TEST_F(TextBoxTest, ATextThatComesForABoxThatIsGoneIsDropped) {
    for (const auto& paste :
         {std::function<void(QLineEdit&)>([](QLineEdit& line) { ClickMiddle(line, 1); }),
          std::function<void(QLineEdit&)>(PasteByMenu), std::function<void(QLineEdit&)>([](QLineEdit& line) {
              PressKey(line, Qt::Key_V, QString(QChar(22)), Qt::ControlModifier);
          })}) {
        int told = 0;
        auto gone = std::make_unique<TextBox>(window, "txtGone");
        gone->KeyUp = [&](int, int) { ++told; };
        const QPointer<QLineEdit> line = &ToolkitOf<QLineEdit>(*gone);
        const OtherProgram other("1", "2", [&] { gone.reset(); });
        paste(*line);
        EXPECT_EQ(line, nullptr);
        EXPECT_EQ(told, 0);
    }
}

// A menu that opens over the box and closes again is no change of the focus for the form.
TEST_F(TextBoxTest, TheFocusThatAMenuBorrowsIsNotTold) {
    std::vector<std::string> told;
    box.GotFocus = [&] { told.emplace_back("got"); };
    box.LostFocus = [&] { told.emplace_back("lost"); };
    const auto send = [this](QEvent::Type type, Qt::FocusReason reason) {
        QFocusEvent event(type, reason);
        QApplication::sendEvent(&Line(), &event);
    };
    send(QEvent::FocusIn, Qt::TabFocusReason);
    send(QEvent::FocusOut, Qt::PopupFocusReason);
    send(QEvent::FocusIn, Qt::PopupFocusReason);
    EXPECT_EQ(told, std::vector<std::string>{"got"});
    send(QEvent::FocusOut, Qt::TabFocusReason);
    EXPECT_EQ(told, (std::vector<std::string>{"got", "lost"}));
}

TEST_F(TextBoxTest, LinesOfTheToolkitsDialogsPasteTheSameWay) {
    QLineEdit line(WidgetOf(window));
    line.setGeometry(0, 100, 200, 30);
    line.show();
    line.setText("14");
    {
        const OtherProgram other("ab", "cd");
        ClickMiddle(line, 1);
        EXPECT_EQ(line.text(), "ab14");
        ClickMiddle(line, 195);
        EXPECT_EQ(line.text(), "ab14ab");
        Key(line, Qt::Key_V, QString(QChar(22)), Qt::ControlModifier);
        EXPECT_EQ(line.text(), "ab14abcd");
        PasteByMenu(line);
        EXPECT_EQ(line.text(), "ab14abcdcd");
        line.setReadOnly(true);
        ClickMiddle(line, 1);
        Key(line, Qt::Key_V, QString(QChar(22)), Qt::ControlModifier);
        line.setReadOnly(false);
    }
    ClickMiddle(line, 1);
    EXPECT_EQ(line.text(), "ab14abcdcd");
}

TEST_F(TextBoxTest, InputMethodPassesEachCharacter) {
    DigitsOnly();
    QInputMethodEvent event;
    event.setCommitString("é7");
    QApplication::sendEvent(&Line(), &event);
    EXPECT_EQ(box.Text(), "7");
}

TEST_F(TextBoxTest, KeyUpComesAfterTheKeyTookEffect) {
    std::vector<std::string> seen;
    box.KeyDown = [&](int KeyCode, int) {
        seen.push_back("down " + std::to_string(KeyCode) + " " + box.Text());
    };
    box.KeyUp = [&](int KeyCode, int) { seen.push_back("up " + std::to_string(KeyCode) + " " + box.Text()); };
    Type(Line(), "A");
    EXPECT_EQ(seen, (std::vector<std::string>{"down 65 ", "up 65 A"}));
}

TEST_F(TextBoxTest, KeyUpTellsTheKeysHeld) {
    int shift = 0;
    box.KeyUp = [&](int, int held) { shift = held; };
    Key(Line(), Qt::Key_Left, {}, Qt::ShiftModifier | Qt::ControlModifier);
    EXPECT_EQ(shift, kShiftMask | kCtrlMask);
}

TEST_F(TextBoxTest, KeyUpMayClampTheText) {
    box.KeyUp = [&](int, int) {
        if (box.Text() == "300") box.Text("255");
    };
    Type(Line(), "300");
    EXPECT_EQ(Line().text(), "255");
}

TEST_F(TextBoxTest, MaxLengthCutsTypingAndAssignment) {
    box.MaxLength(3);
    Type(Line(), "1234");
    EXPECT_EQ(box.Text(), "123");
    box.Text("56789");
    EXPECT_EQ(box.Text(), "567");
    EXPECT_EQ(ErrorOf([&] { box.MaxLength(-1); }), 380);
}

TEST_F(TextBoxTest, TabSelectsAllAndFocusEventsRun) {
    TextBox other(window, "txtGreen");
    box.Text("123");
    int got = 0;
    int lost = 0;
    box.GotFocus = [&] { ++got; };
    box.LostFocus = [&] { ++lost; };
    ASSERT_TRUE(WaitFor([&] { return WidgetOf(window)->isActiveWindow(); }));
    other.SetFocus();
    got = lost = 0;
    Line().setFocus(Qt::TabFocusReason);
    EXPECT_EQ(Line().selectedText(), "123");
    other.SetFocus();
    EXPECT_EQ(got, 1);
    EXPECT_EQ(lost, 1);
}

TEST_F(TextBoxTest, TheBackColorIsWhatLiesBehindTheText) {
    box.Move(0, 0, 1200, 400);
    box.BackColor(0x3264C8);
    EXPECT_EQ(box.BackColor(), 0x3264C8);
    EXPECT_EQ(Line().grab().toImage().pixelColor(Line().width() / 2, 3), QColor(0xC8, 0x64, 0x32));
}

TEST_F(TextBoxTest, SystemColoursComeFromTheDesktop) {
    box.BackColor(kSystemMenu);
    EXPECT_EQ(static_cast<std::uint32_t>(box.BackColor()), 0x80000004U);
    EXPECT_EQ(Line().palette().color(QPalette::Base), QApplication::palette().color(QPalette::Window));
    box.BackColor(kSystem3DLight);
    EXPECT_EQ(static_cast<std::uint32_t>(box.BackColor()), 0x80000016U);
    EXPECT_EQ(Line().palette().color(QPalette::Base), QApplication::palette().color(QPalette::Midlight));
}

} // namespace

} // namespace pintalux

// Stands here once more, and so comes first.
bool QClipboard::supportsSelection() const {
    return pintalux::desktopMarksTexts;
}
