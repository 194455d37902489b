// A picture as the bytes of a file, made piece by piece while another program takes them.
#pragma once

#include "surface/raster/Bitmap.h"

#include <cstddef>
#include <functional>
#include <string>

namespace pintalux {

/// Gives the next piece of about `kPieceLength` bytes; an empty one at the end. Errors as below.
using Pieces = std::function<std::string()>;

inline constexpr std::size_t kPieceLength = std::size_t{2} << 20;

/// All that is left.
std::string WholeOf(const Pieces& pieces);

/// A whole BMP file. Error 481 for a picture above the legal sizes, 7 if memory runs out.
Pieces BmpPieces(const Picture& picture);

/// A whole PNG file, 24 bits a pixel. A large picture is not compressed: its bytes go to another program, and
/// to compress them takes several times as long as to send them. Any thread may ask for pieces. Error 7 if
/// memory runs out.
Pieces PngPieces(const Picture& picture);

} // namespace pintalux
