#include "files/PictureFormats.h"

#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

namespace pintalux {

namespace {

class PictureFormatsTest : public ProgramTest {
  protected:
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    std::string TempBmp() const {
        return Folder("program") + "/klTmpJpg" + std::to_string(::getpid()) + ".bmp";
    }
    void SaveJpeg() { WritableFormat("jpg")->write(Solid(16, 8, 0x00FF00), File("a.jpg"), 90); }
};

using Names = std::vector<std::string>;

} // namespace

TEST(PictureFormats, TheFiltersOfTheDialogs) {
    EXPECT_EQ(OpenFilter(), "Picture files (*.bmp;*.jpg;*.gif;*.bif)|*.bmp;*.jpg;*.gif;*.bif");
    EXPECT_EQ(SaveFilter(), "Bitmap (*.bmp)|*.bmp|Jpeg (*.jpg)|*.jpg");
}

TEST(PictureFormats, TheEntriesOfTheSaveFilterCountFrom1) {
    EXPECT_STREQ(FormatOfFilter(1).extension, "bmp");
    EXPECT_STREQ(FormatOfFilter(2).extension, "jpg");
    EXPECT_STREQ(FormatOfFilter(0).extension, "bmp");
    EXPECT_STREQ(FormatOfFilter(3).extension, "bmp");
}

TEST(PictureFormats, BmpAndJpgAreWrittenAndNothingElse) {
    for (const char* extension : {"bmp", "BMP", "jpg", "Jpg"})
        EXPECT_NE(WritableFormat(extension), nullptr) << extension;
    for (const char* extension : {"gif", "bif", "jpeg", "png", ""})
        EXPECT_EQ(WritableFormat(extension), nullptr) << extension;
}

TEST_F(PictureFormatsTest, AJpegLeavesNoBmpBesideTheProgram) {
    SaveJpeg();
    EXPECT_EQ(LoadPicture(File("a.jpg")).Width(), 16);
    EXPECT_TRUE(NamesIn(Folder("program")).empty());
}

TEST_F(PictureFormatsTest, AFailedJpegLeavesNoBmpBesideTheProgram) {
    std::filesystem::create_directory(File("a.jpg"));
    EXPECT_THROW(SaveJpeg(), RuntimeError);
    EXPECT_TRUE(NamesIn(Folder("program")).empty());
}

TEST_F(PictureFormatsTest, ALinkInPlaceOfTheBmpIsNotWrittenThrough) {
    PutBytes(File("other"), "kept");
    std::filesystem::create_symlink(File("other"), TempBmp());
    SaveJpeg();
    EXPECT_EQ(BytesOf(File("other")), "kept");
    EXPECT_TRUE(NamesIn(Folder("program")).empty());
}

TEST_F(PictureFormatsTest, TheBmpIsTheUsersAloneAndALeftOneIsReplaced) {
    SaveJpeg();
    FailFileOperation(0, 0);
    SaveJpeg();
    FailFileOperation(FileOperationCount(), EIO); // the last one: the BMP stays
    SaveJpeg();
    FailFileOperation(0, 0);
    struct stat info = {};
    ASSERT_EQ(::stat(TempBmp().c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
    SaveJpeg();
    EXPECT_TRUE(NamesIn(Folder("program")).empty());
}

TEST_F(PictureFormatsTest, WithoutRoomBesideTheProgramTheBmpLiesWithTheTemporaryFiles) {
    std::filesystem::create_directory(TempBmp()); // no file can stand there
    SaveJpeg();
    EXPECT_EQ(LoadPicture(File("a.jpg")).Width(), 16);
    EXPECT_TRUE(NamesIn(Folder("temporary")).empty());
}

} // namespace pintalux
