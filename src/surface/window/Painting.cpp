#include "surface/raster/ScreenPiece.h"
#include "surface/raster/Transfer.h"
#include "surface/window/Painting_native.h"

#include <QImage>
#include <QPaintEngine>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <vector>

namespace pintalux {

namespace {

/// Above so many rectangles one picture of their frame is cheaper than a picture of each.
constexpr int kManyRectangles = 100;
constexpr int kFocusWidth = 2; // logical pixels

/// Logical pixels as the device has them: the scale of the display, and where the widget's corner lies.
struct DeviceGrid {
    double scale = 1;
    QPoint origin;

    explicit DeviceGrid(const QPainter& painter) : DeviceGrid(painter.deviceTransform()) {}
    /// Every logical pixel is a block of device pixels.
    bool Exact() const { return exact_; }

    /// A size in device pixels; what is begun of one counts.
    QSize Scaled(const QSize& size) const { return {Scaled(size.width()), Scaled(size.height())}; }
    int Scaled(int length) const { return static_cast<int>(std::ceil(length * scale)); }

    /// The device pixels that a part of the widget touches, counted from the widget's corner.
    QRect Touched(const QRect& part) const {
        const auto low = [this](int place, double beside) {
            return static_cast<int>(std::floor(place * scale + beside));
        };
        const auto high = [this](int place, double beside) {
            return static_cast<int>(std::ceil(place * scale + beside));
        };
        return {QPoint(low(part.left(), beside_.x()), low(part.top(), beside_.y())),
                QPoint(high(part.left() + part.width(), beside_.x()) - 1,
                       high(part.top() + part.height(), beside_.y()) - 1)};
    }

  private:
    explicit DeviceGrid(const QTransform& place)
        : scale(place.m11()), origin(qRound(place.dx()), qRound(place.dy())),
          beside_(QPointF(place.dx(), place.dy()) - origin),
          exact_(scale == std::floor(scale) && beside_.isNull()) {}

    QPointF beside_; ///< The corner itself, seen from `origin`; part of a device pixel.
    bool exact_;
};

/// The picture in memory that a painter draws on; null if it draws on something else.
QImage* CanvasOf(const QPainter& painter) {
    if (!painter.isActive()) return nullptr;
    QPaintDevice* device = painter.paintEngine()->paintDevice();
    if (device->devType() != QInternal::Image || painter.deviceTransform().type() > QTransform::TxScale)
        return nullptr;
    auto* image = static_cast<QImage*>(device);
    const bool plain =
        image->format() == QImage::Format_RGB32 || image->format() == QImage::Format_ARGB32_Premultiplied;
    return plain ? image : nullptr;
}

/// What is painted: a picture in a size, in device pixels, and its transparent colour if it has one.
struct Shown {
    const Bitmap& source;
    QSize size;
    std::optional<Pixel> transparent;
    ReducedView* kept; ///< Null: nothing is kept of it.

    /// Writes a part of it, or lays it over what stands there.
    void Write(const QRect& part, std::uint32_t* out, qsizetype stride) const {
        if (transparent) {
            LayForScreen(source, *transparent, size.width(), size.height(), ToBox(part), out, stride);
        } else if (kept) {
            kept->Show(source, size.width(), size.height(), ToBox(part), out, stride);
        } else {
            StretchForScreen(source, size.width(), size.height(), ToBox(part), out, static_cast<int>(stride));
        }
    }
};

/// Writes the pixels where the display takes them from. The way over a picture of its own and the painter
/// writes and reads each of them once more, which takes longer than all the rest of a repaint.
void PaintInPlace(QImage& canvas, const QPoint& origin, const QRect& part, const Shown& shown) {
    const QRect visible = part & canvas.rect().translated(-origin);
    if (visible.isEmpty()) return;
    const QPoint corner = visible.topLeft() + origin;
    auto* line = static_cast<std::uint32_t*>(static_cast<void*>(canvas.scanLine(corner.y())));
    shown.Write(visible, line + corner.x(), canvas.bytesPerLine() / 4);
}

/// Paints device pixels; the painter counts them.
void PaintPart(QPainter& painter, const QPoint& origin, const QRect& part, const Shown& shown) {
    // Kept from one repaint to the next: fresh memory for a view costs more than the pixels in it. Painting
    // happens on the interface thread only.
    static std::vector<std::uint32_t> pixels;
    const auto count = static_cast<std::size_t>(part.width()) * static_cast<std::size_t>(part.height());
    if (pixels.size() < count) pixels.resize(count);
    if (shown.transparent) std::fill_n(pixels.begin(), count, 0);
    shown.Write(part, pixels.data(), part.width());
    const QImage image(static_cast<const uchar*>(static_cast<const void*>(pixels.data())), part.width(),
                       part.height(), qsizetype{part.width()} * 4,
                       shown.transparent ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
    painter.drawImage(part.topLeft() + origin, image);
}

/// A picture that begins within a device pixel ends within one. What it touches beside its own pixels repeats
/// those next to it, since nobody else paints there: of 4.5 pixels the last half shows what the fourth does.
void PaintHalves(QPainter& painter, const QPoint& origin, const QRect& touched, const Shown& shown) {
    const QRect whole(QPoint(0, 0), shown.size);
    for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1), QPoint(1, 1)})
        for (const QRect& beside : QRegion(touched & whole.translated(step)) - whole)
            PaintPart(painter, origin + step, beside.translated(-step), shown);
}

/// `around` null: nothing is painted beside the picture.
void PaintParts(QWidget& widget, const QRegion& exposed, const Bitmap& source, const QSize& size,
                std::optional<Pixel> transparent, const QColor* around, ReducedView* kept) {
    QPainter painter(&widget);
    const DeviceGrid grid(painter);
    const Shown shown{source, grid.Scaled(size), transparent, kept};
    const QRect picture = source.Empty() ? QRect() : QRect(QPoint(0, 0), size);
    const bool many = exposed.rectCount() > kManyRectangles;
    const QRegion region = many ? QRegion(exposed.boundingRect()) : exposed;
    // Only the painter keeps to what is exposed by itself, and to the part of a pixel that is.
    QImage* canvas = many || !grid.Exact() ? nullptr : CanvasOf(painter);
    for (const QRect& rect : region) {
        const QRect part = rect.intersected(picture);
        if (around && part != rect) painter.fillRect(rect, *around);
        if (part.isEmpty()) continue;
        const QRect touched = grid.Touched(part);
        const QRect pixels = touched & QRect(QPoint(0, 0), shown.size);
        if (canvas) {
            PaintInPlace(*canvas, grid.origin, pixels, shown);
        } else if (!pixels.isEmpty()) {
            const DevicePixels device(painter);
            PaintPart(painter, grid.origin, pixels, shown);
            if (!transparent) PaintHalves(painter, grid.origin, touched, shown);
        }
    }
}

} // namespace

DevicePixels::DevicePixels(QPainter& painter) : painter_(painter) {
    painter_.save();
    painter_.setWorldTransform(painter_.deviceTransform().inverted() * painter_.worldTransform());
}

DevicePixels::~DevicePixels() {
    painter_.restore();
}

QRect OnDevice(const QPainter& painter, const QRect& rect) {
    const QTransform& place = painter.deviceTransform();
    const auto x = [&](int at) { return qRound(at * place.m11() + place.dx()); };
    const auto y = [&](int at) { return qRound(at * place.m22() + place.dy()); };
    return {QPoint(x(rect.left()), y(rect.top())),
            QPoint(x(rect.left() + rect.width()) - 1, y(rect.top() + rect.height()) - 1)};
}

int DeviceLine(const QPainter& painter) {
    return std::max(1, static_cast<int>(painter.deviceTransform().m11()));
}

void PaintTexts(QPainter& painter, const QRegion& exposed, const std::vector<ScreenText>& texts,
                const QFont& font, const QColor* colour) {
    const QFontMetrics metrics(font);
    painter.setFont(font);
    for (const ScreenText& text : texts) {
        const QString line = QString::fromStdString(text.text);
        const QRect place(text.x, text.y, metrics.horizontalAdvance(line), metrics.height());
        if (!exposed.intersects(place.adjusted(-2, -2, 2, 2))) continue;
        painter.setPen(colour ? *colour : ToQColor(text.colour));
        painter.drawText(text.x, text.y + metrics.ascent(), line);
    }
}

void PaintFrame(QPainter& painter, const QRect& rect, const QColor& colour, int width) {
    const QRect edges = OnDevice(painter, rect);
    const DevicePixels device(painter);
    const int depth = std::min({width, edges.width() / 2, edges.height() / 2});
    painter.fillRect(edges.left(), edges.top(), edges.width(), depth, colour);
    painter.fillRect(edges.left(), edges.bottom() - depth + 1, edges.width(), depth, colour);
    const int between = edges.height() - 2 * depth;
    painter.fillRect(edges.left(), edges.top() + depth, depth, between, colour);
    painter.fillRect(edges.right() - depth + 1, edges.top() + depth, depth, between, colour);
}

void PaintBitmap(QWidget& widget, const QRegion& exposed, const Bitmap& source, const QSize& size,
                 const QColor& around, ReducedView* kept) {
    PaintParts(widget, exposed, source, size, std::nullopt, &around, kept);
}

void PaintOver(QWidget& widget, const QRegion& exposed, const Bitmap& source, Pixel transparent,
               const QSize& size) {
    PaintParts(widget, exposed, source, size, transparent, nullptr, nullptr);
}

// A dark theme's highlight would not be seen on buttons.
void PaintFocusFrame(QPainter& painter, const QRect& rect, const QPalette& palette) {
    constexpr int kLighter = 160; // hundredths
    const bool dark = palette.color(QPalette::WindowText).lightness() > 128;
    const QColor highlight = palette.color(QPalette::Highlight);
    const double width = kFocusWidth * painter.device()->devicePixelRatioF();
    PaintFrame(painter, rect, dark ? highlight.lighter(kLighter) : highlight,
               static_cast<int>(std::lround(width)));
}

void PaintFocusFrame(QWidget& widget) {
    QPainter painter(&widget);
    const QColor colour = widget.palette().color(QPalette::Highlight);
    const QRect inside = widget.rect().adjusted(kFocusWidth, kFocusWidth, -kFocusWidth, -kFocusWidth);
    for (const QRect& part : QRegion(widget.rect()) - QRegion(inside))
        painter.fillRect(part, colour);
}

QRect VisibleRect(const QWidget& widget, const QWidget* outermost) {
    QRect visible = widget.rect();
    QPoint offset;
    for (const QWidget* at = &widget; at != outermost && !at->isWindow() && at->parentWidget();
         at = at->parentWidget()) {
        offset += at->pos();
        visible &= at->parentWidget()->rect().translated(-offset);
    }
    return visible;
}

} // namespace pintalux
