#include "document/Selection.h"

#include "base/Arithmetic.h"
#include "document/BarPositions.h"
#include "document/CommandBar.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"

namespace pintalux {

void TakeMembers(frmImage& image, const Control& place) {
    image.SelectLeft = place.Left() / image.factor;
    image.SelectTop = place.Top() / image.factor;
    image.Selectwidth = place.Width() / image.factor;
    image.Selectheight = place.Height() / image.factor;
}

Extent SelectionExtent(const frmImage& image) {
    return {ToInt32(image.SelectLeft), ToInt32(image.SelectTop), ToInt32(image.Selectwidth),
            ToInt32(image.Selectheight)};
}

void EnableCutAndCopy(bool value) {
    TheWorkspace.bar->TB2.Buttons(kCutButton).Enabled(value);
    TheWorkspace.bar->TB2.Buttons(kCopyButton).Enabled(value);
    TheWorkspace.menu->mnuEditCut.Enabled(value);
    TheWorkspace.menu->mnuEditCopy.Enabled(value);
}

void ShowMerge(frmImage& image) {
    image.Image1.Picture(image.PicMerge.Image());
}

void PutCleanCopyBack(frmImage& image) {
    image.PicFreeSelect.Visible(false);
    image.PicMerge.Picture(image.Pic1BU.Image());
    ShowMerge(image);
}

} // namespace pintalux
