// Floating text: its drag and its print.
#include "tools/Text.h"

#include "surface/window/Screen.h"
#include "tools/Image1_Pointer.h"
#include "tools/TextTest.h"

#include <algorithm>
#include <QCoreApplication>
#include <QCursor>
#include <QFontDatabase>
#include <QImage>
#include <QMouseEvent>
#include <QPixmap>
#include <QWidget>

namespace pintalux {
namespace {

/// The hand on the label: a press at the pointer's place, moves of the pointer, a release.
class LabelHand {
  public:
    explicit LabelHand(frmImage& image) : widget_(WidgetFor(image.lbltext)) {}

    void Press(int x, int y) {
        QCursor::setPos(x, y);
        Send(QEvent::MouseButtonPress);
    }
    static void MoveTo(int x, int y) { QCursor::setPos(x, y); }
    void Release() { Send(QEvent::MouseButtonRelease); }

  private:
    void Send(QEvent::Type type) {
        QMouseEvent event(type, QPointF(2, 2), widget_.mapToGlobal(QPointF(2, 2)), Qt::LeftButton,
                          type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&widget_, &event);
    }
    QWidget& widget_;
};

TEST_F(TextTest, DragMovesTheLabelWithThePointer) {
    frmImage& image = NewDocument(300, 200);
    Compose("Olá");
    LabelHand hand(image);
    hand.Press(103, 88);
    EXPECT_TRUE(image.Timer3.Enabled());
    EXPECT_EQ(image.TextGrabX, 103);
    EXPECT_EQ(image.TextGrabY, 88);
    LabelHand::MoveTo(140, 101);
    EXPECT_TRUE(WaitFor([&] { return image.lbltext.Left() == 37 && image.lbltext.Top() == 13; }));
    hand.Release();
    EXPECT_FALSE(image.Timer3.Enabled());
    ExpectSamePixels(ImageOf(image), Picture(300, 200, 0xFFFFFF));
}

// Both the grab and the moves snap to the view pixels at which image pixels begin.
TEST_F(TextTest, DragSnapsToTheGridOfImagePixels) {
    frmImage& image = NewDocument(60, 40);
    ZoomToLevel(18);
    Compose("a", 0);
    const double left = image.lbltext.Left();
    const double top = image.lbltext.Top();
    LabelHand hand(image);
    hand.Press(103, 89);
    EXPECT_EQ(image.TextGrabX, 100 - left);
    EXPECT_EQ(image.TextGrabY, 88 - top);
    LabelHand::MoveTo(118, 95);
    EXPECT_TRUE(WaitFor([&] { return image.lbltext.Left() == left + 16 && image.lbltext.Top() == top + 4; }));
    hand.Release();
}

TEST_F(TextTest, PressPrintsTheTextWhereItFloats) {
    frmImage& image = NewDocument(200, 100);
    Compose("Olá");
    image.lbltext.Left(40);
    image.lbltext.Top(25);
    const Picture expected = Printed(image.lbltext, 200, 100, 40, 25);
    ASSERT_GT(InkIn(expected), 30);
    Choose("Pen");
    const int states = States(image);
    Press(image, 150, 90);
    EXPECT_FALSE(image.lbltext.Visible());
    ExpectSamePixels(ImageOf(image), expected);
    Release(image, 150, 90);
    ExpectSamePixels(ImageOf(image), expected);
    ExpectSamePixels(image.Image1.Picture(), expected);
    EXPECT_EQ(States(image), states + 1);
}

// A stroke of the wand whose release went elsewhere leaves the image drawing on the screen alone.
TEST_F(TextTest, TextIsPrintedIntoTheImageWhateverAStrokeLeftBehind) {
    frmImage& image = NewDocument(200, 100);
    Compose("Olá");
    image.lbltext.Left(40);
    image.lbltext.Top(25);
    const Picture expected = Printed(image.lbltext, 200, 100, 40, 25);
    image.PicMerge.AutoRedraw(false);
    image.PicMerge.DrawMode(kDrawInvert);
    LayDown(image);
    ExpectSamePixels(ImageOf(image), expected);
    ExpectSamePixels(image.Image1.Picture(), expected);
}

TEST_F(TextTest, PrintTakesEveryAttributeOfTheLabel) {
    frmImage& image = NewDocument(300, 120);
    WithDialog([] {
        frmText->rtftext.Text("Ção");
        frmText->ComboFont.ListIndex(frmText->ComboFont.ListCount() - 1);
        frmText->ComboSize.ListIndex(13);
        frmText->ComboStyle.ListIndex(3);
        frmText->chkStrikeTh.Value(1);
        frmText->chkUnderlined.Value(1);
        frmText->lblDisplay.ForeColor(RGB(200, 30, 40));
        frmText->Command2_Click();
    });
    const Picture expected = Printed(image.lbltext, 300, 120, 0, 0);
    Press(image, 250, 100);
    Release(image, 250, 100);
    ExpectSamePixels(ImageOf(image), expected);
    EXPECT_EQ(image.PicMerge.FontSize(), 28);
    EXPECT_TRUE(image.PicMerge.FontItalic());
    EXPECT_EQ(image.PicMerge.ForeColor(), RGB(200, 30, 40));
}

TEST_F(TextTest, UndoTakesThePrintedTextAway) {
    frmImage& image = NewDocument(200, 100);
    Choose("Pen");
    Compose("abc");
    Click(image, 150, 90);
    ASSERT_GT(InkIn(ImageOf(image)), 0);
    pintalux::Choose(frmMain->mnuEditUndo);
    EXPECT_EQ(InkIn(ImageOf(image)), 0);
}

// The label's size and place count as they are on the view.
TEST_F(TextTest, PrintAtAZoomTakesTheLabelsOwnSizeAndPlace) {
    frmImage& image = NewDocument(200, 150);
    ZoomToLevel(16);
    Compose("a", 9);
    image.lbltext.Left(60);
    image.lbltext.Top(40);
    const Picture expected = Printed(image.lbltext, 200, 150, 60, 40);
    ASSERT_EQ(image.lbltext.FontSize(), 40);
    Click(image, 10, 10);
    ExpectSamePixels(ImageOf(image), expected);
    ASSERT_GT(InkIn(expected), 0);
}

TEST_F(TextTest, CommandPrintsWhereTheImageWasPrintedOnLast) {
    frmImage& image = NewDocument(200, 150);
    Compose("abc");
    image.lbltext.Left(60);
    image.lbltext.Top(40);
    const Picture expected = Printed(image.lbltext, 200, 150, 0, 0);
    const int states = States(image);
    image.NeedtoPaste();
    EXPECT_FALSE(image.lbltext.Visible());
    ExpectSamePixels(ImageOf(image), expected);
    EXPECT_EQ(States(image), states + 1);
    const double below = image.PicMerge.CurrentY();
    EXPECT_GT(below, 0);
    Compose("def");
    image.NeedtoPaste();
    Picture both = Printed(image.lbltext, 200, 150, 0, below);
    for (int y = 0; y < 150; ++y) {
        for (int x = 0; x < 200; ++x) {
            if (expected.At(x, y) != 0xFFFFFF) both.Set(x, y, expected.At(x, y));
        }
    }
    ExpectSamePixels(ImageOf(image), both);
}

TEST_F(TextTest, SecondUseOfTheToolPrintsTheFirstText) {
    frmImage& image = NewDocument(200, 100);
    Compose("abc");
    WithDialog([&] {
        EXPECT_FALSE(image.lbltext.Visible());
        EXPECT_GT(InkIn(ImageOf(image)), 0);
        frmText->Command3_Click();
    });
}

TEST_F(TextTest, MagnifierLeavesTheTextFloating) {
    frmImage& image = NewDocument(200, 100);
    Compose("abc");
    Choose("Mag");
    Press(image, 10, 10);
    Release(image, 10, 10);
    EXPECT_TRUE(image.lbltext.Visible());
    EXPECT_EQ(InkIn(ImageOf(image)), 0);
}

/// Prints the text that floats by a press, and expects the pixels that the view showed of it.
void ExpectThePrintOfWhatFloats(frmImage& image) {
    PassEvents();
    const QImage floating = WidgetFor(image.PicBG).grab().toImage();
    Press(image, 150, 90);
    Release(image, 150, 90);
    const Picture printed = ImageOf(image);
    for (int y = 0; y < printed.Height(); ++y) {
        for (int x = 0; x < printed.Width(); ++x) {
            const QRgb seen = floating.pixel(x, y);
            ASSERT_EQ(static_cast<Pixel>(RGB(qRed(seen), qGreen(seen), qBlue(seen))), printed.At(x, y))
                << x << ", " << y;
        }
    }
}

// The label on the view and the print in the image are the same glyphs.
TEST_F(TextTest, LabelShowsThePixelsThatArePrinted) {
    frmMain->MDIForm::Move(0, 0, 12000, 9000);
    frmMain->Show();
    frmImage& image = NewDocument(200, 100);
    Compose("Água");
    image.lbltext.Left(20);
    image.lbltext.Top(10);
    ExpectThePrintOfWhatFloats(image);
    EXPECT_GT(InkIn(ImageOf(image)), 30);
}

TEST_F(TextTest, FontWithoutAStyleShowsWhatItPrintsInEveryStyle) {
    const std::vector<std::string>& fonts = Screen.Fonts();
    const auto lacking = std::find_if(fonts.begin(), fonts.end(), [](const std::string& font) {
        const QString family = QString::fromStdString(font);
        const QStringList styles = QFontDatabase::styles(family);
        return std::none_of(styles.begin(), styles.end(),
                            [&](const QString& style) { return QFontDatabase::italic(family, style); });
    });
    if (lacking == fonts.end()) GTEST_SKIP() << "every font of this machine has an italic";
    frmMain->MDIForm::Move(0, 0, 12000, 9000);
    frmMain->Show();
    for (int style = 0; style < 4; ++style) {
        SCOPED_TRACE(*lacking + ", style " + std::to_string(style));
        frmImage& image = NewDocument(200, 100);
        WithDialog([&] {
            frmText->rtftext.Text("abc 123");
            frmText->ComboFont.ListIndex(static_cast<int>(lacking - fonts.begin()));
            frmText->ComboStyle.ListIndex(style);
            frmText->ComboSize.ListIndex(11);
            frmText->Command2_Click();
        });
        EXPECT_EQ(image.lbltext.FontName(), *lacking);
        ExpectThePrintOfWhatFloats(image);
        EXPECT_GT(InkIn(ImageOf(image)), 0);
    }
}

TEST_F(TextTest, TextMuchLargerThanTheImageIsCutToIt) {
    frmImage& image = NewDocument(50, 40);
    ZoomToLevel(30);
    Compose(std::string(10000, 'W'), 36);
    EXPECT_EQ(image.lbltext.FontSize(), 74 * 16);
    image.lbltext.Left(-900);
    image.lbltext.Top(-700);
    Click(image, 20, 20);
    EXPECT_FALSE(image.lbltext.Visible());
    EXPECT_GT(InkIn(ImageOf(image)), 0);
}

TEST_F(TextTest, TextFarOutsideTheImagePrintsNothing) {
    frmImage& image = NewDocument(50, 40);
    Compose("abc");
    image.lbltext.Left(30000);
    image.lbltext.Top(-30000);
    Click(image, 20, 20);
    EXPECT_EQ(InkIn(ImageOf(image)), 0);
}

} // namespace
} // namespace pintalux
