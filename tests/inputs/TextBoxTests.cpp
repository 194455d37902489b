#include "inputs/ByHand.h"
#include "surface/window/Inputs.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMenu>
#include <vector>

namespace pintalux {

namespace {

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
    QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, Line().mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&Line(), &event);
    auto* menu = Line().findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    for (QAction* action : menu->actions())
        if (action->text().startsWith("C&olar")) action->trigger();
    menu->close();
    QApplication::processEvents();
    EXPECT_EQ(box.Text(), "42");
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
