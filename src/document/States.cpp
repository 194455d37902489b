#include "document/States.h"

namespace pintalux {

StateFiles& States() {
    static StateFiles states;
    return states;
}

void ForgetState(const std::string& path) {
    States().Forget(path);
}

} // namespace pintalux
