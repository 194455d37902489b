// All menus of the program. Commands act on the active document; what may be used is recomputed every 30 ms.
#pragma once

#include "settings/RecentFiles.h"
#include "surface/window/Menu.h"

#include <memory>
#include <vector>

namespace pintalux {

class MDIForm;

/// Items of one kind that differ by an index.
class MenuArray {
  public:
    /// One item for each caption, named `name` and its index.
    MenuArray(const char* name, const std::vector<std::string>& captions);
    MenuItem& operator()(int index); ///< Error 9 outside.
    void AddTo(MenuItem& owner);
    std::function<void(int Index)> Click;

  private:
    std::vector<std::unique_ptr<MenuItem>> items_;
};

struct MainMenu {
    MainMenu();
    /// Puts the menus into the window's menu bar.
    void AddTo(MDIForm& window);

    MenuItem mnuFile, mnuFileNew, mnuFileOpen, mnuFileClose, mnuFileSave, mnuFileSaveAs;
    MenuItem mnuFileTwain, mnuFileAquire, mnuFileTSelect;
    MenuItem mnuFilePrinter, mnuFilePrinterSetup, mnuFilePrinterPrint;
    MenuItem mnuFileSaveOptions;
    MenuSeparator mnuFileBar5;
    MenuItem mnuFileExit;
    RecentFilesMenu mnuFileMRU;

    MenuItem mnuEdit, mnuEditUndo, mnuEditRedo, mnuEditCut, mnuEditCopy, mnuEditPaste, mnuEditPasteNew;
    MenuItem mnuEditSelectAll, mnuEditSelectNone, mnuEditClip;

    MenuItem mnuImage, mnuImageProperties, mnuFlipV, mnuFlipH, mnuRotate90, mnuRotate180, mnuRotate270;
    MenuItem mnuResize, mnuAddBorders, mnuBorderWiz, mnuFiltBrow;
    MenuItem mnuIncCol, mnuRedCol;
    MenuArray mnuColInc, mnuColRed;

    MenuItem mnuView, mnuViewToolbar, mnuViewColorBox, mnuViewSettingsBar, mnuViewRulers;
    MenuItem mnuZoomActual, mnuZoomIn, mnuZoomOut;
    MenuArray mnuZoomInX, mnuZoomOutX; ///< Index 0 is 1:1, 15 is 16:1 and 1:16.

    MenuItem mnuWindow, mnuWindowNewWindow, mnuWindowCascade, mnuWindowTileHorizontal, mnuWindowTileVertical;

  private:
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildImageMenu();
    void BuildViewMenu();
    void BuildWindowMenu();
};

} // namespace pintalux
