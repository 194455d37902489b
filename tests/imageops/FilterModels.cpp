#include "imageops/FilterModels.h"

#include "base/Arithmetic.h"
#include "base/RuntimeError.h"

#include <cmath>
#include <cstdlib>

namespace pintalux {

namespace {

/// The loop variables hold 16 bits: stepping past 32767 is error 6.
std::int16_t Next(std::int16_t variable) {
    return AddInt16(variable, 1);
}

} // namespace

std::array<std::int32_t, 3> SplitOf(Colour colour) {
    return {colour % 256, ToInt32(colour / 256.0) % 256, ToInt32(colour / 65536.0)};
}

Colour ModelSurface::GetPixel(int x, int y) const {
    return shown.Holds(x, y) ? static_cast<Colour>(shown.At(x, y)) : -1;
}

void ModelSurface::SetPixel(int x, int y, Colour colour) {
    if (shown.Holds(x, y)) shown.Set(x, y, PixelOf(colour));
}

void ModelSurface::FilledBox(int x1, int y1, int x2, int y2, Colour colour) {
    for (int y = y1; y <= y2; ++y) {
        for (int x = x1; x <= x2; ++x)
            SetPixel(x, y, colour);
    }
}

void ModelSurface::Load(const Bitmap& picture) {
    const bool takesSize = autoSize && !picture.Empty();
    const int width = takesSize ? picture.Width() : Width();
    const int height = takesSize ? picture.Height() : Height();
    stored = picture;
    shown = Bitmap(width, height, PixelOf(background));
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x)
            SetPixel(x, y, static_cast<Colour>(picture.At(x, y)));
    }
}

void FilterModel::ReadPixels() {
    const auto columns = static_cast<std::size_t>(W()) + 1;
    const auto rows = static_cast<std::size_t>(H()) + 1;
    table_.assign(3, std::vector(columns, std::vector<std::int32_t>(rows, 0)));
    for (PxX = 0; PxX <= ToInt16(W() - 1.0); PxX = Next(PxX)) {
        for (PxY = 0; PxY <= ToInt16(H() - 1.0); PxY = Next(PxY)) {
            const std::array<std::int32_t, 3> split = SplitOf(work.GetPixel(PxX, PxY));
            for (std::size_t c = 0; c < 3; ++c)
                table_[c][static_cast<std::size_t>(PxX)][static_cast<std::size_t>(PxY)] = split[c];
        }
    }
}

std::int32_t FilterModel::Px(int channel, int x, int y) const {
    return table_.at(static_cast<std::size_t>(channel))
        .at(static_cast<std::size_t>(x))
        .at(static_cast<std::size_t>(y));
}

void FilterModel::ApplyNearWhiteRule() {
    const std::int32_t red = Px(0, PxX, PxY);
    const std::int32_t green = Px(1, PxX, PxY);
    const std::int32_t blue = Px(2, PxX, PxY);
    if (red >= 241 && green >= 241) PxR = PxG = PxB = 255;
    if (blue >= 241 && green >= 241) PxR = PxG = PxB = 255;
    if (red >= 241 && blue >= 241) PxR = PxG = PxB = 255;
    if (PxR >= 241 && PxB >= 241) PxG = 255;
    if (PxG >= 241 && PxB >= 241) PxR = 255;
    if (PxR >= 241 && PxG >= 241) PxB = 255;
}

void FilterModel::Write() {
    work.SetPixel(PxX, PxY, RGB(PxR, PxG, PxB));
}

void FilterModel::WriteHonouringMask() {
    if (!freeSelActive) {
        Write();
    } else if (work.GetPixel(PxX, PxY) != kMaskKey) {
        Write();
    }
}

void FilterModel::Land(const ModelSurface& from) {
    const Bitmap file = from.shown;
    live.Load(file);
    work.Load(file);
}

void FilterModel::Sharpen(int level) {
    pbMax = 2.0 * (W() - 1);
    ReadPixels();
    const auto sharpened = [&](int c) {
        const double p = Px(c, PxX, PxY);
        const double q = Px(c, PxX - 1, PxY - 1);
        std::int32_t v = ToInt32(p + (level * 0.5) * (p - q));
        if (v > 200) v = 240;
        if (v < 0) v = 0;
        return v;
    };
    for (PxX = 1; PxX <= ToInt16(W() - 1.0); PxX = Next(PxX)) {
        for (PxY = 1; PxY <= ToInt16(H() - 1.0); PxY = Next(PxY)) {
            PxR = sharpened(0);
            PxG = sharpened(1);
            PxB = sharpened(2);
            WriteHonouringMask();
        }
    }
    Land(work);
}

/// The absolute sum of the nine table values at x - d, x, x + d and y - d, y, y + d.
double FilterModel::SplitSum(int channel, int x, int y, int d) const {
    std::int32_t sum = 0;
    for (const int column : {x - d, x, x + d}) {
        for (const int row : {y - d, y, y + d})
            sum += Px(channel, column, row);
    }
    return std::abs(sum);
}

void FilterModel::Soften(int level) {
    pbMax = (W() - 1.0) + W() - level;
    ReadPixels();
    for (PxX = 1; PxX <= ToInt16(W() - static_cast<double>(level)); PxX = Next(PxX)) {
        for (PxY = 1; PxY <= ToInt16(H() - static_cast<double>(level)); PxY = Next(PxY)) {
            int d = level;
            if (d > PxX) d = PxX;
            if (d > PxY) d = PxY;
            PxR = ToInt16(SplitSum(0, PxX, PxY, d) / 10.0);
            PxG = ToInt16(SplitSum(1, PxX, PxY, d) / 10.0);
            PxB = ToInt16(SplitSum(2, PxX, PxY, d) / 10.0);
            WriteHonouringMask();
        }
    }
    Land(work);
}

void FilterModel::Brightness(int level) {
    pbMax = 2.0 * (W() - 1);
    ReadPixels();
    for (PxX = 0; PxX <= ToInt16(W() - 1.0); PxX = Next(PxX)) {
        for (PxY = 0; PxY <= ToInt16(H() - 1.0); PxY = Next(PxY)) {
            PxR = std::abs(Px(0, PxX, PxY) + level);
            PxG = std::abs(Px(1, PxX, PxY) + level);
            PxB = std::abs(Px(2, PxX, PxY) + level);
            ApplyNearWhiteRule();
            WriteHonouringMask();
        }
    }
    Land(work);
}

void FilterModel::Grey() {
    pbMax = 2.0 * (W() - 1);
    ReadPixels();
    for (PxX = 0; PxX <= ToInt16(W() - 1.0); PxX = Next(PxX)) {
        for (PxY = 0; PxY <= ToInt16(H() - 1.0); PxY = Next(PxY)) {
            const std::int32_t red = Px(0, PxX, PxY);
            const std::int32_t green = Px(1, PxX, PxY);
            const std::int32_t blue = Px(2, PxX, PxY);
            std::int32_t v = ToInt32(0.59 * green + 0.3 * red + 0.11 * blue);
            if (red >= 241 && green >= 241) v = 255;
            if (blue >= 241 && green >= 241) v = 255;
            if (red >= 241 && blue >= 241) v = 255;
            PxR = PxG = PxB = v;
            WriteHonouringMask();
        }
    }
    Land(work);
}

void FilterModel::Emboss(int level) {
    pbMax = 2.0 * (W() - 1);
    ReadPixels();
    const auto embossed = [&](int c) {
        const std::int32_t v = std::abs(Px(c, PxX, PxY) - Px(c, PxX + 1, PxY + 1) + level);
        return v > 220 ? 220 : v;
    };
    for (PxX = 0; PxX <= ToInt16(W() - 1.0); PxX = Next(PxX)) {
        for (PxY = 0; PxY <= ToInt16(H() - 1.0); PxY = Next(PxY)) {
            PxR = embossed(0);
            PxG = embossed(1);
            PxB = embossed(2);
            WriteHonouringMask();
        }
    }
    Land(work);
}

void FilterModel::ColourStep(int mode) {
    pbMax = 2.0 * (W() - 1);
    ReadPixels();
    const auto stepped = [&](int c) {
        const int step = mode == c ? 20 : mode == c + 3 ? -20 : 0;
        return std::abs(Px(c, PxX, PxY) + step);
    };
    for (PxX = 0; PxX <= ToInt16(W() - 1.0); PxX = Next(PxX)) {
        for (PxY = 0; PxY <= ToInt16(H() - 1.0); PxY = Next(PxY)) {
            PxR = stepped(0);
            PxG = stepped(1);
            PxB = stepped(2);
            ApplyNearWhiteRule();
            Write();
        }
    }
    Land(work);
}

} // namespace pintalux
