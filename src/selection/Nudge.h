// Moving what floats by keys.
#pragma once

namespace pintalux {

class frmImage;

/// Moves the piece or the text that floats by image pixels; a piece is grabbed by its first move. It stays
/// with a pixel over the image. False if nothing floats.
bool Nudge(frmImage& image, int dx, int dy);

} // namespace pintalux
