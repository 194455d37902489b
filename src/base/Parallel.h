// Work over rows or columns that are independent, split over the cores.
#pragma once

#include <functional>

namespace pintalux {

/// Runs `work(begin, end)` over parts of 0 to count - 1 that cover it once, on all cores, and returns when
/// all are done. The calling thread does its share. An error of a part is raised here, once every part has
/// ended. Calls from inside `work`, and a count of 1, run on the calling thread alone.
void SplitOverCores(int count, const std::function<void(int begin, int end)>& work);

/// The same in parts of `size` numbers, the last smaller, which the cores take one after another, from the
/// first on. After each part that the calling thread did itself, tell(done) runs there; `done` numbers are
/// done by then on all cores, though not the first ones always. So a progress bar moves without a halt of
/// the others.
void ShareOverCores(int count, int size, const std::function<void(int begin, int end)>& work,
                    const std::function<void(int done)>& tell);

/// The number of parts that `SplitOverCores` makes of a large count.
int CoreCount();

} // namespace pintalux
