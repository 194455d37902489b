// A text box with an inverted scroll bar at its side: the text shows `Max` minus `Value`, so that the up
// arrow raises the number.
#pragma once

#include "surface/window/Inputs.h"

#include <string>

namespace pintalux {

/// The decimal text of what an inverted bar shows.
std::string SpinnerText(const ScrollBar& bar);

/// Lets only the digits 0 to 9 and backspace pass.
void DigitsOnly(TextBox& text);

/// Up and Down in the text step the bar by one.
void StepByKeys(TextBox& text, ScrollBar& bar);

/// Binds the pair: Up and Down step it; the bar writes the text, digits that were typed or pasted move the
/// bar. A number above its `Max` becomes `Max` at once, so that no text of the box is too large for what
/// reads it.
void BindSpinner(TextBox& text, ScrollBar& bar);

} // namespace pintalux
