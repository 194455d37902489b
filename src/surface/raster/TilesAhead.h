// Memory for a picture that is being read, made beside the reading.
#pragma once

#include <cstdint>
#include <thread>

namespace pintalux {

/// While it exists a thread asks the system for as much tile memory as a picture of `bytes` will take, and
/// touches it: a new page is cleared first, which takes a quarter of the time that a photograph is decoded
/// in. No more than what is kept of memory given back, and nothing where that has enough; what is not taken
/// stays there. Without a thread to spare the pages come as they are needed.
class TilesAhead {
  public:
    explicit TilesAhead(std::uint64_t bytes);

  private:
    std::jthread thread_;
};

} // namespace pintalux
