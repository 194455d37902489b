#include "surface/window/Screen.h"

#include "surface/window/Cursors_native.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>
#include <QWidget>

#include <algorithm>
#include <limits>

namespace pintalux {

ScreenObject Screen;

namespace {

int pointerOverAll = kPointerDefault;

std::vector<std::string> InstalledFamilies() {
    std::vector<std::string> families;
    for (const QString& family : QFontDatabase::families()) {
        if (!QFontDatabase::isPrivateFamily(family)) families.push_back(family.toStdString());
    }
    std::sort(families.begin(), families.end());
    families.erase(std::unique(families.begin(), families.end()), families.end());
    return families;
}

Colour FirstPixel(const QImage& image) {
    if (image.isNull()) return -1;
    const QRgb pixel = image.pixel(0, 0);
    return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

} // namespace

const std::vector<std::string>& ScreenObject::Fonts() const {
    static const std::vector<std::string> families = InstalledFamilies();
    return families;
}

int ScreenObject::MousePointer() const {
    return pointerOverAll;
}

void ScreenObject::MousePointer(int value) {
    if (value == pointerOverAll) return;
    const bool wasOver = pointerOverAll != kPointerDefault;
    pointerOverAll = value;
    if (value == kPointerDefault) {
        QGuiApplication::restoreOverrideCursor();
    } else if (wasOver) {
        QGuiApplication::changeOverrideCursor(CursorOf(value, {}));
    } else {
        QGuiApplication::setOverrideCursor(CursorOf(value, {}));
    }
}

int ScreenObject::WidthPixels() const {
    return QGuiApplication::primaryScreen()->size().width();
}

namespace {

/// The place in a screen that is nearest to where a window wants to be.
QPoint MovedInto(const QRect& screen, const QPoint& place, const QSize& size) {
    const QPoint last = screen.topLeft() + QPoint(std::max(0, screen.width() - size.width()),
                                                  std::max(0, screen.height() - size.height()));
    return {std::clamp(place.x(), screen.left(), last.x()), std::clamp(place.y(), screen.top(), last.y())};
}

} // namespace

CursorPosition ScreenObject::Reachable(const CursorPosition& place, int width, int height) const {
    constexpr int kGrip = 32; // pixels of a caption that a hand needs
    const QPoint wanted(place.x, place.y);
    QPoint nearest = wanted;
    int distance = std::numeric_limits<int>::max();
    for (const QScreen* screen : QGuiApplication::screens()) {
        const QRect area = screen->availableGeometry();
        if (area.contains(QRect(wanted, QSize(kGrip, kGrip)))) return place;
        const QPoint moved = MovedInto(area, wanted, {width, height});
        const int way = (moved - wanted).manhattanLength();
        if (way >= distance) continue;
        distance = way;
        nearest = moved;
    }
    return {nearest.x(), nearest.y()};
}

bool ScreenObject::KnowsPlaces() const {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

bool UserIsBusy() {
    return QApplication::mouseButtons() != Qt::NoButton || QApplication::activeModalWidget() != nullptr ||
           QApplication::activePopupWidget() != nullptr;
}

CursorPosition GetCursorPos() {
    const QPoint place = QCursor::pos();
    return {place.x(), place.y()};
}

Colour ScreenPixel(const CursorPosition& place) {
    QScreen* screen = QGuiApplication::screenAt(QPoint(place.x, place.y));
    if (!screen) return -1;
    const QPoint origin = screen->geometry().topLeft();
    const QImage image = screen->grabWindow(0, place.x - origin.x(), place.y - origin.y(), 1, 1).toImage();
    return FirstPixel(image);
}

Colour RenderedPixel(const CursorPosition& place) {
    const QPoint point(place.x, place.y);
    QWidget* widget = QApplication::widgetAt(point);
    if (!widget) return -1;
    QWidget* window = widget->window();
    return FirstPixel(window->grab(QRect(window->mapFromGlobal(point), QSize(1, 1))).toImage());
}

} // namespace pintalux
