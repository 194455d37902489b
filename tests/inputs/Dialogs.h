// Answers a modal dialog from inside its own event loop.
#pragma once

#include <functional>
#include <gtest/gtest.h>
#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QWidget>

namespace pintalux {

/// Closes whatever dialog nobody answers within five seconds, and fails the test with its text.
class Rescue {
  public:
    Rescue() {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            const auto* box = qobject_cast<QMessageBox*>(dialog);
            ADD_FAILURE() << "nobody answers "
                          << (box == nullptr ? dialog->windowTitle() : box->text()).toStdString();
            dialog->close();
        });
        timer_.start(5000);
    }

  private:
    QTimer timer_;
};

/// Runs `answer` with the next modal dialog that shows, as soon as it shows.
template <class Dialog>
class Answer {
  public:
    explicit Answer(std::function<void(Dialog&)> answer) : answer_(std::move(answer)) {
        QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Look(); });
        timer_.start(5);
    }
    bool Given() const { return given_; }

  private:
    void Look() {
        auto* dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr || !dialog->isVisible()) return;
        timer_.stop();
        given_ = true;
        answer_(*dialog);
    }
    std::function<void(Dialog&)> answer_;
    QTimer timer_;
    bool given_ = false;
    Rescue rescue_;
};

} // namespace pintalux
