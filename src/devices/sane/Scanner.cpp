#include "devices/sane/Scanner.h"

#include "base/RuntimeError.h"
#include "devices/sane/SaneCalls.h"
#include "devices/sane/ScanOptions.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <span>

namespace pintalux {

namespace {

constexpr int kLargestSide = 32000; // pixels, as of any image

[[noreturn]] void RefuseSize() {
    throw RuntimeError(kOverflow, "A página tem mais de 32000 pixels de lado. Escolha uma resolução ou uma "
                                  "área menor.");
}

// The library is not made for two threads: a search that the user gave up may still run when the next one
// starts.
std::mutex& LibraryLock() {
    static std::mutex lock;
    return lock;
}

// The bytes of a frame as they come, put into the page row by row. Three-pass devices send red, green and
// blue one after the other.
class FrameReader {
  public:
    FrameReader(ScanPage& page, const SANE_Parameters& format, bool firstFrame)
        : page_(page), format_(format) {
        if (format.pixels_per_line <= 0 || format.bytes_per_line <= 0) throw RuntimeError(kDeviceError);
        if (format.pixels_per_line > kLargestSide || format.lines > kLargestSide) RefuseSize();
        if (firstFrame) page.width = format.pixels_per_line;
        const auto rows = static_cast<std::size_t>(std::max(0, format.lines));
        page.pixels.reserve(static_cast<std::size_t>(page.width) * rows);
    }

    void Take(std::span<const SANE_Byte> bytes) {
        const auto whole = static_cast<std::size_t>(format_.bytes_per_line);
        while (!bytes.empty()) {
            if (line_.empty() && bytes.size() >= whole) {
                TakeLine(bytes.first(whole));
                bytes = bytes.subspan(whole);
                continue;
            }
            const std::size_t count = std::min(bytes.size(), whole - line_.size());
            line_.insert(line_.end(), bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
            bytes = bytes.subspan(count);
            if (line_.size() < whole) return;
            TakeLine(line_);
            line_.clear();
        }
    }

    int Percent() const { return format_.lines > 0 ? std::min(100, row_ * 100 / format_.lines) : 0; }

  private:
    unsigned Sample(std::span<const SANE_Byte> line, std::size_t i) const {
        if (format_.depth == 1) {
            const bool set = i / 8 < line.size() && (line[i / 8] & 0x80U >> i % 8) != 0;
            return set ? 0 : 255; // A set bit is ink.
        }
        // 16 bits stand in the machine's own order: the upper byte is the second one on a small-endian
        // machine.
        const std::size_t at = format_.depth == 16 ? 2 * i + 1 : i;
        return at < line.size() ? line[at] : 0;
    }

    std::uint32_t PixelAt(std::span<const SANE_Byte> line, std::size_t x) const {
        if (format_.format == SANE_FRAME_RGB)
            return Sample(line, 3 * x) | Sample(line, 3 * x + 1) << 8 | Sample(line, 3 * x + 2) << 16;
        const unsigned sample = Sample(line, x);
        switch (format_.format) {
        case SANE_FRAME_RED:
            return sample;
        case SANE_FRAME_GREEN:
            return sample << 8;
        case SANE_FRAME_BLUE:
            return sample << 16;
        default:
            return sample * 0x010101U;
        }
    }

    // What most scanners send, without a question for each sample.
    bool IsPlainColour(std::span<const SANE_Byte> line, std::size_t pixels) const {
        return format_.format == SANE_FRAME_RGB && format_.depth == 8 && line.size() >= 3 * pixels;
    }

    void TakeLine(std::span<const SANE_Byte> line) {
        if (row_ >= kLargestSide) RefuseSize();
        const auto width = static_cast<std::size_t>(page_.width);
        const std::size_t start = width * static_cast<std::size_t>(row_);
        if (page_.pixels.size() < start + width) page_.pixels.resize(start + width, 0);
        const auto count = static_cast<std::size_t>(std::min(page_.width, format_.pixels_per_line));
        std::uint32_t* const pixels = &page_.pixels[start];
        if (IsPlainColour(line, count)) {
            for (std::size_t x = 0; x < count; ++x)
                pixels[x] = line[3 * x] | unsigned{line[3 * x + 1]} << 8 | unsigned{line[3 * x + 2]} << 16;
        } else {
            for (std::size_t x = 0; x < count; ++x)
                pixels[x] |= PixelAt(line, x);
        }
        ++row_;
    }

    ScanPage& page_;
    SANE_Parameters format_;
    std::vector<SANE_Byte> line_;
    int row_ = 0;
};

} // namespace

struct Scanner::Device {
    explicit Device(const std::string& name) {
        const std::lock_guard lock(LibraryLock());
        CheckSane(Sane().open(name.c_str(), &handle));
    }
    ~Device() {
        const std::lock_guard lock(LibraryLock());
        Sane().close(handle);
    }
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    SANE_Handle handle = nullptr;
};

std::vector<ScannerDevice> FindScanners() {
    const std::lock_guard lock(LibraryLock());
    const SANE_Device** list = nullptr;
    CheckSane(Sane().getDevices(&list, SANE_FALSE));
    std::vector<ScannerDevice> found;
    for (; list != nullptr && *list != nullptr; ++list) {
        const SANE_Device& device = **list;
        std::string title;
        for (const char* word : {device.vendor, device.model}) {
            if (word == nullptr || *word == '\0') continue;
            title += title.empty() ? word : std::string(" ") + word;
        }
        found.push_back({device.name, title.empty() ? device.name : title + " (" + device.name + ")"});
    }
    return found;
}

Scanner::Scanner(const std::string& device) : device_(std::make_unique<Device>(device)) {}

Scanner::~Scanner() = default;
Scanner::Scanner(Scanner&&) noexcept = default;
Scanner& Scanner::operator=(Scanner&&) noexcept = default;

ScanChoices Scanner::Choices() const {
    const std::lock_guard lock(LibraryLock());
    return ScanOptions(device_->handle).Choices();
}

ScanPage Scanner::Scan(const ScanSettings& settings, ScanProgress& progress) {
    constexpr std::size_t kChunk = 64 * 1024; // bytes
    const std::lock_guard lock(LibraryLock());
    const SANE_Handle handle = device_->handle;
    ScanOptions(handle).Apply(settings);
    // The device rests again, whatever ended the scan.
    struct Rest {
        SANE_Handle handle;
        ~Rest() { Sane().cancel(handle); }
    } const rest{handle};
    ScanPage page;
    SANE_Parameters format{};
    std::vector<SANE_Byte> bytes(kChunk);
    do {
        CheckSane(Sane().start(handle));
        CheckSane(Sane().getParameters(handle, &format));
        FrameReader reader(page, format, page.width == 0);
        for (SANE_Status status = SANE_STATUS_GOOD; status != SANE_STATUS_EOF;) {
            if (progress.cancelled) return {};
            SANE_Int count = 0;
            status = Sane().read(handle, bytes.data(), static_cast<SANE_Int>(bytes.size()), &count);
            if (status != SANE_STATUS_EOF) CheckSane(status);
            reader.Take(std::span(bytes).first(static_cast<std::size_t>(std::max(0, count))));
            progress.percent = reader.Percent();
        }
    } while (format.last_frame == SANE_FALSE);
    return page;
}

} // namespace pintalux
