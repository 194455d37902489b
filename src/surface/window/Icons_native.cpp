#include "surface/window/Icons_native.h"

#include <QApplication>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QSvgRenderer>

#include <map>
#include <tuple>

namespace pintalux {

namespace {

/// The neutral outlines of the icons, and what they become on a dark ground.
constexpr const char* kOutlines[][2] = {
    {"#3a4d63", "#c9d6e3"}, {"#54687f", "#a9bccf"}, {"#1c2734", "#dfe8f1"}};

bool DarkTheme() {
    return QGuiApplication::palette().color(QPalette::Window).lightness() < 128;
}

QByteArray DrawingFor(const QString& file, bool dark) {
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly)) return {};
    QByteArray drawing = source.readAll();
    if (dark) {
        for (const auto& [onLight, onDark] : kOutlines)
            drawing.replace(onLight, onDark);
    }
    return drawing;
}

class DrawnIcon final : public QIconEngine {
  public:
    explicit DrawnIcon(QString file) : file_(std::move(file)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override {
        const double scale = painter->device()->devicePixelRatioF();
        QPixmap drawn = pixmap((QSizeF(rect.size()) * scale).toSize(), mode, state);
        drawn.setDevicePixelRatio(scale);
        painter->drawPixmap(rect, drawn);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override {
        const bool dark = DarkTheme();
        QPixmap& drawn = drawn_[{size.width(), size.height(), mode, dark}];
        if (drawn.isNull()) drawn = Draw(size, mode, dark);
        return drawn;
    }

    QIconEngine* clone() const override { return new DrawnIcon(file_); }

  private:
    QPixmap Draw(const QSize& size, QIcon::Mode mode, bool dark) const {
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        QSvgRenderer(DrawingFor(file_, dark)).render(&painter, QRectF(QPointF(0, 0), QSizeF(size)));
        painter.end();
        QPixmap drawn = QPixmap::fromImage(image);
        if (mode != QIcon::Disabled) return drawn;
        QStyleOption option;
        option.palette = QGuiApplication::palette();
        return QApplication::style()->generatedIconPixmap(mode, drawn, &option);
    }

    QString file_;
    std::map<std::tuple<int, int, QIcon::Mode, bool>, QPixmap> drawn_;
};

} // namespace

QIcon IconOf(const std::string& resource) {
    const QString file = QString::fromStdString(resource);
    return file.isEmpty() || !QFile::exists(file) ? QIcon() : QIcon(new DrawnIcon(file));
}

} // namespace pintalux
