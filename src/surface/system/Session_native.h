// What the program object hears of a log-out.
#pragma once

namespace pintalux {

/// Runs what `OnSession` was given for the end; false if that was nothing.
bool EndOfSession();

} // namespace pintalux
