#include "surface/system/TempNames.h"

#include "system/Sandbox.h"

#include <cerrno>
#include <cstdio>
#include <set>

namespace pintalux {
namespace {

/// True if `name` is "BI", `digits` hexadecimal digits in capitals and ".tmp" in the sandbox.
bool HasDigits(const Sandbox& box, const std::string& name, std::size_t digits) {
    const std::string start = box / "BI";
    if (!name.starts_with(start) || !name.ends_with(".tmp")) return false;
    const std::string number = name.substr(start.size(), name.size() - start.size() - 4);
    return number.size() == digits && number.find_first_not_of("0123456789ABCDEF") == std::string::npos;
}

/// All places for temporary files, in their order.
std::vector<std::string> TempFolders() {
    std::vector<std::string> folders;
    EXPECT_FALSE(TryTempFolders([&](const std::string& folder) {
        folders.push_back(folder);
        return false;
    }));
    return folders;
}

using Folders = std::vector<std::string>;

TEST(TempFolders, BeginWithTheUsersWishAndEndInTheStateHome) {
    const Sandbox box;
    const Variable wish("TMPDIR", box.Folder());
    const Variable state("XDG_STATE_HOME", box / "state");
    EXPECT_EQ(TempFolders(), (Folders{box.Folder() + "/", "/var/tmp/", "/tmp/", box / "state/Pintalux64/"}));
    EXPECT_EQ(ModeOf(box / "state/Pintalux64"), 0700U);
}

TEST(TempFolders, BeginWithADiskThatLastsWithoutAWish) {
    const Sandbox box;
    const Variable wish("TMPDIR", "");
    const Variable state("XDG_STATE_HOME", box / "state");
    EXPECT_EQ(TempFolders().front(), "/var/tmp/");
}

TEST(TempFolders, PassOverAWishAndAStateHomeThatAreNoFolders) {
    const Sandbox box;
    PutBytes(box / "file", "x");
    const Variable wish("TMPDIR", box / "file");
    const Variable state("XDG_STATE_HOME", box / "file");
    EXPECT_EQ(TempFolders(), (Folders{"/var/tmp/", "/tmp/"}));
}

TEST(TempFolders, EndTheSearchAtTheFirstThatWillDo) {
    const Sandbox box;
    const Variable wish("TMPDIR", box.Folder());
    int tries = 0;
    EXPECT_TRUE(TryTempFolders([&](const std::string&) { return ++tries == 2; }));
    EXPECT_EQ(tries, 2);
}

TEST(TempNames, FileIsMadeEmptyAndPrivate) {
    const Sandbox box;
    std::string name;
    const unsigned number = GetTempFileName(box.Folder() + "/", "BI", 0, name);
    EXPECT_GE(number, 1U);
    EXPECT_TRUE(HasDigits(box, name, 4)) << name;
    EXPECT_EQ(FileLength(name), 0U);
    EXPECT_EQ(ModeOf(name), 0600U);
}

TEST(TempNames, NamesDiffer) {
    const Sandbox box;
    std::set<std::string> names;
    for (int i = 0; i < 100; ++i) {
        std::string name;
        ASSERT_NE(GetTempFileName(box.Folder(), "BI", 0, name), 0U);
        names.insert(name);
    }
    EXPECT_EQ(names.size(), 100U);
    EXPECT_EQ(box.Names().size(), 100U);
}

TEST(TempNames, DeletedNameIsNotTakenAgainSoon) {
    const Sandbox box;
    std::string first;
    std::string second;
    ASSERT_NE(GetTempFileName(box.Folder(), "BI", 0, first), 0U);
    DeleteFile(first);
    ASSERT_NE(GetTempFileName(box.Folder(), "BI", 0, second), 0U);
    EXPECT_NE(first, second);
}

TEST(TempNames, PrefixIsCutToThreeCharacters) {
    const Sandbox box;
    std::string name;
    ASSERT_NE(GetTempFileName(box.Folder(), "IMAGE", 0, name), 0U);
    EXPECT_EQ(name.substr(box.Folder().size() + 1, 3), "IMA");
    EXPECT_EQ(name.size(), box.Folder().size() + 1 + 3 + 4 + 4);
}

TEST(TempNames, GivenNumberOnlyFormsTheName) {
    const Sandbox box;
    std::string name;
    EXPECT_EQ(GetTempFileName(box.Folder(), "BI", 0x2AF, name), 0x2AFU);
    EXPECT_EQ(name, box / "BI02AF.tmp");
    EXPECT_TRUE(box.Names().empty());
}

TEST(TempNames, MissingFolderGivesNothing) {
    const Sandbox box;
    std::string name = "kept";
    EXPECT_EQ(GetTempFileName(box / "no", "BI", 0, name), 0U);
    EXPECT_EQ(name, "kept");
}

TEST(TempNames, FullDiskGivesNothing) {
    const Sandbox box;
    std::string name;
    FailFileOperation(1, ENOSPC);
    EXPECT_EQ(GetTempFileName(box.Folder(), "BI", 0, name), 0U);
    EXPECT_TRUE(box.Names().empty());
}

TEST(TempNames, EightDigitsFollowWhenFourAreUsedUp) {
    const Sandbox box;
    PutBytes(box / "one", "");
    for (unsigned i = 1; i <= 0xFFFF; ++i) {
        char name[16];
        std::snprintf(name, sizeof name, "BI%04X.tmp", i);
        // Links are made faster than files; some file systems allow few of them, then files do.
        if (::link((box / "one").c_str(), (box / name).c_str()) != 0) PutBytes(box / name, "");
    }
    std::string name;
    EXPECT_GT(GetTempFileName(box.Folder(), "BI", 0, name), 0xFFFFU);
    EXPECT_TRUE(HasDigits(box, name, 8)) << name;
}

} // namespace
} // namespace pintalux
