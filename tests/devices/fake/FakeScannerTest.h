// The program with a scanner of the tests' own.
#pragma once

#include "devices/EndScanning.h"
#include "devices/fake/FakeScanner.h"
#include "devices/modTwain.h"
#include "devices/sane/SaneCalls.h"
#include "devices/sane/Scanner.h"
#include "support/Program.h"

namespace pintalux {

class FakeScannerTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        OpenScannerLibrary = OpenFakeLibrary;
        TheFakeScanner = {};
        ForgetScanner();
        EndSane();
    }
    void TearDown() override {
        EndScanning();
        ProgramTest::TearDown();
    }

    static ScanChoices Choices() { return Scanner("fake:0").Choices(); }
    /// What a scan with these settings sets at the device.
    static std::vector<std::string> SetBy(const ScanSettings& settings) {
        TheFakeScanner.set.clear();
        ScanProgress progress;
        Scanner("fake:0").Scan(
            settings, progress, [](std::span<const std::uint8_t>) {}, [] {});
        return TheFakeScanner.set;
    }

    static FakeOption Number(const std::string& name, double number) {
        FakeOption option;
        option.name = name;
        option.number = number;
        return option;
    }
    static FakeOption Text(const std::string& name, const std::string& text) {
        FakeOption option;
        option.name = name;
        option.type = SANE_TYPE_STRING;
        option.text = text;
        return option;
    }
    /// The four sides of the area: `unit`s from `least` to `most`.
    static void AddSides(SANE_Value_Type type, SANE_Unit unit, double least, double most) {
        for (const char* name : {"tl-x", "tl-y", "br-x", "br-y"}) {
            FakeOption side = Number(name, least);
            side.type = type;
            side.unit = unit;
            side.range = {least, most};
            TheFakeScanner.options.push_back(side);
        }
    }
};

} // namespace pintalux
