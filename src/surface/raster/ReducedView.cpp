#include "surface/raster/ReducedView.h"

#include "surface/raster/ScreenMean.h"
#include "surface/raster/Transfer.h"

#include <algorithm>
#include <new>
#include <vector>

namespace pintalux {

namespace {

/// More changed boxes than these are not told apart: a filter has changed everything.
constexpr std::size_t kManyBoxes = 256;

/// The views that keep something; what was shown last stands last.
std::vector<ReducedView*>& Keepers() {
    static std::vector<ReducedView*> keepers;
    return keepers;
}

std::int64_t KeptInAll() {
    std::int64_t pixels = 0;
    for (const ReducedView* view : Keepers())
        pixels += view->Pixels();
    return pixels;
}

/// The view pixels that may take a sample of the box.
Region OnView(const Box& box, const Bitmap& source, int width, int height) {
    const auto low = [](int place, int view, int image) {
        return static_cast<int>(std::int64_t{place} * view / image);
    };
    const auto high = [](int place, int view, int image) {
        return static_cast<int>((std::int64_t{place} * view + image - 1) / image);
    };
    return CreateRectRgn(low(box.left, width, source.Width()), low(box.top, height, source.Height()),
                         high(box.right, width, source.Width()), high(box.bottom, height, source.Height()));
}

} // namespace

void ReducedView::Show(const Bitmap& source, int width, int height, const Box& visible, std::uint32_t* out,
                       std::ptrdiff_t stride) {
    const Box shown = Intersection(visible, {0, 0, width, height});
    if (source.Empty() || shown.Empty()) return;
    const bool reduced = width < source.Width() || height < source.Height();
    if (!reduced || !Keep(width, height)) {
        Drop();
        return StretchForScreen(source, width, height, visible, out, static_cast<int>(stride));
    }
    const Region asked = CreateRectRgn(shown.left, shown.top, shown.right, shown.bottom);
    Region wrong;
    if (CombineRgn(wrong, stale_, asked, RGN_AND) != NULLREGION) {
        for (const Box& box : wrong.Boxes())
            MeanForScreen(source, width, height, box,
                          pixels_.get() + std::ptrdiff_t{box.top} * width + box.left, width);
        CombineRgn(stale_, stale_, asked, RGN_DIFF);
    }
    out += (shown.top - visible.top) * stride + (shown.left - visible.left);
    for (int y = shown.top; y < shown.bottom; ++y, out += stride)
        std::copy_n(pixels_.get() + std::ptrdiff_t{y} * width + shown.left, shown.Width(), out);
}

/// Makes room for a view of this size, or finds it there; false if there is none.
bool ReducedView::Keep(int width, int height) {
    std::vector<ReducedView*>& keepers = Keepers();
    if (width_ == width && height_ == height) {
        if (keepers.back() == this) return true;
        std::erase(keepers, this);
        keepers.push_back(this);
        return true;
    }
    Drop();
    const std::int64_t pixels = std::int64_t{width} * height;
    if (pixels > kMostPixels) return false;
    while (KeptInAll() + pixels > kMostInAll)
        keepers.front()->Drop();
    // What is never shown is never touched, and costs no memory.
    pixels_.reset(new (std::nothrow) std::uint32_t[static_cast<std::size_t>(pixels)]);
    if (!pixels_) return false;
    width_ = width;
    height_ = height;
    stale_ = CreateRectRgn(0, 0, width, height);
    keepers.push_back(this);
    return true;
}

void ReducedView::Changed(const Bitmap& before, const Bitmap& after) {
    if (width_ == 0) return;
    if (before.Width() != after.Width() || before.Height() != after.Height()) return Drop();
    const std::vector<Box> boxes = Bitmap::Difference(before, after);
    if (boxes.size() > kManyBoxes) {
        stale_ = CreateRectRgn(0, 0, width_, height_);
        return;
    }
    for (const Box& box : boxes)
        CombineRgn(stale_, stale_, OnView(box, after, width_, height_), RGN_OR);
}

void ReducedView::Drop() {
    if (width_ == 0) return;
    std::erase(Keepers(), this);
    width_ = height_ = 0;
    pixels_.reset();
    DeleteObject(stale_);
}

} // namespace pintalux
