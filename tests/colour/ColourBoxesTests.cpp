// What is typed into the six boxes of the colour panel.
#include "support/Documents.h"
#include "support/Program.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QWidget>

namespace pintalux {
namespace {

class ColourBoxesTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        frmMain->SetCurrentColour(RGB(10, 20, 30));
    }

    /// Clears the box key by key and types; one key event for each.
    static void Retype(TextBox& box, const std::string& text) {
        box.Text("");
        Type(WidgetFor(box), text);
    }

    int FirstError() {
        const int number = untrapped.empty() ? 0 : untrapped.front().Number();
        untrapped.clear();
        return number;
    }
};

TEST_F(ColourBoxesTest, NumberInAnRgbBoxMovesBarAndColour) {
    Retype(frmMain->txtGreen, "77");
    EXPECT_EQ(frmMain->VSgreen.Value(), 255 - 77);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 77, 30));
    EXPECT_EQ(frmMain->TypedValue, 77);
    Retype(frmMain->txtBlue, "5");
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 77, 5));
}

// Also where the number stands there already.
TEST_F(ColourBoxesTest, EveryDigitEndsTheTypingOfANumber) {
    for (int digit = 0; digit <= 9; ++digit) {
        frmMain->SetCurrentColour(RGB(digit, 20, 30));
        frmMain->TypedValue = 77;
        frmMain->txtRed.KeyUp('0' + digit, 0);
        EXPECT_EQ(frmMain->TypedValue, digit);
        frmMain->TypedValue = 77;
        for (const int mask : {kCtrlMask, kAltMask})
            frmMain->txtRed.KeyUp('0' + digit, mask);
        for (const int other : {int{'0'} - 1, int{'9'} + 1, int{'A'}})
            frmMain->txtRed.KeyUp(other, 0);
        EXPECT_EQ(frmMain->TypedValue, 77);
    }
}

TEST_F(ColourBoxesTest, LettersAreDropped) {
    for (TextBox* box : {&frmMain->txtRed, &frmMain->txtGreen, &frmMain->txtBlue, &frmMain->txtHue,
                         &frmMain->txtSat, &frmMain->txtLum}) {
        const std::string before = box->Text();
        Type(WidgetFor(*box), "a-x. +e");
        EXPECT_EQ(box->Text(), before) << box->Name();
    }
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 20, 30));
    EXPECT_TRUE(untrapped.empty());
}

// The box of the saturation would take the number of the hue at each of them.
TEST_F(ColourBoxesTest, KeyThatTypesNothingChangesNoColour) {
    for (TextBox* box : {&frmMain->txtRed, &frmMain->txtHue, &frmMain->txtSat, &frmMain->txtLum}) {
        for (const int key : {Qt::Key_Tab, Qt::Key_Shift, Qt::Key_Control, Qt::Key_Left, Qt::Key_Up,
                              Qt::Key_Home, Qt::Key_Escape, Qt::Key_Q, Qt::Key_F1}) {
            QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
            QCoreApplication::sendEvent(&WidgetFor(*box), &release);
            EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 20, 30)) << box->Name() << " " << key;
        }
        QKeyEvent copy(QEvent::KeyRelease, Qt::Key_1, Qt::ControlModifier);
        QCoreApplication::sendEvent(&WidgetFor(*box), &copy);
        EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 20, 30)) << box->Name();
    }
}

// A number that a menu pasted counts at the next key, whatever that is.
TEST_F(ColourBoxesTest, PastedNumberCountsAtTheNextKey) {
    frmMain->txtRed.Text("99");
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Tab, Qt::NoModifier);
    QCoreApplication::sendEvent(&WidgetFor(frmMain->txtRed), &release);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(99, 20, 30));
}

// A number that a menu pasted is read with those of its neighbours before a key of its own is released.
TEST_F(ColourBoxesTest, PastedNumberOfAnySizeIsClampedWhereItIsRead) {
    const std::string pasted = "99999999999";
    frmMain->txtRed.Text(pasted);
    Retype(frmMain->txtGreen, "77");
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(255, 77, 30));
    frmMain->txtHue.Text(pasted);
    Type(WidgetFor(frmMain->txtSat), "1");
    EXPECT_EQ(FirstError(), 380); // as any hue above 240
    frmMain->SetCurrentColour(RGB(10, 20, 30));
    frmMain->txtSat.Text(pasted);
    frmMain->VSlum.Value(100);
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(ColourBoxesTest, EmptyBoxReadsAsZeroAndTheBarGoesToTheBottom) {
    frmMain->txtRed.Text("7");
    Type(WidgetFor(frmMain->txtRed), "\b");
    EXPECT_EQ(frmMain->VSred.Value(), 255);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(0, 20, 30));
    EXPECT_EQ(frmMain->txtRed.Text(), "0");
}

TEST_F(ColourBoxesTest, ThreeHundredBecomes255) {
    Retype(frmMain->txtRed, "300");
    EXPECT_EQ(frmMain->VSred.Value(), 0);
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(255, 20, 30));
    EXPECT_EQ(frmMain->txtRed.Text(), "255");
    EXPECT_EQ(frmMain->TypedValue, 255);
}

// Where the bar stands there already, no event rewrites the text: the blank of the number's form stays.
TEST_F(ColourBoxesTest, ClampedTextKeepsItsLeadingBlankWhileTheBarStays) {
    frmMain->SetCurrentColour(RGB(255, 20, 30));
    frmMain->txtRed.Text("256");
    Type(WidgetFor(frmMain->txtRed), "7");
    EXPECT_EQ(frmMain->txtRed.Text(), " 255");
    EXPECT_EQ(frmMain->VSred.Value(), 0);
}

TEST_F(ColourBoxesTest, LongRunsOfDigitsAreClampedFirst) {
    Retype(frmMain->txtBlue, "999999999");
    EXPECT_EQ(frmMain->TheColor.BackColor(), RGB(10, 20, 255));
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(ColourBoxesTest, NumberInAnHslBoxMovesTheColour) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    Retype(frmMain->txtHue, "8");
    EXPECT_EQ(frmMain->VShue.Value(), 240 - 8);
    EXPECT_EQ(frmMain->TheColor.BackColor(), HslToRgb({8, 240, 120}));
    Retype(frmMain->txtLum, "6");
    EXPECT_EQ(frmMain->TheColor.BackColor(), HslToRgb({8, 240, 6}));
}

TEST_F(ColourBoxesTest, TwoHundredAndFiftyInAHueBoxIsTheErrorOfAPropertyAtTheTop) {
    for (TextBox* box : {&frmMain->txtHue, &frmMain->txtLum}) {
        box->Text("25");
        Type(WidgetFor(*box), "0");
        EXPECT_EQ(FirstError(), kInvalidPropertyValue) << box->Name();
    }
}

TEST_F(ColourBoxesTest, TwoHundredAndFortyIsTheLastThatAHueTakes) {
    frmMain->txtHue.Text("24");
    Type(WidgetFor(frmMain->txtHue), "0");
    EXPECT_EQ(frmMain->VShue.Value(), 0);
    frmMain->txtHue.Text("24");
    Type(WidgetFor(frmMain->txtHue), "1");
    EXPECT_EQ(FirstError(), kInvalidPropertyValue);
}

TEST_F(ColourBoxesTest, ThreeHundredInAHueBoxIsClampedTo255AndRefused) {
    frmMain->txtHue.Text("30");
    Type(WidgetFor(frmMain->txtHue), "0");
    EXPECT_EQ(frmMain->txtHue.Text(), " 255");
    EXPECT_EQ(FirstError(), kInvalidPropertyValue);
}

TEST_F(ColourBoxesTest, SaturationTakesTheNumberOfTheHueBox) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    ASSERT_EQ(frmMain->txtHue.Text(), "20");
    frmMain->txtSat.Text("10");
    Type(WidgetFor(frmMain->txtSat), "0");
    EXPECT_EQ(frmMain->txtSat.Text(), "20");
    EXPECT_EQ(frmMain->VSsat.Value(), 240 - 20);
    EXPECT_EQ(frmMain->txtHue.Text(), "20");
}

TEST_F(ColourBoxesTest, SaturationIsTestedInItsOwnBox) {
    frmMain->SetCurrentColour(RGB(255, 128, 0));
    frmMain->VSsat.Value(240 - 20);
    frmMain->txtSat.Text("30");
    Type(WidgetFor(frmMain->txtSat), "0");
    EXPECT_EQ(frmMain->txtSat.Text(), " 255");
    EXPECT_EQ(frmMain->VSsat.Value(), 240 - 20);
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(ColourBoxesTest, SaturationIsRefusedByTheNumberOfTheHueBox) {
    frmMain->txtHue.Text("250");
    Type(WidgetFor(frmMain->txtSat), "1");
    EXPECT_EQ(FirstError(), kInvalidPropertyValue);
}

} // namespace
} // namespace pintalux
