#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "devices/PrintCommands.h"
#include "document/Globals.h"
#include "support/Errors.h"
#include "surface/system/Printer.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace pintalux {

namespace {

// Prints to a PDF file and reads the page back as pixels of 1/96 inch, the size of an image's own.
class PrintTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        file_ = Folder("pictures") + "/page.pdf";
        Printer().PrintToFileForTests(file_);
    }

    struct Page {
        int width = 0, height = 0;
        std::string bytes; ///< Three a pixel, red first.
        std::array<int, 3> At(int x, int y) const {
            const auto at = static_cast<std::size_t>(3 * (y * width + x));
            const auto byte = [&](std::size_t i) {
                return static_cast<int>(static_cast<unsigned char>(bytes[i]));
            };
            return {byte(at), byte(at + 1), byte(at + 2)};
        }
    };
    Page ReadBack() const {
        const std::string base = Folder("pictures") + "/page";
        const std::string command = "pdftoppm -r 96 -singlefile " + file_ + " " + base;
        EXPECT_EQ(std::system(command.c_str()), 0);
        std::ifstream in(base + ".ppm", std::ios::binary);
        std::string kind;
        int largest = 0;
        Page page;
        in >> kind >> page.width >> page.height >> largest;
        in.get();
        page.bytes.assign(std::istreambuf_iterator<char>(in), {});
        EXPECT_EQ(kind, "P6");
        return page;
    }
    /// A page with the place where its printable part begins, in its pixels.
    struct Printed {
        Page page;
        int left = -1, top = -1;
    };
    Printed Print() const {
        mnuFilePrinterPrint_Click();
        Page page = ReadBack();
        for (int y = 0; y < page.height; ++y) {
            for (int x = 0; x < page.width; ++x) {
                if (page.At(x, y) != std::array{255, 255, 255}) return {std::move(page), x, y};
            }
        }
        return {std::move(page)};
    }
    std::string file_;
};

TEST_F(PrintTest, AnImageIsPrintedAtItsOwnSizeFromTheTopLeftCorner) {
    OpenPicture("vermelha.bmp", Solid(120, 60, 0x0000FF));
    const auto [page, left, top] = Print();
    EXPECT_LT(left, page.width / 8);
    EXPECT_LT(top, page.height / 8);
    EXPECT_EQ(page.At(left + 2, top + 2), (std::array{255, 0, 0}));
    EXPECT_EQ(page.At(left + 117, top + 57), (std::array{255, 0, 0}));
    EXPECT_EQ(page.At(left + 123, top + 30), (std::array{255, 255, 255}));
    EXPECT_EQ(page.At(left + 60, top + 63), (std::array{255, 255, 255}));
}

TEST_F(PrintTest, AnImageWiderThanThePageIsCutOffAtItsEdge) {
    Picture wide(4000, 30, 0x0000FF);
    const std::vector<Pixel> blue(2000, 0xFF0000);
    for (int y = 0; y < 30; ++y)
        wide.WriteRow(2000, y, blue); // beyond any usual page
    OpenPicture("larga.bmp", wide);
    const auto [page, left, top] = Print();
    int right = left + 1;
    while (right < page.width && page.At(right, top + 10) == std::array{255, 0, 0})
        ++right;
    EXPECT_GT(right, page.width * 3 / 4);
    EXPECT_NEAR(left, page.width - right, 1) << "the margins of the paper are alike, and nothing is added";
    EXPECT_NEAR(top, left, 1);
    for (int x = 0; x < page.width; ++x)
        EXPECT_NE(page.At(x, top + 10), (std::array{0, 0, 255})) << x;
}

TEST_F(PrintTest, WhatFloatsAndWhatWasJustDrawnIsNotPrinted) {
    frmImage& image = OpenPicture("vermelha.bmp", Solid(120, 60, 0x0000FF));
    image.PicMerge.LineBF(0, 0, 119, 59, 0x00FF00);
    const auto [page, left, top] = Print();
    EXPECT_EQ(page.At(left + 60, top + 30), (std::array{255, 0, 0}));
}

TEST_F(PrintTest, AnImageThatHoldsNoPictureIsNotPrintedAndSaysSo) {
    NewDocument(20, 20);
    const DialogScript script({PressesButton("OK")});
    mnuFilePrinterPrint_Click();
    EXPECT_EQ(script.Dialog(0),
              Message("information",
                      "Esta imagem ainda só tem traços por salvar, por isso nada foi impresso. A "
                      "imagem continua aberta. Salve-a, abra-a de novo e imprima."));
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(PrintTest, WithoutADocumentNothingIsPrinted) {
    mnuFilePrinterPrint_Click();
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(PrintTest, EveryPageThatGoesToAFileHasAFileOfItsOwn) {
    OpenPicture("vermelha.bmp", Solid(20, 20, 0x0000FF));
    mnuFilePrinterPrint_Click();
    const std::string first = BytesOf(file_);
    OpenPicture("verde.bmp", Solid(30, 20, 0x00FF00));
    mnuFilePrinterPrint_Click();
    EXPECT_EQ(BytesOf(file_), first);
    EXPECT_TRUE(BytesOf(Folder("pictures") + "/page1.pdf").starts_with("%PDF"));
    EXPECT_EQ(Printer().OutputFile(), Folder("pictures") + "/page2.pdf");
}

TEST_F(PrintTest, TheFileThatTheUserChoosesNextIsTheOneThatIsNumbered) {
    OpenPicture("vermelha.bmp", Solid(20, 20, 0x0000FF));
    mnuFilePrinterPrint_Click();
    Printer().OutputFile(Folder("pictures") + "/other.pdf");
    mnuFilePrinterPrint_Click();
    EXPECT_TRUE(BytesOf(Folder("pictures") + "/other.pdf").starts_with("%PDF"));
    EXPECT_EQ(Printer().OutputFile(), Folder("pictures") + "/other1.pdf");
    EXPECT_FALSE(std::filesystem::exists(Folder("pictures") + "/page1.pdf"));
}

TEST_F(PrintTest, APlaceThatIsGoneIsAnUntrappedErrorAndTheNextPageIsPrinted) {
    file_ = Folder("pictures") + "/gone/page.pdf";
    Printer().PrintToFileForTests(file_);
    const frmImage& image = OpenPicture("vermelha.bmp", Solid(20, 20, 0x0000FF));
    try {
        mnuFilePrinterPrint_Click();
        FAIL() << "it was printed to nowhere";
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number(), kFileNotFound);
        EXPECT_NE(error.Text().find(file_), std::string::npos) << error.Text();
    }
    EXPECT_EQ(CornerOf(image), 0x0000FF);
    std::filesystem::create_directory(Folder("pictures") + "/gone");
    mnuFilePrinterPrint_Click();
    EXPECT_TRUE(BytesOf(file_).starts_with("%PDF"));
}

TEST_F(PrintTest, AFullDiskIsAnUntrappedErrorAndTheNextPageIsPrinted) {
    OpenPicture("ruido.bmp", RandomPicture(300, 200, 7));
    SettleStates();
    {
        const FullDisk disk(20000);
        EXPECT_THROW(mnuFilePrinterPrint_Click(), RuntimeError);
    }
    std::filesystem::remove(file_);
    mnuFilePrinterPrint_Click();
    EXPECT_GT(BytesOf(file_).size(), 100000U);
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(PrintTest, AMissingPrinterIsAnUntrappedError) {
    Printer().PrintToFileForTests("");
    OpenPicture("vermelha.bmp", Solid(20, 20, 0x0000FF));
    EXPECT_EQ(ErrorOf([&] { mnuFilePrinterPrint_Click(); }), kDeviceUnavailable);
}

} // namespace

} // namespace pintalux
