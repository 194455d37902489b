// The models of the routines that read their surfaces directly, without the table of split channels.
#include "base/Arithmetic.h"
#include "imageops/FilterModels.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace pintalux {

namespace {

std::string HexText(Colour colour) {
    char text[9];
    std::snprintf(text, sizeof text, "%X", static_cast<unsigned>(colour));
    return text;
}

/// `count` characters from position `first` on, which counts from 1; nothing past the end.
std::string Mid(const std::string& text, std::size_t first, std::size_t count) {
    return first > text.size() ? std::string() : text.substr(first - 1, count);
}

/// "&h" and two digits as a number.
int NumberOf(const std::string& text) {
    return std::stoi(text.substr(2), nullptr, 16);
}

/// The colour that a scattered pixel becomes, by way of its hexadecimal text.
Colour ThroughText(Colour k) {
    const std::string t = HexText(k);
    std::string HexRed = "&h" + Mid(t, 5, 2);
    std::string HexGreen = "&h" + Mid(t, 3, 2);
    std::string HexBlue = "&h" + Mid(t, 1, 2);
    for (std::string* text : {&HexRed, &HexGreen, &HexBlue}) {
        if (*text == "&h") *text = "&h0";
    }
    const int CapRed = NumberOf(HexRed) > 240 ? 200 : 0;
    const int CapGreen = NumberOf(HexGreen) > 240 ? 200 : 0;
    const int CapBlue = NumberOf(HexBlue) > 240 ? 200 : 0;
    if (CapRed > 0) return RGB(CapRed, CapGreen, CapBlue);
    return RGB(NumberOf(HexRed), NumberOf(HexGreen), NumberOf(HexBlue));
}

/// A picture's pixel; -1 outside.
Colour PixelIn(const Bitmap& picture, int x, int y) {
    return picture.Holds(x, y) ? static_cast<Colour>(picture.At(x, y)) : -1;
}

} // namespace

void FilterModel::Invert() {
    for (int y = 0; y < H(); ++y) {
        for (int x = 0; x < W(); ++x) {
            const Colour colour = PixelIn(work.stored, x, y);
            if (colour != -1) live.SetPixel(x, y, 0xFFFFFF - colour);
        }
    }
    Land(live);
}

void FilterModel::Scatter(int level, RandomNumbers& random) {
    pbMax = H() - 3.0;
    for (PxX = 1; PxX <= ToInt16(H() - 3.0); PxX = AddInt16(PxX, 1)) {
        for (PxY = 1; PxY <= ToInt16(W() - 3.0); PxY = AddInt16(PxY, 1)) {
            const float r1 = random.Next();
            const float r2 = random.Next();
            const int x = AddInt16(ToInt16(level * static_cast<double>(r1)), PxY);
            const int y = AddInt16(ToInt16(level * static_cast<double>(r2)), PxX);
            const Colour colour = ThroughText(work.GetPixel(x, y));
            // Column and row change places in this test.
            if (freeSelActive && work.GetPixel(PxX, PxY) == kMaskKey) continue;
            work.SetPixel(PxY, PxX, colour);
        }
    }
    Land(work);
}

void FilterModel::Outline(int level) {
    pbMax = W() - 1.0;
    work.Load({});
    const double limit = std::pow(static_cast<double>(level), 3.0);
    for (PxX = 1; PxX <= ToInt16(live.Width() - 1.0); PxX = AddInt16(PxX, 1)) {
        for (PxY = 1; PxY <= ToInt16(live.Height() - 1.0); PxY = AddInt16(PxY, 1)) {
            if (freeSelActive) continue;
            const Colour colour = live.GetPixel(PxX, PxY);
            if (limit < std::abs(colour - live.GetPixel(PxX, PxY - 1))) work.SetPixel(PxX, PxY, 0);
            if (limit < std::abs(colour - live.GetPixel(PxX - 1, PxY))) work.SetPixel(PxX, PxY, 0);
        }
    }
    Land(work);
}

void FilterModel::Pixelate(int level) {
    const int s = level;
    pbMax = s + static_cast<double>(W());
    // A loop ends after its variable was put back to the last pixel; without this a box of side 1 would come
    // back to the edge for ever.
    bool lastColumn = false;
    for (PxX = 0; PxX <= ToInt16(W()) && !lastColumn; PxX = AddInt16(PxX, s)) {
        bool lastRow = false;
        for (PxY = 0; PxY <= ToInt16(H()) && !lastRow; PxY = AddInt16(PxY, s)) {
            if (PxY + 1 > H()) {
                PxY = ToInt16(H() - 1.0);
                lastRow = true;
            }
            if (PxX + 1 > W()) {
                PxX = ToInt16(W() - 1.0);
                lastColumn = true;
            }
            const Colour PxColour = work.GetPixel(PxX + 1, PxY + 1);
            live.FilledBox(PxX, PxY, AddInt16(PxX, s), AddInt16(PxY, s), PxColour);
        }
    }
}

void FlipModel(ModelSurface& destination, const ModelSurface& source, int horizontal) {
    const int SW = source.Width();
    const int SH = source.Height();
    for (int y = 0; y < SH; ++y) {
        for (int x = 0; x < SW; ++x) {
            const Colour colour = horizontal == -1 ? PixelIn(source.stored, SW - 1 - x, y)
                                                   : PixelIn(source.stored, x, SH - 1 - y);
            if (colour != -1) destination.SetPixel(x, y, colour);
        }
    }
    const Bitmap file = destination.shown;
    destination.autoSize = true;
    destination.Load(file);
}

void RotateModel(const ModelSurface& source, ModelSurface& destination, double& angle) {
    destination.autoSize = false;
    destination.shown = Bitmap(source.Height(), source.Width(), PixelOf(destination.background));
    destination.Load({});
    angle = (360 - angle) * (3.14159265358979 / 180);
    const int sx = source.Width() / 2;
    const int sy = source.Height() / 2;
    const int dx0 = destination.Width() / 2;
    const int dy0 = destination.Height() / 2;
    const int m = std::max(dx0, dy0);
    const int K = m - 1;
    MultiplyInt16(2, K); // Refuses a side above 32769.
    const auto copy = [&](int fromX, int fromY, int toX, int toY) {
        const Colour colour = source.GetPixel(fromX, fromY);
        if (colour != -1) destination.SetPixel(toX, toY, colour);
    };
    for (int i = 0; i <= K; ++i) {
        for (int j = 0; j <= K; ++j) {
            const double a = i != 0 ? std::atan(static_cast<double>(j) / i) : 0.0;
            const double distance = std::sqrt(static_cast<double>(i) * i + static_cast<double>(j) * j);
            const int r = ToInt16(distance);
            const int u = ToInt16(r * std::cos(a + angle));
            const int v = ToInt16(r * std::sin(a + angle));
            copy(sx + u, sy + v, dx0 + i, dy0 + j);
            copy(sx - u, sy - v, dx0 - i, dy0 - j);
            copy(sx + v, sy - u, dx0 + j, dy0 - i);
            copy(sx - v, sy + u, dx0 - j, dy0 + i);
        }
    }
    const Bitmap file = destination.shown;
    destination.autoSize = true;
    destination.Load(file);
}

} // namespace pintalux
