// The end of a pixel routine: what was drawn becomes the stored picture of surfaces.
#pragma once

namespace pintalux {

class Surface;

/// The image of `drawn`, which is one of the two, becomes the picture of the live surface, then of the work
/// surface. It stays in memory; each surface has a picture of its own.
void Land(const Surface& drawn, Surface& live, Surface& work);

/// The destination takes the size of what it shows and keeps it as its picture.
void LandOnDestination(Surface& destination);

} // namespace pintalux
