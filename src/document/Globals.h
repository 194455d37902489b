// State that several subsystems read.
#pragma once

#include "surface/raster/Colour.h"

#include <cstdint>
#include <string>

namespace pintalux {

// Documents
inline std::int16_t ImageCount = 0; ///< Open documents.
inline bool NewImageMode = false;   ///< Set by the first File New, and stays set.
inline std::int32_t NewWidth = 0;   ///< Pixels.
inline std::int32_t NewHeight = 0;  ///< Pixels.
inline Colour NewBackColor = kWhite;
inline std::int16_t NewColorIndex = 0; ///< The list entry last chosen in the New dialog.
inline bool NewCancelled = false;
inline bool CloseCancelled = false;

// View
inline bool RulersOn = false;
inline std::int16_t ZoomOldWidth = 0; ///< `Image1.Width` before a zoom.
inline double ZoomRatio = 1;
inline double ScrollRatioV = 0;
inline double ScrollRatioH = 0;

// Tools
inline std::int16_t CurrentTool =
    0; ///< Position of the pressed button of `TB2`, 12 to 24; 0 before the start.

// Selections: -1 or 0.
inline std::int16_t FreeSelActive = 0;
inline std::int16_t FreePasteActive = 0;
inline std::int16_t PasteFloating = 0;

inline constexpr Colour MaskKeyColour = 0x8894A0; ///< Marks what lies outside a freehand outline.

} // namespace pintalux
