// The frames that the wizard paints over the outer pixels of an image or a selection, and the state that it
// keeps between two openings.
//
// What they share: a frame is drawn on the live surface, in place, and lands from there on both surfaces.
// Four bands meet in diagonal joints; row 0 and column 0 belong to none, only the outer line covers them. A
// size beyond half the image makes the bands overlap. A side above 32767 is error 6, with nothing drawn. `Pb`
// gets its `Max`, moves from its middle to its end and is back at 0 afterwards.
#pragma once

#include "base/Flag.h"
#include "surface/raster/Colour.h"

#include <cstdint>

namespace pintalux {

class ProgressBar;
class Surface;

inline std::int16_t BWizStyle = 0;     ///< 0 to 6: the entry of the list.
inline std::int16_t BWizSize = 0;      ///< Width of the frame, 0 to 100; styles 2, 3, 5 and 6 take an eighth.
inline std::int16_t BWizHighlight = 0; ///< Intensity of the light, 0 to 100.
inline std::int16_t BWizShadow = 0;    ///< Intensity of the shadow, 0 to 200.
inline std::int16_t BWizFrameSize = 0; ///< Where the flat colour of a moulding ends, 0 to 100.
inline Colour BWizColour = kBlack;     ///< Of the flat colour, styles 3 and 4.
inline Flag BWizOuterLine;
inline Flag BWizInnerLine;
inline Flag BWizCancelled; ///< The wizard was left without a choice.

/// Every band in one colour.
void PlainFrame(Surface& work, Surface& live, std::int16_t size, Colour colour, Flag outerLine,
                Flag innerLine, ProgressBar& Pb);

/// Light from the upper left: the top and left bands gain a third of `highlight` in saturation, the bottom
/// and right ones lose a third of `shadow` in luminance, no channel above 160. Keeps both in `BWizHighlight`
/// and `BWizShadow` and leaves the thirds in the arguments.
void BevelFrame(Surface& work, Surface& live, std::int16_t size, std::int16_t& highlight,
                std::int16_t& shadow, Flag outerLine, Flag innerLine, ProgressBar& Pb);

/// The same with twice `highlight`, which stands in the argument afterwards, and the whole `shadow`; both
/// fade across the band. Size 0 has no band.
void FadedBevelFrame(Surface& work, Surface& live, std::int16_t size, std::int16_t& highlight,
                     std::int16_t& shadow, Flag outerLine, Flag innerLine, ProgressBar& Pb);

/// An outer moulding an eighth of `size` wide, a flat colour up to `frameSize` pixels from the edge, an inner
/// moulding there. `size` has its entry value again afterwards.
void MouldFrame(Surface& work, Surface& live, std::int16_t& size, std::int16_t frameSize, Colour colour,
                ProgressBar& Pb);

/// The moulding of `s` pixels that lies `f` pixels inside, with light and dark the other way round. Nothing
/// lands.
void InnerMould(Surface& work, Surface& live, std::int16_t s, std::int16_t f, ProgressBar& Pb);

/// A ridge an eighth of `size` wide that leads inward or stands out. `size` has its entry value again
/// afterwards.
void RidgeFrame(Surface& work, Surface& live, std::int16_t& size, Flag outerLine, Flag innerLine, Flag inward,
                ProgressBar& Pb);

/// A black line around the surface, on its outermost pixels.
void DrawOuterLine(Surface& surface);

/// A rectangle `inset` pixels inside. Its right and bottom lines stand at the width and height less `inset`,
/// one pixel further out than a band of that size reaches.
void DrawInsetRect(Surface& surface, int inset, Colour colour);

} // namespace pintalux
