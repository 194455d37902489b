#include "document/Zoom.h"

#include "base/Arithmetic.h"
#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Selection.h"
#include "document/Workspace.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr double kLongestView = 32767; // pixels: what a scroll bar reaches

// Image and backing panel at the size that `factor` asks for.
void SizeDisplay(frmImage& image) {
    image.Image1.Width(image.PicMerge.ScaleWidth() * image.factor);
    image.Image1.Height(image.PicMerge.ScaleHeight() * image.factor);
}

// By the exact widths, so that a zoom there and back changes no place. What has no width cannot be scaled. A
// view that an undo left at the size of another state tells nothing of what floats; there the factors do.
double RatioTo(const frmImage& image, double oldWidth, double oldFactor) {
    if (oldWidth == 0) return 1.0;
    const bool stale = oldWidth != image.PicMerge.ScaleWidth() * oldFactor;
    return stale ? image.factor / oldFactor : image.Image1.Width() / oldWidth;
}

// The level that a click of the magnifier leads to. Going out skips levels that do not fit, so that a view
// whose image has grown meanwhile can be left.
int NextLevel(const frmImage& image, bool in) {
    if (in) return image.factorlevel + 1;
    int level = image.factorlevel - 1;
    while (level > kActualLevel && !ViewFits(image, level))
        --level;
    return level;
}

// The middle of a menu zoom, steps that "actual size" shares.
void ZoomTo(frmImage& image, int level) {
    const double oldWidth = image.Image1.Width();
    const double oldFactor = image.factor;
    ZoomOldWidth = ToInt16(std::min(oldWidth, kLongestView));
    image.factorlevel = ToInt16(level);
    ApplyZoomLevel();
    SizeDisplay(image);
    ZoomRatio = RatioTo(image, oldWidth, oldFactor);
    image.PicBG.Width(image.Image1.Width());
    image.PicBG.Height(image.Image1.Height());
    RescaleSelection();
    image.Picsize();
    image.drawrulers();
}

void ZoomByMenu(int level) {
    frmImage& image = ActiveImage();
    if (!ViewFits(image, level)) return;
    // Intended: a zoom lets go of tool 4, a number that no button of the bar gives; a bar that did would find
    // its second button pressed.
    if (CurrentTool == 4) {
        CurrentTool = 2;
        TheWorkspace.bar->TB2.Buttons(2).Value(1);
    }
    EndFreehandPiece(image);
    const bool hadVS = image.VS.Visible();
    const bool hadHS = image.HS.Visible();
    if (hadVS) ScrollRatioV = (image.VS.Max() + 1.0) / (image.VS.Value() + 1.0);
    if (hadHS) ScrollRatioH = (image.HS.Max() + 1.0) / (image.HS.Value() + 1.0);
    LockWindowUpdate(&image.PicBG);
    ZoomTo(image, level);
    if (!hadVS) ScrollRatioV = image.VS.Max();
    if (!hadHS) ScrollRatioH = image.HS.Max();
    // Intended: a bar that just appeared stands at 1, so that the image's top left corner stays next to its
    // place.
    // A bar that stood for less than a pixel has no range, and so gives no ratio.
    if (image.VS.Max() > 0) image.VS.Value(image.VS.Max() / ScrollRatioV);
    if (image.HS.Max() > 0) image.HS.Value(image.HS.Max() / ScrollRatioH);
    LockWindowUpdate(nullptr);
}

} // namespace

void ScaleRectangle(frmImage& image, double ratio) {
    image.PicSelect.Top(image.PicSelect.Top() * ratio);
    image.PicSelect.Left(image.PicSelect.Left() * ratio);
    image.PicSelect.Height(image.PicSelect.Height() * ratio);
    image.PicSelect.Width(image.PicSelect.Width() * ratio);
    image.PicSelectShape.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
    image.SelectImage.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
}

double ZoomFactor(int level) {
    if (level < kActualLevel) return 1.0 / (16 - level);
    return level == kActualLevel ? 1.0 : level - 14;
}

bool ViewFits(const frmImage& image, int level) {
    const double longer = std::max(image.PicMerge.ScaleWidth(), image.PicMerge.ScaleHeight());
    return longer * ZoomFactor(level) <= kLongestView;
}

void ApplyZoomLevel() {
    frmImage& image = ActiveImage();
    MainMenu& menu = *TheWorkspace.menu;
    for (int i = 1; i <= 15; ++i) {
        menu.mnuZoomInX(i).Checked(false);
        menu.mnuZoomOutX(i).Checked(false);
    }
    const int level = image.factorlevel;
    image.factor = ZoomFactor(level);
    menu.mnuZoomActual.Enabled(level != kActualLevel);
    // Intended: the two entries of 1:1, once ticked, stay ticked as the mark of the natural size.
    if (level <= kActualLevel) menu.mnuZoomOutX(kActualLevel - level).Checked(true);
    if (level >= kActualLevel) menu.mnuZoomInX(level - kActualLevel).Checked(true);
}

bool ZoomStep(bool in, Display& image1, Surface& merge) {
    frmImage& image = ActiveImage();
    const int level = NextLevel(image, in);
    if (in && level < kZoomLevels && !ViewFits(image, level)) return false;
    const double oldWidth = image1.Width();
    const double oldFactor = image.factor;
    LockWindowUpdate(&image.PicFrame);
    // Intended: at either end of the scale the lock stays recorded until the next release, wherever that
    // comes; what it held back is painted when the click is over.
    if (level < 0 || level >= kZoomLevels) return true;
    MergePlacedFreehand(image);
    image.factorlevel = ToInt16(level);
    ApplyZoomLevel();
    image1.Width(merge.ScaleWidth() * image.factor);
    image1.Height(merge.ScaleHeight() * image.factor);
    const double ratio = RatioTo(image, oldWidth, oldFactor);
    image.PicBG.Width(image1.Width());
    image.PicBG.Height(image1.Height());
    ScaleRectangle(image, ratio);
    image.Picsize();
    LockWindowUpdate(nullptr);
    return true;
}

void RescaleSelection() {
    frmImage& image = ActiveImage();
    Surface& PicBG = image.PicBG;
    ScaleRectangle(image, ZoomRatio);
    const double wide = image.PicFrame.ScaleWidth();
    if (PicBG.Left() + PicBG.Width() < wide) PicBG.Left(wide - PicBG.Width());
    if (PicBG.Left() < 0) image.HS.Value(-PicBG.Left());
    if (PicBG.Width() < wide) PicBG.Left(0);
    const double high = image.PicFrame.ScaleHeight();
    if (PicBG.Top() + PicBG.Height() < high) PicBG.Top(high - PicBG.Height());
    if (PicBG.Top() < 0) image.VS.Value(-PicBG.Top());
    if (PicBG.Height() < high) PicBG.Top(0);
}

void mnuZoomActual_Click() {
    if (!ADocumentShows()) return;
    frmImage& image = ActiveImage();
    if (!ViewFits(image, kActualLevel)) return;
    MergePlacedFreehand(image);
    LockWindowUpdate(&image.PicBG);
    ZoomTo(image, kActualLevel);
    LockWindowUpdate(nullptr);
}

void mnuZoomInX_Click(int Index) {
    ZoomByMenu(Index + kActualLevel);
}

void mnuZoomOutX_Click(int Index) {
    ZoomByMenu(kActualLevel - Index);
}

} // namespace pintalux
