// Small pictures in the file dialogs.
#pragma once

#include <QFileIconProvider>

namespace pintalux {

/// The symbol of a picture's file is the picture itself, at most `side` pixels wide and high. A dialog asks
/// from a thread of its own. What is broken, too large to be read in a blink or no picture has the usual one.
class FileThumbnails final : public QFileIconProvider {
  public:
    explicit FileThumbnails(int side) : side_(side) {}
    using QFileIconProvider::icon;
    QIcon icon(const QFileInfo& file) const override;

  private:
    int side_;
};

} // namespace pintalux
