#include "document/ImageMenus.h"

#include "document/BarPositions.h"
#include "document/CommandBar.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"

#include <initializer_list>

namespace pintalux {

namespace {

void EnableItems(std::initializer_list<MenuItem MainMenu::*> items, bool value) {
    for (const auto item : items)
        (TheWorkspace.menu->*item).Enabled(value);
}

void EnableButtons(std::initializer_list<int> positions, bool value) {
    for (const int position : positions)
        TheWorkspace.bar->TB2.Buttons(position).Enabled(value);
}

using M = MainMenu;

} // namespace

void ImgMenuEnable(bool value) {
    EnableItems({&M::mnuAddBorders,
                 &M::mnuImageProperties,
                 &M::mnuFlipH,
                 &M::mnuFlipV,
                 &M::mnuRotate90,
                 &M::mnuRotate180,
                 &M::mnuRotate270,
                 &M::mnuResize,
                 &M::mnuBorderWiz,
                 &M::mnuFiltBrow,
                 &M::mnuIncCol,
                 &M::mnuRedCol,
                 &M::mnuZoomIn,
                 &M::mnuZoomOut,
                 &M::mnuWindowCascade,
                 &M::mnuWindowTileHorizontal,
                 &M::mnuWindowTileVertical,
                 &M::mnuFileClose,
                 &M::mnuFileSave,
                 &M::mnuFileSaveAs},
                value);
    EnableButtons({kColorPickTool, kMagTool, kTextTool}, value);
}

void EnableImageMenus() {
    EnableItems({&M::mnuFlipV, &M::mnuFlipH, &M::mnuRotate90, &M::mnuRotate180, &M::mnuRotate270,
                 &M::mnuFiltBrow, &M::mnuIncCol, &M::mnuRedCol, &M::mnuFileSave, &M::mnuBorderWiz,
                 &M::mnuAddBorders, &M::mnuResize, &M::mnuFileSaveAs, &M::mnuFileClose,
                 &M::mnuImageProperties, &M::mnuWindowCascade, &M::mnuWindowTileHorizontal,
                 &M::mnuWindowTileVertical},
                true);
}

void DisableImageMenus(bool& all) {
    EnableItems({&M::mnuFlipV, &M::mnuFlipH, &M::mnuRotate90, &M::mnuRotate180, &M::mnuRotate270,
                 &M::mnuFiltBrow, &M::mnuIncCol, &M::mnuRedCol, &M::mnuFileSave, &M::mnuFileSaveAs,
                 &M::mnuFileClose, &M::mnuImageProperties},
                false);
    if (all) {
        EnableItems({&M::mnuBorderWiz, &M::mnuAddBorders, &M::mnuResize, &M::mnuEditUndo, &M::mnuEditRedo,
                     &M::mnuWindowCascade, &M::mnuWindowTileHorizontal, &M::mnuWindowTileVertical},
                    false);
        EnableButtons({kSaveButton, kUndoButton, kRedoButton}, false);
    }
    all = false;
}

} // namespace pintalux
