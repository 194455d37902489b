#include "surface/window/Surface.h"

#include "base/RuntimeError.h"
#include "surface/raster/ScreenPiece.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Control_native.h"
#include "surface/window/Surface_native.h"

#include <QPaintEngine>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace pintalux {

Surface::Surface(Container& parent, std::string name)
    : Container(&parent, std::move(name), kScalePixels), dc_(persistent_, attributes_,
                                                             [this](const Box& box) {
                                                                 drawn_ = true;
                                                                 Changed(box);
                                                             }),
      surface_(std::make_unique<SurfaceNative>()) {
    auto* widget = new PaintedWidget(ClientWidgetOf(parent));
    widget->setAttribute(Qt::WA_OpaquePaintEvent);
    widget->paint = [this](QPaintEvent& event) {
        if (surface_->panel) return surface_->PaintPanel(event, texts_);
        if (stretched_)
            return surface_->PaintPiece(stretched_->picture, PixelOf(stretched_->transparent), event);
        surface_->Paint(screen_ ? *screen_ : persistent_, event, backColor_);
    };
    surface_->widget = widget;
    InstallWidget(*this, widget);
}

Surface::~Surface() {
    if (surface_->widget) surface_->widget->paint = nullptr;
}

void Surface::BackColor(Colour value) {
    backColor_ = value;
    ResetPersistent();
}

void Surface::Picture(pintalux::Picture value) {
    picture_ = std::move(value);
    if (autoSize_) TakePictureSize();
    ResetPersistent();
}

void Surface::AutoSize(bool value) {
    if (value == autoSize_) return;
    autoSize_ = value;
    if (!autoSize_) return;
    TakePictureSize();
    ResizeBitmaps();
}

/// The empty picture has no size to take.
void Surface::TakePictureSize() {
    if (picture_.Empty()) return;
    const double unit = UnitsPerPixelAround(*this);
    if (picture_.Width() == PixelWidth() && picture_.Height() == PixelHeight()) return;
    width_ = picture_.Width() * unit;
    height_ = picture_.Height() * unit;
    Control::Placed();
}

void Surface::AutoRedraw(bool value) {
    if (value == AutoRedraw()) return;
    Settle();
    if (value) {
        dc_.Redirect(persistent_);
        screen_.reset();
        Changed(persistent_.Bounds());
    } else {
        screen_ = persistent_;
        dc_.Redirect(*screen_);
    }
}

/// Back to the stored picture over the back colour, on the screen as well.
void Surface::ResetPersistent() {
    texts_.clear();
    EndStretched();
    const int width = PixelWidth();
    const int height = PixelHeight();
    drawn_ = false;
    if (picture_.Empty()) {
        persistent_ = Bitmap(width, height, PixelOf(backColor_));
    } else if (picture_.Width() == width && picture_.Height() == height) {
        persistent_ = picture_;
    } else {
        persistent_ = picture_.Resized(width, height, PixelOf(backColor_));
    }
    if (screen_) *screen_ = persistent_;
    Changed(persistent_.Bounds());
}

void Surface::ResizeBitmaps() {
    const int width = PixelWidth();
    const int height = PixelHeight();
    if (persistent_.Width() == width && persistent_.Height() == height) return;
    Settle();
    // Nothing drawn: a fresh bitmap shares its tiles, where a grown one would have edges of its own. The
    // backing panel of a document is as large as the zoomed image.
    if (!drawn_) return ResetPersistent();
    persistent_ = persistent_.Resized(width, height, PixelOf(backColor_));
    if (screen_) *screen_ = screen_->Resized(width, height, PixelOf(backColor_));
    Changed(persistent_.Bounds());
}

void Surface::ShowStretched(pintalux::Picture value, Colour transparent) {
    AutoRedraw(true);
    drawn_ = true;
    persistent_ = Bitmap(persistent_.Width(), persistent_.Height(), PixelOf(backColor_));
    stretched_ = {std::move(value), transparent};
    surface_->HideBelow(stretched_->picture);
    Changed(persistent_.Bounds());
}

/// The bitmap that the picture would have made.
Picture Surface::Stretched() const {
    pintalux::Picture bits = persistent_;
    DrawAttributes attributes;
    DeviceContext to(bits, attributes);
    const pintalux::Picture& from = stretched_->picture;
    StretchBits(to, {0, 0, bits.Width(), bits.Height()}, from, {0, 0, from.Width(), from.Height()}, SRCCOPY);
    return bits;
}

/// Whoever asks for the bitmap has it.
void Surface::Settle() const {
    if (!stretched_) return;
    persistent_ = Stretched();
    EndStretched();
}

void Surface::EndStretched() const {
    if (!stretched_) return;
    stretched_.reset();
    if (surface_->widget) surface_->widget->setAttribute(Qt::WA_OpaquePaintEvent, true);
}

Region Surface::ShapeWithout(Colour colour) const {
    const pintalux::Picture& shown = stretched_ ? stretched_->picture : persistent_;
    return ShapeOnView(shown, PixelOf(colour), persistent_.Width(), persistent_.Height());
}

void Surface::Placed() {
    try {
        ResizeBitmaps();
    } catch (const std::exception&) {
        // No memory for that size: the surface keeps the one it has.
        width_ = persistent_.Width() * UnitsPerPixelAround(*this);
        height_ = persistent_.Height() * UnitsPerPixelAround(*this);
        throw;
    }
    Control::Placed();
}

void Surface::Cls() {
    if (!screen_) return ResetPersistent();
    *screen_ = persistent_;
    Changed(persistent_.Bounds());
}

void Surface::Refresh() {
    if (screen_) {
        *screen_ = persistent_;
        Changed(persistent_.Bounds());
    }
    Control::Refresh();
}

void Surface::DrawWidth(int value) {
    if (value < 1 || value > 32767) throw RuntimeError(kInvalidPropertyValue);
    attributes_.DrawWidth = value;
}

void Surface::BorderStyle(int value) {
    surface_->borderStyle = value;
    if (surface_->widget) surface_->widget->update();
}

void Surface::AsPanel() {
    surface_->panel = true;
    printsOver_ = true;
    if (surface_->widget) surface_->widget->update();
}

int Surface::PixelWidth() const {
    return PixelsAround(*this, width_);
}

int Surface::PixelHeight() const {
    return PixelsAround(*this, height_);
}

void Surface::Changed(const Box& box) {
    // Most surfaces are never shown: what is drawn there must cost no call of the toolkit.
    if (visible_) surface_->Mark(box);
}

void SurfaceNative::Mark(const Box& box) {
    if (!widget || !widget->isVisible() || box.Empty()) return;
    Box joined = box;
    if (!pending.Empty()) {
        joined = {std::min(box.left, pending.left), std::min(box.top, pending.top),
                  std::max(box.right, pending.right), std::max(box.bottom, pending.bottom)};
        if (joined == pending) return;
    }
    pending = joined;
    widget->update(ToQRect(joined));
}

void SurfaceNative::Paint(const Bitmap& bitmap, QPaintEvent& event, Colour backColor) {
    pending = {};
    const QSize size(bitmap.Width(), bitmap.Height());
    PaintBitmap(*widget, event.region(), bitmap, size, ToQColor(backColor));
    if (!edge.isEmpty()) PaintEdge(event.region());
    if (borderStyle == 0) return;
    QPainter painter(widget);
    PaintFrame(painter, widget->rect(), QColor(0x80, 0x80, 0x80));
}

void SurfaceNative::PaintPanel(QPaintEvent& event, const std::vector<ScreenText>& texts) {
    pending = {};
    QPainter painter(widget);
    for (const QRect& rect : event.region())
        painter.fillRect(rect, widget->palette().window());
    const QColor ink = widget->palette().color(QPalette::WindowText);
    PaintTexts(painter, event.region(), texts, widget->font(), &ink);
}

// What lies below a piece is painted again with it, unless its shape is covered to the pixel.
bool SurfaceNative::HideBelow(const Bitmap& piece) {
    if (!widget) return false;
    const double scale = widget->devicePixelRatioF();
    const bool hard = widget->width() >= piece.Width() && widget->height() >= piece.Height();
    const bool covered = hard && !edge.isEmpty() && scale == std::floor(scale);
    const bool before = widget->testAttribute(Qt::WA_OpaquePaintEvent);
    widget->setAttribute(Qt::WA_OpaquePaintEvent, covered);
    return before && !covered;
}

void SurfaceNative::PaintPiece(const Bitmap& piece, Pixel transparent, QPaintEvent& event) {
    pending = {};
    if (HideBelow(piece)) widget->update(); // The window has come to a screen of another scale.
    PaintOver(*widget, event.region(), piece, transparent, widget->size());
    if (!edge.isEmpty()) PaintEdge(event.region());
}

// Dots in the opposite colours, as around a rectangle: a piece that lies where it came from could not be seen
// otherwise.
void SurfaceNative::PaintEdge(const QRegion& exposed) {
    constexpr int kDot = 2;
    QPainter painter(widget);
    const bool inverts = painter.paintEngine()->hasFeature(QPaintEngine::RasterOpModes);
    if (inverts) painter.setCompositionMode(QPainter::RasterOp_NotDestination);
    for (const QRect& rect : edge& exposed) {
        for (int y = rect.top(); y <= rect.bottom(); ++y)
            for (int x = rect.left(); x <= rect.right(); ++x) {
                const bool dark = (x + y) / kDot % 2 == 0;
                if (dark || !inverts) painter.fillRect(x, y, 1, 1, dark ? Qt::black : Qt::white);
            }
    }
}

void SurfaceNative::TakePlace(Surface& surface, const QRect& place) {
    ControlNative::TakePlace(surface, place);
    surface.ResizeBitmaps();
}

void SetWindowRgn(Surface& surface, const Region& region) {
    QWidget* widget = WidgetOf(surface);
    if (!widget) return;
    std::vector<QRect> rects;
    for (const Box& box : region.Boxes())
        rects.push_back(ToQRect(box));
    QRegion shown;
    shown.setRects(rects.data(), static_cast<int>(rects.size()));
    const QRegion inner = shown & shown.translated(1, 0) & shown.translated(-1, 0) & shown.translated(0, 1) &
                          shown.translated(0, -1);
    SurfaceNative::Of(surface).edge = shown - inner;
    widget->update();
    // The toolkit takes an empty mask for none; one outside the widget hides it.
    widget->setMask(shown.isEmpty() ? QRegion(-1, -1, 1, 1) : shown);
}

} // namespace pintalux
