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

/// Whether one of the offered formats is a bitmap that `ReadBitmap` can take. Null offers nothing.
bool OffersBitmap(const QMimeData* data);

/// The first offered bitmap that can be read; nothing if none can. Never above the legal sizes, which are
/// checked before anything is decoded: the bytes come from outside.
std::optional<Picture> ReadBitmap(const QMimeData* data);

} // namespace pintalux
