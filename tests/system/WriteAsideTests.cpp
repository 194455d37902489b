#include "surface/system/FileLayer.h"

#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

void WriteText(const std::string& path, const std::string& text) {
    WriteFileAside(path, [&](File& file) { file.Write(std::as_bytes(std::span(text))); });
}

/// A folder that lets nobody make or rename a file in it, with a file "a" that anybody may write, and another
/// for temporary files.
class ClosedFolder {
  public:
    ClosedFolder() : wish_("TMPDIR", temporary.Folder()) {
        PutBytes(Path(), "the old, longer text");
        ::chmod(Path().c_str(), 0666);
        ::chmod(folder.Folder().c_str(), 0555);
        ::chmod(temporary.Folder().c_str(), 0777);
    }
    ~ClosedFolder() { ::chmod(folder.Folder().c_str(), 0700); }
    std::string Path() const { return folder / "a"; }
    Sandbox folder, temporary;

  private:
    Variable wish_;
};

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

TEST(WriteFileAside, AFolderThatTakesNoNewFileHasItsOldOneWrittenInPlace) {
    const ClosedFolder closed;
    {
        const OrdinaryUser user;
        EXPECT_EQ(ErrorOf([&] { WriteText(closed.Path(), "new"); }), 0);
        EXPECT_EQ(ErrorOf([&] { WriteText(closed.folder / "b", "new"); }), 70);
    }
    EXPECT_EQ(BytesOf(closed.Path()), "new");
    EXPECT_EQ(closed.folder.Names(), std::vector<std::string>{"a"});
    EXPECT_TRUE(closed.temporary.Names().empty()) << "the copy goes when it has done its work";
}

TEST(WriteFileAside, AWriteInPlaceThatFailsLeavesACopyAndNamesIt) {
    const Sandbox box, temporary;
    const Variable wish("TMPDIR", temporary.Folder());
    PutBytes(box / "a", "old");
    int named = 0;
    const int count = [&] {
        FailFileOperation(2, EACCES); // the new file
        WriteText(box / "a", "new");
        return FileOperationCount();
    }();
    ASSERT_EQ(BytesOf(box / "a"), "new");
    // Once it is refused a new file, any later step may fail as well: the folder gives way while we look on.
    for (int n = 1; n <= count; ++n) {
        PutBytes(box / "a", "old");
        std::string text;
        try {
            FailFileOperation(2, EACCES);
            WriteFileAside(box / "a", [&](File& file) {
                FailFileOperation(n, EIO);
                file.Write(std::as_bytes(std::span("new", 3)));
            });
        } catch (const RuntimeError& error) {
            text = error.Text();
        }
        FailFileOperation(0, 0);
        const std::vector<std::string> copies = temporary.Names();
        if (!text.empty() && !copies.empty()) {
            ++named;
            EXPECT_NE(text.find(box / "a"), std::string::npos) << text;
            EXPECT_NE(text.find(temporary / copies[0]), std::string::npos) << text;
            EXPECT_EQ(BytesOf(temporary / copies[0]), "new") << text;
        }
        if (text.empty()) {
            EXPECT_EQ(BytesOf(box / "a"), "new") << "operation " << n;
        }
        for (const std::string& copy : copies)
            std::filesystem::remove(temporary / copy);
    }
    EXPECT_GT(named, 3);
}

TEST(WriteFileAside, ARefusedModeIsNoFailure) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    for (const int reason : {EPERM, ENOTSUP, ENOSYS}) {
        FailFileOperation(3, reason);
        EXPECT_EQ(ErrorOf([&] { WriteText(box / "a", "new"); }), 0);
        EXPECT_EQ(BytesOf(box / "a"), "new");
    }
}

TEST(WriteFileAside, ANewFileNeverHasMoreRightsThanTheOldOne) {
    const Sandbox box;
    PutBytes(box / "a", "old");
    ::chmod((box / "a").c_str(), 0600);
    unsigned mode = 0;
    FailFileOperation(3, EPERM); // the mode
    WriteFileAside(box / "a", [&](File& file) {
        struct stat info = {};
        ::fstat(file.Descriptor(), &info);
        mode = info.st_mode & 0777;
    });
    EXPECT_EQ(mode, 0600U);
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
            EXPECT_EQ(error, n == 3 ? 0 : 61) << "operation " << n; // the third is the mode
            EXPECT_EQ(BytesOf(box / "a"), n == 3 ? "new" : "old") << "operation " << n;
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
