#include "imageops/SizeCommands.h"

#include "base/Arithmetic.h"
#include "document/frmImage.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "imageops/frmAddBord.h"
#include "imageops/frmBWiz.h"
#include "imageops/frmResize.h"
#include "imageops/Scaffold.h"
#include "surface/raster/Transfer.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Screen.h"

#include <algorithm>

namespace pintalux {

namespace {

// A size of 0 gives the smallest image there is, one pixel.
double AtLeastAPixel(std::int32_t twips) {
    return std::max<double>(twips, kTwipsPerPixel);
}

void StretchImage(frmImage& image) {
    image.PicMerge.AutoSize(true);
    Surface& stretched = image.picsource1;
    stretched.Height(AtLeastAPixel(ResizeHeightTwips));
    stretched.Width(AtLeastAPixel(ResizeWidthTwips));
    stretched.Picture({});
    StretchBlt(stretched.hDC(),
               {0, 0, ToInt32(stretched.Width() / Screen.TwipsPerPixelX()),
                ToInt32(stretched.Height() / Screen.TwipsPerPixelY())},
               image.PicMerge.hDC(), {0, 0, image.PicMerge.PixelWidth(), image.PicMerge.PixelHeight()},
               SRCCOPY);
    image.PicMerge.Picture(stretched.Image());
    stretched.Picture({}); // Its pixels are the image's now.
}

} // namespace

void mnuBorderWiz_Click() {
    frmImage& image = ImageForOperation();
    const Target target = ChooseTarget(image);
    if (target == Target::Freehand) {
        MsgBox("A area a seleccionar terá que ser rectangular.", BoxButtons::Ok, BoxIcon::None,
               kMessageTitle);
        return;
    }
    PrepareSample(image, target, *frmBWiz);
    frmBWiz->ShowLastState();
    frmBWiz->ShowModal();
    const bool cancelled = BWizCancelled;
    BWizCancelled = false;
    if (cancelled) return;
    RunOperation(image, target, [](Surface& work, Surface& live) {
        PaintFrame(BWizStyle, work, live, StoredFrameChoice(), TheProgressBar());
    });
}

void mnuAddBorders_Click() {
    frmImage& image = ActiveImage();
    frmAddBord->document = &image;
    frmAddBord->ShowModal();
    if (BordersAdded && image.Loaded()) FitWindow(image);
}

void mnuResize_Click() {
    frmImage& image = ActiveImage();
    ResizeRatio = image.PicMerge.Width() / image.PicMerge.Height();
    frmResize->ShowImageSize();
    frmResize->ShowModal();
    if (ResizeCancelled || !image.Loaded()) return;
    BringBack(image);
    WholeImageForOperation();
    EndFreehandPiece(image);
    StretchImage(image);
    ShowActualSize(image);
    image.Backup();
}

} // namespace pintalux
