// What menu items and buttons do.
#include "app/frmMain.h"
#include "devices/PrintCommands.h"
#include "devices/ScanCommands.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "document/frmImage.h"
#include "document/frmImgprops.h"
#include "document/Globals.h"
#include "document/UndoCommands.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "imageops/ImageCommands.h"
#include "imageops/SizeCommands.h"
#include "selection/EditCommands.h"
#include "selection/RectangleSelection.h"
#include "settings/frmPrefs.h"

namespace pintalux {

namespace {

struct BarCommand {
    const char* key;
    void (*run)();
};

constexpr BarCommand kBarCommands[] = {
    {"New", mnuFileNew_Click},   {"Open", mnuFileOpen_Click}, {"Save", [] { mnuFileSave_Click(); }},
    {"Cut", mnuEditCut_Click},   {"Copy", mnuEditCopy_Click}, {"Paste", PasteFromBar},
    {"Undo", mnuEditUndo_Click}, {"Redo", mnuEditRedo_Click},
};

} // namespace

void mnuFileSaveOptions_Click() {
    frmPrefs->ShowModal();
}

void mnuWindowNewWindow_Click() {
    mnuFileNew_Click();
}

void frmMainForm::ConnectMenus() {
    mnuFileNew.Click = mnuFileNew_Click;
    mnuFileOpen.Click = mnuFileOpen_Click;
    mnuFileClose.Click = mnuFileClose_Click;
    mnuFileSave.Click = mnuFileSave_Click;
    mnuFileSaveAs.Click = mnuFileSaveAs_Click;
    mnuFileAquire.Click = mnuFileAquire_Click;
    mnuFileTSelect.Click = mnuFileTSelect_Click;
    mnuFilePrinterSetup.Click = mnuFilePrinterSetup_Click;
    mnuFilePrinterPrint.Click = mnuFilePrinterPrint_Click;
    mnuFileSaveOptions.Click = mnuFileSaveOptions_Click;
    mnuFileMRU.Click = mnuFileMRU_Click;
    mnuFileExit.Click = [this] { mnuFileExit_Click(); };

    mnuEditUndo.Click = mnuEditUndo_Click;
    mnuEditRedo.Click = mnuEditRedo_Click;
    mnuEditCut.Click = mnuEditCut_Click;
    mnuEditCopy.Click = mnuEditCopy_Click;
    mnuEditPaste.Click = mnuEditPaste_Click;
    mnuEditPasteNew.Click = mnuEditPasteNew_Click;
    mnuEditSelectAll.Click = mnuEditSelectAll_Click;
    mnuEditSelectNone.Click = mnuEditSelectNone_Click;
    mnuEditClip.Click = [this] { mnuEditClip_Click(); };

    mnuImageProperties.Click = mnuImageProperties_Click;
    mnuFlipV.Click = mnuFlipV_Click;
    mnuFlipH.Click = mnuFlipH_Click;
    mnuRotate90.Click = mnuRotate90_Click;
    mnuRotate180.Click = mnuRotate180_Click;
    mnuRotate270.Click = mnuRotate270_Click;
    mnuResize.Click = mnuResize_Click;
    mnuAddBorders.Click = mnuAddBorders_Click;
    mnuBorderWiz.Click = mnuBorderWiz_Click;
    mnuFiltBrow.Click = mnuFiltBrow_Click;
    mnuColInc.Click = mnuColInc_Click;
    mnuColRed.Click = mnuColRed_Click;

    mnuViewToolbar.Click = [this] { mnuViewToolbar_Click(); };
    mnuViewColorBox.Click = [this] { mnuViewColorBox_Click(); };
    mnuViewSettingsBar.Click = [this] { mnuViewSettingsBar_Click(); };
    mnuViewRulers.Click = [this] { mnuViewRulers_Click(); };
    mnuZoomActual.Click = mnuZoomActual_Click;
    mnuZoomInX.Click = mnuZoomInX_Click;
    mnuZoomOutX.Click = mnuZoomOutX_Click;

    mnuWindowNewWindow.Click = mnuWindowNewWindow_Click;
    mnuWindowCascade.Click = [this] { mnuWindowCascade_Click(); };
    mnuWindowTileHorizontal.Click = [this] { mnuWindowTileHorizontal_Click(); };
    mnuWindowTileVertical.Click = [this] { mnuWindowTileVertical_Click(); };
    DisableIdleItems();
}

void frmMainForm::ConnectBars() {
    TB2.ButtonClick = [this](ToolButton& button) { TB2_ButtonClick(button); };
    ToolSettingsPanel::ChooseTool = [this](int tool) { ChooseToolButton(tool); };
    Command1.Click = [this] {
        ToolSettings.Visible(false);
        mnuViewSettingsBar.Checked(false);
    };
    Command2.Click = [this] {
        ColTB.Visible(false);
        mnuViewColorBox.Checked(false);
    };
}

void frmMainForm::ChooseToolButton(int tool) {
    TB2.Buttons(tool).Value(1);
    CurrentTool = static_cast<std::int16_t>(tool);
}

void frmMainForm::TB2_ButtonClick(ToolButton& button) {
    for (const BarCommand& command : kBarCommands) {
        if (button.Key() == command.key) ResumeNext(command.run);
    }
    if (button.Index() < kFirstTool) return;
    const int toolBefore = CurrentTool;
    CurrentTool = static_cast<std::int16_t>(button.Index());
    AfterToolChosen(toolBefore);
}

void frmMainForm::AfterToolChosen(int toolBefore) {
    const Tool& tool = TheTools->Row(CurrentTool);
    ResumeNext(
        [&] {
            if (tool.page != kNoPage && PicTools(tool.page).Height() <= ClosedPageHeight())
                cmdTools_Click(tool.page);
        },
        [&] {
            if (tool.chosen != nullptr) tool.chosen();
        },
        [&] {
            if (tool.returnsToToolBefore) ChooseToolButton(toolBefore);
        });
}

void frmMainForm::mnuFileExit_Click() {
    Unload();
}

void frmMainForm::mnuEditClip_Click() {
    if (mnuEditClip.Checked()) {
        mnuEditClip.Checked(false);
        // Intended: the window goes on hearing of the clipboard with its old procedure, which lets all pass,
        // so that the monitor can come back at any time.
        ClipHookOff(*this);
    } else {
        mnuEditClip.Checked(true);
        ClipHookOn(*this);
        SetClipboardViewer(*this);
    }
}

void frmMainForm::mnuViewToolbar_Click() {
    mnuViewToolbar.Checked(!mnuViewToolbar.Checked());
    ToolsTB.Visible(mnuViewToolbar.Checked());
}

void frmMainForm::mnuViewColorBox_Click() {
    mnuViewColorBox.Checked(!mnuViewColorBox.Checked());
    ColTB.Visible(mnuViewColorBox.Checked());
}

void frmMainForm::mnuViewSettingsBar_Click() {
    mnuViewSettingsBar.Checked(!mnuViewSettingsBar.Checked());
    ToolSettings.Visible(mnuViewSettingsBar.Checked());
}

void frmMainForm::mnuViewRulers_Click() {
    mnuViewRulers.Checked(!mnuViewRulers.Checked());
    RulersOn = mnuViewRulers.Checked();
}

void frmMainForm::mnuWindowCascade_Click() {
    Arrange(0);
}

void frmMainForm::mnuWindowTileHorizontal_Click() {
    Arrange(1);
}

void frmMainForm::mnuWindowTileVertical_Click() {
    Arrange(2);
}

} // namespace pintalux
