// The dialog that composes a line of text.
#include "surface/window/Screen.h"
#include "tools/TextTest.h"

#include <QColorDialog>

namespace pintalux {
namespace {

class TextDialogTest : public TextTest {};

TEST_F(TextDialogTest, StartsWithTheFirstFontBoldInEightPoints) {
    NewDocument(100, 60);
    WithDialog([] {
        EXPECT_EQ(frmText->ComboFont.ListCount(), Screen.FontCount());
        EXPECT_EQ(frmText->ComboFont.ListIndex(), 0);
        EXPECT_EQ(frmText->ComboStyle.ListIndex(), 1);
        EXPECT_EQ(frmText->ComboSize.ListIndex(), 3);
        EXPECT_EQ(frmText->ComboSize.Text(), "8");
        EXPECT_EQ(frmText->lblDisplay.FontName(), Screen.Fonts().front());
        EXPECT_EQ(frmText->lblDisplay.FontSize(), 8);
        EXPECT_TRUE(frmText->lblDisplay.FontBold());
        EXPECT_FALSE(frmText->lblDisplay.FontItalic());
        EXPECT_TRUE(frmText->rtftext.Text().empty());
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, OffersEvenSizesUpTo74) {
    NewDocument(100, 60);
    WithDialog([] {
        ASSERT_EQ(frmText->ComboSize.ListCount(), 37);
        EXPECT_EQ(frmText->ComboSize.List(0), "2");
        EXPECT_EQ(frmText->ComboSize.List(36), "74");
        frmText->ComboSize.ListIndex(36);
        EXPECT_EQ(frmText->lblDisplay.FontSize(), 74);
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, SampleFollowsEveryControl) {
    NewDocument(100, 60);
    WithDialog([] {
        const Label& sample = frmText->lblDisplay;
        const int last = frmText->ComboFont.ListCount() - 1;
        frmText->ComboFont.ListIndex(last);
        EXPECT_EQ(sample.FontName(), Screen.Fonts()[static_cast<std::size_t>(last)]);
        const bool styles[4][2] = {{false, false}, {true, false}, {false, true}, {true, true}};
        for (const int i : {0, 1, 2, 3}) {
            frmText->ComboStyle.ListIndex(i);
            EXPECT_EQ(sample.FontBold(), styles[i][0]) << i;
            EXPECT_EQ(sample.FontItalic(), styles[i][1]) << i;
        }
        frmText->chkStrikeTh.Value(1);
        EXPECT_TRUE(sample.FontStrikethru());
        frmText->chkStrikeTh.Value(0);
        EXPECT_FALSE(sample.FontStrikethru());
        frmText->chkUnderlined.Value(1);
        EXPECT_TRUE(sample.FontUnderline());
        Type(WidgetFor(frmText->rtftext), "abc");
        EXPECT_EQ(sample.Caption(), "abc");
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, StylesAreNamedAsTold) {
    NewDocument(100, 60);
    WithDialog([] {
        const std::vector<std::string> names = {"Regular", "Bold", "Itallic", "Bold Itallic"};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(frmText->ComboStyle.List(i), names[static_cast<std::size_t>(i)]);
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, OkPutsTheTextOverTheViewWithALeadingBlank) {
    frmImage& image = NewDocument(200, 100);
    WithDialog([] {
        frmText->rtftext.Text("Olá");
        frmText->ComboStyle.ListIndex(3);
        frmText->ComboSize.ListIndex(5);
        frmText->chkUnderlined.Value(1);
        frmText->chkStrikeTh.Value(1);
        frmText->lblDisplay.ForeColor(0x0000FF);
        frmText->Command2_Click();
    });
    const Label& label = image.lbltext;
    EXPECT_TRUE(label.Visible());
    EXPECT_EQ(label.Caption(), " Olá");
    EXPECT_EQ(label.FontName(), Screen.Fonts().front());
    EXPECT_EQ(label.FontSize(), 12);
    EXPECT_TRUE(label.FontBold());
    EXPECT_TRUE(label.FontItalic());
    EXPECT_TRUE(label.FontUnderline());
    EXPECT_TRUE(label.FontStrikethru());
    EXPECT_EQ(label.ForeColor(), 0x0000FF);
    EXPECT_EQ(label.Left(), 0);
    EXPECT_EQ(label.Top(), 0);
    ExpectSamePixels(ImageOf(image), Picture(200, 100, 0xFFFFFF));
}

TEST_F(TextDialogTest, EmptyTextShowsALabelOfOneBlank) {
    frmImage& image = NewDocument(100, 60);
    Compose("");
    EXPECT_TRUE(image.lbltext.Visible());
    EXPECT_EQ(image.lbltext.Caption(), " ");
    Click(image, 30, 30);
    EXPECT_FALSE(image.lbltext.Visible());
    ExpectSamePixels(ImageOf(image), Picture(100, 60, 0xFFFFFF));
}

TEST_F(TextDialogTest, LabelIsAsLargeAsTheZoom) {
    frmImage& image = NewDocument(60, 40);
    ZoomToLevel(17);
    Compose("a", 4);
    EXPECT_EQ(image.lbltext.FontSize(), 30);
    image.lbltext.Visible(false);
    ZoomToLevel(14);
    Compose("a", 4);
    EXPECT_EQ(image.lbltext.FontSize(), 5);
}

// The label begins at the corner that is seen.
TEST_F(TextDialogTest, LabelBeginsAtTheVisibleCorner) {
    frmImage& image = NewDocument(900, 900);
    image.HS.Value(120);
    image.VS.Value(75);
    const double left = image.PicBG.Left();
    const double top = image.PicBG.Top();
    ASSERT_LT(left, 0);
    Compose("a");
    EXPECT_EQ(image.lbltext.Left(), -left);
    EXPECT_EQ(image.lbltext.Top(), -top);
}

TEST_F(TextDialogTest, CancelLeavesToolAndImageAsTheyWere) {
    frmImage& image = NewDocument(100, 60);
    Choose("Eraser");
    const int states = States(image);
    WithDialog([] {
        frmText->rtftext.Text("abc");
        PressButton(WidgetFor(*frmText), "Cancelar");
    });
    EXPECT_EQ(CurrentTool, kEraserTool);
    EXPECT_FALSE(image.lbltext.Visible());
    EXPECT_EQ(States(image), states);
    EXPECT_FALSE(frmText.Loaded());
}

TEST_F(TextDialogTest, OkReturnsToTheToolBefore) {
    NewDocument(100, 60);
    Choose("Line");
    Compose("abc");
    EXPECT_EQ(CurrentTool, kLineTool);
    EXPECT_EQ(frmMain->TB2.Buttons(kLineTool).Value(), 1);
}

TEST_F(TextDialogTest, CloseBoxKeepsTextAndSettings) {
    frmImage& image = NewDocument(100, 60);
    WithDialog([] {
        frmText->rtftext.Text("abc");
        frmText->ComboSize.ListIndex(20);
        WidgetFor(*frmText).close();
    });
    EXPECT_TRUE(frmText.Loaded());
    EXPECT_FALSE(image.lbltext.Visible());
    WithDialog([] {
        EXPECT_EQ(frmText->rtftext.Text(), "abc");
        EXPECT_EQ(frmText->ComboSize.ListIndex(), 20);
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, WhatIsTypedAfterTheCloseBoxTakesThePlaceOfTheOldText) {
    NewDocument(100, 60);
    const auto readyForText = [] { return WidgetFor(frmText->rtftext).hasFocus(); };
    WithDialog([&] {
        EXPECT_TRUE(WaitFor(readyForText));
        frmText->rtftext.Text("abc");
        frmText->ComboSize.SetFocus();
        WidgetFor(*frmText).close();
    });
    WidgetFor(*frmMain).activateWindow(); // as a desktop does once a dialog is gone
    PassEvents();
    WithDialog([&] {
        EXPECT_TRUE(WaitFor(readyForText));
        Type(WidgetFor(frmText->rtftext), "x");
        EXPECT_EQ(frmText->rtftext.Text(), "x");
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, OkAndCancelStartAfresh) {
    NewDocument(100, 60);
    Compose("abc", 20);
    EXPECT_FALSE(frmText.Loaded());
    WithDialog([] {
        EXPECT_EQ(frmText->rtftext.Text(), "");
        EXPECT_EQ(frmText->ComboSize.ListIndex(), 3);
        frmText->rtftext.Text("def");
        frmText->Command3_Click();
    });
    WithDialog([] {
        EXPECT_EQ(frmText->rtftext.Text(), "");
        frmText->Command3_Click();
    });
}

TEST_F(TextDialogTest, ExitUnloadsAHiddenDialog) {
    NewDocument(100, 60);
    WithDialog([] { WidgetFor(*frmText).close(); });
    ASSERT_TRUE(frmText.Loaded());
    EXPECT_TRUE(frmMain.Unload());
    EXPECT_FALSE(frmText.Loaded());
    ProgramClosing = false;
}

TEST_F(TextDialogTest, ChosenColourReachesSwatchAndSampleAndACancelKeepsIt) {
    NewDocument(100, 60);
    DialogScript script({[](QWidget&) {
                             frmText->Command1_Click();
                             EXPECT_EQ(frmText->picFontcol.BackColor(), RGB(10, 20, 30));
                             EXPECT_EQ(frmText->lblDisplay.ForeColor(), RGB(10, 20, 30));
                             frmText->Command1_Click();
                             EXPECT_EQ(frmText->picFontcol.BackColor(), RGB(10, 20, 30));
                             EXPECT_EQ(frmText->lblDisplay.ForeColor(), RGB(10, 20, 30));
                             frmText->Command3_Click();
                         },
                         [](QWidget& dialog) {
                             dynamic_cast<QColorDialog&>(dialog).setCurrentColor(QColor(10, 20, 30));
                             PressButton(dialog, "OK");
                         },
                         PressesEscape()});
    Choose("Text");
}

TEST_F(TextDialogTest, LongTextDoesNotWidenTheDialog) {
    NewDocument(100, 60);
    WithDialog([] {
        PassEvents();
        const int width = WidgetFor(*frmText).width();
        frmText->rtftext.Text(std::string(10000, 'W'));
        frmText->ComboSize.ListIndex(36);
        PassEvents();
        EXPECT_EQ(WidgetFor(*frmText).width(), width);
        EXPECT_EQ(frmText->lblDisplay.Caption().size(), 10000u);
        frmText->Command3_Click();
    });
}

} // namespace
} // namespace pintalux
