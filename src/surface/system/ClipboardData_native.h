// A picture as clipboard data, and the pictures of other programs.
#pragma once

#include "surface/raster/Bitmap.h"

#include <optional>
#include <QMimeData>

namespace pintalux {

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

/// The bitmap of the first format that can be read; nothing if none can, or if the owner keeps silent. Never
/// above the legal sizes, which are checked before anything is decoded: the bytes come from outside. Error 7
/// if memory runs out.
std::optional<Picture> ReadBitmap(const QMimeData& data, const QStringList& formats);

} // namespace pintalux
