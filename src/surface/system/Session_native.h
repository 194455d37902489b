// What the program object hears of the session's end.
#pragma once

namespace pintalux {

/// Runs what `OnSession` was given for the end; false if that was nothing.
bool EndOfSession();

} // namespace pintalux
