// Files that want to take all time and memory there are: giants, endless scans, and what broke other readers.
#include "support/Folders.h"
#include "support/Memory.h"
#include "surface/system/Pictures.h"
#include "system/GifBytes.h"

#include <cctype>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <jpeglib.h>
#include <memory>
#include <QImage>
#include <QImageReader>
#include <sys/resource.h>
#include <sys/wait.h>

namespace pintalux {
namespace {

constexpr std::uint64_t kMegabyte = std::uint64_t{1} << 20;
#ifdef __SANITIZE_ADDRESS__
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif
/// Time on the processor, so that a busy machine fails no test. Sanitized code is several times slower.
constexpr rlim_t kMostSeconds = kSanitized ? 10 : 2;
constexpr std::uint64_t kMostBytes = 512 * kMegabyte; // besides the picture

/// A picture of `fill` as a JPEG file, coded by the library itself.
struct JpegKind {
    int width = 64;
    int height = 64;
    int components = 3;
    J_COLOR_SPACE colours = JCS_RGB;
    std::vector<jpeg_scan_info> scans = {};
};

std::string JpegBytes(const JpegKind& kind) {
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_CreateCompress(&info, JPEG_LIB_VERSION, sizeof info);
    unsigned char* bytes = nullptr;
    unsigned long length = 0;
    jpeg_mem_dest(&info, &bytes, &length);
    info.image_width = static_cast<JDIMENSION>(kind.width);
    info.image_height = static_cast<JDIMENSION>(kind.height);
    info.input_components = kind.components;
    info.in_color_space = kind.colours;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, 90, TRUE);
    if (!kind.scans.empty()) {
        info.scan_info = kind.scans.data();
        info.num_scans = static_cast<int>(kind.scans.size());
    }
    jpeg_start_compress(&info, TRUE);
    std::vector<JSAMPLE> row(static_cast<std::size_t>(kind.width * kind.components));
    for (int y = 0; y < kind.height; ++y) {
        for (std::size_t i = 0; i < row.size(); ++i)
            row[i] = static_cast<JSAMPLE>(i * 37 + static_cast<std::size_t>(y) * 11);
        JSAMPROW rows = row.data();
        jpeg_write_scanlines(&info, &rows, 1);
    }
    jpeg_finish_compress(&info);
    jpeg_destroy_compress(&info);
    std::string text(reinterpret_cast<const char*>(bytes), length);
    std::free(bytes);
    return text;
}

/// Grey, with a scan for each coefficient, and one more for its last bit where there is to be one.
JpegKind ManyScans(bool lastBits) {
    JpegKind kind{64, 64, 1, JCS_GRAYSCALE, {}};
    const auto scan = [&](int coefficient, int from, int to) {
        jpeg_scan_info info = {};
        info.comps_in_scan = 1;
        info.Ss = info.Se = coefficient;
        info.Ah = from;
        info.Al = to;
        kind.scans.push_back(info);
    };
    scan(0, 0, 0);
    for (int i = 1; i < 64; ++i) {
        scan(i, 0, lastBits ? 1 : 0);
        if (lastBits) scan(i, 1, 0);
    }
    return kind;
}

/// Ten scans of colours, as photographs have them.
JpegKind Progressive() {
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_CreateCompress(&info, JPEG_LIB_VERSION, sizeof info);
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_simple_progression(&info);
    JpegKind kind;
    kind.scans.assign(info.scan_info, info.scan_info + info.num_scans);
    jpeg_destroy_compress(&info);
    return kind;
}

/// The file with other sides in its frame header, which begins with `frame` (baseline C0, progressive C2).
std::string Announcing(std::string jpeg, char frame, int width, int height) {
    const std::size_t at = jpeg.find(std::string("\xFF") + frame);
    EXPECT_NE(at, std::string::npos);
    for (const auto& [offset, side] : {std::pair{at + 5, height}, std::pair{at + 7, width}}) {
        jpeg[offset] = static_cast<char>(side >> 8);
        jpeg[offset + 1] = static_cast<char>(side & 0xFF);
    }
    return jpeg;
}

constexpr std::uint64_t kPlenty = 64 * 1024 * kMegabyte;

std::string RunLengthBmp(int width, int height, const std::string& data) {
    std::string palette;
    for (int i = 0; i < 256; ++i)
        palette += LittleEndian(i << 16 | i << 8 | i, 4);
    return "BM" + LittleEndian(0, 8) + LittleEndian(14 + 40 + 1024, 4) + LittleEndian(40, 4) +
           LittleEndian(width, 4) + LittleEndian(height, 4) + LittleEndian(1, 2) + LittleEndian(8, 2) +
           LittleEndian(1, 4) + LittleEndian(0, 20) + palette + data;
}

Picture LoadBytes(const std::string& bytes, const std::stop_token& stop = {}) {
    const Sandbox box;
    PutBytes(box / "a", bytes);
    return LoadPicture(box / "a", stop);
}

TEST(HostileJpeg, AGiantOfFewBytesIsGreyBelowThemAndCostsNothing) {
    const SupposedMemory plenty(kPlenty);
    const Picture picture = LoadBytes(Announcing(JpegBytes({}), '\xC0', 32000, 32000));
    ASSERT_EQ(picture.Bounds(), (Box{0, 0, 32000, 32000}));
    EXPECT_EQ(picture.At(31999, 31999), 0x808080U);
    EXPECT_NE(picture.At(5, 3), 0x808080U);
}

TEST(HostileJpeg, TheGreyRestIsWhatADecoderOfEveryRowShows) {
    for (const int width : {8, 16, 64, 200, 600}) {
        const std::string bytes = Announcing(JpegBytes({}), '\xC0', width, 4000);
        const QImage model = QImage::fromData(QByteArray::fromStdString(bytes), "jpeg");
        ASSERT_FALSE(model.isNull());
        const Picture picture = LoadBytes(bytes);
        for (int y = 0; y < 4000; ++y)
            for (int x = 0; x < width; ++x)
                ASSERT_EQ(picture.At(x, y), __builtin_bswap32(model.pixel(x, y)) >> 8) << x << ", " << y;
    }
}

TEST(HostileJpeg, AProgressiveGiantOfFewBytesIsRefused) {
    const SupposedMemory plenty(kPlenty);
    const std::string bytes = JpegBytes(Progressive());
    EXPECT_EQ(ErrorOf([&] { LoadBytes(bytes); }), 0);
    EXPECT_EQ(ErrorOf([&] { LoadBytes(Announcing(bytes, '\xC2', 32000, 32000)); }), 481);
}

TEST(HostileJpeg, ScansAreLimited) {
    EXPECT_EQ(ErrorOf([] { LoadBytes(JpegBytes(ManyScans(false))); }), 0);  // 64
    EXPECT_EQ(ErrorOf([] { LoadBytes(JpegBytes(ManyScans(true))); }), 481); // 127
}

TEST(HostileJpeg, AllKindsShowWhatTheToolkitsDecoderShows) {
    for (const JpegKind& kind :
         {JpegKind{}, JpegKind{97, 61, 1, JCS_GRAYSCALE, {}}, JpegKind{61, 97, 4, JCS_CMYK, {}},
          JpegKind{33, 9, 4, JCS_YCCK, {}}, Progressive(), ManyScans(false)}) {
        const std::string bytes = JpegBytes(kind);
        const QImage model = QImage::fromData(QByteArray::fromStdString(bytes), "jpeg");
        const Picture picture = LoadBytes(bytes);
        ASSERT_EQ(picture.Bounds(), (Box{0, 0, model.width(), model.height()}));
        for (int y = 0; y < picture.Height(); ++y)
            for (int x = 0; x < picture.Width(); ++x)
                ASSERT_EQ(picture.At(x, y), __builtin_bswap32(model.pixel(x, y)) >> 8) << kind.colours;
    }
}

TEST(HostilePictures, NoPictureMayTakeMoreThanHalfOfTheFreeMemory) {
    const std::uint64_t needed = PictureBytes(32000, 32000);
    const std::string runLengths = RunLengthBmp(32000, 32000, LittleEndian(0x0100, 2));
    const std::string gif = GifScreen(32000, 32000) + ";";
    const std::string jpeg = Announcing(JpegBytes({}), '\xC0', 32000, 32000);
    for (const std::string& bytes : {runLengths, gif, jpeg}) {
        const SupposedMemory justEnough(needed * 2);
        EXPECT_EQ(ErrorOf([&] { LoadBytes(bytes); }), 0) << bytes.substr(0, 3);
        const SupposedMemory tooLittle(needed * 2 - 2);
        EXPECT_EQ(ErrorOf([&] { LoadBytes(bytes); }), 7) << bytes.substr(0, 3);
    }
}

TEST(HostilePictures, AnIconThatAnnouncesAGiantIsRefused) {
    const std::string image = LittleEndian(40, 4) + LittleEndian(30000, 4) + LittleEndian(60000, 4) +
                              LittleEndian(1, 2) + LittleEndian(32, 2) + LittleEndian(0, 24);
    const std::string icon = std::string("\0\0\1\0\1\0", 6) + LittleEndian(0, 4) + LittleEndian(1, 2) +
                             LittleEndian(32, 2) + LittleEndian(std::ssize(image), 4) + LittleEndian(22, 4) +
                             image;
    EXPECT_EQ(ErrorOf([&] { LoadBytes(icon); }), 481);
}

TEST(HostilePictures, APlainBitmapIsRefusedBeforeItsMemoryIsTaken) {
    const Sandbox box;
    SavePicture(Pattern(100, 100), box / "a.bmp");
    const SupposedMemory little(PictureBytes(100, 100) * 2 - 2);
    EXPECT_EQ(ErrorOf([&] { LoadPicture(box / "a.bmp"); }), 7);
}

TEST(HostilePictures, TheSystemSaysHowMuchIsFree) {
    EXPECT_GT(FreeMemory(), kMegabyte);
    EXPECT_LT(FreeMemory(), std::uint64_t{1} << 50);
}

TEST(HostilePictures, EachKindEndsWhenItIsGivenUp) {
    const Sandbox box;
    SavePicture(Pattern(30, 20), box / "plain");
    std::stop_source source;
    source.request_stop();
    for (const std::string& bytes :
         {BytesOf(box / "plain"), JpegBytes({}), GifScreen(2, 2) + GifImage(0, 0, 1, 1, {0}),
          RunLengthBmp(3, 3, "\x03\x05")})
        EXPECT_EQ(ErrorOf([&] { LoadBytes(bytes, source.get_token()); }), 18) << bytes.substr(0, 3);
}

TEST(LoadRunLengths, RunsCopiesAndJumps) {
    // Bottom row: three of 9, then 1 2 3 as they stand. Then two right and one up, a 7, and the end.
    const std::string data("\x03\x09\0\x03\x01\x02\x03\0\0\0\0\x02\x02\x01\x01\x07\0\x01", 18);
    const Picture picture = LoadBytes(RunLengthBmp(6, 3, data));
    const auto row = [&](int y) {
        std::vector<int> greys;
        for (int x = 0; x < 6; ++x)
            greys.push_back(static_cast<int>(picture.At(x, y) & 0xFF));
        return greys;
    };
    EXPECT_EQ(row(2), (std::vector<int>{9, 9, 9, 1, 2, 3}));
    EXPECT_EQ(row(1), (std::vector<int>{0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(row(0), (std::vector<int>{0, 0, 7, 0, 0, 0}));
}

TEST(LoadRunLengths, WhatStandsBetweenPaletteAndPixelsIsSkipped) {
    const std::string data("\x02\x09\0\x01", 4);
    std::string bytes = RunLengthBmp(2, 1, data);
    const std::size_t pixels = bytes.size() - data.size();
    bytes.insert(pixels, "\x02\x05\x02\x06\x02\x07");
    bytes.replace(10, 4, LittleEndian(static_cast<std::int64_t>(pixels) + 6, 4));
    EXPECT_EQ(LoadBytes(bytes).At(0, 0), 0x090909U);
    EXPECT_EQ(LoadBytes(bytes).At(1, 0), 0x090909U);
}

TEST(LoadRunLengths, AJumpOverAnEdgeEndsAtIt) {
    for (const int right : {0, 1, 4, 5, 6, 255}) {
        for (const int up : {0, 1, 2, 3, 255}) {
            SCOPED_TRACE(testing::Message() << right << " right, " << up << " up");
            const std::string data = std::string("\0\x02", 2) + static_cast<char>(right) +
                                     static_cast<char>(up) + std::string("\x01\x07\0\x01", 4);
            const Picture picture = LoadBytes(RunLengthBmp(6, 3, data));
            for (int y = 0; y < 3; ++y)
                for (int x = 0; x < 6; ++x)
                    EXPECT_EQ(picture.At(x, y),
                              x == std::min(right, 5) && 2 - y == std::min(up, 2) ? 0x070707U : 0U)
                        << x << ", " << y;
        }
    }
}

TEST(LoadRunLengths, WhatRunsOverARowIsDropped) {
    const Picture picture = LoadBytes(RunLengthBmp(2, 2, std::string("\xFF\x09\0\0\x01\x08", 6)));
    EXPECT_EQ(picture.At(0, 1), 0x090909U);
    EXPECT_EQ(picture.At(1, 1), 0x090909U);
    EXPECT_EQ(picture.At(0, 0), 0x080808U);
    EXPECT_EQ(picture.At(1, 0), 0x000000U);
}

TEST(LoadRunLengths, EveryCutShowsWhatIsThere) {
    const std::string whole =
        RunLengthBmp(6, 3, std::string("\x03\x09\0\x03\x01\x02\x03\0\0\0\0\x02\x02\x01\x01\x07", 16));
    for (std::size_t length = whole.size() - 16; length <= whole.size(); ++length)
        EXPECT_EQ(LoadBytes(whole.substr(0, length)).Width(), 6) << length;
}

std::vector<std::string> CorpusFiles(const std::string& folder) {
    std::vector<std::string> files;
    std::error_code none;
    for (const auto& entry : std::filesystem::directory_iterator(SharedCorpora() + "/" + folder, none))
        files.push_back(entry.path().string());
    std::ranges::sort(files);
    return files;
}

/// A line of /proc/self/status, in bytes.
std::uint64_t MemoryLine(const std::string& name) {
    std::ifstream lines("/proc/self/status");
    std::string word;
    std::uint64_t kilobytes = 0;
    while (lines >> word)
        if (word == name + ":" && lines >> kilobytes) return kilobytes * 1024;
    return 0;
}

/// Loads a file and tells what was wrong about it, by the code that the process ends with.
enum Verdict { kFine, kSanitizerFinding, kOtherError, kTooMuchMemory };

Verdict VerdictOn(const std::string& path) {
    std::ofstream("/proc/self/clear_refs") << "5"; // The peak begins here.
    const std::uint64_t before = MemoryLine("VmRSS");
    Picture picture;
    const int error = ErrorOf([&] { picture = LoadPicture(path); });
    if (error != 0 && error != 481 && error != 7) return kOtherError;
    const std::uint64_t peak = MemoryLine("VmHWM");
    const std::uint64_t allowed = before + kMostBytes + PictureBytes(picture.Width(), picture.Height());
    return !kSanitized && peak > allowed ? kTooMuchMemory : kFine;
}

/// How a process of its own ends that loads the file: its code, or a signal such as that of too much time.
std::string EndOfLoading(const std::string& path) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit seconds = {kMostSeconds, kMostSeconds + 1};
        ::setrlimit(RLIMIT_CPU, &seconds);
        ::signal(SIGXCPU, SIG_DFL);
        ::_exit(VerdictOn(path));
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    if (WIFSIGNALED(status)) return std::string("killed: ") + ::strsignal(WTERMSIG(status));
    switch (WEXITSTATUS(status)) {
    case kFine:
        return "fine";
    case kOtherError:
        return "an error that is no refusal";
    case kTooMuchMemory:
        return "too much memory";
    default:
        return "a finding";
    }
}

std::string BigEndian(std::uint32_t number) {
    std::string bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes += static_cast<char>(number >> shift & 0xFF);
    return bytes;
}

std::uint32_t PngSum(const std::string& bytes) {
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : bytes) {
        sum ^= static_cast<unsigned char>(byte);
        for (int i = 0; i < 8; ++i)
            sum = sum >> 1 ^ (0xEDB88320 & (0 - (sum & 1)));
    }
    return ~sum;
}

std::string PngPart(const std::string& kindAndData) {
    return BigEndian(static_cast<std::uint32_t>(kindAndData.size() - 4)) + kindAndData +
           BigEndian(PngSum(kindAndData));
}

TEST(HostilePictures, AGiantOfFewBytesForTheToolkitIsRefused) {
    // A PNG of 16 bits a channel that breaks off, and a TIFF of one strip that is not there.
    const std::string png =
        "\x89PNG\r\n\x1A\n" +
        PngPart("IHDR" + BigEndian(32000) + BigEndian(32000) + std::string("\x10\x06\0\0\0", 5)) +
        PngPart("IDAT\x78\x9C");
    std::string tiff = std::string("II*\0\x08\0\0\0\x08\0", 10);
    for (const auto& [tag, value] : std::vector<std::pair<int, int>>{
             {256, 32000}, {257, 32000}, {258, 8}, {259, 1}, {262, 1}, {273, 200}, {278, 32000}, {279, 9}})
        tiff += LittleEndian(tag, 2) + LittleEndian(4, 2) + LittleEndian(1, 4) + LittleEndian(value, 4);
    tiff += LittleEndian(0, 4);
    const Sandbox box;
    for (const std::string& bytes : {png, tiff}) {
        PutBytes(box / "giant", bytes);
        EXPECT_EQ(EndOfLoading(box / "giant"), "fine") << bytes.substr(0, 4);
        const int error = ErrorOf([&] { LoadPicture(box / "giant"); });
        EXPECT_TRUE(error == 481 || error == 7) << bytes.substr(0, 4) << " " << error;
    }
}

class Corpus : public ::testing::TestWithParam<const char*> {};

TEST_P(Corpus, EachFileIsReadOrRefusedInTimeAndMemory) {
    const auto files = CorpusFiles(GetParam());
    if (files.empty()) GTEST_SKIP() << "the collection is not here";
    for (const std::string& file : files)
        EXPECT_EQ(EndOfLoading(file), "fine") << file;
}

TEST_P(Corpus, NothingOfItStaysBehind) {
    // In this process, where leaks are looked for at the end.
    const auto files = CorpusFiles(GetParam());
    if (files.empty()) GTEST_SKIP() << "the collection is not here";
    for (const std::string& file : files) {
        const int error = ErrorOf([&] { EXPECT_FALSE(LoadPicture(file).Empty()) << file; });
        EXPECT_TRUE(error == 0 || error == 481 || error == 7) << file << " " << error;
    }
}

class JpegCorpus : public Corpus {};

TEST_P(JpegCorpus, EachFileShowsWhatTheToolkitsDecoderShows) {
    int compared = 0;
    for (const std::string& file : CorpusFiles(GetParam())) {
        QImageReader reader(QString::fromStdString(file), "jpeg");
        if (BytesOf(file).substr(0, 3) != "\xFF\xD8\xFF" || reader.size().width() > 4000) continue;
        const QImage read = reader.read();
        const int error = ErrorOf([&] {
            const Picture picture = LoadPicture(file);
            ASSERT_EQ(picture.Bounds(), (Box{0, 0, read.width(), read.height()})) << file;
            for (int y = 0; y < picture.Height(); ++y)
                for (int x = 0; x < picture.Width(); ++x)
                    ASSERT_EQ(picture.At(x, y), __builtin_bswap32(read.pixel(x, y)) >> 8) << file;
        });
        const bool illegal = std::max(read.width(), read.height()) > kMaxPictureSide;
        EXPECT_EQ(error, read.isNull() || illegal ? 481 : 0) << file;
        ++compared;
    }
    if (compared == 0) GTEST_SKIP() << "the collection is not here";
}

std::string NameOfFolder(const ::testing::TestParamInfo<const char*>& tested) {
    std::string name = tested.param;
    std::erase_if(name, [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; });
    return name;
}

INSTANTIATE_TEST_SUITE_P(Shared, Corpus,
                         ::testing::Values("bmp", "gif", "gif-suite", "jpeg", "jpeg-bugs", "slow"),
                         NameOfFolder);
// Those of `slow` are too slow for the toolkit's decoder.
INSTANTIATE_TEST_SUITE_P(Shared, JpegCorpus,
                         ::testing::Values("jpeg", "jpeg-bugs", "../pictures/odd", "../pictures/real"),
                         NameOfFolder);

} // namespace
} // namespace pintalux
