// Pictures to and from files, each beside the plain transfer of the same bytes.
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"
#include "surface/system/StateFiles.h"
#include "surface/system/TempNames.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <fstream>
#include <string>
#include <vector>

namespace pintalux {
namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;
const std::int64_t kBytes = static_cast<std::int64_t>(BmpFileLength(kWidth, kHeight));

/// A picture without shared tiles.
const Picture& Large() {
    static const Picture picture = [] {
        Picture made(kWidth, kHeight, kWhite);
        for (int y = 0; y < kHeight; ++y)
            for (int x = 0; x < kWidth; ++x)
                made.Set(x, y, static_cast<Pixel>(x * 131 + y * 7) & 0xFFFFFF);
        return made;
    }();
    return picture;
}

/// A temporary file that goes with the object.
struct TempFile {
    std::string path;
    TempFile() {
        TryTempFolders(
            [this](const std::string& folder) { return GetTempFileName(folder, "BI", 0, path) != 0; });
    }
    ~TempFile() { DeleteFile(path); }
};

void WritePlainBytes(benchmark::State& state) {
    const TempFile file;
    const std::vector<std::byte> bytes(std::size_t{1} << 20, std::byte{1});
    for (auto _ : state) {
        File out = File::OpenForWriting(file.path, true);
        for (std::int64_t left = kBytes; left > 0; left -= std::ssize(bytes))
            out.Write(bytes);
        out.Close();
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

void SaveLargePicture(benchmark::State& state) {
    const TempFile file;
    for (auto _ : state)
        SavePicture(Large(), file.path);
    state.SetBytesProcessed(state.iterations() * kBytes);
}

void ReadPlainBytes(benchmark::State& state) {
    const TempFile file;
    SavePicture(Large(), file.path);
    std::vector<std::byte> bytes(std::size_t{1} << 20);
    for (auto _ : state) {
        File in = File::OpenForReading(file.path);
        while (in.Read(bytes) == bytes.size())
            benchmark::DoNotOptimize(bytes.data());
    }
    state.SetBytesProcessed(state.iterations() * kBytes);
}

/// A line of what the system tells about this process, in bytes.
double MemoryLine(const std::string& name) {
    std::ifstream lines("/proc/self/status");
    std::string word;
    double kilobytes = 0;
    while (lines >> word)
        if (word == name + ":" && lines >> kilobytes) return kilobytes * 1024;
    return 0;
}

/// Loads a file again and again; "peak" is the most memory that it took, over the bitmap's own.
void LoadAgainAndAgain(benchmark::State& state, const std::string& path) {
    double peak = 0;
    double bitmap = 1;
    for (auto _ : state) {
        state.PauseTiming();
        std::ofstream("/proc/self/clear_refs") << "5";
        const double before = MemoryLine("VmRSS");
        state.ResumeTiming();
        const Picture picture = LoadPicture(path);
        state.PauseTiming();
        bitmap = 4.0 * picture.Width() * picture.Height();
        peak = std::max(peak, (MemoryLine("VmHWM") - before) / bitmap);
        state.ResumeTiming();
    }
    state.counters["peak"] = peak;
}

void LoadLargePicture(benchmark::State& state) {
    const TempFile file;
    SavePicture(Large(), file.path);
    LoadAgainAndAgain(state, file.path);
    state.SetBytesProcessed(state.iterations() * kBytes);
}

/// A photograph of 12 million pixels.
void LoadPhotograph(benchmark::State& state) {
    const TempFile bitmap;
    const TempFile file;
    Picture photograph(4000, 3000, kWhite);
    for (int y = 0; y < photograph.Height(); ++y)
        for (int x = 0; x < photograph.Width(); ++x)
            photograph.Set(x, y,
                           static_cast<Pixel>((x / 16 + y / 8) & 0xFF) << 16 |
                               static_cast<Pixel>((x * y >> 12) & 0xFF) << 8 |
                               static_cast<Pixel>((x * 7 + y * 3 + (x * x ^ y) % 9) & 0xFF));
    SavePicture(photograph, bitmap.path);
    photograph = {};
    BmpToJpeg(bitmap.path, file.path, 85);
    LoadAgainAndAgain(state, file.path);
}

/// What the interface waits for when an edit ends.
void SaveLargePictureBehind(benchmark::State& state) {
    TempFile file;
    StateFiles states;
    for (auto _ : state) {
        states.SaveBehind(Large(), file.path);
        state.PauseTiming();
        states.Settle();
        state.ResumeTiming();
    }
}

void CodeLargeJpeg(benchmark::State& state) {
    const TempFile source;
    const TempFile target;
    SavePicture(Large(), source.path);
    for (auto _ : state)
        BmpToJpeg(source.path, target.path, 50);
    state.SetBytesProcessed(state.iterations() * kBytes);
}

BENCHMARK(WritePlainBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveLargePicture)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadPlainBytes)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LoadLargePicture)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(LoadPhotograph)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(SaveLargePictureBehind)->Unit(benchmark::kMicrosecond)->UseRealTime()->Iterations(20);
BENCHMARK(CodeLargeJpeg)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
} // namespace pintalux

BENCHMARK_MAIN();
