#include "support/DialogAnswers.h"

#include <QApplication>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace pintalux {

// A dialog that stays after its answer gets another one at the next look.
struct DialogAnswers::Native {
    std::function<void(QWidget&)> answer;

    static void Look(const std::weak_ptr<Native>& weak) {
        const std::shared_ptr<Native> native = weak.lock();
        if (!native) return;
        // A single shot, so that dialogs shown within an answer are answered too.
        QTimer::singleShot(1, qApp, [weak] { Look(weak); });
        QWidget* const dialog = QApplication::activeModalWidget();
        if (dialog != nullptr && dialog->isVisible()) native->answer(*dialog);
    }
};

DialogAnswers::DialogAnswers(std::function<void(QWidget&)> answer) : native_(std::make_shared<Native>()) {
    native_->answer = std::move(answer);
    const std::weak_ptr<Native> weak = native_;
    QTimer::singleShot(0, qApp, [weak] { Native::Look(weak); });
}

DialogAnswers::~DialogAnswers() = default;

} // namespace pintalux
