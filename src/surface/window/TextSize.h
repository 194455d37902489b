// How much room texts and controls want in the desktop's font: what is laid out without a grid asks here.
#pragma once

#include "surface/window/Control.h"

#include <string>

namespace pintalux {

/// A line of text in the desktop's font, in pixels.
int TextWidth(const std::string& text);
int TextHeight();

/// What the control wants for its text, its marks and its edges, in pixels.
int WantedWidth(const Control& control);
int WantedHeight(const Control& control);

} // namespace pintalux
