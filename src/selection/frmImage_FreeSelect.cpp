// Lifting what lies inside a freehand path.
#include "document/Globals.h"
#include "selection/Floating.h"
#include "surface/raster/PixelWrite.h"
#include "surface/system/Pictures.h"
#include "tools/PaintingTools.h"
#include "tools/ToolSettings.h"

#include <algorithm>
#include <vector>

namespace pintalux {

namespace {

// The pixels of a row, -1 where it leaves the bitmap: what `GetPixel` gives, a row at a time.
void ReadColours(const Bitmap& bits, int left, int y, std::vector<Colour>& row) {
    std::fill(row.begin(), row.end(), Colour{-1});
    if (y < 0 || y >= bits.Height()) return;
    const int right = left + static_cast<int>(row.size());
    for (int x = std::max(left, 0); x < std::min(right, bits.Width());) {
        const auto run = bits.Run(x, y);
        const int end = std::min({x + static_cast<int>(run.size()), right, bits.Width()});
        for (int i = x; i < end; ++i)
            row[static_cast<std::size_t>(i - left)] =
                static_cast<Colour>(run[static_cast<std::size_t>(i - x)]);
        x = end;
    }
}

// Copies the pixels of the box that the mask does not black out to the piece. The clean copy gives them, so
// that no dash of the path gets into it; in cut mode it keeps the hole.
void LiftPixels(frmImage& image, const Bitmap& clean, const Box& box, bool cut) {
    const Bitmap mask = image.PicMask.Image();
    const PixelWrite writePiece(image.SelHolder.hDC());
    const PixelWrite writeUnder(image.Pic1BU.hDC());
    Bitmap& piece = writePiece.Bits();
    Bitmap& under = writeUnder.Bits();
    const Pixel hole = PixelOf(image.PicMerge.BackColor());
    const auto width = static_cast<std::size_t>(box.Width());
    std::vector<Colour> inside(width);
    std::vector<Colour> colours(width);
    std::vector<Pixel> row(width);
    for (int y = box.top; y < box.bottom; ++y) {
        ReadColours(mask, box.left, y, inside);
        ReadColours(clean, box.left, y, colours);
        piece.ReadRow(0, y - box.top, row);
        for (std::size_t i = 0; i < width; ++i) {
            if (inside[i] == kBlack) continue;
            row[i] = PixelOf(colours[i]);
            const int x = box.left + static_cast<int>(i);
            if (cut && under.Holds(x, y)) under.Set(x, y, hole);
        }
        piece.WriteRow(0, y - box.top, row);
    }
}

void BlackOutside(frmImage& image) {
    // Intended: a path that touches the left or the top edge selects its whole box, so that a corner of the
    // image can be taken with two careless strokes.
    if (image.FreeMinX == 0 || image.FreeMinY == 0) return;
    // The corner itself lies inside such a path.
    if (image.FreeMinX < 0 && image.FreeMinY < 0) return;
    FloodMaskOutside(image.PicMask, image.PicMask.Point(0, 0), kFillSolid, 0, 0);
}

void Lift(frmImage& image) {
    const int width = image.FreeMaxX - image.FreeMinX + 1;
    const int height = image.FreeMaxY - image.FreeMinY + 1;
    Surface& shown = image.PicFreeSelect;
    shown.Picture(LoadPicture());
    shown.Move(image.FreeMinX * image.factor, image.FreeMinY * image.factor, width * image.factor,
               height * image.factor);
    image.SelHolder.Picture(LoadPicture());
    image.SelHolder.Width(width);
    image.SelHolder.Height(height);
    BlackOutside(image);
    const Bitmap clean = image.Pic1BU.Image();
    const bool cut = TheToolSettings->Option4.Value();
    LiftPixels(image, clean, {image.FreeMinX, image.FreeMinY, image.FreeMaxX + 1, image.FreeMaxY + 1}, cut);
    image.hole = cut;
    image.liftedAt = image.factor;
    shown.ShowStretched(image.SelHolder.Image(), MaskKeyColour);
    // The display keeps the dashes around the piece; the image, which may be saved meanwhile, does not.
    ShowMerge(image);
    image.PicMerge.Picture(clean);
    image.ShapeMe(MaskKeyColour, true, shown);
    image.FreeMinX = image.FreeMinY = image.FreeMaxX = image.FreeMaxY = 0;
}

} // namespace

void frmImage::MakeSelection() {
    MousePointer(kPointerHourglass);
    const bool focus = Image1.HasFocus();
    Enabled(false);
    const bool encloses = FreeMaxX != FreeMinX && FreeMaxY != FreeMinY;
    if (encloses) {
        Lift(*this);
    } else {
        // A straight line encloses nothing and leaves no trace.
        PicMerge.Picture(Pic1BU.Image());
        ShowMerge(*this);
    }
    MousePointer(kPointerDefault);
    Enabled(true);
    if (focus) Image1.SetFocus(); // A window that takes no input loses it.
    // Not before: shown in a window that takes no input, the piece would not get its own pointer shape.
    if (encloses) PicFreeSelect.Visible(true);
}

} // namespace pintalux
