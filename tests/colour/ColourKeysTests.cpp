// The colour box without a pointer: the spectrum, the shades and the grid by keys.
#include "colour/ColourBoxTest.h"

#include <QApplication>

namespace pintalux {
namespace {

class ColourKeysTest : public ColourBoxTest {
  protected:
    void SetUp() override {
        ColourBoxTest::SetUp();
        WidgetFor(*frmMain).activateWindow();
        PassEvents();
    }
    static void Press(int key, int times = 1, Qt::KeyboardModifiers held = Qt::NoModifier) {
        for (int i = 0; i < times; ++i) {
            QWidget* widget = QApplication::focusWidget();
            ASSERT_NE(widget, nullptr);
            QKeyEvent event(QEvent::KeyPress, key, held);
            QCoreApplication::sendEvent(widget, &event);
        }
    }
    static std::string Where() {
        const QWidget* widget = QApplication::focusWidget();
        return widget ? widget->objectName().toStdString() : "nowhere";
    }
    static Colour Current() { return frmMain->TheColor.BackColor(); }
    static Colour Working() { return frmMain->Picture6.BackColor(); }
};

TEST_F(ColourKeysTest, ArrowsPreviewTheSpectrumAndSpaceTakesTheColour) {
    frmMain->Image1.SetFocus();
    EXPECT_TRUE(frmMain->ShCell.Visible()) << "the place is seen";
    Press(Qt::Key_Home);
    // Row 94 of 0 to 187 is just below the middle: red, with 1 part in 187 of black.
    EXPECT_EQ(Working(), RGB(254, 0, 0));
    EXPECT_EQ(Current(), kBefore) << "a preview changes nothing";
    Press(Qt::Key_Up, 8, Qt::ShiftModifier);
    EXPECT_EQ(Working(), RGB(255, 255, 255));
    Press(Qt::Key_PageDown, 16);
    EXPECT_EQ(Working(), RGB(0, 0, 0));
    Press(Qt::Key_Home);
    Press(Qt::Key_Up, 76);
    Press(Qt::Key_Space);
    EXPECT_EQ(Current(), RGB(254, 0, 0));
    EXPECT_EQ(CollectionCount, 1);
    EXPECT_EQ(BoxPixel(8, 164), RGB(254, 0, 0)) << "it is the first colour of the grid";
}

TEST_F(ColourKeysTest, TheGreyColumnAndTheCornersCanBeReached) {
    frmMain->Image1.SetFocus();
    Press(Qt::Key_End);
    Press(Qt::Key_PageUp, 20);
    EXPECT_EQ(Working(), RGB(255, 255, 255));
    Press(Qt::Key_PageDown, 5);
    // Row 61 of 0 to 187: 255 * (1 - 61 / 187) = 171.8
    EXPECT_EQ(Working(), RGB(172, 172, 172));
}

/// The colours from the edge of the mark inwards, half-way down, as they are shown.
std::vector<QRgb> EdgeOfTheMark() {
    const ShapeControl& mark = frmMain->ShCell;
    const QImage shown = WidgetFor(frmMain->ColorBox).grab().toImage();
    const auto y = static_cast<int>(mark.Top() + mark.Height() / 2);
    std::vector<QRgb> colours;
    colours.reserve(3);
    for (int i = 0; i < 3; ++i)
        colours.push_back(shown.pixel(static_cast<int>(mark.Left()) + i, y) & 0xFFFFFF);
    return colours;
}

TEST_F(ColourKeysTest, TheMarkIsTwoPixelsWideAndStandsOutFromWhatLiesBelow) {
    Collect({RGB(100, 110, 120), RGB(60, 70, 80)});
    frmMain->ColorBox.SetFocus();
    Press(Qt::Key_Right);
    EXPECT_EQ(frmMain->ShCell.Left(), 18 - 1);
    EXPECT_EQ(frmMain->ShCell.Top(), 156 - 1);
    EXPECT_EQ(frmMain->ShCell.Width(), 18);
    EXPECT_EQ(frmMain->ShCell.Height(), 18);
    EXPECT_EQ(EdgeOfTheMark(), (std::vector<QRgb>{0, 0, qRgb(60, 70, 80) & 0xFFFFFF}));
    frmMain->Image1.SetFocus();
    Press(Qt::Key_Home);
    Press(Qt::Key_PageUp, 3);
    const std::vector<QRgb> onBright = EdgeOfTheMark();
    EXPECT_EQ(onBright[0], 0U);
    EXPECT_EQ(onBright[1], 0U);
    EXPECT_NE(onBright[2], 0U);
    Press(Qt::Key_PageDown, 9);
    const std::vector<QRgb> onDark = EdgeOfTheMark();
    EXPECT_EQ(onDark[0], 0xFFFFFFU);
    EXPECT_EQ(onDark[1], 0xFFFFFFU);
    EXPECT_NE(onDark[2], 0xFFFFFFU);
}

TEST_F(ColourKeysTest, AKeyTakesTheMarkedColourWhereverThePointerRests) {
    Collect({RGB(100, 110, 120), RGB(60, 70, 80)});
    frmMain->SetCurrentColour(kBefore);
    frmMain->ColorBox.SetFocus();
    Press(Qt::Key_Right);
    PointAt(frmMain->ColorBox, 8, 164);
    ASSERT_EQ(Working(), RGB(100, 110, 120));
    Press(Qt::Key_Menu);
    EXPECT_EQ(Working(), RGB(60, 70, 80)) << "the shades are those of the mark";
    Press(Qt::Key_Escape);
    PointAt(frmMain->ColorBox, 8, 165);
    ASSERT_EQ(Working(), RGB(100, 110, 120));
    Press(Qt::Key_Space);
    EXPECT_EQ(Current(), RGB(60, 70, 80));
    frmMain->Image1.SetFocus();
    Press(Qt::Key_Home);
    PointAt(frmMain->Image1, 50, 20);
    ASSERT_NE(Working(), RGB(254, 0, 0));
    Press(Qt::Key_Menu);
    EXPECT_EQ(Working(), RGB(254, 25, 25));
    Press(Qt::Key_Escape);
    PointAt(frmMain->Image1, 51, 20);
    ASSERT_NE(Working(), RGB(254, 0, 0));
    Press(Qt::Key_Space);
    EXPECT_EQ(Current(), RGB(254, 0, 0));
}

TEST_F(ColourKeysTest, ShadesOpenOnTheSpectrumAndGiveOne) {
    frmMain->Image1.SetFocus();
    Press(Qt::Key_Home);
    Press(Qt::Key_Space, 1, Qt::ShiftModifier);
    EXPECT_TRUE(frmMain->picColBlowup.Visible());
    EXPECT_EQ(Where(), "picColBlowup");
    // The strip begins 25 below red, and at 0 for the others.
    EXPECT_EQ(Working(), RGB(254, 25, 25));
    Press(Qt::Key_Up, 2);
    EXPECT_EQ(Working(), RGB(252, 23, 23));
    Press(Qt::Key_Home);
    EXPECT_EQ(Working(), RGB(229, 0, 0));
    Press(Qt::Key_End);
    EXPECT_EQ(Working(), RGB(255, 50, 50));
    Press(Qt::Key_Return);
    EXPECT_EQ(Current(), RGB(255, 50, 50));
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
    EXPECT_EQ(Where(), "Image1");
    EXPECT_EQ(CollectionCount, 1);
}

// Eight colours: a row of six, and two below.
TEST_F(ColourKeysTest, ArrowsStayOnTheColoursOfTheGrid) {
    std::vector<Colour> colours;
    colours.reserve(8);
    for (int i = 0; i < 8; ++i)
        colours.push_back(RGB(10 + i, 20, 30));
    Collect(colours);
    frmMain->ColorBox.SetFocus();
    const auto at = [] { return Working() - RGB(10, 20, 30); }; // The place is the share of red.
    struct Step {
        int key;
        int place;
    };
    Press(Qt::Key_Home);
    for (const Step& step : {Step{Qt::Key_Left, 0},
                             {Qt::Key_Up, 0},
                             {Qt::Key_Down, 6},
                             {Qt::Key_Down, 6},
                             {Qt::Key_Right, 7},
                             {Qt::Key_Right, 7},
                             {Qt::Key_Up, 1},
                             {Qt::Key_Right, 2},
                             {Qt::Key_Down, 2}, // Nothing lies below.
                             {Qt::Key_End, 7},
                             {Qt::Key_Left, 6},
                             {Qt::Key_Up, 0},
                             {Qt::Key_End, 7},
                             {Qt::Key_Home, 0}}) {
        Press(step.key);
        ASSERT_EQ(at(), step.place) << step.key;
        EXPECT_EQ(frmMain->ShCell.Left(), std::max(step.place % 6 * 18 - 1, 0));
        EXPECT_EQ(frmMain->ShCell.Top(), 155 + step.place / 6 * 18);
    }
}

TEST_F(ColourKeysTest, ShadesOfAColourOfTheGridCloseByEscape) {
    Collect({RGB(100, 110, 120), RGB(60, 70, 80)});
    frmMain->SetCurrentColour(kBefore);
    frmMain->ColorBox.SetFocus();
    Press(Qt::Key_Right);
    EXPECT_EQ(Working(), RGB(60, 70, 80));
    Press(Qt::Key_Menu);
    EXPECT_TRUE(frmMain->picColBlowup.Visible());
    EXPECT_EQ(Working(), RGB(60, 70, 80)) << "the middle of the strip";
    Press(Qt::Key_Down, 3);
    EXPECT_EQ(Working(), RGB(63, 73, 83));
    Press(Qt::Key_Escape);
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
    EXPECT_EQ(Where(), "ColorBox");
    EXPECT_EQ(Current(), kBefore);
    EXPECT_EQ(CollectionCount, 2);
}

TEST_F(ColourKeysTest, AKeyThatActsGoesNoFurtherAndAllOthersDo) {
    Collect({RGB(100, 110, 120), RGB(60, 70, 80)});
    const auto taken = [](const Control& part, int key, bool repeated = false) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, {}, repeated);
        QCoreApplication::sendEvent(&WidgetFor(part), &event);
        return event.isAccepted();
    };
    for (Control* part :
         {static_cast<Control*>(&frmMain->Image1), static_cast<Control*>(&frmMain->ColorBox)}) {
        SCOPED_TRACE(part->Name());
        part->SetFocus();
        for (const int key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Space})
            EXPECT_TRUE(taken(*part, key)) << key;
        EXPECT_TRUE(taken(*part, Qt::Key_Space, true)) << "held down";
        for (const int key : {Qt::Key_Q, Qt::Key_Escape, Qt::Key_F8})
            EXPECT_FALSE(taken(*part, key)) << key;
        EXPECT_TRUE(taken(*part, Qt::Key_Menu));
        ASSERT_EQ(Where(), "picColBlowup");
        EXPECT_TRUE(taken(frmMain->picColBlowup, Qt::Key_Down));
        EXPECT_TRUE(taken(frmMain->picColBlowup, Qt::Key_Escape, true)) << "held down it closes nothing";
        EXPECT_TRUE(frmMain->picColBlowup.Visible());
        EXPECT_FALSE(taken(frmMain->picColBlowup, Qt::Key_Q));
        EXPECT_TRUE(taken(frmMain->picColBlowup, Qt::Key_Escape));
        EXPECT_FALSE(frmMain->picColBlowup.Visible());
    }
}

TEST_F(ColourKeysTest, TheMarkAndThePreviewGoWithTheFocus) {
    Collect({RGB(100, 110, 120), RGB(60, 70, 80)});
    for (Control* part :
         {static_cast<Control*>(&frmMain->Image1), static_cast<Control*>(&frmMain->ColorBox)}) {
        SCOPED_TRACE(part->Name());
        part->SetFocus();
        Press(Qt::Key_Home);
        EXPECT_TRUE(frmMain->ShCell.Visible());
        EXPECT_NE(Working(), Current());
        frmMain->txtRed.SetFocus();
        EXPECT_FALSE(frmMain->ShCell.Visible());
        EXPECT_EQ(Working(), Current());
    }
}

TEST_F(ColourKeysTest, ShadesGoWithTheFocus) {
    frmMain->Image1.SetFocus();
    Press(Qt::Key_Menu);
    EXPECT_TRUE(frmMain->picColBlowup.Visible());
    frmMain->txtRed.SetFocus();
    EXPECT_FALSE(frmMain->picColBlowup.Visible());
    EXPECT_FALSE(frmMain->ShCell.Visible());
    EXPECT_EQ(Working(), kBefore);
}

TEST_F(ColourKeysTest, ShadesOfThePointerTakeNoKeys) {
    PointAt(frmMain->Image1, 50, 70);
    ClickAt(frmMain->Image1, 50, 70, kRightButton);
    ASSERT_TRUE(frmMain->picColBlowup.Visible());
    frmMain->picColBlowup.SetFocus();
    const Colour before = Working();
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    EXPECT_EQ(Working(), before);
    EXPECT_EQ(Current(), kBefore);
}

} // namespace
} // namespace pintalux
