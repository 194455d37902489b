// The measurements behind table.py: each piece of work over an image of 6000 by 4000 and over one of 300 by
// 300, in rounds, with a plain copy in each round, so that what else the machine does meets all alike. The
// best of the rounds counts, in processor time.
//
// A line for each work: its name, the multiple of the copy, the milliseconds of elapsed time, and the
// nanoseconds of processor time for a pixel of the large and of the small image. Then the nanoseconds for a
// pixel of a reduced view, when it is painted again and when all its means are made.
//
//     imageops_table [rounds [name]]
#include "ImageBench.h"

#include "imageops/ImgFiltMod.h"
#include "surface/raster/ReducedView.h"
#include "surface/raster/Transfer.h"
#include "surface/system/App.h"
#include "surface/system/BmpWriter.h"
#include "surface/system/Pictures.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace pintalux {
namespace {

/// A temporary file that goes with the object.
class OwnFile {
  public:
    explicit OwnFile(const std::string& folder) : path_(folder + "/pintalux-table-XXXXXX") {
        const int descriptor = mkstemp(path_.data());
        if (descriptor >= 0) close(descriptor);
    }
    OwnFile(const OwnFile&) = delete;
    OwnFile& operator=(const OwnFile&) = delete;
    ~OwnFile() { unlink(path_.c_str()); }
    const std::string& Path() const { return path_; }
    /// An empty file again, as a state finds it.
    void Renew() const {
        unlink(path_.c_str());
        WritePrivateBmp(Picture(1, 1, 0), path_);
        if (truncate(path_.c_str(), 0) != 0) std::abort();
    }

  private:
    std::string path_;
};

struct Work {
    const char* name;
    std::function<void(Bench&)> run;
    bool small = true;   ///< Whether the small image counts, too.
    bool masked = false; ///< Whether it works on a freehand piece.
};

using Filter = void (*)(Surface&, Surface&, ProgressBar&, std::int16_t);

std::function<void(Bench&)> Filtered(Filter filter, std::int16_t level) {
    return [=](Bench& b) { filter(b.work, b.live, b.Pb, level); };
}

class Table {
  public:
    Table() {
        Add("copy", [](Bench& b) { b.PlainCopy(); });
        Add("invert", Filtered(InvertFilter, 0));
        Add("flip down", [](Bench& b) { FlipImage(b.live, b.work, 0); });
        Add("flip across", [](Bench& b) { FlipImage(b.live, b.work, -1); });
        Add("brightness", Filtered(BrightnessFilter, 40));
        Add("colour step", Filtered(ColourStep, 1));
        Add("grey", Filtered(GreyFilter, 0));
        Add("sharpen", Filtered(SharpenFilter, 5));
        Add("emboss", Filtered(EmbossFilter, 128));
        Add("soften", Filtered(SoftenFilter, 5));
        Add("turn by a quarter", [](Bench& b) {
            double angle = 90;
            RotateImage(b.work, b.live, angle);
        });
        Add("scatter", Filtered(ScatterFilter, 5));
        Add("pixelate", Filtered(PixelateFilter, 12));
        works_.push_back({"commit of a moved masked piece",
                          [](Bench& b) {
                              constexpr int kShift = 21;
                              const int width = b.photo.Width();
                              const int height = b.photo.Height();
                              TransparentBlt(b.live.hDC(), {kShift, kShift, width, height}, b.work.hDC(),
                                             {0, 0, width, height}, MaskKeyColour);
                          },
                          true, true});
        works_.push_back({"read a state from disk", [this](Bench&) { LoadPicture(onDisk_.Path()); }, false});
        works_.push_back({"read a state from a memory file system",
                          [this](Bench&) { LoadPicture(inMemory_.Path()); }, false});
        works_.push_back({"write a state to disk",
                          [this](Bench& b) { WritePrivateBmp(b.photo, written_.Path()); }, false});
    }

    void Measure(int rounds, std::string_view only) {
        std::erase_if(works_, [&](const Work& work) {
            return !only.empty() && std::string_view(work.name) != only &&
                   std::string_view(work.name) != "copy";
        });
        MeasureLarge(rounds);
        MeasureSmall(rounds);
        for (std::size_t i = 0; i < works_.size(); ++i)
            Print(i);
        if (only.empty()) MeasureView(rounds);
    }

  private:
    static constexpr int kSmallSide = 300;
    static constexpr int kSmallRuns = 20;

    void Add(const char* name, std::function<void(Bench&)> run) { works_.push_back({name, std::move(run)}); }

    void MeasureLarge(int rounds) {
        Bench bench;
        SavePicture(bench.photo, onDisk_.Path());
        SavePicture(bench.photo, inMemory_.Path());
        large_.resize(works_.size());
        for (int round = 0; round < rounds; ++round) {
            for (std::size_t i = 0; i < works_.size(); ++i) {
                written_.Renew();
                RunOnce(bench, works_[i], large_[i]);
            }
        }
    }

    void MeasureSmall(int rounds) {
        Bench bench(kSmallSide, kSmallSide);
        small_.resize(works_.size());
        for (int round = 0; round < rounds * kSmallRuns; ++round) {
            for (std::size_t i = 0; i < works_.size(); ++i)
                if (works_[i].small) RunOnce(bench, works_[i], small_[i]);
        }
    }

    static void MeasureView(int rounds) {
        constexpr int kReduced = 4;
        constexpr int kViewWidth = 1280;
        constexpr int kViewHeight = 800;
        const Bench bench;
        std::vector<std::uint32_t> screen(static_cast<std::size_t>(kViewWidth) * kViewHeight);
        ReducedView view;
        const auto show = [&] {
            view.Show(bench.photo, kWidth / kReduced, kHeight / kReduced, {0, 0, kViewWidth, kViewHeight},
                      screen.data(), kViewWidth);
        };
        Best made, again;
        for (int round = 0; round < rounds; ++round) {
            view.Drop();
            made.Run(show);
            again.Run(show);
        }
        const double nanoseconds = 1e9 / static_cast<double>(screen.size());
        std::printf("view at 1:4, painted again\t%.3f\nview at 1:4, made\t%.3f\n", again.cpu * nanoseconds,
                    made.cpu * nanoseconds);
    }

    static void RunOnce(Bench& bench, const Work& work, Best& best) {
        bench.work.Picture(work.masked ? bench.masked : bench.photo);
        bench.live.Picture(bench.photo);
        best.Run([&] { work.run(bench); });
    }

    void Print(std::size_t i) const {
        const auto perPixel = [](double seconds, double pixels) { return seconds * 1e9 / pixels; };
        std::printf("%s\t%.2f\t%.2f\t%.3f\t%.3f\n", works_[i].name, large_[i].cpu / large_[0].cpu,
                    large_[i].wall * 1e3, perPixel(large_[i].cpu, double{kWidth} * kHeight),
                    works_[i].small ? perPixel(small_[i].cpu, double{kSmallSide} * kSmallSide) : 0.0);
    }

    std::vector<Work> works_;
    std::vector<Best> large_, small_;
    const OwnFile onDisk_{"/var/tmp"};
    const OwnFile written_{"/var/tmp"};
    const OwnFile inMemory_{"/dev/shm"};
};

} // namespace
} // namespace pintalux

int main(int argc, char** argv) {
    using namespace pintalux;
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const Application application(argc, argv);
    const int rounds = argc > 1 ? std::atoi(argv[1]) : 15;
    Table().Measure(rounds, argc > 2 ? argv[2] : "");
    return 0;
}
