#include "devices/sane/Scanner.h"

#include "base/RuntimeError.h"
#include "devices/sane/SaneCalls.h"
#include "devices/sane/ScanOptions.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <mutex>
#include <optional>
#include <span>
#include <thread>

namespace pintalux {

namespace {

constexpr int kLargestSide = 32000; // pixels, as of any image

[[noreturn]] void RefuseSize() {
    throw RuntimeError(kOverflow, "A página tem mais de 32000 pixels de lado. Escolha uma resolução ou uma "
                                  "área menor.");
}

bool IsTooLarge(const SANE_Parameters& format) {
    return format.pixels_per_line > kLargestSide || format.lines > kLargestSide;
}

// The library is not made for two threads: a search that the user gave up may still run when the next one
// starts.
std::mutex& LibraryLock() {
    static std::mutex lock;
    return lock;
}

constexpr std::size_t kChannels = 3;

// The place of the one colour that a frame of a three-pass device brings; nothing for any other frame.
std::optional<std::size_t> ChannelOf(SANE_Frame frame) {
    switch (frame) {
    case SANE_FRAME_RED:
        return 0;
    case SANE_FRAME_GREEN:
        return 1;
    case SANE_FRAME_BLUE:
        return 2;
    default:
        return {};
    }
}

// A page out of one frame, whose rows go on as they come, or of three: a three-pass device sends red, green
// and blue one after the other, so that no row is whole before the last one.
struct Page {
    const TakeRow& take;
    std::size_t width = 0; // pixels
    std::vector<std::uint8_t> passes;

    void TakePasses() const {
        for (std::size_t at = 0; at < passes.size(); at += kChannels * width)
            take(std::span(passes).subspan(at, kChannels * width));
    }
};

// The bytes of a frame as they come, cut into rows.
class FrameReader {
  public:
    FrameReader(Page& page, const SANE_Parameters& format)
        : page_(page), format_(format), channel_(ChannelOf(format.format)) {
        if (format.pixels_per_line <= 0 || format.bytes_per_line <= 0) throw RuntimeError(kDeviceError);
        if (IsTooLarge(format)) RefuseSize();
        if (page.width == 0) page.width = static_cast<std::size_t>(format.pixels_per_line);
        row_.resize(kChannels * page.width);
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

    int Percent() const { return format_.lines > 0 ? std::min(100, rows_ * 100 / format_.lines) : 0; }

  private:
    std::uint8_t Sample(std::span<const SANE_Byte> line, std::size_t i) const {
        if (format_.depth == 1) {
            const bool set = i / 8 < line.size() && (line[i / 8] & 0x80U >> i % 8) != 0;
            return set ? 0 : 255; // A set bit is ink.
        }
        // 16 bits stand in the machine's own order: the upper byte is the second one on a small-endian
        // machine.
        const std::size_t at = format_.depth == 16 ? 2 * i + 1 : i;
        return at < line.size() ? line[at] : 0;
    }

    // What most scanners send: the row as it is wanted.
    bool IsPlain(std::span<const SANE_Byte> line) const {
        return format_.format == SANE_FRAME_RGB && format_.depth == 8 && line.size() >= row_.size() &&
               Count() == page_.width;
    }

    std::size_t Count() const {
        return std::min(page_.width, static_cast<std::size_t>(format_.pixels_per_line));
    }

    void TakeLine(std::span<const SANE_Byte> line) {
        if (rows_ >= kLargestSide) RefuseSize();
        if (channel_) {
            TakePass(line, *channel_);
        } else if (IsPlain(line)) {
            page_.take(line.first(row_.size()));
        } else {
            const bool colour = format_.format == SANE_FRAME_RGB;
            for (std::size_t i = 0; i < kChannels * Count(); ++i)
                row_[i] = Sample(line, colour ? i : i / kChannels);
            page_.take(row_);
        }
        ++rows_;
    }

    void TakePass(std::span<const SANE_Byte> line, std::size_t channel) {
        const std::size_t start = row_.size() * static_cast<std::size_t>(rows_);
        if (page_.passes.size() < start + row_.size()) page_.passes.resize(start + row_.size(), 0);
        for (std::size_t x = 0; x < Count(); ++x)
            page_.passes[start + kChannels * x + channel] = Sample(line, x);
    }

    Page& page_;
    SANE_Parameters format_;
    std::optional<std::size_t> channel_;
    std::vector<SANE_Byte> line_;
    std::vector<std::uint8_t> row_;
    int rows_ = 0;
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

ScanChoices Scanner::Choices() const {
    const std::lock_guard lock(LibraryLock());
    return ScanOptions(device_->handle).Choices();
}

void Scanner::Scan(const ScanSettings& settings, ScanProgress& progress, const TakeRow& take,
                   const std::function<void()>& whole) {
    constexpr std::size_t kChunk = std::size_t{64} << 10; // bytes
    const std::lock_guard lock(LibraryLock());
    const SANE_Handle handle = device_->handle;
    ScanOptions(handle).Apply(settings);
    SANE_Parameters format{};
    // What the device foresees is refused before it moves; one that is stopped in its first moment may hang.
    if (Sane().getParameters(handle, &format) == SANE_STATUS_GOOD && IsTooLarge(format)) RefuseSize();
    // The device rests again, whatever ended the scan. Some drivers read ahead on a thread of their own, and
    // hang if they are stopped while it works; a moment later it has ended, or waits for somebody to read.
    struct Rest {
        SANE_Handle handle;
        ~Rest() {
            constexpr std::chrono::milliseconds kMoment{100};
            std::this_thread::sleep_for(kMoment);
            Sane().cancel(handle);
        }
    } const rest{handle};
    Page page{take, 0, {}};
    std::vector<SANE_Byte> bytes(kChunk);
    do {
        CheckSane(Sane().start(handle));
        CheckSane(Sane().getParameters(handle, &format));
        FrameReader reader(page, format);
        for (SANE_Status status = SANE_STATUS_GOOD; status != SANE_STATUS_EOF;) {
            if (progress.cancelled) return;
            SANE_Int count = 0;
            status = Sane().read(handle, bytes.data(), static_cast<SANE_Int>(bytes.size()), &count);
            if (status != SANE_STATUS_EOF) CheckSane(status);
            reader.Take(std::span(bytes).first(static_cast<std::size_t>(std::max(0, count))));
            progress.percent = reader.Percent();
        }
    } while (format.last_frame == SANE_FALSE);
    page.TakePasses();
    whole();
}

} // namespace pintalux
