// Long work that the user waits for, with an interface that stays alive.
#pragma once

#include <functional>
#include <stop_token>

namespace pintalux {

/// Runs `work` on a thread of its own and returns when it is over; its error is raised here. Where it takes
/// longer than a moment, the wait pointer shows, windows are painted and Escape asks for a stop; every other
/// key, press or close is dropped, and no timer of the program ticks, so that nothing else begins meanwhile.
/// Inside such a wait `work` runs at once. For the interface's thread.
void WorkWhileWaiting(const std::function<void(const std::stop_token&)>& work);

/// True inside a wait that has become visible.
bool Waiting();

} // namespace pintalux
