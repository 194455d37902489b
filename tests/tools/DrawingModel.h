// A slow, obvious model of how lines, boxes, circles, ellipses and fills land on an image: one pixel at a
// time, by the rules and without a thought for speed. Tests draw with it what a stroke should leave, and
// compare.
#pragma once

#include "surface/raster/Bitmap.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace pintalux {

class DrawingModel {
  public:
    using Point = std::pair<std::int64_t, std::int64_t>;
    using Figure = std::set<Point>; ///< Pixels, also those outside the image.

    DrawingModel(int width, int height, Pixel background)
        : width_(width), height_(height),
          pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), background) {}

    explicit DrawingModel(const Bitmap& picture) : DrawingModel(picture.Width(), picture.Height(), 0) {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                SetPixel(x, y, picture.At(x, y));
    }

    Bitmap Result() const {
        Bitmap picture(width_, height_, 0);
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                picture.Set(x, y, pixels_[Place(x, y)]);
        return picture;
    }

    bool Holds(std::int64_t x, std::int64_t y) const { return x >= 0 && y >= 0 && x < width_ && y < height_; }

    std::int64_t GetPixel(std::int64_t x, std::int64_t y) const {
        return Holds(x, y) ? pixels_[Place(x, y)] : -1;
    }

    void SetPixel(std::int64_t x, std::int64_t y, Pixel colour) {
        if (Holds(x, y)) pixels_[Place(x, y)] = colour;
    }

    void Paint(const Figure& figure, Pixel colour) {
        for (const auto& [x, y] : figure)
            SetPixel(x, y, colour);
    }

    void Dot(int x, int y, int width, Pixel colour) { Paint(DotFigure(x, y, width), colour); }

    void Line(int x1, int y1, int x2, int y2, int width, Pixel colour) {
        Paint(LineFigure(x1, y1, x2, y2, width), colour);
    }

    /// The outlined box; both corners belong to it.
    void Box(int x1, int y1, int x2, int y2, int width, Pixel colour) {
        Line(x1, y1, x2, y1, width, colour);
        Line(x2, y1, x2, y2, width, colour);
        Line(x2, y2, x1, y2, width, colour);
        Line(x1, y2, x1, y1, width, colour);
    }

    void FilledBox(int x1, int y1, int x2, int y2, Pixel colour) {
        for (int y = std::min(y1, y2); y <= std::max(y1, y2); ++y)
            for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x)
                SetPixel(x, y, colour);
    }

    void Circle(int x, int y, int radius, int width, Pixel colour, bool filled) {
        if (radius == 0) return Dot(x, y, width, colour);
        Ellipse(x - radius, y - radius, x + radius + 1, y + radius + 1, width, colour, filled);
    }

    /// Inside the box, right and bottom exclusive; the fill has the colour of the line.
    void Ellipse(int left, int top, int right, int bottom, int width, Pixel colour, bool filled) {
        if (left > right) std::swap(left, right);
        if (top > bottom) std::swap(top, bottom);
        if (left == right || top == bottom) return;
        const std::vector<Point> chain = EllipseChain(left, top, right, bottom);
        Figure outline;
        for (std::size_t i = 0; i < chain.size(); ++i) {
            const Point from = chain[i];
            const Point to = chain[(i + 1) % chain.size()];
            if (width == 1) {
                outline.insert(from);
            } else {
                outline.merge(LineFigure(from.first, from.second, to.first, to.second, width));
            }
        }
        Paint(outline, colour);
        if (filled) Paint(Inside(Figure(chain.begin(), chain.end())), colour);
    }

    /// Four neighbours, exactly the colour of the start. Outside the image nothing happens.
    void Flood(int x, int y, Pixel colour) {
        const std::int64_t old = GetPixel(x, y);
        if (old < 0 || old == colour) return;
        std::vector<Point> open{{x, y}};
        while (!open.empty()) {
            const auto [px, py] = open.back();
            open.pop_back();
            if (GetPixel(px, py) != old) continue;
            SetPixel(px, py, colour);
            open.insert(open.end(), {{px - 1, py}, {px + 1, py}, {px, py - 1}, {px, py + 1}});
        }
    }

  private:
    static std::int64_t FloorDiv(std::int64_t a, std::int64_t b) {
        return a / b - ((a % b != 0 && (a < 0) != (b < 0)) ? 1 : 0);
    }
    static std::int64_t CeilDiv(std::int64_t a, std::int64_t b) { return -FloorDiv(-a, b); }

    std::size_t Place(std::int64_t x, std::int64_t y) const {
        return static_cast<std::size_t>(y * width_ + x);
    }

    static Figure ThinLine(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2) {
        Figure figure{{x2, y2}};
        const std::int64_t dx = x2 - x1;
        const std::int64_t dy = y2 - y1;
        const std::int64_t n = std::max(std::abs(dx), std::abs(dy));
        for (std::int64_t i = 0; i < n; ++i) {
            // The other coordinate to the nearest, an exact half to the smaller one.
            if (std::abs(dx) >= std::abs(dy)) {
                figure.insert({x1 + (dx > 0 ? i : -i), y1 + CeilDiv(2 * i * dy - n, 2 * n)});
            } else {
                figure.insert({x1 + CeilDiv(2 * i * dx - n, 2 * n), y1 + (dy > 0 ? i : -i)});
            }
        }
        return figure;
    }

    static Figure DotFigure(std::int64_t x, std::int64_t y, int width) {
        if (width == 1) return {{x, y}};
        const std::int64_t left = x - width / 2;
        const std::int64_t top = y - width / 2;
        const std::vector<Point> chain = EllipseChain(left, top, left + width, top + width);
        return Inside(Figure(chain.begin(), chain.end()));
    }

    /// The largest k with k * k * (dx * dx + dy * dy) <= (width * side) squared, plus 1.
    static std::int64_t Across(std::int64_t width, std::int64_t side, std::int64_t dx, std::int64_t dy) {
        std::int64_t k = 0;
        while ((k + 1) * (k + 1) * (dx * dx + dy * dy) <= width * width * side * side)
            ++k;
        return k + 1;
    }

    /// A dot at each end and the four-cornered body between.
    static Figure LineFigure(std::int64_t x1, std::int64_t y1, std::int64_t x2, std::int64_t y2, int width) {
        if (width == 1) return ThinLine(x1, y1, x2, y2);
        Figure figure = DotFigure(x1, y1, width);
        figure.merge(DotFigure(x2, y2, width));
        const std::int64_t dx = x2 - x1;
        const std::int64_t dy = y2 - y1;
        if (dx == 0 && dy == 0) return figure;
        std::int64_t a = dx == 0 ? width : 0;
        std::int64_t b = dy == 0 ? width : 0;
        if (dx != 0 && dy != 0) {
            a = Across(width, std::abs(dy), dx, dy);
            b = Across(width, std::abs(dx), dx, dy);
        }
        const std::int64_t s = (dx > 0) == (dy > 0) && dx != 0 && dy != 0 ? -1 : 1;
        const Point right{(a + 1) / 2, s * ((b + 1) / 2)};
        const Point left{-(a / 2), -s * (b / 2)};
        const std::vector<Point> corners{{x1 + right.first, y1 + right.second},
                                         {x2 + right.first, y2 + right.second},
                                         {x2 + left.first, y2 + left.second},
                                         {x1 + left.first, y1 + left.second}};
        figure.merge(PolygonFigure(corners));
        return figure;
    }

    /// Rows from the top corner to above the bottom one; on a row from the left crossing to before the right
    /// one.
    static Figure PolygonFigure(const std::vector<Point>& corners) {
        Figure figure;
        const auto byRow = [](const Point& p, const Point& q) { return p.second < q.second; };
        const auto [top, bottom] = std::minmax_element(corners.begin(), corners.end(), byRow);
        for (std::int64_t y = top->second; y < bottom->second; ++y) {
            std::vector<std::int64_t> crossings;
            for (std::size_t i = 0; i < corners.size(); ++i) {
                Point p = corners[i];
                Point q = corners[(i + 1) % corners.size()];
                if (p.second > q.second) std::swap(p, q);
                if (y < p.second || y >= q.second) continue;
                crossings.push_back(p.first +
                                    CeilDiv((q.first - p.first) * (y - p.second), q.second - p.second));
            }
            std::sort(crossings.begin(), crossings.end());
            for (std::int64_t x = crossings.front(); x < crossings.back(); ++x)
                figure.insert({x, y});
        }
        return figure;
    }

    /// The outline of an ellipse, from the start to the upper tip and back on the left, then the lower half.
    static std::vector<Point> EllipseChain(std::int64_t l, std::int64_t t, std::int64_t r, std::int64_t b) {
        std::vector<Point> half[4];
        const auto plot = [&half](std::int64_t x0, std::int64_t x1, std::int64_t yu, std::int64_t yl) {
            half[0].emplace_back(x1, yu);
            half[1].emplace_back(x0, yu);
            half[2].emplace_back(x1, yl);
            half[3].emplace_back(x0, yl);
        };
        const std::int64_t A = r - 1 - l;
        const std::int64_t B = b - 1 - t;
        if (A <= 1 || B <= 1) {
            for (std::int64_t y = t; y < b; ++y)
                plot(l, r - 1, y, y);
            for (std::int64_t x = l; x < r; ++x)
                plot(x, x, t, b - 1);
        } else {
            const std::int64_t o = B & 1;
            std::int64_t dx = 4 * (1 - A) * B * B;
            std::int64_t dy = 4 * (o + 1) * A * A;
            std::int64_t err = dx + dy + o * A * A;
            std::int64_t x0 = l;
            std::int64_t x1 = r - 1;
            std::int64_t yl = t + (B + 1) / 2;
            std::int64_t yu = yl - o;
            while (x0 <= x1) {
                plot(x0, x1, yu, yl);
                const std::int64_t e2 = 2 * err;
                if (e2 <= dy) {
                    ++yl;
                    --yu;
                    dy += 8 * A * A;
                    err += dy;
                }
                if (e2 >= dx) {
                    ++x0;
                    --x1;
                    dx += 8 * B * B;
                    err += dx;
                }
            }
            // Slim upright ones: the last columns go on to the tips.
            while (half[0].back().second > t) {
                plot(half[1].back().first, half[0].back().first, half[0].back().second - 1,
                     half[2].back().second + 1);
            }
        }
        std::vector<Point> chain = half[0];
        chain.insert(chain.end(), half[1].rbegin(), half[1].rend());
        chain.insert(chain.end(), half[3].begin(), half[3].end());
        chain.insert(chain.end(), half[2].rbegin(), half[2].rend());
        return chain;
    }

    /// Each row of an outline from its first to its last pixel.
    static Figure Inside(const Figure& outline) {
        Figure figure;
        for (const auto& [x, y] : outline) {
            for (const auto& [right, row] : outline) {
                if (row != y) continue;
                for (std::int64_t fill = x; fill <= right; ++fill)
                    figure.insert({fill, y});
            }
        }
        return figure;
    }

    int width_;
    int height_;
    std::vector<Pixel> pixels_;
};

} // namespace pintalux
