// A picture as the bytes of a PNG file, made while another program waits to paste it.
#pragma once

#include "surface/raster/Bitmap.h"

#include <QByteArray>

namespace pintalux {

/// The whole file, 24 bits a pixel. A large picture is not compressed: its bytes go to another program, and
/// to compress them takes several times as long as to send them. Any thread may call it. Error 7 if memory
/// runs out.
QByteArray PngBytes(const Picture& picture);

} // namespace pintalux
