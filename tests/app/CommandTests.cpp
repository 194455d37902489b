// The menus and the tool bar: what stands in them and what they run.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Program.h"

#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/Globals.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QToolButton>
#include <QWidget>

namespace pintalux {

namespace {

class CommandTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    static void Press(int position) { frmMain->TB2_ButtonClick(frmMain->TB2.Buttons(position)); }
};

} // namespace

TEST_F(CommandTest, TheFirstButtonHasThePointersTipAndMakesANewImage) {
    EXPECT_EQ(frmMain->TB2.Buttons("New").ToolTipText(), "Apontador - não faz selecção.");
    const DialogScript script({ClosesDialog()});
    Press(1);
    EXPECT_EQ(script.Dialog(0).title, "Nova Imagem");
}

TEST_F(CommandTest, ChoosingFromTheToolkitsMenuRunsTheCommand) {
    frmImage& image = NewDocument(10, 10, kBlack);
    Edit(image, kWhite);
    const QAction* edit = WidgetFor(*frmMain).findChildren<QMenuBar*>().constFirst()->actions().at(1);
    edit->menu()->actions().constFirst()->trigger();
    EXPECT_EQ(CornerOf(image), kBlack);
}

TEST_F(CommandTest, AtTheStartEditingIsOff) {
    for (const MenuItem* item : {&frmMain->mnuEditUndo, &frmMain->mnuEditRedo, &frmMain->mnuEditCut,
                                 &frmMain->mnuEditCopy, &frmMain->mnuEditPaste, &frmMain->mnuZoomActual}) {
        EXPECT_FALSE(item->Enabled()) << item->Name();
    }
}

TEST_F(CommandTest, EachToolButtonChoosesTheToolOfItsPosition) {
    for (int position = kFirstTool; position < kTextTool; ++position) {
        Press(position);
        EXPECT_EQ(CurrentTool, position);
    }
}

TEST_F(CommandTest, ACommandButtonLeavesTheTool) {
    Press(kEraserTool);
    Press(9);
    Press(10);
    EXPECT_EQ(CurrentTool, kEraserTool);
}

TEST_F(CommandTest, ThePolylineButtonBeginsANewChain) {
    frmImage& image = NewDocument(10, 10);
    image.curpoly = false;
    Press(kPolyLineTool);
    EXPECT_TRUE(image.curpoly);
}

TEST_F(CommandTest, ToolButtonsWorkWithoutADocument) {
    for (int position = kFirstTool; position <= kLastTool; ++position)
        Press(position);
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(CommandTest, ARealClickOnAButtonChoosesItsTool) {
    QWidget& bar = WidgetFor(frmMain->TB2);
    QWidget* flood = nullptr;
    for (QWidget* button : bar.findChildren<QWidget*>()) {
        if (button->toolTip() == "Enche a parte seleccionada.") flood = button;
    }
    ASSERT_NE(flood, nullptr);
    ClickWidget(*flood);
    EXPECT_EQ(CurrentTool, kFloodTool);
    EXPECT_EQ(frmMain->TB2.Buttons(kFloodTool).Value(), 1);
    EXPECT_EQ(frmMain->TB2.Buttons(kPenTool).Value(), 0);
}

TEST_F(CommandTest, ViewCommandsToggleTickAndPanel) {
    Choose(frmMain->mnuViewToolbar);
    EXPECT_FALSE(frmMain->mnuViewToolbar.Checked());
    EXPECT_FALSE(frmMain->ToolsTB.Visible());
    Choose(frmMain->mnuViewColorBox);
    EXPECT_FALSE(frmMain->ColTB.Visible());
    Choose(frmMain->mnuViewSettingsBar);
    EXPECT_FALSE(frmMain->ToolSettings.Visible());
    Choose(frmMain->mnuViewToolbar);
    EXPECT_TRUE(frmMain->mnuViewToolbar.Checked());
    EXPECT_TRUE(frmMain->ToolsTB.Visible());
}

TEST_F(CommandTest, RulersFollowTheirTickInEachDocument) {
    frmImage& image = NewDocument(10, 10);
    Choose(frmMain->mnuViewRulers);
    EXPECT_TRUE(RulersOn);
    EXPECT_TRUE(frmMain->mnuViewRulers.Checked());
    EXPECT_TRUE(WaitFor([&] { return image.TopRuler.Visible(); }));
    Choose(frmMain->mnuViewRulers);
    EXPECT_FALSE(RulersOn);
    EXPECT_TRUE(WaitFor([&] { return !image.TopRuler.Visible(); }));
}

TEST_F(CommandTest, WindowsAreArranged) {
    const frmImage& first = NewDocument(100, 100);
    const frmImage& second = NewDocument(100, 100);
    Choose(frmMain->mnuWindowTileVertical);
    PassEvents();
    EXPECT_EQ(first.Top(), second.Top());
    EXPECT_NE(first.Left(), second.Left());
    Choose(frmMain->mnuWindowTileHorizontal);
    PassEvents();
    EXPECT_EQ(first.Left(), second.Left());
    EXPECT_NE(first.Top(), second.Top());
    Choose(frmMain->mnuWindowCascade);
    PassEvents();
    EXPECT_NE(first.Left(), second.Left());
    EXPECT_NE(first.Top(), second.Top());
}

} // namespace pintalux
