// One scanner: what it lets the user choose, and a page from it.
//
// A device is opened, asked and read on one thread at a time. Opening and reading may take minutes, so that
// they belong on a thread aside.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace pintalux {

struct ScannerDevice {
    std::string name;  ///< The library's, by which it is opened.
    std::string title; ///< Maker, model and kind, for the user.
};

/// All devices that can be found now; that takes seconds. Error 53 without the library.
std::vector<ScannerDevice> FindScanners();

/// A rectangle of the glass in millimetres; empty where the device has no area to choose.
struct ScanArea {
    double left = 0, top = 0, right = 0, bottom = 0;
    bool Empty() const { return right <= left || bottom <= top; }
};

/// What the device offers, and what it proposes.
struct ScanChoices {
    std::vector<int> resolutions; ///< Dots an inch, rising; empty: nothing to choose.
    int resolution = 0;
    std::vector<std::string> modes; ///< As the device names them: "Color", "Gray", ...
    std::string mode;
    ScanArea glass; ///< All that it can see.
};

struct ScanSettings {
    int resolution = 0; ///< 0 keeps the device's own.
    std::string mode;   ///< Empty keeps the device's own.
    ScanArea area;      ///< Empty keeps the device's own.
};

/// Takes a page as it comes: one row after the other from the top, each of as many pixels of three bytes, red
/// first. What it raises ends the scan.
using TakeRow = std::function<void(std::span<const std::uint8_t> row)>;

/// How far a scan has come, and whether the user wants no more of it. Read and written by both threads.
struct ScanProgress {
    std::atomic<int> percent{0};
    std::atomic<bool> cancelled{false};
};

class Scanner {
  public:
    /// Error 57 or 68, with what the device said, if it cannot be opened.
    explicit Scanner(const std::string& device);
    ~Scanner();

    ScanChoices Choices() const;
    /// Reads one page. Colours above 8 bits lose their lower ones; a page that ends early has the rows that
    /// came. After the last one `whole` runs, before the device comes to rest. Once it is cancelled no more
    /// rows come. Error 57 or 68 with what the device said; 6 where a side exceeds 32000.
    void Scan(const ScanSettings& settings, ScanProgress& progress, const TakeRow& take,
              const std::function<void()>& whole);

  private:
    struct Device;
    std::unique_ptr<Device> device_;
};

} // namespace pintalux
