// What a pixel routine is measured on: a photograph, the two surfaces of an operation, a plain copy beside
// it.
#pragma once

#include "base/Parallel.h"
#include "document/Globals.h"
#include "surface/raster/StreamCopy.h"
#include "surface/window/Form.h"
#include "surface/window/ProgressBar.h"
#include "surface/window/Surface.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <optional>
#include <sys/mman.h>
#include <vector>

namespace pintalux {

inline constexpr int kWidth = 6000;
inline constexpr int kHeight = 4000;

/// A picture with soft shades, some grain and dark and bright places, in which no two tiles are shared.
inline Picture Photo(int width, int height) {
    Picture picture(width, height, 0);
    picture.Detach(picture.Bounds());
    std::uint32_t grain = 1;
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            grain = grain * 1664525 + 1013904223;
            const auto channel = [&](int from, unsigned shift) {
                return static_cast<Pixel>(from + static_cast<int>(grain >> shift & 15)) & 0xFF;
            };
            picture.Set(x, y,
                        channel(x / 25, 28) | channel(y / 17, 24) << 8 | channel((x + y) / 40, 20) << 16);
        }
    }
    return picture;
}

/// Holds on to one tile in each block of tile memory, so that freed blocks stay with the process.
class KeptMemory {
  public:
    KeptMemory() {
        constexpr int kTiles = 12000;
        constexpr int kTilesOfBlock = 60;
        Bitmap all(Bitmap::kTileWidth, Bitmap::kTileHeight * kTiles, 0);
        all.Detach(all.Bounds());
        for (int i = 0; i < kTiles; i += kTilesOfBlock) {
            Bitmap tile(Bitmap::kTileWidth, Bitmap::kTileHeight * 2, 0);
            const int top = i * Bitmap::kTileHeight;
            tile.Copy(0, 0, all, {0, top, Bitmap::kTileWidth, top + Bitmap::kTileHeight});
            tiles_.push_back(std::move(tile));
        }
    }

  private:
    std::vector<Bitmap> tiles_;
};

class PlainForm : public Form {
  public:
    PlainForm() : Form("bench", Kind::Window) { ScaleMode(kScalePixels); }

  protected:
    void Form_Load() override {}
};

/// Memory for the pixels of a picture, on large pages where the system has them.
class LargePages {
  public:
    explicit LargePages(const Picture& picture)
        : size_(static_cast<std::size_t>(picture.Width()) * static_cast<std::size_t>(picture.Height())) {
        constexpr std::size_t kPage = std::size_t{2} << 20;
        const std::size_t bytes = (size_ * sizeof(Pixel) + kPage - 1) / kPage * kPage;
        data_.reset(static_cast<Pixel*>(std::aligned_alloc(kPage, bytes)));
        madvise(data_.get(), bytes, MADV_HUGEPAGE);
        std::fill_n(data_.get(), size_, Pixel{1});
    }
    Pixel* Data() const { return data_.get(); }
    std::size_t Size() const { return size_; }

  private:
    struct Free {
        void operator()(Pixel* data) const { std::free(data); }
    };
    std::size_t size_;
    std::unique_ptr<Pixel, Free> data_;
};

/// The surfaces of an operation.
struct Bench {
    explicit Bench(int width = kWidth, int height = kHeight)
        : work(form, "work"), live(form, "live"), Pb(form, "Pb"), photo(Photo(width, height)) {
        for (Surface* surface : {&work, &live}) {
            surface->Visible(false);
            surface->AutoSize(true);
        }
    }
    PlainForm form;
    Surface work, live;
    ProgressBar Pb;
    Picture photo;
    Picture masked = Masked();
    std::optional<KeptMemory> kept;
    LargePages from{photo}, to{photo};

    /// The fastest copy that the machine can do of as many bytes: past the caches, on large pages.
    void PlainCopy() {
        constexpr std::size_t kPart = 1024;
        SplitOverCores(static_cast<int>(from.Size() / kPart), [&](int begin, int end) {
            const std::size_t first = static_cast<std::size_t>(begin) * kPart;
            StreamCopy(to.Data() + first, from.Data() + first, static_cast<std::size_t>(end - begin) * kPart);
            FinishStreaming();
        });
    }

  private:
    /// The photo inside an ellipse, `MaskKeyColour` outside.
    Picture Masked() const {
        Picture picture = photo;
        const double halfWidth = picture.Width() / 2.0;
        const double halfHeight = picture.Height() / 2.0;
        for (int y = 0; y < picture.Height(); ++y) {
            for (int x = 0; x < picture.Width(); ++x) {
                const double dx = (x - halfWidth) / halfWidth;
                const double dy = (y - halfHeight) / halfHeight;
                if (dx * dx + dy * dy > 1) picture.Set(x, y, MaskKeyColour);
            }
        }
        return picture;
    }
};

inline double ProcessorTime() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

/// The best of several runs.
struct Best {
    double wall = 1e9;
    double cpu = 1e9;
    double Run(const std::function<void()>& work) {
        const double cpuBefore = ProcessorTime();
        const auto before = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - before;
        wall = std::min(wall, elapsed.count());
        cpu = std::min(cpu, ProcessorTime() - cpuBefore);
        return elapsed.count();
    }
};

} // namespace pintalux
