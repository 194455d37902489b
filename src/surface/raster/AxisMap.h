// How a stretching copy meets its source along one axis.
#pragma once

#include <cstdint>
#include <vector>

namespace pintalux {

/// The destination cells that a copy reaches: `first`, first + 1 and so on. Left out are cells outside the
/// destination and those whose source lies outside. 4 cells copied to 2, from cell 10 on: first 10, source
/// 0, 2.
struct AxisMap {
    int first = 0;
    std::vector<int> source; ///< The source cell of each; the cells only rise, or only fall.

    int Size() const { return static_cast<int>(source.size()); }
    int End() const { return first + Size(); }
};

/// One axis of an extent. A negative one goes backwards: start 9, extent -3 are the cells 8, 7, 6.
struct Reach {
    int start = 0;
    int extent = 0;
};

/// Maps the cells of `to` inside 0 to toLimit - 1 to those of `from` inside 0 to fromLimit - 1.
AxisMap MapAxis(Reach to, int toLimit, Reach from, int fromLimit);

/// Maps a part of a row of `to` cells, `begin` to `end` - 1, to a row of `from` cells. The part lies inside.
AxisMap MapVisible(int begin, int end, int to, int from);

/// Mapped columns whose sources lie in one tile: the indices `begin` to `end` - 1 of a map. The tile starts
/// at source column `tile`.
struct TileColumns {
    int begin;
    int end;
    int tile;
};

/// Cuts a map where its sources go over to another tile, so that a row is read tile by tile.
std::vector<TileColumns> ColumnsByTile(const AxisMap& columns);

/// The place of each mapped column in its tile: source 300 is place 44.
std::vector<std::uint8_t> PlacesInTile(const AxisMap& columns);

} // namespace pintalux
