// The file of a colour collection (".klc"): a profile text file with one section, "Colors", whose keys are
// the numbers 0 to 77 and whose values are colours as decimal numbers.
#pragma once

#include "surface/raster/Colour.h"

#include <array>
#include <string>
#include <vector>

namespace pintalux {

inline constexpr int kCollectionCells = 78;

/// The decimal text of each cell's colour, as a formatted number; empty for a cell never filled.
using CollectionTexts = std::array<std::string, kCollectionCells>;

/// The colours of a file in the order of their keys; keys that are missing, empty or no colour are left out,
/// so that gaps close up. A text that begins with no number reads as 0, black. Errors as the file layer gives
/// them, 75 for a file above a megabyte.
std::vector<Colour> ReadCollection(const std::string& file);

/// Writes the file whole, aside and renamed: nothing of an older file stays. Empty texts write no key.
/// Errors as the file layer gives them, with the old file as it was.
void WriteCollection(const std::string& file, const CollectionTexts& texts);

} // namespace pintalux
