// Where tests find their pictures, and leave those that failed; without a trailing separator.
#pragma once

#include <string>

namespace pintalux {

std::string TestData();       ///< What the tests bring along.
std::string SharedPictures(); ///< Photographs and other large files; may be absent.
std::string SharedCorpora();  ///< Broken and hostile files; may be absent.
std::string FailedPictures(); ///< Made on demand.

} // namespace pintalux
