// The index that a run keeps of its documents, and what is left of runs that died.
#include "files/RunIndex.h"

#include "files/TempFiles.h"
#include "support/Ages.h"
#include "surface/system/FileLayer.h"
#include "system/Sandbox.h"

#include <gtest/gtest.h>

namespace pintalux {
namespace {

RunDocument Example() {
    return {
        "/tmp/sol 100%4a\nbom.bmp", "sol", true, 1, 2, {"/tmp/BI0001.tmp", "", "/tmp/BI0003.tmp"}, {2, 0}};
}

class RunIndexTest : public testing::Test {
  protected:
    void SetUp() override {
        setenv("XDG_STATE_HOME", box_.Folder().c_str(), 1);
        setenv("TMPDIR", box_.Folder().c_str(), 1);
        folder_ = box_ / "Pintalux64";
    }
    void TearDown() override {
        unsetenv("XDG_STATE_HOME");
        unsetenv("TMPDIR");
    }
    /// A file that was written that many days ago.
    std::string Aged(const std::string& name, int days, const std::string& bytes = "x") const {
        PutBytes(box_ / name, bytes);
        MakeOld(box_ / name, days);
        return box_ / name;
    }
    static std::string TextNaming(const std::string& state) {
        return IndexText({{"", "Imagem 1", false, 0, -1, {state}, {0}}});
    }
    Sandbox box_;
    std::string folder_;
};

TEST_F(RunIndexTest, DocumentsComeBackAsTheyWere) {
    const std::vector<RunDocument> documents = {Example(), {"", "Imagem 1", false, 0, -1, {"/a"}, {0}}};
    EXPECT_EQ(ReadIndex(IndexText(documents)), documents);
    EXPECT_EQ(ReadIndex(IndexText({})), std::vector<RunDocument>{});
}

TEST_F(RunIndexTest, WhatMakesNoSenseIsKnown) {
    EXPECT_TRUE(MakesSense(Example()));
    RunDocument beyond = Example();
    beyond.cursor = 2;
    RunDocument nowhere = Example();
    nowhere.order = {3, 0};
    RunDocument negative = Example();
    negative.cursor = -1;
    const std::string bytes =
        "Pintalux64 index 1\nstate x\ndocument\ncursor 99999999999\norder x\norder -1\n";
    const auto odd = ReadIndex(bytes);
    ASSERT_TRUE(odd.has_value());
    ASSERT_EQ(odd->size(), 1U);
    for (const RunDocument& document : {beyond, nowhere, negative, odd->front()})
        EXPECT_FALSE(MakesSense(document));
}

TEST_F(RunIndexTest, WhatIsNoIndexNamesNothing) {
    for (const std::string text : {"", "garbage", "Pintalux64 index 2\ndocument\n"})
        EXPECT_FALSE(ReadIndex(text).has_value()) << text;
    EXPECT_FALSE(ReadIndexFile(box_ / "gone").has_value());
    EXPECT_FALSE(ReadIndexFile(box_.Folder()).has_value());
}

TEST_F(RunIndexTest, FilesOfARunAreTheUsersAlone) {
    const RunFiles run = MakeRunFiles();
    ASSERT_TRUE(run.held);
    EXPECT_EQ(ModeOf(folder_), 0700U);
    EXPECT_EQ(ModeOf(run.lock), 0600U);
    DeleteRunFiles(run);
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(RunIndexTest, WithoutAFolderNoRunIsKept) {
    PutBytes(folder_, "a file stands in the way");
    EXPECT_FALSE(MakeRunFiles().held);
    EXPECT_TRUE(LeftRuns().empty());
}

TEST_F(RunIndexTest, OnlyARunWhoseLockIsFreeIsLeft) {
    const RunFiles living = MakeRunFiles();
    PutBytes(living.index, IndexText({Example()}));
    std::string dead;
    {
        const RunFiles died = MakeRunFiles();
        dead = died.index;
        PutBytes(dead, IndexText({Example()}));
    }
    {
        const std::vector<RunFiles> left = LeftRuns();
        ASSERT_EQ(left.size(), 1U);
        EXPECT_EQ(left[0].index, dead);
        EXPECT_TRUE(LeftRuns().empty()) << "two starts at once must not both open it";
    }
}

TEST_F(RunIndexTest, OnlyStateFilesAreBelievedToBeStates) {
    EXPECT_TRUE(IsStateName("/tmp/BI00FF.tmp"));
    EXPECT_TRUE(IsStateName("/tmp/BI0001F00F.tmp"));
    for (const char* path : {"/home/ana/foto.bmp", "BI00FF.tmp", "tmp/BI00FF.tmp", "../BI00FF.tmp",
                             "/tmp/BI00FF.tmp.bmp", "/tmp/BI0.tmp", ""})
        EXPECT_FALSE(IsStateName(path)) << path;
}

TEST_F(RunIndexTest, WhatIsOlderThanThirtyDaysGoes) {
    const RunFiles living = MakeRunFiles();
    std::vector<std::string> stay = {box_ / "BI0001.tmp", box_ / "BI0002.tmp", box_ / "foto.bmp"};
    std::vector<std::string> go = {box_ / "BI0003.tmp", box_ / ".pintalux-0123456789ab",
                                   box_ / "klTmpJpg77.bmp"};
    for (const auto* list : {&stay, &go})
        for (const std::string& path : *list)
            PutBytes(path, "x");
    PutBytes(living.index, IndexText({{"", "Imagem 1", false, 0, -1, {stay[0]}, {0}}}));
    for (const std::string& path : {stay[0], stay[2], go[0], go[1], go[2], living.index})
        MakeOld(path, 31);
    MakeOld(stay[1], 29);
    MakeFolders(folder_);
    const RunFiles young = {folder_ + "/run-1-1.index", folder_ + "/run-1-1.lock", {}};
    const RunFiles old = {folder_ + "/run-2-2.index", folder_ + "/run-2-2.lock", {}};
    PutBytes(young.index, IndexText({}));
    PutBytes(old.index, IndexText({}));
    MakeOld(old.index, 31);
    SweepOldFiles({}, {});
    for (const std::string& path : stay)
        EXPECT_TRUE(std::filesystem::exists(path)) << path;
    for (const std::string& path : go)
        EXPECT_FALSE(std::filesystem::exists(path)) << path;
    EXPECT_TRUE(std::filesystem::exists(young.index));
    EXPECT_TRUE(std::filesystem::exists(living.index));
    EXPECT_FALSE(std::filesystem::exists(old.index));
    EXPECT_FALSE(std::filesystem::exists(old.lock));
}

// A temporary folder that was full, or closed, had the states of a run written to the next one.
TEST_F(RunIndexTest, OldFilesGoFromEveryTemporaryFolder) {
    MakeFolders(folder_);
    const std::string first = Aged("BI0001.tmp", 31);
    const std::string last = Aged("Pintalux64/BI0002.tmp", 31);
    SweepOldFiles({}, {});
    EXPECT_FALSE(std::filesystem::exists(first));
    EXPECT_FALSE(std::filesystem::exists(last));
}

TEST_F(RunIndexTest, LinksAreNotFollowedWhenOldFilesGo) {
    PutBytes(box_ / "foto.bmp", "x");
    MakeOld(box_ / "foto.bmp", 40);
    std::filesystem::create_symlink(box_ / "foto.bmp", box_ / "BI0004.tmp");
    SweepOldFiles({}, {});
    EXPECT_TRUE(std::filesystem::exists(box_ / "foto.bmp"));
}

// A run may have been open for longer than that when it died.
TEST_F(RunIndexTest, OldStatesStayAsLongAsAnIndexNamesThem) {
    MakeFolders(folder_);
    const std::string named = Aged("BI0001.tmp", 60);
    const std::string lost = Aged("BI0002.tmp", 60);
    PutBytes(folder_ + "/run-1-1.index", TextNaming(named));
    SweepOldFiles({}, {});
    EXPECT_TRUE(std::filesystem::exists(named));
    EXPECT_FALSE(std::filesystem::exists(lost));
    MakeOld(folder_ + "/run-1-1.index", 31);
    SweepOldFiles({}, {});
    EXPECT_FALSE(std::filesystem::exists(named));
}

TEST_F(RunIndexTest, AnIndexThatCannotBeReadMayNameAnyState) {
    MakeFolders(folder_);
    const std::string state = Aged("BI0001.tmp", 60);
    PutBytes(folder_ + "/run-1-1.index", "garbage");
    SweepOldFiles({}, {});
    EXPECT_TRUE(std::filesystem::exists(state));
    MakeOld(folder_ + "/run-1-1.index", 31);
    SweepOldFiles({}, {});
    EXPECT_FALSE(std::filesystem::exists(state));
    EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

TEST_F(RunIndexTest, WhatSomebodyHoldsIsNotOld) {
    const RunFiles held = MakeRunFiles();
    const std::string state = Aged("BI0001.tmp", 60);
    PutBytes(held.index, TextNaming(state));
    const RunFiles bare = MakeRunFiles(); // it could not write its index yet
    for (const std::string& path : {held.index, held.lock, bare.lock})
        MakeOld(path, 60);
    SweepOldFiles({}, {});
    for (const std::string& path : {held.index, held.lock, bare.lock, state})
        EXPECT_TRUE(std::filesystem::exists(path)) << path;
}

TEST_F(RunIndexTest, LocksAndHalfIndicesWithoutAnIndexGoWhenTheyAreOld) {
    MakeFolders(folder_);
    for (const char* name :
         {"run-1-1.lock", "run-2-2.index.new", "run-3-3.lock", "run-3-3.index.new", "run-4-4.lock"})
        Aged(std::string("Pintalux64/") + name, 31);
    PutBytes(folder_ + "/run-4-4.index", IndexText({})); // this one is young
    PutBytes(folder_ + "/run-5-5.lock", "");
    SweepOldFiles({}, {});
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_))
        names.insert(entry.path().filename());
    EXPECT_EQ(names, (std::set<std::string>{"run-4-4.index", "run-4-4.lock", "run-5-5.lock"}));
}

TEST_F(RunIndexTest, ARenewedRunStaysAnotherMonth) {
    MakeFolders(folder_);
    const RunFiles run = {folder_ + "/run-1-1.index", folder_ + "/run-1-1.lock", {}};
    PutBytes(run.index, IndexText({}));
    MakeOld(run.index, 60);
    RenewRunFiles(run);
    SweepOldFiles({}, {});
    EXPECT_TRUE(std::filesystem::exists(run.index));
}

TEST_F(RunIndexTest, AmongTheUsersPicturesNothingButPartsOfSavesGoes) {
    const Sandbox pictures;
    for (const char* name :
         {"BI0001.tmp", "klTmpJpg7.bmp", ".pintalux-0123456789ab", ".pintalux-0123456789abc"}) {
        PutBytes(pictures / name, "x");
        MakeOld(pictures / name, 31);
    }
    SweepOldFiles({}, {pictures.Folder(), pictures / "gone"});
    const std::vector<std::string> names = pictures.Names();
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()),
              (std::set<std::string>{"BI0001.tmp", "klTmpJpg7.bmp", ".pintalux-0123456789abc"}));
}

} // namespace
} // namespace pintalux
