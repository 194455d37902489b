// The options of an open device, by their well-known names.
#pragma once

#include "devices/sane/Scanner.h"

#include <optional>
#include <sane/sane.h>
#include <string>

namespace pintalux {

class ScanOptions {
  public:
    explicit ScanOptions(SANE_Handle device) : device_(device) {}

    ScanChoices Choices() const;
    /// Sets what the device offers of the settings, mode before resolution before area, since each may change
    /// what the next one allows. What it refuses stays as it was.
    void Apply(const ScanSettings& settings) const;

  private:
    struct Option {
        SANE_Int index;
        const SANE_Option_Descriptor* descriptor;
    };
    std::optional<Option> Find(const char* name) const;
    std::optional<double> Number(const char* name) const;
    std::string Text(const char* name) const;
    std::vector<int> Resolutions() const;
    double UpperEnd(const char* name) const;
    double LowerEnd(const char* name) const;
    double MillimetresPerUnit(const char* name) const;
    void Set(const char* name, double value) const;
    void Set(const char* name, const std::string& text) const;

    SANE_Handle device_;
};

} // namespace pintalux
