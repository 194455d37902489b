// The index that a run keeps of its documents, and what is left of runs that died.
#include "files/RunIndex.h"

#include "files/TempFiles.h"
#include "surface/system/FileLayer.h"
#include "system/Sandbox.h"

#include <ctime>
#include <fcntl.h>
#include <gtest/gtest.h>

namespace pintalux {
namespace {

RunDocument Example() {
    return {"/tmp/sol 100%\n.bmp", "sol", true, 1, 2, {"/tmp/BI0001.tmp", "", "/tmp/BI0003.tmp"}, {2, 0}};
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
    static void MakeOld(const std::string& path, int days) {
        const timespec then[2] = {{std::time(nullptr) - std::time_t{days} * 86400, 0},
                                  {std::time(nullptr) - std::time_t{days} * 86400, 0}};
        ASSERT_EQ(::utimensat(AT_FDCWD, path.c_str(), then, 0), 0);
    }
    Sandbox box_;
    std::string folder_;
};

TEST_F(RunIndexTest, DocumentsComeBackAsTheyWere) {
    const std::vector<RunDocument> documents = {Example(), {"", "Imagem 1", false, 0, -1, {"/a"}, {0}}};
    EXPECT_EQ(ReadIndex(IndexText(documents)), documents);
    EXPECT_TRUE(ReadIndex(IndexText({})).empty());
}

TEST_F(RunIndexTest, WhatMakesNoSenseIsLeftOut) {
    RunDocument beyond = Example();
    beyond.cursor = 2;
    RunDocument nowhere = Example();
    nowhere.order = {3, 0};
    RunDocument negative = Example();
    negative.cursor = -1;
    EXPECT_EQ(ReadIndex(IndexText({beyond, nowhere, Example(), negative})),
              std::vector<RunDocument>{Example()});
    for (const std::string text :
         {"", "garbage", "Pintalux64 index 2\ndocument\n", "Pintalux64 index 1\nstate x\n",
          "Pintalux64 index 1\ndocument\ncursor 99999999999\norder x\norder -1\n"})
        EXPECT_TRUE(ReadIndex(text).empty()) << text;
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
    EXPECT_EQ(LivingIndices(), std::vector<std::string>{living.index});
}

TEST_F(RunIndexTest, OnlyStateFilesAreBelievedToBeStates) {
    EXPECT_TRUE(IsStateName("/tmp/BI00FF.tmp"));
    EXPECT_TRUE(IsStateName("/tmp/BI0001F00F.tmp"));
    for (const char* path : {"/home/ana/foto.bmp", "BI00FF.tmp", "/tmp/BI00FF.tmp.bmp", "/tmp/BI0.tmp", ""})
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
    const RunFiles young = {folder_ + "/run-1-1.index", folder_ + "/run-1-1.lock", {}};
    const RunFiles old = {folder_ + "/run-2-2.index", folder_ + "/run-2-2.lock", {}};
    PutBytes(young.index, IndexText({}));
    PutBytes(old.index, IndexText({}));
    MakeOld(old.index, 31);
    SweepOldFiles({});
    for (const std::string& path : stay)
        EXPECT_TRUE(std::filesystem::exists(path)) << path;
    for (const std::string& path : go)
        EXPECT_FALSE(std::filesystem::exists(path)) << path;
    EXPECT_TRUE(std::filesystem::exists(young.index));
    EXPECT_TRUE(std::filesystem::exists(living.index));
    EXPECT_FALSE(std::filesystem::exists(old.index));
    EXPECT_FALSE(std::filesystem::exists(old.lock));
}

TEST_F(RunIndexTest, LinksAreNotFollowedWhenOldFilesGo) {
    PutBytes(box_ / "foto.bmp", "x");
    MakeOld(box_ / "foto.bmp", 40);
    std::filesystem::create_symlink(box_ / "foto.bmp", box_ / "BI0004.tmp");
    SweepOldFiles({});
    EXPECT_TRUE(std::filesystem::exists(box_ / "foto.bmp"));
}

} // namespace
} // namespace pintalux
