// A reduced picture, kept as the screen takes it.
#pragma once

#include "surface/raster/Bitmap.h"
#include "surface/raster/Region.h"

#include <cstddef>
#include <cstdint>
#include <memory>

namespace pintalux {

/// The means of a picture at one size, beside what shows it: what was shown once and has not changed since is
/// copied, so that scrolling and repainting cost no mean. Pictures in their own size or larger are not kept,
/// nor views of more than eight million pixels; all together keep sixteen million (64 MB), those that were
/// shown last. For the interface's thread.
class ReducedView {
  public:
    static constexpr std::int64_t kMostPixels = 8'000'000;
    static constexpr std::int64_t kMostInAll = 16'000'000;

    ReducedView() = default;
    ReducedView(const ReducedView&) = delete;
    ReducedView& operator=(const ReducedView&) = delete;
    ~ReducedView() { Drop(); }

    /// As `StretchForScreen`. Between two calls `Changed` must hear of every other `source`.
    void Show(const Bitmap& source, int width, int height, const Box& visible, std::uint32_t* out,
              std::ptrdiff_t stride);

    /// `after` is shown in the place of `before` from now on.
    void Changed(const Bitmap& before, const Bitmap& after);

    /// Gives the memory back.
    void Drop();

    std::int64_t Pixels() const { return std::int64_t{width_} * height_; } ///< How many are kept.

  private:
    bool Keep(int width, int height);

    int width_ = 0; ///< 0: nothing is kept.
    int height_ = 0;
    std::unique_ptr<std::uint32_t[]> pixels_;
    Region stale_; ///< Where `pixels_` are not those of the picture.
};

} // namespace pintalux
