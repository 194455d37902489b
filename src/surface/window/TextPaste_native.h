// Text that comes into a line from other programs, and the menu of a line.
#pragma once

#include <functional>
#include <QClipboard>
#include <QString>

class QLineEdit;
class QPoint;

namespace pintalux {

/// How another program is asked for its text: the toolkit does so on the interface's thread, and waits for
/// seconds. Also sees to it that the lines of the toolkit's own dialogs ask so.
void AskForTextBy(std::function<QString(QClipboard::Mode)> asker);

/// The text on the clipboard, or the selected one; empty if there is none, or its owner keeps silent.
QString TextToPaste(QClipboard::Mode mode);

/// A line that pastes by itself.
class SelfPasting {
  public:
    virtual ~SelfPasting() = default;
};

/// Shows the menu of a line, without asking anybody what there is to paste. `done` runs behind each item.
void ShowLineMenu(QLineEdit& line, const QPoint& where, const std::function<void()>& paste,
                  const std::function<void()>& done = {});

} // namespace pintalux
