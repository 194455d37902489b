// State that several subsystems read.
#pragma once

#include "base/Flag.h"
#include "surface/raster/Colour.h"

#include <cstdint>
#include <string>

namespace pintalux {

// The program
inline Flag ProgramClosing; ///< The main window goes for good.
inline Flag SessionOver;    ///< It goes with a log-out, which has asked the questions.

// Documents
inline std::int16_t ImageCount = 0; ///< Open documents.
inline Flag NewImageMode;           ///< Set by the first File New, and stays set.
inline std::int32_t NewWidth = 0;   ///< Pixels.
inline std::int32_t NewHeight = 0;  ///< Pixels.
inline Colour NewBackColor = kWhite;
inline std::int16_t NewColorIndex = 0; ///< The list entry last chosen in the New dialog.
inline Flag NewCancelled;
inline Flag CloseCancelled;

// View
inline Flag RulersOn;
inline std::int16_t ZoomOldWidth = 0; ///< `Image1.Width` before a zoom. Nothing is decided by it.
inline double ZoomRatio = 1;
inline double ScrollRatioV = 0;
inline double ScrollRatioH = 0;

// Tools
inline std::int16_t CurrentTool =
    0; ///< Position of the pressed button of `TB2`, 12 to 24; 0 before the start.

// Selections
inline Flag FreeSelActive;
inline Flag FreePasteActive;
inline Flag PasteFloating;

inline constexpr Colour MaskKeyColour = 0x8894A0; ///< Marks what lies outside a freehand outline.

} // namespace pintalux
