// Reads the measured drawing cases: tests/data/drawing-cases, one file a family.
#pragma once

#include "surface/raster/Bitmap.h"

#include <string>
#include <vector>

namespace pintalux {

/// One line of a case, cut at its blanks, with the value that the call must give (empty if none is told).
struct CaseStep {
    std::vector<std::string> words;
    std::string value;

    int Number(std::size_t word) const { return std::stoi(words.at(word)); }
    /// A hexadecimal colour.
    Colour ColourAt(std::size_t word) const {
        return static_cast<Colour>(static_cast<std::uint32_t>(std::stoul(words.at(word), nullptr, 16)));
    }
};

struct MeasuredCase {
    std::string name;
    int width = 0;
    int height = 0;
    Pixel background = 0;
    std::vector<CaseStep> steps;
    Bitmap expected;
};

/// All cases of all families.
std::vector<MeasuredCase> ReadMeasuredCases();

} // namespace pintalux
