// How pictures show on a screen, pixel by pixel: slow, for tests to compare with.
#pragma once

#include "surface/raster/Bitmap.h"

#include <array>
#include <cstdint>
#include <vector>

namespace pintalux {

/// How many samples an axis takes: as many as image pixels fall on a screen pixel, at most four.
inline int ModelSamples(int source, int shown) {
    int samples = 1;
    while (samples < 4 && samples * shown < source)
        ++samples;
    return samples;
}

/// The lowest cell that ends behind the centre of cell d, or with it.
inline int ModelCell(int d, int source, int destination) {
    const std::int64_t centre = (std::int64_t{2} * d + 1) * source;
    auto cell = static_cast<int>(centre / (std::int64_t{2} * destination));
    while (cell > 0 && std::int64_t{2} * destination * cell >= centre)
        --cell;
    return cell;
}

/// The pixels that pixel x, y of a view takes samples of.
inline std::vector<Pixel> ModelPixels(const Bitmap& source, int x, int y, int width, int height) {
    const int across = ModelSamples(source.Width(), width);
    const int down = ModelSamples(source.Height(), height);
    std::vector<Pixel> samples;
    for (int i = 0; i < across * down; ++i)
        samples.push_back(source.At(ModelCell(x * across + i % across, source.Width(), width * across),
                                    ModelCell(y * down + i / across, source.Height(), height * down)));
    return samples;
}

/// The mean of the samples as the screen takes it, each in the colour `key` replaced by what lies below;
/// alpha, too. A key of -1 is no pixel's colour.
inline std::uint32_t ModelLaid(const std::vector<Pixel>& samples, Pixel key, std::uint32_t below) {
    std::array<std::uint32_t, 4> sums{};
    for (const Pixel p : samples) {
        const std::array<std::uint32_t, 4> own{p >> 16, p >> 8 & 0xFF, p & 0xFF, 255};
        for (unsigned channel = 0; channel < 4; ++channel)
            sums[channel] += p == key ? below >> 8 * channel & 0xFF : own[channel];
    }
    const auto count = static_cast<std::uint32_t>(samples.size());
    std::uint32_t pixel = 0;
    for (unsigned channel = 0; channel < 4; ++channel)
        pixel |= (2 * sums[channel] + count) / (2 * count) << 8 * channel;
    return pixel;
}

/// A pixel of a picture on a screen.
inline std::uint32_t ModelScreen(const Bitmap& source, int x, int y, int width, int height) {
    return ModelLaid(ModelPixels(source, x, y, width, height), 0xFFFFFFFF, 0);
}

} // namespace pintalux
