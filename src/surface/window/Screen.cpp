#include "surface/window/Screen.h"

#include "surface/window/Cursors_native.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QPixmap>
#include <QScreen>

#include <algorithm>

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

int ScreenObject::HeightPixels() const {
    return QGuiApplication::primaryScreen()->size().height();
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
    if (image.isNull()) return -1;
    const QRgb pixel = image.pixel(0, 0);
    return RGB(qRed(pixel), qGreen(pixel), qBlue(pixel));
}

} // namespace pintalux
