#include "colour/Spectrum.h"

#include <algorithm>
#include <cmath>

namespace pintalux {

namespace {

constexpr int kWidth = 177;
constexpr int kHeight = 188;
constexpr int kGreyWidth = 12;
constexpr int kHueWidth = kWidth - kGreyWidth;

/// How much of one primary a hue holds, 0 to 1. Hue and the primary's place are parts of the whole circle;
/// the primary is full up to a sixth on either side of its place and gone from a third on.
double Share(double hue, double place) {
    const double distance = std::fabs(hue - place);
    return std::clamp(2 - 6 * std::min(distance, 1 - distance), 0.0, 1.0);
}

/// A share at a height of the picture: mixed with white above the middle, with black below.
Pixel Channel(double share, double height) {
    const double mixed = height < 0.5 ? 1 - (1 - share) * 2 * height : share * 2 * (1 - height);
    return static_cast<Pixel>(std::lround(255 * mixed));
}

} // namespace

Picture SpectrumPicture() {
    Picture picture(kWidth, kHeight, 0);
    for (int y = 0; y < kHeight; ++y) {
        const double height = static_cast<double>(y) / (kHeight - 1);
        for (int x = 0; x < kHueWidth; ++x) {
            const double hue = static_cast<double>(x) / (kHueWidth - 1);
            picture.Set(x, y,
                        Channel(Share(hue, 0), height) | Channel(Share(hue, 1.0 / 3), height) << 8 |
                            Channel(Share(hue, 2.0 / 3), height) << 16);
        }
        const Pixel grey = static_cast<Pixel>(std::lround(255 * (1 - height)));
        picture.Fill({kHueWidth, y, kWidth, y + 1}, grey * 0x010101);
    }
    return picture;
}

} // namespace pintalux
