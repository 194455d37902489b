// Picture files open in this program: the desktop's own association, for this user alone.
#pragma once

#include <string>

namespace pintalux {

/// Makes `program` (a full path) the first opener of the files with an extension ("bmp", ".jpg", "gif"): its
/// desktop entry, unless the system has one, and its place in the user's `mimeapps.list`, where every other
/// line and every other program stays. True when each step worked; on a failure what could not be read is
/// left as it was.
bool RegisterExtension(const std::string& program, std::string extension);

/// What OK in the Preferences does by the tick of the association.
void ApplyAssociation(bool wanted);

} // namespace pintalux
