#include "surface/window/ProgressBar.h"

#include "base/Arithmetic.h"
#include "surface/window/Inputs_native.h"

#include <algorithm>
#include <limits>
#include <QElapsedTimer>
#include <QProgressBar>
#include <QTimer>

namespace pintalux {

namespace {

constexpr int kSteps = 1000; // parts of the bar, whatever its Max
constexpr int kRepaintEvery = 50;

/// A progress bar that paints at once, but not more often than the eye can follow.
class ProgressWidget final : public QProgressBar {
  public:
    explicit ProgressWidget(QWidget* parent) : QProgressBar(parent) {
        setRange(0, kSteps);
        setValue(0);
        setTextVisible(false);
        late_.setSingleShot(true);
        connect(&late_, &QTimer::timeout, this, [this] { PaintNow(); });
    }
    void ShowPart(int part, bool atAnyRate) {
        part_ = part;
        if (part_ == value()) return;
        if (!atAnyRate && sincePaint_.isValid() && sincePaint_.elapsed() < kRepaintEvery) {
            if (!late_.isActive()) late_.start(kRepaintEvery);
            return;
        }
        PaintNow();
    }

  protected:
    // At rest there is no bar.
    void paintEvent(QPaintEvent* event) override {
        if (value() > 0) QProgressBar::paintEvent(event);
    }

  private:
    void PaintNow() {
        late_.stop();
        setValue(part_); // repaints at once if the bar's pixels change
        sincePaint_.start();
    }

    int part_ = 0;
    QElapsedTimer sincePaint_;
    QTimer late_;
};

} // namespace

ProgressBar::ProgressBar(Container& parent, std::string name) : Control(&parent, std::move(name)) {
    InstallWidget(*this, new ProgressWidget(ClientWidgetOf(parent)));
    ShowState();
}

void ProgressBar::Max(double value) {
    max_ = Within(value, 0.0, std::numeric_limits<double>::infinity());
    value_ = std::min(value_, max_);
    ShowState();
}

void ProgressBar::Value(double value) {
    AssignValue(value_, Within(value, 0.0, max_), [this] { ShowState(); }, {});
}

void ProgressBar::ShowState() {
    auto* widget = WidgetAs<ProgressWidget>(*this);
    if (widget == nullptr) return;
    const int part = max_ > 0 ? ToInt32(value_ / max_ * kSteps) : 0;
    widget->ShowPart(part, value_ == 0 || value_ == max_);
}

} // namespace pintalux
