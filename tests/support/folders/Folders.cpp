#include "support/Folders.h"

namespace pintalux {

std::string TestData() {
    return TEST_DATA;
}

std::string SharedPictures() {
    return SHARED_PICTURES;
}

std::string SharedCorpora() {
    return SHARED_CORPORA;
}

std::string FailedPictures() {
    return FAILED_PICTURES;
}

} // namespace pintalux
