#include "surface/system/FileLayer.h"

#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

std::span<const std::byte> Bytes(const std::string& text) {
    return std::as_bytes(std::span(text));
}

void WriteText(const std::string& path, const std::string& text) {
    WriteFileAside(path, [&](File& file) { file.Write(Bytes(text)); });
}

struct ErrnoCase {
    int errnoValue;
    int number;
    const char* name;
};

class FileErrors : public testing::TestWithParam<ErrnoCase> {};

TEST_P(FileErrors, HaveTheirNumbers) {
    EXPECT_EQ(ErrorOf([] { RaiseFileError(GetParam().errnoValue, "/x"); }), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(All, FileErrors,
                         testing::Values(ErrnoCase{ENOENT, 53, "Missing"}, ErrnoCase{EIO, 57, "BadDisk"},
                                         ErrnoCase{ENOSPC, 61, "FullDisk"},
                                         ErrnoCase{EDQUOT, 61, "FullQuota"}, ErrnoCase{ENXIO, 68, "NoDevice"},
                                         ErrnoCase{ENODEV, 68, "NoSuchDevice"},
                                         ErrnoCase{EACCES, 70, "NoRight"}, ErrnoCase{EPERM, 70, "NotOwner"},
                                         ErrnoCase{EROFS, 70, "ReadOnlyDisk"},
                                         ErrnoCase{ENOMEM, 7, "NoMemory"}, ErrnoCase{ENOTDIR, 76, "NoFolder"},
                                         ErrnoCase{EISDIR, 75, "Folder"},
                                         ErrnoCase{EMFILE, 75, "TooManyOpen"}),
                         [](const auto& row) { return row.param.name; });

TEST(FileLayer, ErrorTextNamesPathAndReason) {
    try {
        RaiseFileError(ENOSPC, "/disco/imagem.bmp");
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Text(), "Disco cheio: /disco/imagem.bmp (não há espaço no disco)");
        return;
    }
    FAIL() << "no error";
}

TEST(FileLayer, WhatWasWrittenIsRead) {
    const Sandbox box;
    WriteWholeFile(box / "a", "um\ndois");
    EXPECT_EQ(ReadWholeFile(box / "a", 100), "um\ndois");
    EXPECT_EQ(FileLength(box / "a"), 7U);
}

TEST(FileLayer, WritingEmptiesTheOldFile) {
    const Sandbox box;
    WriteWholeFile(box / "a", "long text");
    WriteWholeFile(box / "a", "x");
    EXPECT_EQ(BytesOf(box / "a"), "x");
}

TEST(FileLayer, PrivateFileIsForTheUserAlone) {
    const Sandbox box;
    WriteWholeFile(box / "a", "x", true);
    EXPECT_EQ(ModeOf(box / "a"), 0600U);
}

TEST(FileLayer, PrivateFileRefusesASymbolicLink) {
    const Sandbox box;
    PutBytes(box / "target", "kept");
    std::filesystem::create_symlink("target", box / "link");
    EXPECT_EQ(ErrorOf([&] { WriteWholeFile(box / "link", "x", true); }), 75);
    EXPECT_EQ(BytesOf(box / "target"), "kept");
}

TEST(FileLayer, FileAboveTheLimitIsNotRead) {
    const Sandbox box;
    PutBytes(box / "a", "12345");
    EXPECT_EQ(ReadWholeFile(box / "a", 5), "12345");
    EXPECT_EQ(ErrorOf([&] { ReadWholeFile(box / "a", 4); }), 75);
}

TEST(FileLayer, ReadGivesWhatIsThereAtTheEnd) {
    const Sandbox box;
    PutBytes(box / "a", "12345");
    File file = File::OpenForReading(box / "a");
    file.Seek(3);
    std::byte bytes[4] = {};
    EXPECT_EQ(file.Read(bytes), 2U);
    EXPECT_EQ(bytes[1], std::byte{'5'});
}

TEST(FileLayer, FoldersAndPipesAreNotRead) {
    const Sandbox box;
    ASSERT_EQ(::mkfifo((box / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf([&] { File::OpenForReading(box.Folder()); }), 75);
    EXPECT_EQ(ErrorOf([&] { File::OpenForReading(box / "pipe"); }), 75);
}

TEST(FileLayer, CreateNewRefusesAFileThatExists) {
    const Sandbox box;
    File::CreateNew(box / "a").Close();
    EXPECT_EQ(ModeOf(box / "a"), 0600U);
    EXPECT_EQ(ErrorOf([&] { File::CreateNew(box / "a"); }), 75);
    EXPECT_FALSE(File::TryCreateNew(box / "a").has_value());
}

TEST(FileLayer, FullDeviceIsDiskFull) {
    if (::access("/dev/full", W_OK) != 0) GTEST_SKIP() << "no /dev/full here";
    EXPECT_EQ(ErrorOf([] { WriteWholeFile("/dev/full", "x"); }), 61);
}

TEST(FileLayer, InterruptedOperationsAreRepeated) {
    const Sandbox box;
    const auto roundTrip = [&] {
        WriteWholeFile(box / "a", "text");
        ASSERT_EQ(ReadWholeFile(box / "a", 10), "text");
    };
    FailFileOperation(0, 0);
    roundTrip();
    const int count = FileOperationCount();
    for (int n = 1; n <= count; ++n) {
        if (n == 3) continue; // the close: that one may fail
        FailFileOperation(n, EINTR);
        roundTrip();
    }
    FailFileOperation(0, 0);
}

TEST(FileLayer, CheckedCloseReportsAFailureAndClosesAllTheSame) {
    const Sandbox box;
    File file = File::CreateNew(box / "a");
    FailFileOperation(1, EIO);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 57);
    EXPECT_EQ(ErrorOf([&] { file.Close(); }), 0);
}

TEST(FileLayer, DateReadableTellsMissingFromForbidden) {
    const Sandbox box;
    PutBytes(box / "a", "x");
    EXPECT_TRUE(FileDateReadable(box / "a"));
    EXPECT_FALSE(FileDateReadable(box / "b"));
    EXPECT_FALSE(FileDateReadable(box / "a/below"));
    EXPECT_FALSE(FileDateReadable(""));
    FailFileOperation(1, ENODEV);
    EXPECT_FALSE(FileDateReadable(box / "a"));
    FailFileOperation(1, EACCES);
    EXPECT_EQ(ErrorOf([&] { FileDateReadable(box / "a"); }), 70);
}

TEST(FileLayer, LengthOfNoFileIsEmpty) {
    const Sandbox box;
    EXPECT_FALSE(FileLength(box / "a").has_value());
    EXPECT_FALSE(FileLength(box.Folder()).has_value());
}

TEST(FileLayer, DeletingAMissingFileIsError53) {
    const Sandbox box;
    PutBytes(box / "a", "x");
    DeleteFile(box / "a");
    EXPECT_TRUE(box.Names().empty());
    EXPECT_EQ(ErrorOf([&] { DeleteFile(box / "a"); }), 53);
}

TEST(FileLayer, FoldersAreMadeForTheUserAlone) {
    const Sandbox box;
    MakeFolders(box / "one/two");
    MakeFolders(box / "one/two");
    EXPECT_EQ(ModeOf(box / "one"), 0700U);
    EXPECT_EQ(ModeOf(box / "one/two"), 0700U);
    PutBytes(box / "file", "x");
    EXPECT_EQ(ErrorOf([&] { MakeFolders(box / "file"); }), 75);
}

TEST(WriteFileAside, KeepsTheModeOfTheOldFile) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    std::filesystem::permissions(box / "a", std::filesystem::perms(0640));
    WriteText(box / "a", "new");
    EXPECT_EQ(BytesOf(box / "a"), "new");
    EXPECT_EQ(ModeOf(box / "a"), 0640U);
}

TEST(WriteFileAside, NewFileFollowsTheMask) {
    const Sandbox box;
    const mode_t before = ::umask(027);
    WriteText(box / "a", "new");
    ::umask(before);
    EXPECT_EQ(ModeOf(box / "a"), 0640U);
}

TEST(WriteFileAside, ReplacesTheTargetOfASymbolicLink) {
    const Sandbox box;
    std::filesystem::create_directory(box / "far");
    PutBytes(box / "far/target", "old");
    std::filesystem::create_symlink("far/target", box / "link");
    WriteText(box / "link", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(box / "link"));
    EXPECT_EQ(BytesOf(box / "far/target"), "new");
}

TEST(WriteFileAside, MakesTheTargetOfADanglingLink) {
    const Sandbox box;
    std::filesystem::create_symlink("target", box / "link");
    WriteText(box / "link", "new");
    EXPECT_TRUE(std::filesystem::is_symlink(box / "link"));
    EXPECT_EQ(BytesOf(box / "target"), "new");
}

TEST(WriteFileAside, LinkRingIsAnError) {
    const Sandbox box;
    std::filesystem::create_symlink("b", box / "a");
    std::filesystem::create_symlink("a", box / "b");
    EXPECT_EQ(ErrorOf([&] { WriteText(box / "a", "x"); }), 75);
}

TEST(WriteFileAside, FolderIsNoFile) {
    const Sandbox box;
    EXPECT_EQ(ErrorOf([&] { WriteText(box.Folder(), "x"); }), 75);
}

TEST(WriteFileAside, MissingFolderIsError53) {
    const Sandbox box;
    EXPECT_EQ(ErrorOf([&] { WriteText(box / "no/a", "x"); }), 53);
}

TEST(WriteFileAside, ProtectedFolderLeavesTheOldFile) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    ::chmod((box / "a").c_str(), 0666);
    ::chmod(box.Folder().c_str(), 0555);
    {
        const OrdinaryUser user;
        EXPECT_EQ(ErrorOf([&] { WriteText(box / "a", "new"); }), 70);
    }
    ::chmod(box.Folder().c_str(), 0700);
    EXPECT_EQ(BytesOf(box / "a"), "old");
}

TEST(WriteFileAside, ProtectedFileIsNotReplaced) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    ::chmod((box / "a").c_str(), 0444);
    ::chmod(box.Folder().c_str(), 0777);
    const OrdinaryUser user;
    EXPECT_EQ(ErrorOf([&] { WriteText(box / "a", "new"); }), 70);
    EXPECT_EQ(BytesOf(box / "a"), "old");
}

TEST(WriteFileAside, EveryFailingStepLeavesTheOldFileAndNothingElse) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    const int count = FailEachOperation(
        ENOSPC,
        [&] {
            PutBytes(box / "a", "old");
            WriteText(box / "a", "new");
        },
        [&](int n, int error) {
            EXPECT_EQ(error, 61) << "operation " << n;
            EXPECT_EQ(BytesOf(box / "a"), "old") << "operation " << n;
            EXPECT_EQ(box.Names(), std::vector<std::string>{"a"}) << "operation " << n;
        });
    EXPECT_EQ(count, 7); // stat, open, mode, write, sync, close, rename
}

TEST(WriteFileAside, ErrorOfTheWriterPassesUp) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    EXPECT_EQ(ErrorOf([&] { WriteFileAside(box / "a", [](File&) { throw RuntimeError(kOverflow); }); }), 6);
    EXPECT_EQ(BytesOf(box / "a"), "old");
    EXPECT_EQ(box.Names().size(), 1U);
}

} // namespace
} // namespace pintalux
