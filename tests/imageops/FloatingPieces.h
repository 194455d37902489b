// Selections set up by hand, as the selection tools leave them at their release.
#pragma once

#include "document/CommandBar.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/MainMenu.h"
#include "document/Workspace.h"
#include "surface/raster/Transfer.h"

#include <string_view>
#include <vector>

namespace pintalux {

inline void EnableCutAndCopy() {
    for (const int position : {5, 6})
        TheWorkspace.bar->TB2.Buttons(position).Enabled(true);
    TheWorkspace.menu->mnuEditCut.Enabled(true);
    TheWorkspace.menu->mnuEditCopy.Enabled(true);
}

/// A rectangle of image pixels lifted into `SelHolder` and floating at its place on the view.
inline void FloatRectangle(frmImage& image, int x, int y, int width, int height) {
    image.SelectLeft = x;
    image.SelectTop = y;
    image.Selectwidth = width;
    image.Selectheight = height;
    image.SelHolder.Picture({});
    image.SelHolder.Width(width);
    image.SelHolder.Height(height);
    StretchBlt(image.SelHolder.hDC(), {0, 0, width, height}, image.PicMerge.hDC(), {x, y, width, height},
               SRCCOPY);
    image.SelHolder.Picture(image.SelHolder.Image());
    const double f = image.factor;
    image.PicSelect.Move(x * f, y * f, width * f, height * f);
    image.SelectImage.Move(0, 0, image.PicSelect.Width(), image.PicSelect.Height());
    image.SelectImage.Picture(image.SelHolder.Image());
    image.PicSelect.Visible(true);
    EnableCutAndCopy();
}

/// The image pixels under the '#' of the rows lifted into `SelHolder`, floating at x, y of the image. The
/// clean image is kept in `Pic1BU`; on `PicMerge` a black path is left, as the drag draws it.
inline void FloatFreehand(frmImage& image, int x, int y, const std::vector<std::string_view>& rows) {
    const int width = static_cast<int>(rows.front().size());
    const int height = static_cast<int>(rows.size());
    image.Pic1BU.Picture(image.PicMerge.Image());
    image.SelHolder.Picture({});
    image.SelHolder.Width(width);
    image.SelHolder.Height(height);
    for (int row = 0; row < height; ++row) {
        for (int column = 0; column < width; ++column) {
            if (rows[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] == '#')
                image.SelHolder.PSet(column, row, image.PicMerge.Point(x + column, y + row));
        }
    }
    image.PicMerge.Line(x, y, x + width - 1, y, kBlack);
    const double f = image.factor;
    image.PicFreeSelect.Picture({});
    image.PicFreeSelect.Move(x * f, y * f, width * f, height * f);
    TransparentBlt(image.PicFreeSelect.hDC(),
                   {0, 0, image.PicFreeSelect.PixelWidth(), image.PicFreeSelect.PixelHeight()},
                   image.SelHolder.hDC(), {0, 0, width, height}, MaskKeyColour);
    image.PicFreeSelect.Visible(true);
    FreeSelActive = true;
    EnableCutAndCopy();
}

/// Whether anything floats, or could be cut or copied.
inline bool SelectionEnded(const frmImage& image) {
    return !image.PicSelect.Visible() && !image.PicFreeSelect.Visible() && !image.SelectShape.Visible() &&
           !TheWorkspace.bar->TB2.Buttons(5).Enabled() && !TheWorkspace.bar->TB2.Buttons(6).Enabled() &&
           !TheWorkspace.menu->mnuEditCut.Enabled() && !TheWorkspace.menu->mnuEditCopy.Enabled();
}

/// The picture with a box of it replaced.
inline Picture With(const Picture& picture, int x, int y, const Picture& part) {
    Picture result = picture;
    result.Copy(x, y, part, part.Bounds());
    return result;
}

/// Shows a document at a zoom level as the zoom menu does.
inline void ShowAtFactor(frmImage& image, double factor) {
    image.factor = factor;
    image.Image1.Width(image.PicMerge.ScaleWidth() * factor);
    image.Image1.Height(image.PicMerge.ScaleHeight() * factor);
    image.PicBG.Width(image.Image1.Width());
    image.PicBG.Height(image.Image1.Height());
}

} // namespace pintalux
