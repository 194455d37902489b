#include "files/FileNames.h"

#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Program.h"

#include "support/Errors.h"
#include "surface/system/FileLayer.h"

#include <cerrno>

namespace pintalux {

namespace {

class FileNamesTest : public ProgramTest {
  protected:
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }
    std::string Make(const std::string& name, const std::string& bytes = "x") const {
        PutBytes(File(name), bytes);
        return File(name);
    }
};

} // namespace

TEST(FileNameOf, IsTheTextBehindTheLastSeparator) {
    EXPECT_EQ(FileNameOf("/casa/fotos/praia.jpg"), "praia.jpg");
    EXPECT_EQ(FileNameOf("/casa/fotos/"), "");
}

TEST(FileNameOf, WithoutSeparatorIsTheWholeText) {
    EXPECT_EQ(FileNameOf("praia.jpg"), "praia.jpg");
}

TEST(ExtensionOf, IsTheTextBehindTheLastPoint) {
    EXPECT_EQ(ExtensionOf("/casa/a.b.jpg", false), "jpg");
    EXPECT_EQ(ExtensionOf("/casa/a.b.JPG", false), "JPG");
}

TEST(ExtensionOf, HasItsPointIfTheFlagIsSet) {
    EXPECT_EQ(ExtensionOf("/casa/a.b.jpg", true), ".jpg");
}

TEST(ExtensionOf, APointInTheNameOfAFolderIsNone) {
    EXPECT_EQ(ExtensionOf("/casa/fotos.2024/praia", false), "");
    EXPECT_EQ(ExtensionOf("/casa/fotos.2024/praia", true), "");
    EXPECT_EQ(ExtensionOf("fotos.2024/praia.gif", false), "gif");
}

TEST(ReplaceExtension, ReplacesWhatStandsBehindTheLastPoint) {
    std::string bmp = "bmp";
    EXPECT_EQ(ReplaceExtension("/casa/a.b.gif", bmp), "/casa/a.b.bmp");
}

TEST(ReplaceExtension, ThePointStaysOnTheCallersText) {
    std::string bmp = "bmp";
    ReplaceExtension("a.gif", bmp);
    EXPECT_EQ(bmp, ".bmp");
    EXPECT_EQ(ReplaceExtension("c.gif", bmp), "c.bmp");
    EXPECT_EQ(bmp, ".bmp");
}

TEST(ReplaceExtension, ANameWithoutAPointIsError5) {
    for (const char* path : {"/casa/praia", "/casa/fotos.2024/praia"}) {
        std::string bmp = "bmp";
        EXPECT_EQ(ErrorOf([&] { ReplaceExtension(path, bmp); }), 5);
    }
}

TEST(DirectoryOf, HasNoTrailingSeparator) {
    EXPECT_EQ(DirectoryOf("/casa/fotos/praia.jpg"), "/casa/fotos");
    EXPECT_EQ(DirectoryOf("/casa/fotos/"), "/casa/fotos");
}

TEST(KeepAlnum, KeepsLettersAndDigitsOnly) {
    EXPECT_EQ(KeepAlnum(" 300"), "300");
    EXPECT_EQ(KeepAlnum("-1.5 Ab_z!\n"), "15Abz");
    EXPECT_EQ(KeepAlnum(""), "");
}

TEST_F(FileNamesTest, UniqueFileNameOfAFreePathIsThePath) {
    EXPECT_EQ(UniqueFileName(File("praia.bmp")), File("praia.bmp"));
}

TEST_F(FileNamesTest, UniqueFileNameTakesTheFirstFreeNumberFrom1) {
    Make("praia.bmp");
    EXPECT_EQ(UniqueFileName(File("praia.bmp")), File("praia1.bmp"));
    Make("praia1.bmp");
    Make("praia3.bmp");
    EXPECT_EQ(UniqueFileName(File("praia.bmp")), File("praia2.bmp"));
}

TEST_F(FileNamesTest, UniqueFileNameOfANameWithoutExtensionEndsInItsNumber) {
    std::filesystem::create_directory(File("ano.2003"));
    Make("ano.2003/praia");
    EXPECT_EQ(UniqueFileName(File("ano.2003/praia")), File("ano.2003/praia1"));
}

TEST_F(FileNamesTest, FileExistsFindsFilesAndFolders) {
    EXPECT_TRUE(FileExists(Make("praia.bmp")));
    EXPECT_TRUE(FileExists(Folder("pictures")));
}

TEST_F(FileNamesTest, FileExistsIsFalseWithoutAWordForErrors53And76And68) {
    const DialogScript nothingIsSaid;
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(File("gone.bmp")));
    EXPECT_FALSE(FileExists(Make("file") + "/below.bmp"));
    for (const int reason :
         {ENXIO, EACCES, ELOOP, ESTALE, EIO, ENOTCONN, EHOSTDOWN, ETIMEDOUT, ENAMETOOLONG}) {
        FailFileOperation(1, reason);
        EXPECT_FALSE(FileExists(Folder("pictures"))) << reason;
    }
}

TEST_F(FileNamesTest, FileExistsTellsAnyOtherErrorAndEndsTheProgramAtOnce) {
    std::vector<std::pair<std::string, std::string>> ends;
    const auto before = std::exchange(EndProgram, [&](const std::string& message, const std::string& title) {
        ends.emplace_back(title, message);
    });
    FailFileOperation(1, ENOMEM);
    EXPECT_FALSE(FileExists(File("praia.bmp")));
    EndProgram = before;
    ASSERT_EQ(ends.size(), 1U);
    EXPECT_EQ(ends[0].first, "Erro");
    EXPECT_EQ(ends[0].second, "Erro Nº: 7\n Memória insuficiente: " + File("praia.bmp") + " (falta memória)");
}

TEST_F(FileNamesTest, LongFileNameIsTheFullPathOfAnExistingFile) {
    Make("praia.bmp");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(Folder("pictures"));
    EXPECT_EQ(LongFileName("praia.bmp"), File("praia.bmp"));
    EXPECT_EQ(LongFileName("../pictures/praia.bmp"), File("praia.bmp"));
    std::filesystem::current_path(before);
}

TEST_F(FileNamesTest, LongFileNameFollowsLinks) {
    std::filesystem::create_directories(File("2024/verão"));
    Make("2024/praia.bmp");
    std::filesystem::create_directory_symlink(File("2024/verão"), File("link"));
    // What lies above the folder that the link leads to, not above the link.
    EXPECT_EQ(LongFileName(File("link/../praia.bmp")), File("2024/praia.bmp"));
    std::filesystem::create_symlink(File("2024/praia.bmp"), File("atalho.bmp"));
    EXPECT_EQ(LongFileName(File("atalho.bmp")), File("2024/praia.bmp"));
}

TEST_F(FileNamesTest, LongFileNameOfAMissingFileIsTheInput) {
    EXPECT_EQ(LongFileName("gone.bmp"), "gone.bmp");
    EXPECT_EQ(LongFileName("\"praia.bmp\""), "\"praia.bmp\"");
    EXPECT_EQ(LongFileName(""), "");
}

TEST_F(FileNamesTest, ReadTextFileJoinsTheFieldsOfALine) {
    EXPECT_EQ(ReadTextFile(Make("t", "/casa/a praia.bmp\n")), "/casa/a praia.bmp");
    EXPECT_EQ(ReadTextFile(Make("t", "/casa/sol,mar.bmp\r\n")), "/casa/solmar.bmp");
    EXPECT_EQ(ReadTextFile(Make("t", "um\ndois\n")), "umdois");
    EXPECT_EQ(ReadTextFile(Make("t", "")), "");
}

TEST_F(FileNamesTest, ReadTextFileTakesTheQuotesOffAField) {
    EXPECT_EQ(ReadTextFile(Make("t", "\"/casa/a praia.bmp\"\n")), "/casa/a praia.bmp");
    EXPECT_EQ(ReadTextFile(Make("t", "\"sol,mar\",\"e\"\n")), "sol,mare");
    EXPECT_EQ(ReadTextFile(Make("t", "so\"l\n")), "so\"l");
    EXPECT_EQ(ReadTextFile(Make("t", "\"\",mar,\"\"\n")), "mar");
    EXPECT_EQ(ReadTextFile(Make("t", "s\"o\"l,\"mar\"\"e\"\n")), "s\"o\"lmar\"e\"")
        << "quotes begin a field or are none";
}

} // namespace pintalux
