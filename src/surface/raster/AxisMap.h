// How a stretching copy meets its source along one axis.
#pragma once

#include <cstdint>
#include <vector>

namespace pintalux {

/// The destination cells that a copy reaches: `first`, first + 1 and so on. Cells outside the destination, or
/// whose source lies outside, are left out. 4 cells copied to 2, from cell 10 on: first 10, source 0, 2.
struct AxisMap {
    int first = 0;
    std::vector<int> source; ///< The source cell of each; the cells only rise, or only fall.

    int Size() const { return static_cast<int>(source.size()); }
    int End() const { return first + Size(); }
};

/// One axis of an extent: where it starts and how far it goes; a negative extent goes backwards.
struct Reach {
    int start = 0;
    int extent = 0;
};

/// Maps the cells of `to` inside 0 to toLimit - 1 to those of `from` inside 0 to fromLimit - 1.
AxisMap MapAxis(Reach to, int toLimit, Reach from, int fromLimit);

/// Maps the cells begin to end - 1, all inside, of `to` cells to those of `from`.
AxisMap MapVisible(int begin, int end, int to, int from);

/// A stretch of mapped columns, index begin to end - 1, whose sources lie in the tile that starts at column
/// `tile`.
struct TileColumns {
    int begin;
    int end;
    int tile;
};

/// Cuts the map of a row into stretches of one tile each, so that a row is read tile by tile.
std::vector<TileColumns> ColumnsByTile(const AxisMap& columns);

/// Where in its tile each mapped column lies.
std::vector<std::uint8_t> PlacesInTile(const AxisMap& columns);

} // namespace pintalux
