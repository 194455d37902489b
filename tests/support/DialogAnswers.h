// One answer for all dialogs that a command may show.
#pragma once

#include <functional>
#include <memory>

class QWidget;

namespace pintalux {

/// Answers every dialog by the same step, as many as come.
class DialogAnswers {
  public:
    explicit DialogAnswers(std::function<void(QWidget&)> answer);
    ~DialogAnswers();
    DialogAnswers(const DialogAnswers&) = delete;
    DialogAnswers& operator=(const DialogAnswers&) = delete;

  private:
    struct Native;
    std::shared_ptr<Native> native_;
};

} // namespace pintalux
