// The tool bar's tools and the settings panel with its five pages.
#include "support/DialogScript.h"
#include "tools/ToolTest.h"

namespace pintalux {
namespace {

class ToolSettingsTest : public ToolTest {
  protected:
    void SetUp() override {
        ToolTest::SetUp();
        // All pages closed, room for everything.
        for (int i = 0; i < 5; ++i) {
            if (frmMain->PicTools(i).Height() > 300) frmMain->cmdTools_Click(i);
        }
        MakeRoom(9000);
    }

    /// Makes the main window so high that the panel has this height, in twips.
    static void MakeRoom(double height) {
        MDIForm& window = *frmMain;
        window.Height(window.Height() + height - frmMain->ToolSettings.Height());
        ASSERT_TRUE(WaitFor([height] { return frmMain->ToolSettings.Height() == height; }));
    }

    static void ExpectHeights(const std::vector<double>& heights) {
        double top = frmMain->PicTools(0).Top();
        for (int i = 0; i < 5; ++i) {
            EXPECT_EQ(frmMain->PicTools(i).Height(), heights[static_cast<std::size_t>(i)]) << "page " << i;
            EXPECT_EQ(frmMain->PicTools(i).Top(), top) << "page " << i;
            top += frmMain->PicTools(i).Height();
        }
    }
};

TEST_F(ToolSettingsTest, PagesOpenToTheirFullHeightAndClose) {
    const double full[] = {1845, 1980, 900, 2205};
    for (int i = 0; i < 4; ++i) {
        frmMain->cmdTools_Click(i);
        std::vector<double> heights(5, 300);
        heights[static_cast<std::size_t>(i)] = full[i];
        ExpectHeights(heights);
        frmMain->cmdTools_Click(i);
        ExpectHeights(std::vector<double>(5, 300));
    }
    frmMain->ClipPanelHeight = 1234;
    frmMain->cmdTools_Click(4);
    ExpectHeights({300, 300, 300, 300, 1234});
}

TEST_F(ToolSettingsTest, TitlesOfThePages) {
    const char* const titles[] = {"Caneta", "Texturas", "Selecção", "Alterar Cores", "Area Transfêrencia"};
    for (int i = 0; i < 5; ++i)
        EXPECT_EQ(frmMain->cmdTools(i).Caption(), titles[i]);
}

TEST_F(ToolSettingsTest, ButtonOfAPageOpensIt) {
    ClickWidget(WidgetFor(frmMain->cmdTools(1)));
    ExpectHeights({300, 1980, 300, 300, 300});
}

TEST_F(ToolSettingsTest, OpeningAPageChoosesItsTool) {
    for (const auto& [page, tool] : {std::pair(0, 15), {1, 20}, {3, 21}, {2, 13}}) {
        frmMain->cmdTools_Click(page);
        EXPECT_EQ(CurrentTool, tool);
        EXPECT_EQ(frmMain->TB2.Buttons(tool).Value(), 1);
        frmMain->cmdTools_Click(page);
        EXPECT_EQ(CurrentTool, tool) << "closing chooses nothing";
    }
    CurrentTool = kFreeSelectTool;
    frmMain->cmdTools_Click(2);
    EXPECT_EQ(CurrentTool, kFreeSelectTool);
    frmMain->cmdTools_Click(4);
    EXPECT_EQ(CurrentTool, kFreeSelectTool);
}

TEST_F(ToolSettingsTest, WithoutRoomOtherPagesCloseFromTheBottomUp) {
    frmMain->cmdTools_Click(1);
    frmMain->cmdTools_Click(2);
    ExpectHeights({300, 1980, 900, 300, 300});
    // 330 + 300 + 1980 + 900 + 2205 + 300 = 6015: one page too many.
    MakeRoom(5910);
    frmMain->cmdTools_Click(3);
    ExpectHeights({300, 1980, 300, 2205, 300});
}

TEST_F(ToolSettingsTest, WithLittleRoomAllPagesButThePensClose) {
    frmMain->cmdTools_Click(1);
    frmMain->cmdTools_Click(2);
    MakeRoom(4995);
    frmMain->cmdTools_Click(3);
    ExpectHeights({300, 300, 300, 2205, 300});
}

TEST_F(ToolSettingsTest, PageThatJustFitsClosesNothing) {
    frmMain->cmdTools_Click(1);
    MakeRoom(frmMain->PicTools(4).Top() + 300 + 600);
    frmMain->cmdTools_Click(2);
    ExpectHeights({300, 1980, 900, 300, 300});
}

TEST_F(ToolSettingsTest, PenPageAndTheOpenedPageStayOpen) {
    frmMain->cmdTools_Click(0);
    frmMain->cmdTools_Click(3);
    MakeRoom(3900);
    frmMain->cmdTools_Click(1);
    ExpectHeights({1845, 1980, 300, 300, 300});
}

TEST_F(ToolSettingsTest, ToolButtonsOpenTheirPageAndNeverShutIt) {
    NewDocument(20, 20);
    for (const auto& [key, page] : {std::pair("Pen", 0), {"Shapes", 1}, {"Select", 2}, {"ColorWand", 3}}) {
        Choose(key);
        EXPECT_GT(frmMain->PicTools(page).Height(), 300) << key;
        const int tool = CurrentTool;
        Choose(key);
        EXPECT_GT(frmMain->PicTools(page).Height(), 300) << key;
        EXPECT_EQ(CurrentTool, tool);
    }
    frmMain->cmdTools_Click(2);
    Choose("FreeSelect");
    EXPECT_EQ(frmMain->PicTools(2).Height(), 900);
    EXPECT_EQ(CurrentTool, kFreeSelectTool);
}

TEST_F(ToolSettingsTest, EveryToolButtonSetsItsNumber) {
    NewDocument(20, 20);
    for (int number = kFirstTool; number <= kLastTool; ++number) {
        if (TheTools->Row(number).returnsToToolBefore) continue;
        Choose(TheTools->Row(number).key);
        EXPECT_EQ(CurrentTool, number) << TheTools->Row(number).key;
    }
}

TEST_F(ToolSettingsTest, FileAndEditButtonsLeaveTheTool) {
    NewDocument(20, 20);
    Choose("Eraser");
    Choose("Undo");
    Choose("Redo");
    EXPECT_EQ(CurrentTool, kEraserTool);
}

TEST_F(ToolSettingsTest, ChoosingTextReturnsToTheToolBefore) {
    NewDocument(20, 20);
    Choose("Eraser");
    DialogScript script({ClosesDialog()});
    Choose("Text");
    EXPECT_EQ(CurrentTool, kEraserTool);
    EXPECT_EQ(frmMain->TB2.Buttons(kEraserTool).Value(), 1);
}

TEST_F(ToolSettingsTest, RectangleToolHidesAFreehandPiece) {
    frmImage& image = NewDocument(20, 20);
    image.PicFreeSelect.Visible(true);
    Choose("FreeSelect");
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    Choose("Select");
    EXPECT_FALSE(image.PicFreeSelect.Visible());
}

TEST_F(ToolSettingsTest, SlidersStartAtTheirLowEnd) {
    const std::pair<Slider*, std::pair<int, int>> ranges[] = {
        {&frmMain->Slider1, {1, 50}}, {&frmMain->Slider2, {1, 50}},  {&frmMain->Slider3, {1, 50}},
        {&frmMain->Slider4, {1, 10}}, {&frmMain->Slider5, {1, 100}}, {&frmMain->Slider6, {10, 50}}};
    for (const auto& [slider, range] : ranges) {
        EXPECT_EQ(slider->Min(), range.first) << slider->Name();
        EXPECT_EQ(slider->Max(), range.second) << slider->Name();
        EXPECT_EQ(slider->Value(), range.first) << slider->Name();
    }
    EXPECT_FALSE(frmMain->Slider1.Enabled());
    EXPECT_FALSE(frmMain->Label1.Enabled());
    EXPECT_TRUE(frmMain->Option1.Value());
    EXPECT_TRUE(frmMain->Option4.Value());
}

TEST_F(ToolSettingsTest, RoundTipHasNoLengthToSet) {
    const char* const keys[] = {"round", "left", "right", "hori", "vert"};
    for (int i = 4; i >= 0; --i) {
        ClickWidget(*Find(WidgetFor(frmMain->Toolbar1), std::string("Toolbar1_") + keys[i]));
        EXPECT_EQ(frmMain->BrushShape, i);
        EXPECT_EQ(frmMain->Slider1.Enabled(), i != 0);
        EXPECT_EQ(frmMain->Label1.Enabled(), i != 0);
    }
}

TEST_F(ToolSettingsTest, FilledFiguresShowFilledPicturesAndNoLineWidth) {
    std::vector<std::string> outlined;
    for (int i = 1; i <= 4; ++i)
        outlined.push_back(frmMain->Toolbar2.Buttons(i).Image());
    ClickWidget(WidgetFor(frmMain->Option2));
    EXPECT_FALSE(frmMain->Slider3.Enabled());
    for (int i = 1; i <= 4; ++i) {
        EXPECT_NE(frmMain->Toolbar2.Buttons(i).Image(), outlined[static_cast<std::size_t>(i - 1)]);
    }
    ClickWidget(WidgetFor(frmMain->Option1));
    EXPECT_TRUE(frmMain->Slider3.Enabled());
    for (int i = 1; i <= 4; ++i) {
        EXPECT_EQ(frmMain->Toolbar2.Buttons(i).Image(), outlined[static_cast<std::size_t>(i - 1)]);
    }
}

TEST_F(ToolSettingsTest, CloseButtonHidesThePanelAndClearsItsTick) {
    ClickWidget(WidgetFor(frmMain->Command1));
    EXPECT_FALSE(frmMain->ToolSettings.Visible());
    EXPECT_FALSE(frmMain->mnuViewSettingsBar.Checked());
}

} // namespace
} // namespace pintalux
