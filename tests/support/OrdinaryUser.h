// A user whom folders and files can refuse something.
#pragma once

#include <cstdlib>
#include <unistd.h>

namespace pintalux {

/// The superuser may do anything: takes that away for the object's life.
class OrdinaryUser {
  public:
    OrdinaryUser() : wasSuperuser_(::geteuid() == 0 && ::seteuid(65534) == 0) {}
    ~OrdinaryUser() {
        if (wasSuperuser_ && ::seteuid(0) != 0) std::abort();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

  private:
    bool wasSuperuser_;
};

} // namespace pintalux
