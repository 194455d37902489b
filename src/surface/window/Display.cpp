#include "surface/window/Display.h"

#include "surface/window/Control_native.h"
#include "surface/window/Fonts_native.h"
#include "surface/window/Painting_native.h"

#include <QPainter>
#include <QSvgRenderer>

namespace pintalux {

namespace {

/// Above so many changed boxes the whole view is marked: the list itself would cost more than it saves.
constexpr std::size_t kManyBoxes = 256;

/// Up to so many boxes are compared pixel by pixel.
constexpr std::size_t kFewBoxes = 32;

/// First or last view pixel of an image column, rounded outward. In 64 bits: a view may be 512,000 pixels
/// wide.
int MapDown(int place, int from, int to) {
    return static_cast<int>(std::int64_t{place} * to / from);
}
int MapUp(int place, int from, int to) {
    return static_cast<int>((std::int64_t{place} * to + from - 1) / from);
}

QRect Mapped(const Box& box, const Bitmap& picture, const QSize& view) {
    const int left = MapDown(box.left, picture.Width(), view.width());
    const int top = MapDown(box.top, picture.Height(), view.height());
    return {QPoint(left, top), QPoint(MapUp(box.right, picture.Width(), view.width()) - 1,
                                      MapUp(box.bottom, picture.Height(), view.height()) - 1)};
}

void MarkDifference(QWidget& widget, const Bitmap& before, const Bitmap& after) {
    const QRect visible = VisibleRect(widget);
    if (visible.isEmpty()) return;
    if (before.Width() != after.Width() || before.Height() != after.Height()) return widget.update();
    const std::vector<Box> boxes = Bitmap::Difference(before, after);
    if (boxes.size() > kManyBoxes) return widget.update();
    // Enlarged, a tile covers far more of the view than the few pixels that a stroke changed.
    const bool shrink = widget.width() > after.Width() && boxes.size() <= kFewBoxes;
    for (const Box& box : boxes) {
        const Box changed = shrink ? Bitmap::Shrunk(before, after, box) : box;
        const QRect part = Mapped(changed, after, widget.size()) & visible;
        if (!part.isEmpty()) widget.update(part);
    }
}

/// The widget of a display, with what it keeps of a reduced picture.
class DisplayWidget : public PaintedWidget {
  public:
    using PaintedWidget::PaintedWidget;
    ReducedView kept;
};

DisplayWidget* WidgetOfDisplay(const Display& display) {
    return static_cast<DisplayWidget*>(WidgetOf(display));
}

} // namespace

Display::Display(Container& parent, std::string name) : Control(&parent, std::move(name)) {
    InstallWidget(*this, new DisplayWidget(ClientWidgetOf(parent)));
    PaintPicture();
}

Display::~Display() {
    if (PaintedWidget* widget = WidgetOfDisplay(*this)) widget->paint = nullptr;
}

/// Has the widget show the picture. Without one the container shines through; with one nothing below needs
/// painting.
void Display::PaintPicture() {
    DisplayWidget* widget = WidgetOfDisplay(*this);
    if (!widget) return;
    widget->setAttribute(Qt::WA_OpaquePaintEvent, !picture_.Empty());
    widget->paint = [this, widget](QPaintEvent& event) {
        if (!picture_.Empty())
            PaintBitmap(*widget, event.region(), picture_, widget->size(), QColor(), &widget->kept);
        if (texts_.empty()) return;
        QPainter painter(widget);
        PaintTexts(painter, event.region(), texts_, SmallFont());
    };
}

void Display::Picture(pintalux::Picture value) {
    const pintalux::Picture before = std::exchange(picture_, std::move(value));
    if (before.Empty() != picture_.Empty()) PaintPicture();
    DisplayWidget* widget = WidgetOfDisplay(*this);
    if (widget) widget->kept.Changed(before, picture_);
    if (widget && widget->isVisible()) MarkDifference(*widget, before, picture_);
}

void Display::Texts(std::vector<ScreenText> texts) {
    texts_ = std::move(texts);
    if (QWidget* widget = WidgetOf(*this)) widget->update();
}

void Display::Art(const std::string& resource) {
    picture_ = {};
    PaintPicture();
    PaintedWidget* widget = WidgetOfDisplay(*this);
    if (!widget) return;
    auto* renderer = new QSvgRenderer(ToQString(resource), widget);
    widget->paint = [widget, renderer](QPaintEvent&) {
        QPainter painter(widget);
        renderer->render(&painter, QRectF(widget->rect()));
    };
    widget->update();
}

} // namespace pintalux
