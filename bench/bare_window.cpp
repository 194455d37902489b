// bare_window <picture>: the least that a stroke, and waiting, cost with this toolkit, display and machine,
// for running.py to compare with. A window that shows a picture, draws a line in it at each move, and has a
// timer as quick as the program's; no more.
#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <QWidget>

namespace {

class BareWindow : public QWidget {
  public:
    explicit BareWindow(const QString& path) : image_(QImage(path).convertToFormat(QImage::Format_RGB32)) {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(1200, 800);
        timer_.start(kTick);
    }

  protected:
    void mousePressEvent(QMouseEvent* event) override { last_ = event->position().toPoint(); }
    void mouseMoveEvent(QMouseEvent* event) override {
        const QPoint now = event->position().toPoint();
        QPainter(&image_).drawLine(last_, now);
        repaint(QRect(last_, now).normalized().adjusted(-1, -1, 1, 1));
        last_ = now;
    }
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        painter.drawImage(event->rect(), image_, event->rect());
    }

  private:
    static constexpr int kTick = 30;
    QImage image_;
    QPoint last_;
    QTimer timer_;
};

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    BareWindow window(QString::fromLocal8Bit(argc > 1 ? argv[1] : ""));
    window.show();
    return QApplication::exec();
}
