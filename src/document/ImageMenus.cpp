#include "document/ImageMenus.h"

#include "document/BarPositions.h"
#include "document/CommandBar.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"

#include <span>

namespace pintalux {

namespace {

using Item = MenuItem MainMenu::*;
using M = MainMenu;

// What works on any image.
constexpr Item kImageItems[] = {&M::mnuImageProperties, &M::mnuFlipH,     &M::mnuFlipV,    &M::mnuRotate90,
                                &M::mnuRotate180,       &M::mnuRotate270, &M::mnuFiltBrow, &M::mnuIncCol,
                                &M::mnuRedCol,          &M::mnuFileClose, &M::mnuFileSave, &M::mnuFileSaveAs};
// What an image that has just come into being allows too.
constexpr Item kSizeItems[] = {&M::mnuAddBorders,
                               &M::mnuResize,
                               &M::mnuBorderWiz,
                               &M::mnuWindowCascade,
                               &M::mnuWindowTileHorizontal,
                               &M::mnuWindowTileVertical};
constexpr Item kZoomItems[] = {&M::mnuZoomIn, &M::mnuZoomOut};
constexpr Item kUndoItems[] = {&M::mnuEditUndo, &M::mnuEditRedo};

void EnableItems(std::span<const Item> items, bool value) {
    for (const Item item : items) {
        MenuItem& found = (*TheWorkspace.menu).*item;
        found.Enabled(value && found.HasCommand());
    }
}

void EnableButtons(std::initializer_list<int> positions, bool value) {
    for (const int position : positions)
        TheWorkspace.bar->TB2.Buttons(position).Enabled(value);
}

} // namespace

void ImgMenuEnable(bool value) {
    EnableItems(kImageItems, value);
    EnableItems(kSizeItems, value);
    EnableItems(kZoomItems, value);
    EnableButtons({kColorPickTool, kMagTool, kTextTool}, value);
}

void EnableImageMenus() {
    EnableItems(kImageItems, true);
    EnableItems(kSizeItems, true);
}

void DisableImageMenus(bool& all) {
    EnableItems(kImageItems, false);
    if (all) {
        EnableItems(kSizeItems, false);
        EnableItems(kUndoItems, false);
        EnableButtons({kSaveButton, kUndoButton, kRedoButton}, false);
    }
    all = false;
}

} // namespace pintalux
