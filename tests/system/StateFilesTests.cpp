#include "surface/system/StateFiles.h"

#include "support/Memory.h"
#include "surface/system/Pictures.h"
#include "surface/system/TempNames.h"
#include "system/Gates.h"
#include "system/Sandbox.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <sys/resource.h>
#include <thread>

namespace pintalux {
namespace {

std::string NewFile(const Sandbox& box) {
    std::string name;
    EXPECT_NE(GetTempFileName(box.Folder(), "BI", 0, name), 0U);
    return name;
}

/// Whether the files have been written, one by one.
std::vector<bool> Written(const std::vector<std::string>& paths) {
    std::vector<bool> written;
    written.reserve(paths.size());
    for (const std::string& path : paths)
        written.push_back(FileLength(path) != 0U);
    return written;
}

/// True if the two pictures are one in memory, so that neither came from a file.
bool SharePixels(const Picture& a, const Picture& b) {
    return Bitmap::Difference(a, b).empty();
}

TEST(StateFiles, SavedStateLoads) {
    const Sandbox box;
    const std::string path = NewFile(box);
    StateFiles states;
    states.SaveBehind(Pattern(300, 40), path);
    EXPECT_TRUE(states.Exists(path));
    EXPECT_TRUE(states.LoadState(path) == Pattern(300, 40));
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_TRUE(states.Exists(path));
    EXPECT_TRUE(states.LoadState(path) == Pattern(300, 40));
    EXPECT_TRUE(LoadPicture(path) == Pattern(300, 40));
}

TEST(StateFiles, WrittenStateLeavesTheMemory) {
    const Sandbox box;
    const std::string path = NewFile(box);
    const Picture picture = Pattern(30, 40);
    StateFiles states;
    states.SaveBehind(picture, path);
    states.Settle();
    const Picture loaded = states.LoadState(path);
    EXPECT_TRUE(loaded == picture);
    EXPECT_FALSE(SharePixels(loaded, picture));
}

/// How many threads of the process give way to others.
int ThreadsInTheBackground() {
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        const id_t thread = static_cast<id_t>(std::stoi(task.path().filename().string()));
        count += ::getpriority(PRIO_PROCESS, thread) > ::getpriority(PRIO_PROCESS, 0) ? 1 : 0;
    }
    return count;
}

TEST(StateFiles, MakingThemDurableGivesWayToTheInterface) {
    if (::getpriority(PRIO_PROCESS, 0) >= 10) GTEST_SKIP() << "the tests themselves give way";
    const Sandbox box;
    StateFiles states;
    EXPECT_EQ(ThreadsInTheBackground(), 0);
    states.SaveBehind(Pattern(30, 40), NewFile(box));
    states.Settle();
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (ThreadsInTheBackground() == 0 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    EXPECT_EQ(ThreadsInTheBackground(), 1);
}

/// A picture that shares nothing with one of another shade.
Picture Shade(Pixel grey) {
    return {300, 300, grey * 0x010101};
}

/// States of one document behind their files, in their order.
class KeptStates {
  public:
    void Save(const Picture& picture) {
        pictures.push_back(picture);
        paths.push_back(NewFile(box_));
        states.SaveBehind(picture, paths.back(), this);
        states.Settle();
    }
    /// Whether each is taken from memory. The newest first, as an undo goes: what is read takes the room of
    /// what lies far behind.
    std::vector<bool> InMemory() const {
        std::vector<bool> kept(paths.size());
        for (std::size_t i = paths.size(); i-- > 0;) {
            const Picture loaded = states.LoadState(paths[i]);
            EXPECT_TRUE(loaded == pictures[i]);
            kept[i] = SharePixels(loaded, pictures[i]);
        }
        return kept;
    }

    StateFiles states;
    std::vector<std::string> paths;
    std::vector<Picture> pictures;

  private:
    Sandbox box_;
};

TEST(KeptStates, StateOfADocumentStaysInMemoryBehindItsFile) {
    KeptStates kept;
    kept.Save(Shade(1));
    EXPECT_EQ(kept.InMemory(), (std::vector{true}));
    EXPECT_TRUE(LoadPicture(kept.paths[0]) == Shade(1));
}

TEST(KeptStates, FileThatSomebodyTouchedIsRead) {
    KeptStates kept;
    kept.Save(Shade(1));
    SavePicture(Shade(2), kept.paths[0]);
    EXPECT_TRUE(kept.states.LoadState(kept.paths[0]) == Shade(2));
}

TEST(KeptStates, FileThatVanishedIsError53) {
    KeptStates kept;
    kept.Save(Shade(1));
    std::filesystem::remove(kept.paths[0]);
    EXPECT_FALSE(kept.states.Exists(kept.paths[0]));
    EXPECT_EQ(ErrorOf([&] { kept.states.LoadState(kept.paths[0]); }), 53);
}

TEST(KeptStates, OldestGoWhereTheRoomEnds) {
    const SupposedMemory memory(4 * PictureBytes(300, 300) * 3 / 2);
    KeptStates kept;
    for (Pixel grey = 1; grey <= 4; ++grey)
        kept.Save(Shade(grey));
    // The newest is on the screen as well; of the others one and a half have room.
    EXPECT_EQ(kept.InMemory(), (std::vector{false, false, true, true}));
}

TEST(KeptStates, WhatLiesFarFromTheShownStateGoes) {
    const SupposedMemory memory(4 * PictureBytes(300, 300) * 5 / 2);
    KeptStates kept;
    for (Pixel grey = 1; grey <= 6; ++grey)
        kept.Save(Shade(grey));
    std::vector<Picture> walked(6);
    for (std::size_t i = 5; i > 0; --i)
        walked[i] = kept.states.LoadState(kept.paths[i]);
    EXPECT_FALSE(SharePixels(walked[2], kept.pictures[2])) << "read from its file";
    // The second is on the screen; beside it two and a half have room, of which the nearest are newer ones.
    EXPECT_TRUE(SharePixels(kept.states.LoadState(kept.paths[1]), walked[1]));
    EXPECT_TRUE(SharePixels(kept.states.LoadState(kept.paths[2]), walked[2]));
    EXPECT_TRUE(SharePixels(kept.states.LoadState(kept.paths[3]), walked[3]));
    EXPECT_FALSE(SharePixels(kept.states.LoadState(kept.paths[5]), kept.pictures[5]));
}

TEST(KeptStates, AFileThatSomebodyTouchedIsKeptAsItIsNow) {
    KeptStates kept;
    kept.Save(Shade(1));
    SavePicture(Shade(2), kept.paths[0]);
    const Picture read = kept.states.LoadState(kept.paths[0]);
    EXPECT_TRUE(SharePixels(kept.states.LoadState(kept.paths[0]), read));
    EXPECT_TRUE(read == Shade(2));
}

TEST(KeptStates, StrokesTakeTheRoomOfTheirTiles) {
    // A tile, and some more, for each stroke.
    const SupposedMemory memory(std::uint64_t{4} * 10 * Bitmap::kTileWidth * Bitmap::kTileHeight * 4);
    KeptStates kept;
    Picture picture = Shade(1);
    for (int i = 0; i < 10; ++i) {
        picture.Set(i, 0, 0);
        kept.Save(picture);
    }
    EXPECT_EQ(kept.InMemory(), std::vector<bool>(10, true));
}

TEST(StateFiles, StateIsThatOfTheCall) {
    const Sandbox box;
    const std::string path = NewFile(box);
    Picture picture = Pattern(1000, 1000);
    StateFiles states;
    states.SaveBehind(picture, path);
    picture.Fill(picture.Bounds(), 0x123456);
    states.Settle();
    EXPECT_TRUE(states.LoadState(path) == Pattern(1000, 1000));
}

TEST(StateFiles, FileStaysPrivate) {
    const Sandbox box;
    const std::string made = NewFile(box);
    const std::string vanished = NewFile(box);
    DeleteFile(vanished);
    StateFiles states;
    states.SaveBehind(Pattern(3, 4), made);
    states.SaveBehind(Pattern(3, 4), vanished);
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_EQ(ModeOf(made), 0600U);
    EXPECT_EQ(ModeOf(vanished), 0600U);
}

TEST(StateFiles, ManyStatesInARowAllArrive) {
    const Sandbox box;
    StateFiles states;
    std::vector<std::string> paths;
    for (unsigned i = 0; i < 3 * StateFiles::kMostPending; ++i) {
        paths.push_back(NewFile(box));
        states.SaveBehind(Pattern(200, 50, i + 1), paths.back());
    }
    EXPECT_TRUE(states.Settle().empty());
    for (unsigned i = 0; i < paths.size(); ++i)
        EXPECT_TRUE(LoadPicture(paths[i]) == Pattern(200, 50, i + 1)) << i;
}

TEST(StateFiles, EveryFailingStepKeepsTheStateInMemory) {
    const Sandbox box;
    const std::string path = NewFile(box);
    const Picture picture = Pattern(700, 600);
    StateFiles states;
    FailFileOperation(0, 0);
    states.SaveBehind(picture, path);
    states.Settle();
    const int count = FileOperationCount();
    EXPECT_EQ(count, 5); // open, header, two buffers, close
    for (int n = 1; n <= count; ++n) {
        FailFileOperation(n, ENOSPC);
        states.SaveBehind(picture, path);
        EXPECT_EQ(states.Settle(), std::vector<std::string>{path}) << "operation " << n;
        FailFileOperation(0, 0);
        EXPECT_TRUE(states.Exists(path)) << "operation " << n;
        EXPECT_TRUE(SharePixels(states.LoadState(path), picture)) << "operation " << n;
        EXPECT_EQ(FileLength(path), 0U) << "a full disk gets its room back";
    }
}

TEST(StateFiles, FailedPathsComeInOrderUntilForgotten) {
    const Sandbox box;
    StateFiles states;
    const std::string first = box / "no/1";
    const std::string good = NewFile(box);
    const std::string second = box / "no/2";
    for (const std::string& path : {first, good, second})
        states.SaveBehind(Pattern(3, 3), path);
    EXPECT_EQ(states.Settle(), (std::vector<std::string>{first, second}));
    states.Forget(first);
    EXPECT_EQ(states.Settle(), std::vector<std::string>{second});
}

TEST(StateFiles, DisappearedFileIsError53) {
    const Sandbox box;
    const std::string path = NewFile(box);
    StateFiles states;
    states.SaveBehind(Pattern(3, 3), path);
    states.Settle();
    DeleteFile(path);
    EXPECT_FALSE(states.Exists(path));
    EXPECT_EQ(ErrorOf([&] { states.LoadState(path); }), 53);
}

TEST(StateFiles, FileOfAnotherLengthCountsAsDisappeared) {
    const Sandbox box;
    const std::string path = NewFile(box);
    StateFiles states;
    states.SaveBehind(Pattern(3, 3), path);
    states.Settle();
    PutBytes(path, BytesOf(path) + "x");
    EXPECT_FALSE(states.Exists(path));
    EXPECT_EQ(ErrorOf([&] { states.LoadState(path); }), 53);
}

TEST(StateFiles, UnknownPathIsNoState) {
    const Sandbox box;
    SavePicture(Pattern(3, 3), box / "a.bmp");
    const StateFiles states;
    EXPECT_FALSE(states.Exists(box / "a.bmp"));
    EXPECT_EQ(ErrorOf([&] { states.LoadState(box / "a.bmp"); }), 53);
}

TEST(StateFiles, ForgettingDeletesTheFile) {
    const Sandbox box;
    StateFiles states;
    const std::string waiting = NewFile(box);
    states.SaveBehind(Pattern(2000, 1000), NewFile(box));
    states.SaveBehind(Pattern(500, 500), waiting);
    states.Forget(waiting);
    EXPECT_FALSE(states.Exists(waiting));
    states.Settle();
    EXPECT_FALSE(FileLength(waiting).has_value());
    EXPECT_EQ(box.Names().size(), 1U);
}

TEST(StateFiles, ForgettingWaitsForTheWriter) {
    const Sandbox box;
    StateFiles states;
    for (int i = 0; i < 20; ++i) {
        const std::string path = NewFile(box);
        states.SaveBehind(Pattern(300, 300), path);
        states.Forget(path);
        EXPECT_TRUE(box.Names().empty());
    }
}

TEST(StateFiles, ForgettingWhatIsGoneDoesNothing) {
    const Sandbox box;
    StateFiles states;
    EXPECT_EQ(ErrorOf([&] { states.Forget(box / "no"); }), 0);
}

TEST(StateFiles, SamePathTakesTheNewState) {
    const Sandbox box;
    const std::string path = NewFile(box);
    StateFiles states;
    states.SaveBehind(Pattern(900, 900, 1), path);
    states.SaveBehind(Pattern(20, 30, 2), path);
    EXPECT_TRUE(states.LoadState(path) == Pattern(20, 30, 2));
    states.Settle();
    EXPECT_TRUE(states.LoadState(path) == Pattern(20, 30, 2));
}

TEST(StateFiles, EmptyPictureIsNoState) {
    const Sandbox box;
    StateFiles states;
    EXPECT_EQ(ErrorOf([&] { states.SaveBehind({}, box / "a"); }), 481);
    EXPECT_FALSE(states.Exists(box / "a"));
}

TEST(StateFiles, EndWaitsForTheWriter) {
    const Sandbox box;
    std::vector<std::string> paths;
    {
        StateFiles states;
        for (int i = 0; i < 5; ++i) {
            paths.push_back(NewFile(box));
            states.SaveBehind(Pattern(800, 600), paths.back());
        }
    }
    for (const std::string& path : paths)
        EXPECT_EQ(FileLength(path), BmpFileLength(800, 600));
}

// Whatever ends the process then, the file of the state before is whole.
TEST(StateFiles, NextStateOfADocumentWaitsForTheOneBefore) {
    const Sandbox box;
    StateFiles states;
    const int document = 0;
    std::string before;
    for (unsigned i = 1; i < 12; ++i) {
        const std::string path = NewFile(box);
        states.SaveBehind(Pattern(1200, 900, i), path, &document);
        if (!before.empty()) {
            EXPECT_TRUE(LoadPicture(before) == Pattern(1200, 900, i - 1)) << i;
        }
        before = path;
    }
}

TEST(StateFiles, RefusedStateIsTriedAgainWithTheNextOne) {
    const Sandbox box;
    StateFiles states;
    const std::string refused = NewFile(box);
    FailFileOperation(1, ENOSPC);
    states.SaveBehind(Pattern(30, 20, 1), refused);
    EXPECT_EQ(states.Settle(), std::vector<std::string>{refused});
    FailFileOperation(0, 0);
    states.SaveBehind(Pattern(30, 20, 2), NewFile(box));
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_TRUE(LoadPicture(refused) == Pattern(30, 20, 1));
}

// The disk still has room for small ones: the user must not hear of the same disk again and again.
TEST(StateFiles, RefusedStateStaysRefusedWhileItIsTriedAgain) {
    const Sandbox box;
    StateFiles states;
    const std::string refused = NewFile(box);
    const std::string small = NewFile(box);
    FailFileOperation(1, ENOSPC);
    states.SaveBehind(Pattern(30, 20, 1), refused);
    EXPECT_EQ(states.Settle(), std::vector<std::string>{refused});
    EXPECT_TRUE(states.Refused());
    Gate gate(Gate::Call::Write, refused);
    states.SaveBehind(Pattern(30, 20, 2), small);
    gate.AwaitSomebody();
    EXPECT_TRUE(LoadPicture(small) == Pattern(30, 20, 2));
    EXPECT_TRUE(states.Refused());
    gate.Open();
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_FALSE(states.Refused());
}

TEST(StateFiles, DiskThatHangsGetsTheNewestStateOfEachDocumentFirst) {
    const Sandbox box;
    StateFiles states;
    const int one = 0;
    const int other = 0;
    std::vector<std::string> paths; // in the order in which they must arrive
    paths.reserve(4);
    for (int i = 0; i < 4; ++i)
        paths.push_back(NewFile(box));
    Gate hanging(Gate::Call::Write, paths[0]);
    Gate newest(Gate::Call::Write, paths[1]);
    Gate ofTheOther(Gate::Call::Write, paths[2]);
    states.SaveBehind(Pattern(30, 20, 0), paths[0]);
    hanging.AwaitSomebody();
    states.SaveBehind(Pattern(30, 20, 3), paths[3], &one);
    states.SaveBehind(Pattern(30, 20, 1), paths[1], &one); // waits in vain for the one before
    states.SaveBehind(Pattern(30, 20, 2), paths[2], &other);
    hanging.Open();
    newest.AwaitSomebody();
    EXPECT_EQ(Written(paths), (std::vector<bool>{true, false, false, false}));
    newest.Open();
    ofTheOther.AwaitSomebody();
    EXPECT_EQ(Written(paths), (std::vector<bool>{true, true, false, false}));
    ofTheOther.Open();
    EXPECT_TRUE(states.Settle().empty());
    for (unsigned i = 0; i < paths.size(); ++i)
        EXPECT_TRUE(LoadPicture(paths[i]) == Pattern(30, 20, i)) << i;
}

TEST(StateFiles, StatesAndTextsAreMadeDurableWithoutAnybodyWaiting) {
    const Sandbox box;
    StateFiles states;
    const std::string path = NewFile(box);
    Gate state(Gate::Call::Sync, path);
    states.SaveBehind(Pattern(30, 20, 1), path);
    states.Settle();
    state.AwaitSomebody();
    const std::string next = NewFile(box);
    states.SaveBehind(Pattern(30, 20, 2), next);
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_TRUE(LoadPicture(next) == Pattern(30, 20, 2));
    Gate text(Gate::Call::Sync, box / "note");
    states.WriteBehind(box / "note", "text");
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_EQ(BytesOf(box / "note"), "text");
    state.Open();
    text.AwaitSomebody();
}

// Each piece of memory that the writer takes is refused in turn: what it was at is written later.
TEST(StateFiles, WriterWithoutMemoryGoesOn) {
    const Sandbox box;
    StateFiles states;
    states.SaveBehind(Pattern(3, 3), NewFile(box)); // the threads have begun
    states.Settle();
    int n = 1;
    for (bool met = true; met; ++n) {
        const std::string path = NewFile(box);
        const std::string note = box / "note" + std::to_string(n);
        {
            const Starvation starvation(n);
            states.SaveBehind(Pattern(30, 20), path);
            states.WriteBehind(note, "text");
            states.Settle();
            met = starvation.Met();
        }
        EXPECT_TRUE(states.LoadState(path) == Pattern(30, 20)) << n;
        states.SaveBehind(Pattern(3, 3), NewFile(box));
        EXPECT_TRUE(states.Settle().empty()) << n;
        EXPECT_TRUE(LoadPicture(path) == Pattern(30, 20)) << n;
        EXPECT_EQ(BytesOf(note), "text") << n;
    }
    EXPECT_GT(n, 5);
}

TEST(StateFiles, StateOfAnotherRunIsTakenIfItIsWhole) {
    const Sandbox box;
    const std::string whole = NewFile(box);
    const std::string cut = NewFile(box);
    {
        StateFiles before;
        before.SaveBehind(Pattern(31, 20), whole);
        before.SaveBehind(Pattern(31, 20), cut);
    }
    std::filesystem::resize_file(cut, 1000);
    const std::string longer = box / "longer.tmp";
    PutBytes(longer, BytesOf(whole) + "x");
    StateFiles states;
    EXPECT_FALSE(states.Adopt(longer));
    EXPECT_TRUE(states.Adopt(whole));
    EXPECT_TRUE(states.LoadState(whole) == Pattern(31, 20));
    EXPECT_FALSE(states.Adopt(cut));
    EXPECT_FALSE(states.Adopt(box / "gone.tmp"));
    EXPECT_FALSE(states.Adopt(box.Folder()));
    EXPECT_FALSE(states.Exists(cut));
    states.Forget(whole);
    EXPECT_FALSE(std::filesystem::exists(whole));
}

TEST(StateFiles, StateOfAnotherRunThatCannotBeReadIsNotTaken) {
    const Sandbox box;
    const std::string path = NewFile(box);
    SavePicture(Pattern(31, 20), path);
    StateFiles states;
    FailFileOperation(0, 0);
    ASSERT_TRUE(StateFiles().Adopt(path));
    const int count = FileOperationCount();
    ASSERT_GT(count, 1);
    for (int n = 1; n <= count; ++n) {
        FailFileOperation(n, EIO);
        EXPECT_FALSE(states.Adopt(path)) << n;
        FailFileOperation(0, 0);
        EXPECT_FALSE(states.Exists(path)) << n;
    }
    EXPECT_TRUE(states.Adopt(path));
}

TEST(StateFiles, WithoutAThreadAStateIsRefusedAndTheNextOneIsTaken) {
    const Sandbox box;
    const std::string refused = NewFile(box);
    const std::string taken = NewFile(box);
    StateFiles states;
    {
        const NoThreads none;
        EXPECT_EQ(ErrorOf([&] { states.SaveBehind(Pattern(31, 20), refused, &box); }), 7);
    }
    EXPECT_FALSE(states.Exists(refused));
    states.SaveBehind(Pattern(31, 20), taken, &box);
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_TRUE(LoadPicture(taken) == Pattern(31, 20));
    EXPECT_EQ(FileLength(refused), 0U);
}

TEST(StateFiles, TextIsWrittenBehindForTheUserAlone) {
    const Sandbox box;
    StateFiles states;
    for (const char* text : {"one", "two", "three"})
        states.WriteBehind(box / "note", text);
    EXPECT_TRUE(states.Settle().empty());
    EXPECT_EQ(BytesOf(box / "note"), "three");
    EXPECT_EQ(ModeOf(box / "note"), 0600U);
    states.WriteBehind(box / "no/note", "lost");
    EXPECT_TRUE(states.Settle().empty());
}

TEST(StateFiles, WhatIsAwaitedStandsOnTheDisk) {
    const Sandbox box;
    StateFiles states;
    const int document = 0;
    const std::string path = NewFile(box);
    Gate state(Gate::Call::Write, path);
    Gate text(Gate::Call::Write, box / "note.new");
    states.SaveBehind(Pattern(30, 20), path, &document);
    state.AwaitSomebody();
    states.WriteBehind(box / "note", "text");
    std::thread opener([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        state.Open();
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        text.Open();
    });
    states.Await(&document);
    EXPECT_TRUE(LoadPicture(path) == Pattern(30, 20));
    EXPECT_EQ(BytesOf(box / "note"), "text");
    opener.join();
}

// The user waits for two seconds, not for the disk.
TEST(StateFiles, DiskThatHangsIsNotAwaitedForEver) {
    const Sandbox box;
    StateFiles states;
    const int document = 0;
    const std::string path = NewFile(box);
    Gate gate(Gate::Call::Write, path);
    states.SaveBehind(Pattern(30, 20), path, &document);
    states.Await(&document);
    EXPECT_EQ(FileLength(path), 0U);
}

TEST(StateFiles, SignalWaitsUntilAllIsWritten) {
    const Sandbox box;
    StateFiles states;
    const std::string path = NewFile(box);
    states.SaveBehind(Pattern(2000, 1500), path);
    states.WaitInSignal(std::chrono::seconds(20));
    EXPECT_TRUE(LoadPicture(path) == Pattern(2000, 1500));
}

} // namespace
} // namespace pintalux
