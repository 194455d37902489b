// A picture as clipboard data, and the pictures of other programs.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/system/FileLayer.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <QClipboard>
#include <QMimeData>
#include <stop_token>

namespace pintalux {

inline constexpr const char* kBmp = "image/bmp";
inline constexpr const char* kPng = "image/png";

/// Offers a picture; encodes it only when somebody asks for the bytes.
class PictureData final : public QMimeData {
  public:
    explicit PictureData(Picture shown) : picture(std::move(shown)) {}
    const Picture picture;

    QStringList formats() const override;
    bool hasFormat(const QString& format) const override { return formats().contains(format); }

  protected:
    QVariant retrieveData(const QString& format, QMetaType type) const override;
};

/// Those of the offered formats that `ReadBitmap` can take, best first.
QStringList ReadableFormats(const QStringList& offered);

enum class Fetch { Taken, Unreadable, Silent, TooLarge };

/// What came of a question for another program's bitmap.
struct FetchedBitmap {
    Fetch outcome = Fetch::Unreadable;
    Picture picture = {}; ///< If it was taken.
};

inline constexpr std::uint64_t kAnySize = std::numeric_limits<std::uint64_t>::max();

/// Asks the owner of the X clipboard for the first of the formats that can be read. A bitmap that would take
/// more than `limit` bytes of memory is too large, one that cannot be opened as a file unreadable: both are
/// found before anything is decoded, since the bytes come from outside. Error 18 at a stop. Any thread may
/// call it.
FetchedBitmap FetchBitmap(const QStringList& formats, std::uint64_t limit, const std::stop_token& stop);

/// The same from bytes that are here already: they are decoded as those of a file are, with its limits.
FetchedBitmap DecodeBitmap(File& bytes, std::uint64_t limit, const std::stop_token& stop);

/// The text that another program has on the X clipboard, or has selected; waits for it under
/// `WorkWhileWaiting`. Empty if it gives none, keeps silent, or at Escape. For the interface's thread;
/// elsewhere than on X11, and of this program's own text, the toolkit answers.
QString TextOfOther(QClipboard::Mode mode);

/// What the toolkit is given under a format, where it has to be asked; nothing if that is nothing. For the
/// interface's thread. `silent` tells that the owner let us wait in vain.
std::optional<File> AskToolkit(const QMimeData& data, const QString& format, bool& silent);

} // namespace pintalux
