// The desktop's session, where a session manager tells of its end.
#pragma once

#include <functional>

namespace pintalux {

struct SessionEvents {
    /// The user logs out, and everything that is to stay must be on the disk when this returns. `mayAsk`: the
    /// desktop lets the user be asked; a dialog that stands or a picture that is being read forbid it. False
    /// asks the desktop to call the log-out off.
    std::function<bool(bool mayAsk)> LogOut;
    /// The log-out has come: the program has to go, without a question.
    std::function<void()> End;
};

void OnSession(SessionEvents events);

} // namespace pintalux
