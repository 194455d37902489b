#include "files/TempFiles.h"

#include "support/Documents.h"
#include "support/Program.h"

#include "surface/system/FileLayer.h"

#include <cerrno>
#include <cstdlib>
#include <regex>
#include <sys/stat.h>

namespace pintalux {

namespace {

class TempFilesTest : public ProgramTest {};

} // namespace

TEST_F(TempFilesTest, ANameIsMadeInTheTemporaryFolderAndItsFileIsEmpty) {
    std::string name;
    ASSERT_TRUE(MakeTempFileName("", "BI", 0, name));
    EXPECT_TRUE(std::regex_match(name, std::regex(Folder("temporary") + "/BI[0-9A-F]{4}\\.tmp"))) << name;
    struct stat info = {};
    ASSERT_EQ(::stat(name.c_str(), &info), 0);
    EXPECT_EQ(info.st_size, 0);
    EXPECT_EQ(info.st_mode & 0777U, 0600U);
}

TEST_F(TempFilesTest, TwoNamesDiffer) {
    std::string first, second;
    ASSERT_TRUE(MakeTempFileName("", "BI", 0, first));
    ASSERT_TRUE(MakeTempFileName("", "BI", 0, second));
    EXPECT_NE(first, second);
    EXPECT_EQ(StateFileNames().size(), 2U);
}

TEST_F(TempFilesTest, AGivenFolderIsTaken) {
    std::string name;
    ASSERT_TRUE(MakeTempFileName(Folder("pictures"), "BI", 0, name));
    EXPECT_TRUE(name.starts_with(Folder("pictures") + "/BI")) << name;
}

TEST_F(TempFilesTest, WithoutTheFolderOfTheWishTheNextOneIsTaken) {
    setenv("TMPDIR", (Folder("temporary") + "/gone").c_str(), 1);
    std::string name;
    ASSERT_TRUE(MakeTempFileName("", "BI", 0, name));
    EXPECT_TRUE(name.starts_with("/var/tmp/BI")) << name;
    DeleteFile(name);
}

TEST_F(TempFilesTest, WhereTheFirstFolderTakesNoFileTheNextOneDoes) {
    for (const int reason : {EACCES, EROFS, ENOSPC}) {
        std::string name;
        FailFileOperation(1, reason);
        ASSERT_TRUE(MakeTempFileName("", "BI", 0, name)) << reason;
        EXPECT_TRUE(name.starts_with("/var/tmp/BI")) << name;
        DeleteFile(name);
    }
    EXPECT_TRUE(StateFileNames().empty());
}

TEST_F(TempFilesTest, AGivenFolderThatTakesNoFilesGivesNoName) {
    std::string name;
    EXPECT_FALSE(MakeTempFileName(Folder("pictures") + "/gone", "BI", 0, name));
    FailFileOperation(1, ENOSPC);
    EXPECT_FALSE(MakeTempFileName(Folder("pictures"), "BI", 0, name));
}

TEST(StripAtNull, GivesThePartBeforeTheFirstNul) {
    EXPECT_EQ(StripAtNull(std::string("BI01\0xx\0", 8)), "BI01");
    EXPECT_EQ(StripAtNull(std::string("\0x", 2)), "");
    EXPECT_EQ(StripAtNull("BI01.tmp"), "BI01.tmp");
}

} // namespace pintalux
