// Files that the user drops on a window.
#pragma once

#include <functional>
#include <string>
#include <vector>

class QWidget;

namespace pintalux {

/// From now on `drop` gets the paths of the files that are dropped anywhere on the window, in their order. It
/// runs once the other program has its answer. What is no file of this machine, and what comes while a dialog
/// stands, is refused.
void TakeFileDrops(QWidget& window, std::function<void(const std::vector<std::string>&)> drop);

} // namespace pintalux
