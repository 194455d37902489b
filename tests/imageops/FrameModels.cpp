#include "imageops/FrameModels.h"

#include "colour/ModHSL.h"

#include <algorithm>
#include <cmath>

namespace pintalux {

namespace {

/// To the nearest whole number, a half to the even one.
int Rounded(double value) {
    return static_cast<int>(std::nearbyint(value));
}

} // namespace

void FrameModel::MitreWalk(int s, const Treat& treat, const std::function<void(int x)>& afterColumn) {
    int k = 0;
    for (int x = 1; x <= W() - 1; ++x) {
        if (x < s) k = k + 1;
        if (k > s) k = s;
        if (W() - s - 1 < x) k = k - 1;
        for (int y = 1; y <= k; ++y) {
            if (!treat(Side::Top, x, y)) break;
        }
        for (int y = H() - k; y <= H() - 1; ++y) {
            if (!treat(Side::Bottom, x, y)) break;
        }
        if (x < s) {
            for (int y = k + 1; y <= H() - k - 1; ++y) {
                if (!treat(Side::Left, x, y)) break;
            }
        }
        if (W() - s - 1 < x) {
            if (k < 0) k = 0;
            for (int y = k + 1; y <= H() - k - 1; ++y) {
                if (!treat(Side::Right, x, y)) break;
            }
        }
        if (afterColumn) afterColumn(x);
    }
}

void FrameModel::Lines(int s, bool outer, bool inner) {
    if (outer) DrawOuterLine();
    if (inner) DrawInsetRect(s, 0);
}

void FrameModel::Land() {
    const Bitmap file = live.shown;
    live.Load(file);
    work.Load(file);
}

void FrameModel::DrawOuterLine() {
    for (int x = 0; x <= W() - 1; ++x) {
        live.SetPixel(x, 0, 0);
        live.SetPixel(x, H() - 1, 0);
    }
    for (int y = 0; y <= H() - 1; ++y) {
        live.SetPixel(0, y, 0);
        live.SetPixel(W() - 1, y, 0);
    }
}

void FrameModel::DrawInsetRect(int k, Colour colour) {
    for (int x = k; x <= W() - k; ++x) {
        live.SetPixel(x, k, colour);
        live.SetPixel(x, H() - k, colour);
    }
    for (int y = k; y <= H() - k; ++y) {
        live.SetPixel(k, y, colour);
        live.SetPixel(W() - k, y, colour);
    }
}

void FrameModel::Plain(int size, Colour colour, bool outer, bool inner) {
    MitreWalk(size, [&](Side, int x, int y) {
        live.SetPixel(x, y, colour);
        return true;
    });
    Lines(size, outer, inner);
    Land();
}

bool FrameModel::Saturate(int x, int y, int by) {
    const Colour read = live.GetPixel(x, y);
    if (read < 0) return false;
    HslValue hsl = RgbToHsl(read);
    hsl.Sat = static_cast<std::int16_t>(hsl.Sat + by);
    live.SetPixel(x, y, HslToRgb(hsl));
    return true;
}

bool FrameModel::Darken(int x, int y, int by, bool cut) {
    const Colour read = live.GetPixel(x, y);
    if (read < 0) return false;
    HslValue hsl = RgbToHsl(read);
    hsl.Lum = static_cast<std::int16_t>(hsl.Lum - by);
    Colour colour = HslToRgb(hsl);
    if (cut) {
        int red = RedOf(colour);
        int green = GreenOf(colour);
        int blue = BlueOf(colour);
        if (red > 160) red = 160;
        if (green > 160) green = 160;
        if (blue > 160) blue = 160;
        colour = RGB(red, green, blue);
    }
    live.SetPixel(x, y, colour);
    return true;
}

void FrameModel::Bevel(int size, int highlight, int shadow, bool outer, bool inner) {
    highlight = Rounded(highlight / 3.0);
    shadow = Rounded(shadow / 3.0);
    MitreWalk(size, [&](Side side, int x, int y) {
        if (side == Side::Top || side == Side::Left) return Saturate(x, y, highlight);
        return Darken(x, y, shadow, true);
    });
    Lines(size, outer, inner);
    Land();
}

// A walk of its own: two values run on over the columns, and the bottom band goes upward.
void FrameModel::FadedBevel(int size, int highlight, int shadow, bool outer, bool inner) {
    const int s = size;
    const int h = 2 * highlight;
    const int d = shadow;
    int FadeLeft = h;
    int FadeRight = 0;
    int k = 0;
    // Without a size there is no band, and no step to fade by.
    for (int x = 1; x <= W() - 1 && s > 0; ++x) {
        if (x < s) k = k + 1;
        if (k > s) k = s;
        if (W() - s - 1 < x) k = k - 1;
        int i = h;
        for (int y = 1; y <= k; ++y) {
            if (!Saturate(x, y, i)) break;
            i = Rounded(i - static_cast<double>(h) / s);
        }
        int j = d;
        for (int y = H() - 1; y >= H() - k; --y) {
            if (!Darken(x, y, j, false)) break;
            j = Rounded(j - static_cast<double>(d) / s);
        }
        if (x < s) {
            for (int y = k + 1; y <= H() - k - 1; ++y) {
                if (!Saturate(x, y, FadeLeft)) break;
            }
        }
        FadeLeft = Rounded(FadeLeft - static_cast<double>(h) / s);
        if (W() - s - 1 < x) {
            FadeRight = Rounded(static_cast<double>(d) / s + FadeRight);
            if (k < 0) k = 0;
            for (int y = k + 1; y <= H() - k - 1; ++y) {
                if (!Darken(x, y, FadeRight, false)) break;
            }
        }
    }
    Lines(s, outer, inner);
    Land();
}

void FrameModel::Mould(int size, int frameSize, Colour colour) {
    const int s = Rounded(size / 8.0);
    const int f = frameSize;
    const double half = s / 2.0;
    const Colour white = RGB(255, 255, 255);
    const Colour light = RGB(204, 204, 204);
    const Colour grey = RGB(128, 128, 128);
    const Colour dark = RGB(64, 64, 64);
    const auto moulding = [&](Side side, int x, int y) {
        switch (side) {
        case Side::Top:
            if (y < half) live.SetPixel(x, y, white);
            if (y < s && y > half - 1) live.SetPixel(x, y, light);
            break;
        case Side::Bottom:
            if (y > H() - s && y < H() - half) live.SetPixel(x, y, grey);
            if (y > H() - half - 1 && y < H()) live.SetPixel(x, y, dark);
            break;
        case Side::Left:
            if (x < half) live.SetPixel(x, y, white);
            if (x < s && x > half - 1) live.SetPixel(x, y, light);
            break;
        case Side::Right:
            if (x > W() - s - 1 && x < W() - half) live.SetPixel(x, y, grey);
            if (x > W() - half - 1) live.SetPixel(x, y, dark);
            break;
        }
        return true;
    };
    const auto flat = [&](int x, int from, int to) {
        for (int y = from; y <= to; ++y)
            live.SetPixel(x, y, colour);
    };
    MitreWalk(s, moulding, [&](int x) {
        if (x >= s && x <= f - 1) {
            flat(x, s, H() - s);
        } else if (x > W() - f - 1 && x < W() - s) {
            flat(x, s, H() - s);
        } else if (x > f - 1 && x < W() - f + 1) {
            flat(x, s, f);
            flat(x, H() - f, H() - s);
        }
    });
    InnerMould(s, f);
    Land();
}

void FrameModel::InnerMould(int s, int f) {
    const double half = s / 2.0;
    const Colour white = RGB(255, 255, 255);
    const Colour light = RGB(204, 204, 204);
    const Colour grey = RGB(128, 128, 128);
    const Colour dark = RGB(64, 64, 64);
    int k = 0;
    for (int x = f; x <= W() - f - 1; ++x) {
        if (x < s + f) k = k + 1;
        if (k > s + f) k = s;
        if (W() - s - f - 1 < x) k = k - 1;
        for (int y = f; y <= f + k; ++y) {
            if (y < half + 1 + f) live.SetPixel(x, y, grey);
            if (y > half + f && y < s + f + 1) live.SetPixel(x, y, dark);
        }
        for (int y = H() - f - k; y <= H() - f - 1; ++y) {
            if (y > H() - s - f && y < H() - f - half - 1) live.SetPixel(x, y, white);
            if (y > H() - f - half - 2 && y < H() - f) live.SetPixel(x, y, light);
        }
        for (int y = f + k + 1; y <= H() - k - 1 - f; ++y) {
            if (x < half + f) live.SetPixel(x, y, grey);
            if (x > half + f - 1 && x < s + f) live.SetPixel(x, y, dark);
        }
        for (int y = f + k + 1; y <= H() - k - 1 - f; ++y) {
            if (x > W() - s - f - 1 && x < W() - half - f - 1) live.SetPixel(x, y, white);
            if (x > W() - half - f - 2 && x < W() - f) live.SetPixel(x, y, light);
        }
    }
}

void FrameModel::Ridge(int size, bool outer, bool inner, bool inward) {
    const int s = Rounded(size / 8.0);
    const double half = s / 2.0;
    const Colour A = inward ? RGB(255, 255, 255) : RGB(0, 0, 0);
    const Colour B = inward ? RGB(192, 192, 192) : RGB(128, 128, 128);
    const Colour C = inward ? RGB(128, 128, 128) : RGB(192, 192, 192);
    const Colour D = inward ? RGB(0, 0, 0) : RGB(255, 255, 255);
    MitreWalk(s, [&](Side side, int x, int y) {
        switch (side) {
        case Side::Top:
            if (y < half + 1) live.SetPixel(x, y, A);
            if (y < s && y > half) live.SetPixel(x, y, B);
            break;
        case Side::Bottom:
            if (y > H() - s && y < H() - half) live.SetPixel(x, y, C);
            if (y > H() - half - 1 && y < H()) live.SetPixel(x, y, D);
            break;
        case Side::Left:
            if (x < half + 1) live.SetPixel(x, y, A);
            if (x < s && x > half) live.SetPixel(x, y, B);
            break;
        case Side::Right:
            if (x > W() - s - 1 && x < W() - half) live.SetPixel(x, y, C);
            if (x > W() - half - 1) live.SetPixel(x, y, D);
            break;
        }
        return true;
    });
    Lines(s, outer, inner);
    Land();
}

} // namespace pintalux
