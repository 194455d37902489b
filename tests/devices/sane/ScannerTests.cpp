#include "base/RuntimeError.h"
#include "devices/sane/SaneCalls.h"
#include "devices/sane/Scanner.h"
#include "support/Errors.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

// The library's own test device forgets memory at its end, and is unloaded by then: no list of known leaks
// can name it. Errors of memory are found all the same.
extern "C" const char* __lsan_default_options();
extern "C" const char* __lsan_default_options() {
    return "detect_leaks=0";
}

namespace pintalux {

namespace {

using namespace std::chrono_literals;

// A machine on which the test device of the scanner library is the only one.
class ScannerTest : public testing::Test {
  protected:
    void SetUp() override {
        if (OpenScannerLibrary() == nullptr) GTEST_SKIP() << "the scanner library is not installed";
        std::string pattern = (std::filesystem::temp_directory_path() / "pintalux-scan-XXXXXX").string();
        folder_ = ::mkdtemp(pattern.data());
        std::ofstream(folder_ + "/dll.conf") << "test\n";
        ::setenv("SANE_CONFIG_DIR", folder_.c_str(), 1);
        Configure("");
    }
    void TearDown() override {
        if (folder_.empty()) return;
        EndSane();
        ::unsetenv("SANE_CONFIG_DIR");
        std::filesystem::remove_all(folder_);
    }

    /// How the test device behaves from now on: lines of its configuration.
    void Configure(const std::string& lines) {
        EndSane();
        std::ofstream(folder_ + "/test.conf")
            << "number_of_devices 2\nresolution_min 1\nresolution_max 1200\nresolution 50\ngeometry_min 0\n"
               "geometry_max 200\ngeometry_quant 1\ntest-picture \"Color pattern\"\n"
            << lines;
    }

    std::string Folder() const { return folder_; }

  private:
    std::string folder_;
};

/// A page: rows from the top, each of `width` pixels 0x00BBGGRR.
struct ScanPage {
    int width = 0;
    std::vector<std::uint32_t> pixels;
    int Height() const { return width == 0 ? 0 : static_cast<int>(pixels.size()) / width; }
};

ScanPage PageOf(Scanner& scanner, const ScanSettings& settings, ScanProgress& progress) {
    ScanPage page;
    int whole = 0;
    const auto take = [&](std::span<const std::uint8_t> row) {
        EXPECT_EQ(whole, 0) << "a row after the last one";
        page.width = static_cast<int>(row.size() / 3);
        for (std::size_t i = 0; i < row.size(); i += 3)
            page.pixels.push_back(row[i] | unsigned{row[i + 1]} << 8 | unsigned{row[i + 2]} << 16);
    };
    scanner.Scan(settings, progress, take, [&whole] { ++whole; });
    EXPECT_EQ(whole, progress.cancelled ? 0 : 1);
    return page;
}

ScanPage ScanWith(const ScanSettings& settings) {
    ScanProgress progress;
    Scanner scanner("test:0");
    return PageOf(scanner, settings, progress);
}

/// The same page by the library's own command line program: a portable any-map of 8 bits a channel, or of 1.
ScanPage ByCommandLine(const std::string& folder, const std::string& options) {
    const std::string file = folder + "/page.pnm";
    const std::string command = "scanimage -d test:0 --format=pnm " + options + " > " + file + " 2>/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    std::ifstream in(file, std::ios::binary);
    std::string kind, word;
    std::vector<int> numbers;
    in >> kind;
    const std::size_t wanted = kind == "P4" ? 2 : 3;
    while (numbers.size() < wanted && in >> word) {
        if (word[0] == '#') {
            std::getline(in, word);
        } else {
            numbers.push_back(std::stoi(word));
        }
    }
    in.get();
    ScanPage page;
    page.width = numbers.at(0);
    for (int y = 0; y < numbers.at(1); ++y) {
        int byte = 0;
        for (int x = 0; x < page.width; ++x) {
            if (kind == "P6") {
                const auto red = static_cast<unsigned>(in.get());
                const auto green = static_cast<unsigned>(in.get());
                page.pixels.push_back(red | green << 8 | static_cast<unsigned>(in.get()) << 16);
            } else if (kind == "P5") {
                page.pixels.push_back(static_cast<unsigned>(in.get()) * 0x010101U);
            } else {
                if (x % 8 == 0) byte = in.get();
                page.pixels.push_back((byte & 0x80 >> x % 8) != 0 ? 0 : 0xFFFFFF);
            }
        }
    }
    EXPECT_TRUE(in);
    return page;
}

void ExpectSamePage(const ScanPage& ours, const ScanPage& theirs) {
    ASSERT_EQ(ours.width, theirs.width);
    ASSERT_EQ(ours.Height(), theirs.Height());
    ASSERT_GT(ours.Height(), 0);
    EXPECT_TRUE(ours.pixels == theirs.pixels);
}

TEST_F(ScannerTest, FindsEveryDeviceWithATitle) {
    const std::vector<ScannerDevice> found = FindScanners();
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, "test:0");
    EXPECT_EQ(found[1].name, "test:1");
    EXPECT_EQ(found[0].title, "Noname frontend-tester (test:0)");
}

TEST_F(ScannerTest, OffersModesUsualResolutionsAndTheGlass) {
    const ScanChoices choices = Scanner("test:0").Choices();
    EXPECT_EQ(choices.modes, (std::vector<std::string>{"Gray", "Color"}));
    EXPECT_EQ(choices.resolutions, (std::vector<int>{50, 75, 100, 150, 200, 300, 400, 600, 1200}));
    EXPECT_EQ(choices.resolution, 50);
    EXPECT_EQ(choices.glass.left, 0);
    EXPECT_EQ(choices.glass.top, 0);
    EXPECT_EQ(choices.glass.right, 200);
    EXPECT_EQ(choices.glass.bottom, 200);
}

TEST_F(ScannerTest, ADeviceStandsForItsOwnResolutionToo) {
    using Dots = std::vector<int>;
    for (const auto& [lines, dots] :
         {std::pair("resolution 37\n", Dots{37, 75, 100, 150, 200, 300, 400, 600, 1200}),
          std::pair("resolution 1\n", Dots{1, 75, 100, 150, 200, 300, 400, 600, 1200}),
          std::pair("resolution_min 100\nresolution_max 300\nresolution 150\n", Dots{100, 150, 200, 300}),
          std::pair("resolution_min 101\nresolution_max 299\nresolution 250\n", Dots{150, 200, 250})}) {
        Configure(lines);
        EXPECT_EQ(Scanner("test:0").Choices().resolutions, dots) << lines;
    }
}

TEST_F(ScannerTest, AGlassBeginsWhereItsDeviceSays) {
    Configure("geometry_min 15\n");
    const ScanArea glass = Scanner("test:0").Choices().glass;
    EXPECT_EQ(glass.left, 15);
    EXPECT_EQ(glass.top, 15);
    EXPECT_EQ(glass.right, 200);
    EXPECT_EQ(glass.bottom, 200);
}

// What stands behind the pixels of a row is none of the picture.
TEST_F(ScannerTest, ADeviceThatLosesPixelsOfEachRowGivesTheOthers) {
    const ScanSettings settings{50, "Color", {0, 0, 40, 30}};
    const ScanPage whole = ScanWith(settings);
    for (const int lost : {1, 30, 77}) {
        Configure("ppl-loss " + std::to_string(lost) + "\n");
        ScanPage expected{whole.width - lost, {}};
        for (std::size_t i = 0; i < whole.pixels.size(); ++i)
            if (static_cast<int>(i) % whole.width < expected.width)
                expected.pixels.push_back(whole.pixels[i]);
        ExpectSamePage(ScanWith(settings), expected);
    }
}

TEST_F(ScannerTest, AGreyPageIsThatOfTheCommandLine) {
    ExpectSamePage(ScanWith({100, "Gray", {0, 0, 50, 40}}),
                   ByCommandLine(Folder(), "--mode Gray --resolution 100 -l 0 -t 0 -x 50 -y 40"));
}

TEST_F(ScannerTest, AColourPageIsThatOfTheCommandLine) {
    ExpectSamePage(ScanWith({75, "Color", {0, 0, 61, 40}}),
                   ByCommandLine(Folder(), "--mode Color --resolution 75 -l 0 -t 0 -x 61 -y 40"));
}

TEST_F(ScannerTest, AnAreaAwayFromTheCornerIsThatOfTheCommandLine) {
    ExpectSamePage(ScanWith({150, "Color", {10, 20, 43, 55}}),
                   ByCommandLine(Folder(), "--mode Color --resolution 150 -l 10 -t 20 -x 33 -y 35"));
}

TEST_F(ScannerTest, AHighResolutionIsThatOfTheCommandLine) {
    ExpectSamePage(ScanWith({600, "Gray", {0, 0, 30, 30}}),
                   ByCommandLine(Folder(), "--mode Gray --resolution 600 -l 0 -t 0 -x 30 -y 30"));
}

TEST_F(ScannerTest, SixteenBitsBecomeEight) {
    Configure("depth 16\n");
    ExpectSamePage(ScanWith({100, "Color", {0, 0, 40, 30}}),
                   ByCommandLine(Folder(), "--mode Color --depth 8 --resolution 100 -x 40 -y 30"));
}

TEST_F(ScannerTest, OneBitIsInkOrPaper) {
    Configure("depth 1\nmode Gray\n");
    ExpectSamePage(ScanWith({100, "Gray", {0, 0, 41, 30}}),
                   ByCommandLine(Folder(), "--mode Gray --depth 1 --resolution 100 -x 41 -y 30"));
}

TEST_F(ScannerTest, ThreePassesMakeOnePage) {
    Configure("three-pass true\nthree-pass-order GBR\n");
    const ScanPage page = ScanWith({100, "Color", {0, 0, 40, 30}});
    Configure("");
    ExpectSamePage(page, ByCommandLine(Folder(), "--mode Color --resolution 100 -x 40 -y 30"));
}

TEST_F(ScannerTest, APageOfUnknownHeightHasTheRowsThatCame) {
    Configure("hand-scanner true\n");
    const ScanPage page = ScanWith({100, "Gray", {}});
    EXPECT_GT(page.Height(), 0);
    EXPECT_GT(page.width, 0);
}

TEST_F(ScannerTest, BytesThatDripInMakeTheSamePage) {
    Configure("read-limit true\nread-limit-size 7\n");
    ExpectSamePage(ScanWith({50, "Color", {0, 0, 40, 30}}),
                   ByCommandLine(Folder(), "--mode Color --resolution 50 -x 40 -y 30"));
}

TEST_F(ScannerTest, EveryFaultOfTheDeviceIsAnErrorWithItsReason) {
    const std::string device = "Erro de leitura ou escrita no dispositivo: ";
    const std::string away = "Dispositivo não disponível: ";
    const std::string memory = "Memória insuficiente: ";
    const std::tuple<std::string, int, std::string> faults[] = {
        {"UNSUPPORTED", 57, device + "O digitalizador não respondeu como devia."},
        {"CANCELLED", 57, device + "A digitalização foi cancelada."},
        {"DEVICE_BUSY", 68, away + "O digitalizador está ocupado."},
        {"INVAL", 68, away + "O digitalizador já não está ligado, ou não aceita o que foi pedido."},
        {"JAMMED", 57, device + "O papel está encravado."},
        {"NO_DOCS", 57, device + "Não há papel no alimentador."},
        {"COVER_OPEN", 57, device + "A tampa do digitalizador está aberta."},
        {"IO_ERROR", 57, device + "A ligação ao digitalizador falhou."},
        {"NO_MEM", 7, memory + "O digitalizador não tem memória que chegue."},
        {"ACCESS_DENIED", 68, away + "Sem permissão para usar o digitalizador."}};
    for (const auto& [status, number, text] : faults) {
        SCOPED_TRACE(status);
        Configure("read-status-code \"SANE_STATUS_" + status + "\"\n");
        try {
            ScanWith({100, "Gray", {0, 0, 40, 30}});
            ADD_FAILURE() << "no error";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number(), number);
            EXPECT_EQ(error.Text(), text);
        }
    }
}

TEST_F(ScannerTest, ADeviceScansAgainAfterAFault) {
    Scanner scanner("test:0");
    ScanProgress progress;
    progress.cancelled = true;
    EXPECT_EQ(PageOf(scanner, {100, "Gray", {0, 0, 40, 30}}, progress).Height(), 0);
    progress.cancelled = false;
    EXPECT_GT(PageOf(scanner, {100, "Gray", {0, 0, 40, 30}}, progress).Height(), 0);
    EXPECT_EQ(progress.percent, 100);
}

TEST_F(ScannerTest, ACancelledScanEndsInTheMiddle) {
    Configure("read-delay true\nread-delay-duration 200000\n");
    ScanProgress progress;
    ScanPage page;
    Scanner scanner("test:0");
    std::thread scan([&] { page = PageOf(scanner, {600, "Color", {0, 0, 200, 200}}, progress); });
    std::this_thread::sleep_for(300ms);
    progress.cancelled = true;
    scan.join();
    EXPECT_LT(page.Height(), 4724); // 200 mm
    EXPECT_LT(progress.percent, 100);
}

TEST_F(ScannerTest, WhatTheTakerRaisesEndsTheScan) {
    Scanner scanner("test:0");
    ScanProgress progress;
    int rows = 0;
    EXPECT_EQ(ErrorOf([&] {
                  scanner.Scan(
                      {100, "Gray", {0, 0, 40, 30}}, progress,
                      [&rows](std::span<const std::uint8_t>) {
                          if (++rows == 5) throw RuntimeError(kDiskFull);
                      },
                      [] { ADD_FAILURE() << "the page is not whole"; });
              }),
              kDiskFull);
    EXPECT_EQ(rows, 5);
    EXPECT_GT(PageOf(scanner, {100, "Gray", {0, 0, 40, 30}}, progress).Height(), 5);
}

TEST_F(ScannerTest, ADeviceThatIsGoneIsError68) {
    EXPECT_EQ(ErrorOf([] { Scanner("test:9"); }), kDeviceUnavailable);
}

TEST_F(ScannerTest, APageWithoutRowsIsEmpty) {
    Configure("read-status-code \"SANE_STATUS_EOF\"\n");
    EXPECT_EQ(ScanWith({100, "Gray", {0, 0, 40, 30}}).Height(), 0);
}

} // namespace

} // namespace pintalux
