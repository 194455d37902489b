#include "surface/system/Printer.h"

#include "inputs/ByHand.h"
#include "support/DialogScript.h"
#include "system/Sandbox.h"

#include <filesystem>
#include <fstream>
#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>
#include <sys/stat.h>

namespace pintalux {

namespace {

class PrinterTest : public testing::Test {
  public:
    ~PrinterTest() override {
        Printer().PrintToFileForTests("");
        Printer().ScaleMode(kScaleTwips);
        std::filesystem::remove_all(folder);
    }

  protected:
    PrinterTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "pintalux-print-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
    }
    std::string folder;
};

TEST_F(PrinterTest, DocumentGoesOffAtEndDoc) {
    const std::string file = folder + "/page.pdf";
    Printer().PrintToFileForTests(file);
    Printer().PaintPicture(Picture(100, 50, 0x0000FF), 0, 0, 1500, 750);
    Printer().EndDoc();
    std::ifstream pdf(file, std::ios::binary);
    std::string start(4, ' ');
    pdf.read(start.data(), 4);
    EXPECT_EQ(start, "%PDF");
    EXPECT_GT(std::filesystem::file_size(file), 500U);
}

/// The beginning of a file.
std::string StartOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string start(4, ' ');
    stream.read(start.data(), 4);
    return start;
}

TEST_F(PrinterTest, AFileThatTheSetupNamesNeedsNoPrinter) {
    const std::string file = folder + "/setup.pdf";
    Printer().OutputFile(file);
    EXPECT_EQ(Printer().OutputFile(), file);
    EXPECT_GT(Printer().ScaleWidth(), 8000);
    Printer().PaintPicture(Picture(100, 50, 0x0000FF), 0, 0, 1500, 750);
    EXPECT_FALSE(std::filesystem::exists(file)); // whole, or not at all
    Printer().EndDoc();
    EXPECT_EQ(StartOf(file), "%PDF");
    EXPECT_EQ(Printer().OutputFile(), file);
}

TEST_F(PrinterTest, APageThatCannotBeBegunLeavesNothingAndTheNextOnePrints) {
    const std::string file = folder + "/page.pdf";
    const std::string temporary = folder + "/temporary";
    std::filesystem::create_directory(temporary);
    for (const std::string& open : {folder, temporary})
        std::filesystem::permissions(open, std::filesystem::perms::all);
    const Variable where("TMPDIR", temporary);
    Printer().PrintToFileForTests(file);
    const auto print = [] { Printer().PaintPicture(Picture(100, 50, 0x0000FF), 0, 0, 1500, 750); };
    {
        const OrdinaryUser user;
        const mode_t mask = ::umask(0777); // its own copy is closed to the toolkit
        EXPECT_EQ(ErrorOf(print), kDeviceUnavailable);
        ::umask(mask);
    }
    EXPECT_EQ(Printer().OutputFile(), file);
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
    EXPECT_FALSE(std::filesystem::exists(file));
    print();
    Printer().EndDoc();
    EXPECT_EQ(StartOf(file), "%PDF");
    EXPECT_TRUE(std::filesystem::is_empty(temporary));
}

TEST_F(PrinterTest, APageThatFailsOnItsWayIsDroppedAndTheNextOneBeginsAnew) {
    const std::string file = folder + "/page.pdf";
    Printer().PrintToFileForTests(file);
    const auto print = [](const Picture& picture) { Printer().PaintPicture(picture, 0, 0, 1500, 750); };
    print(Picture(100, 50, 0x0000FF));
    // Wider than any image of the toolkit.
    EXPECT_EQ(ErrorOf([&] { print(Picture(70'000'000, 1, 0x0000FF)); }), kOutOfMemory);
    EXPECT_EQ(Printer().OutputFile(), file);
    Printer().EndDoc();
    EXPECT_FALSE(std::filesystem::exists(file));
    print(Picture(100, 50, 0x0000FF));
    Printer().EndDoc();
    EXPECT_EQ(StartOf(file), "%PDF");
}

TEST_F(PrinterTest, PageIsMeasuredInTwipsOrPixels) {
    Printer().PrintToFileForTests(folder + "/page.pdf");
    const double twips = Printer().ScaleWidth();
    EXPECT_GT(twips, 8000); // any paper is wider than 14 cm
    EXPECT_LT(twips, 20000);
    Printer().ScaleMode(kScalePixels);
    EXPECT_NEAR(Printer().ScaleWidth(), twips / 1440 * 1200, 1); // 1200 dots an inch
}

TEST_F(PrinterTest, EndWithoutADocumentDoesNothing) {
    EXPECT_EQ(ErrorOf([] { Printer().EndDoc(); }), 0);
}

TEST_F(PrinterTest, MissingPrinterIsError68) {
    EXPECT_EQ(ErrorOf([] { Printer().PaintPicture(Picture(2, 2, 0), 0, 0, 30, 30); }), kDeviceUnavailable);
    EXPECT_EQ(ErrorOf([] { static_cast<void>(Printer().ScaleHeight()); }), kDeviceUnavailable);
}

TEST_F(PrinterTest, UnwritableTargetIsAnError) {
    Printer().PrintToFileForTests(folder + "/missing/page.pdf");
    Printer().PaintPicture(Picture(2, 2, 0), 0, 0, 30, 30);
    EXPECT_EQ(ErrorOf([] { Printer().EndDoc(); }), kFileNotFound);
}

TEST_F(PrinterTest, SetupIsPortugueseAndCancels) {
    QString title;
    QString button;
    const DialogScript script({In<QDialog>([&](QDialog& dialog) {
        title = dialog.windowTitle();
        button = dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->text();
        dialog.reject();
    })});
    EXPECT_FALSE(Printer().ShowSetup());
    EXPECT_EQ(title, "Configurar Impressora");
    EXPECT_EQ(button, "OK");
}

} // namespace

} // namespace pintalux
