#include "document/MainMenu.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "surface/window/MDIForm.h"

namespace pintalux {

namespace {

MenuItem* const kSeparator = nullptr;

} // namespace

std::vector<std::string> ZoomRatios(const char* before, const char* behind) {
    std::vector<std::string> captions;
    for (int n = 1; n <= 16; ++n)
        captions.push_back(before + NumberText(n) + behind);
    return captions;
}

MenuArray::MenuArray(const char* name, const std::vector<std::string>& captions) {
    for (std::size_t i = 0; i < captions.size(); ++i) {
        items_.push_back(std::make_unique<MenuItem>(name + NumberText(static_cast<double>(i)), captions[i]));
        items_.back()->Click = [this, i] {
            if (Click) Click(static_cast<int>(i));
        };
    }
}

MenuItem& MenuArray::operator()(int index) {
    if (index < 0 || index >= Count()) throw RuntimeError(kSubscriptOutOfRange);
    return *items_[static_cast<std::size_t>(index)];
}

MainMenu::MainMenu() {
    Build();
    mnuFileBar5.Visible(false);
    for (MenuItem* off : {&mnuEditUndo, &mnuEditRedo, &mnuEditCut, &mnuEditCopy, &mnuEditPaste,
                          &mnuEditPasteNew, &mnuZoomActual})
        off->Enabled(false);
    for (MenuItem* ticked : {&mnuViewToolbar, &mnuViewColorBox, &mnuViewSettingsBar})
        ticked->Checked(true);
}

void MainMenu::Build() {
    Fill(mnuFile, {&mnuFileNew, &mnuFileOpen, &mnuFileClose, kSeparator, &mnuFileSave, &mnuFileSaveAs,
                   kSeparator, &mnuFileTwain, &mnuFilePrinter, kSeparator, &mnuFileSaveOptions, &mnuFileBar5,
                   &mnuFileMRU(0), kSeparator, &mnuFileExit});
    Fill(mnuFileTwain, {&mnuFileAquire, &mnuFileTSelect});
    Fill(mnuFilePrinter, {&mnuFilePrinterSetup, &mnuFilePrinterPrint});

    Fill(mnuEdit,
         {&mnuEditUndo, &mnuEditRedo, kSeparator, &mnuEditCut, &mnuEditCopy, &mnuEditPaste, &mnuEditPasteNew,
          kSeparator, &mnuEditSelectAll, &mnuEditSelectNone, kSeparator, &mnuEditClip});

    Fill(mnuImage, {&mnuImageProperties, kSeparator, &mnuFlipV, &mnuFlipH, &mnuRotate90, &mnuRotate180,
                    &mnuRotate270, kSeparator, &mnuResize, &mnuAddBorders, &mnuBorderWiz, kSeparator,
                    &mnuFiltBrow, &mnuIncCol, &mnuRedCol});
    Fill(mnuIncCol, mnuColInc);
    Fill(mnuRedCol, mnuColRed);

    Fill(mnuView, {&mnuViewToolbar, &mnuViewColorBox, &mnuViewSettingsBar, &mnuViewRulers, kSeparator,
                   &mnuZoomActual, &mnuZoomIn, &mnuZoomOut});
    Fill(mnuZoomIn, mnuZoomInX);
    Fill(mnuZoomOut, mnuZoomOutX);

    Fill(mnuWindow, {&mnuWindowNewWindow, kSeparator, &mnuWindowCascade, &mnuWindowTileHorizontal,
                     &mnuWindowTileVertical});
}

void MainMenu::Fill(MenuItem& menu, const std::vector<MenuItem*>& items) {
    for (MenuItem* item : items) {
        if (item == kSeparator) {
            menu.AddSeparator();
        } else {
            menu.Add(*item);
            items_.push_back(item);
        }
    }
}

void MainMenu::Fill(MenuItem& menu, MenuArray& items) {
    for (int i = 0; i < items.Count(); ++i)
        Fill(menu, {&items(i)});
}

void MainMenu::DisableIdleItems() {
    for (MenuItem* item : items_) {
        if (!item->HasCommand()) item->Enabled(false);
    }
}

void MainMenu::AddTo(MDIForm& window) {
    for (MenuItem* menu : {&mnuFile, &mnuEdit, &mnuImage, &mnuView, &mnuWindow})
        window.AddMenu(*menu);
    window.WindowListMenu(mnuWindow);
}

} // namespace pintalux
