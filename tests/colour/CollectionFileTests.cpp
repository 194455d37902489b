// Colour collections in files, as this program and others write them.
#include "base/NumberText.h"
#include "colour/CollectionFile.h"
#include "support/Documents.h"
#include "support/Errors.h"
#include "support/Program.h"

#include <random>
#include <sys/stat.h>

namespace pintalux {
namespace {

class CollectionFileTest : public ProgramTest {
  protected:
    std::string File(const std::string& name = "a.klc") const { return Folder("pictures") + "/" + name; }

    std::vector<Colour> Reading(const std::string& text) const {
        PutBytes(File(), text);
        return ReadCollection(File());
    }
};

using Colours = std::vector<Colour>;

TEST_F(CollectionFileTest, IsWrittenWithTheBlanksOfFormattedNumbers) {
    CollectionTexts texts;
    texts[0] = " 255";
    texts[2] = " 16711680";
    texts[77] = " 0";
    WriteCollection(File(), texts);
    EXPECT_EQ(BytesOf(File()), "[Colors]\r\n 0= 255\r\n 2= 16711680\r\n 77= 0\r\n");
}

TEST_F(CollectionFileTest, KeysOfAnOlderFileGoWithIt) {
    PutBytes(File(), "[Colors]\r\n 0= 1\r\n 5= 2\r\n[Other]\r\na=b\r\n");
    CollectionTexts texts;
    texts[1] = " 3";
    WriteCollection(File(), texts);
    EXPECT_EQ(BytesOf(File()), "[Colors]\r\n 1= 3\r\n");
}

TEST_F(CollectionFileTest, GapsCloseUp) {
    EXPECT_EQ(Reading("[Colors]\r\n 3= 7\r\n 10= 9\r\n"), (Colours{7, 9}));
    EXPECT_EQ(Reading("[Colors]\r\n 0= 7\r\n 1=\r\n 2= 9\r\n"), (Colours{7, 9}));
}

TEST_F(CollectionFileTest, KeysBeyond77AreNotRead) {
    EXPECT_EQ(Reading("[Colors]\r\n 77= 7\r\n 78= 8\r\n 100= 9\r\n"), (Colours{7}));
}

TEST_F(CollectionFileTest, BlanksLineEndsAndCaseDoNotCount) {
    EXPECT_EQ(Reading("[colors]\n0=7\n1 = 8\n 2=9"), (Colours{7, 8, 9}));
    EXPECT_EQ(Reading("; mine\r\n[Other]\r\n0=1\r\n\r\n[ COLORS ]\r\n0=7\r\n"), (Colours{7}));
}

TEST_F(CollectionFileTest, NumbersAreTheLeadingOnesAndRound) {
    EXPECT_EQ(Reading("[Colors]\n0=12abc\n1=abc\n2=2.5\n3=3.5\n4=1e3\n"), (Colours{12, 0, 2, 4, 1000}));
}

TEST_F(CollectionFileTest, NumbersThatAreNoColoursAreLeftOut) {
    EXPECT_EQ(Reading("[Colors]\n0=-1\n1=16777216\n2=99999999999999999999\n3=1e300\n4=16777215\n5=-0.2\n"),
              (Colours{0xFFFFFF, 0}));
    EXPECT_EQ(Reading("[Colors]\n0=16777215.5\n1=16777215.4\n2=-0.5\n3=-0.6\n"), Colours{0xFFFFFF});
}

TEST_F(CollectionFileTest, FilesOfAnotherShapeHoldNoColours) {
    EXPECT_EQ(Reading(""), Colours{});
    EXPECT_EQ(Reading("0=1\n1=2\n"), Colours{});
    EXPECT_EQ(Reading(std::string("BM\0\1\2\3[]]=\n\xFF\xFE\x80", 14)), Colours{});
    EXPECT_EQ(Reading(std::string(500000, '\n')), Colours{});
    EXPECT_EQ(Reading("[Colors"), Colours{});
    EXPECT_EQ(Reading("[Colors]\n0=" + std::string(900000, '1')), Colours{});
}

TEST_F(CollectionFileTest, WhatCannotBeReadIsAnError) {
    EXPECT_EQ(ErrorOf([&] { ReadCollection(File("none.klc")); }), kFileNotFound);
    EXPECT_EQ(ErrorOf([&] { ReadCollection(Folder("pictures")); }), kPathFileAccess);
    ASSERT_EQ(::mkfifo(File("pipe.klc").c_str(), 0600), 0);
    EXPECT_EQ(ErrorOf([&] { ReadCollection(File("pipe.klc")); }), kPathFileAccess);
    PutBytes(File("huge.klc"), "[Colors]\n0=1\n");
    std::filesystem::resize_file(File("huge.klc"), 100'000'000);
    EXPECT_EQ(ErrorOf([&] { ReadCollection(File("huge.klc")); }), kPathFileAccess);
}

TEST_F(CollectionFileTest, WhatCannotBeWrittenLeavesTheOldFile) {
    PutBytes(File(), "[Colors]\r\n 0= 1\r\n");
    CollectionTexts texts;
    texts.fill(" 16777215");
    {
        const FullDisk disk(64);
        EXPECT_NE(ErrorOf([&] { WriteCollection(File(), texts); }), 0);
    }
    EXPECT_EQ(BytesOf(File()), "[Colors]\r\n 0= 1\r\n");
    EXPECT_EQ(NamesIn(Folder("pictures")), (std::vector<std::string>{"a.klc"}));
    EXPECT_EQ(ErrorOf([&] { WriteCollection(Folder("pictures"), texts); }), kPathFileAccess);
    EXPECT_EQ(ErrorOf([&] { WriteCollection(Folder("pictures") + "/no/a.klc", texts); }), kFileNotFound);
}

// Whatever is written comes back, in order and without its gaps.
TEST_F(CollectionFileTest, AnyCollectionComesBack) {
    constexpr unsigned kSeed = 11;
    std::mt19937 random(kSeed);
    for (int round = 0; round < 50; ++round) {
        CollectionTexts texts;
        Colours expected;
        for (std::string& text : texts) {
            if (random() % 3 == 0) continue;
            const auto colour = static_cast<Colour>(random() % 0x1000000);
            text = FormattedNumber(colour);
            expected.push_back(colour);
        }
        WriteCollection(File(), texts);
        ASSERT_EQ(ReadCollection(File()), expected) << "seed " << kSeed << ", round " << round;
    }
}

} // namespace
} // namespace pintalux
