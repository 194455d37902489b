#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/frmImgprops.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <filesystem>
#include <QWidget>

namespace pintalux {

namespace {

TEST(SizeTextTest, UpTo1024AreBytes) {
    EXPECT_EQ(SizeText(0), "0 Bytes");
    EXPECT_EQ(SizeText(1), "1 Bytes");
    EXPECT_EQ(SizeText(1024), "1024 Bytes");
}

TEST(SizeTextTest, IsCutBehindTheSecondDecimalAndNotRounded) {
    EXPECT_EQ(SizeText(1025), "1.00 Kb");    // 1.0009765625
    EXPECT_EQ(SizeText(1500), "1.46 Kb");    // 1.46484375
    EXPECT_EQ(SizeText(1536), "1.5 Kb");     // 1.5
    EXPECT_EQ(SizeText(2047), "1.99 Kb");    // 1.9990234375
    EXPECT_EQ(SizeText(1600000), "1.52 Mb"); // 1.52587890625
}

TEST(SizeTextTest, AWholeNumberLeavesTheUnitAlone) {
    EXPECT_EQ(SizeText(2048), " Kb");
    EXPECT_EQ(SizeText(20480), " Kb");
    EXPECT_EQ(SizeText(1048576), " Kb"); // 1024 is not above 1024
    EXPECT_EQ(SizeText(3145728), " Mb");
}

TEST(SizeTextTest, BeyondMegabytesThereIsNoLargerUnit) {
    EXPECT_EQ(SizeText(5ULL * 1024 * 1024 * 1024 + 1536 * 1024), "5121.5 Mb");
}

class ImagePropertiesTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    static void Look(const std::function<void()>& look) {
        const DialogScript script({[&look](QWidget&) {
            look();
            ClickWidget(WidgetFor(frmImgprops->Command1));
        }});
        mnuImageProperties_Click();
        EXPECT_EQ(script.Count(), 1U);
        EXPECT_FALSE(frmImgprops.Loaded());
    }
    static std::string Info(int index) { return frmImgprops->lblInfo(index).Caption(); }
};

TEST_F(ImagePropertiesTest, ADocumentNeverSavedHasNoFile) {
    NewDocument(30, 20);
    Look([] {
        EXPECT_EQ(Info(0), "Untitled.bmp");
        EXPECT_EQ(Info(1), "Not saved");
        EXPECT_EQ(Info(2), "Not saved");
        EXPECT_EQ(Info(3), "20 pixels");
        EXPECT_EQ(Info(4), "30 pixels");
        // 54 bytes of header and 20 rows of 92 bytes: 30 pixels of three bytes, filled up to a multiple of
        // four.
        EXPECT_EQ(Info(5), "1.84 Kb");
    });
}

TEST_F(ImagePropertiesTest, AFileShowsItsNameFolderAndLength) {
    OpenPicture("praia.bmp", Solid(10, 10, 0xFF)); // 54 + 10 rows of 32 bytes
    Look([this] {
        EXPECT_EQ(Info(0), "praia.bmp");
        EXPECT_EQ(Info(1), Folder("pictures"));
        EXPECT_EQ(Info(2), "374 Bytes");
        EXPECT_EQ(Info(5), "374 Bytes");
    });
}

TEST_F(ImagePropertiesTest, AJpegIsAsLongAsItsFileAndItsImageAsLongAsABmp) {
    const std::string bmp = Folder("pictures") + "/praia.bmp";
    const std::string jpeg = Folder("pictures") + "/praia.jpg";
    SavePicture(Solid(200, 100, 0x804020), bmp);
    BmpToJpeg(bmp, jpeg, 50);
    OpenDocument(jpeg);
    Look([&jpeg] {
        EXPECT_EQ(Info(0), "praia.jpg");
        EXPECT_EQ(Info(2), std::to_string(std::filesystem::file_size(jpeg)) + " Bytes"); // one colour: short
        EXPECT_EQ(Info(5), "58.64 Kb"); // 54 + 100 * 600 bytes
    });
}

TEST_F(ImagePropertiesTest, AFileOf2048BytesReadsTheUnitAlone) {
    const frmImage& image = OpenPicture("praia.bmp", Solid(10, 10, 0xFF));
    std::filesystem::resize_file(image.AFCurfile, 2048);
    Look([] {
        EXPECT_EQ(Info(2), " Kb");
        EXPECT_EQ(Info(5), "374 Bytes");
    });
}

TEST_F(ImagePropertiesTest, AFileThatIsGoneCountsAsNotSaved) {
    frmImage& image = OpenPicture("praia.bmp", Solid(10, 10, 0xFF));
    DeleteFile(image.AFCurfile);
    Look([] {
        EXPECT_EQ(Info(0), "praia.bmp");
        EXPECT_EQ(Info(2), "Not saved");
    });
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(ImagePropertiesTest, TheThumbnailsLongerSideIs1215Twips) {
    NewDocument(300, 100);
    Look([] {
        EXPECT_EQ(frmImgprops->Image1.Width(), 1215);
        EXPECT_EQ(frmImgprops->Image1.Height(), 405);
    });
    NewDocument(60, 300);
    Look([] {
        EXPECT_EQ(frmImgprops->Image1.Height(), 1215);
        EXPECT_EQ(frmImgprops->Image1.Width(), 243);
    });
    NewDocument(50, 50);
    Look([] {
        EXPECT_EQ(frmImgprops->Image1.Height(), 1215);
        EXPECT_EQ(frmImgprops->Image1.Width(), 1215);
    });
}

TEST_F(ImagePropertiesTest, TheThumbnailShowsTheImage) {
    frmImage& image = NewDocument(7, 5);
    Edit(image, 0x00FF00);
    Look([&image] { ExpectSamePixels(frmImgprops->Image1.Picture(), ImageOf(image)); });
}

TEST_F(ImagePropertiesTest, ALongPathLeavesTheDialogOnTheScreen) {
    frmImage& image = NewDocument(7, 5);
    image.AFCurfile =
        "/" + std::string(250, 'p') + "/" + std::string(3000, 'q') + "/" + std::string(250, 'n');
    Look([&image] {
        EXPECT_EQ(Info(0), std::string(250, 'n'));
        EXPECT_EQ(Info(1) + "/" + Info(0), image.AFCurfile);
        EXPECT_LT(frmImgprops->PixelWidth(), 900);
        EXPECT_LT(frmImgprops->PixelHeight(), 1000);
    });
}

TEST_F(ImagePropertiesTest, EscapeCloses) {
    NewDocument(7, 5);
    const DialogScript script({PressesEscape()});
    mnuImageProperties_Click();
    EXPECT_FALSE(frmImgprops.Loaded());
}

TEST_F(ImagePropertiesTest, NothingIsRecorded) {
    frmImage& image = NewDocument(7, 5);
    Look([] {});
    EXPECT_EQ(image.ListBUorder.ListCount(), 1);
}

} // namespace

} // namespace pintalux
