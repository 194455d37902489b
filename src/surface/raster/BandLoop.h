// The loop over the bands of an area: on all cores, each of which takes the next part when it is done with
// one. So none waits for another, even where parts take unequally long.
#pragma once

#include <functional>

namespace pintalux {

struct Box;

/// Calls rows(top, bottom) for parts of an area of a bitmap. They hold each of its rows once, and whole bands
/// but for the first and the last, which end with the area. What a part streams is in memory when it ends.
/// After the parts that the calling thread did itself, tell(share) runs there, if there is one, with the
/// share of the rows that are done, 1 at the end if the last part was its own.
void ForBands(const Box& area, const std::function<void(int top, int bottom)>& rows,
              const std::function<void(double share)>& tell = nullptr);

/// The same on the calling thread alone, from top to bottom.
void ForBandsInTurn(const Box& area, const std::function<void(int top, int bottom)>& rows,
                    const std::function<void(double share)>& tell = nullptr);

} // namespace pintalux
