// Profile files: as other programs and people write them, and as this one does.
#include "surface/system/Settings.h"
#include "surface/system/Windows1252.h"
#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

using namespace std::string_literals;

TEST(Profile, KeysAndValuesAreWrittenAsTheyStand) {
    const Sandbox box;
    EXPECT_TRUE(ProfileWrite(box / "a.klc", "Colors", " 0", " 255"));
    EXPECT_TRUE(ProfileWrite(box / "a.klc", "Colors", " 1", " 16711680"));
    EXPECT_TRUE(ProfileWrite(box / "a.klc", "Colors", " 0", " 7"));
    EXPECT_EQ(BytesOf(box / "a.klc"), "[Colors]\r\n 0= 7\r\n 1= 16711680\r\n");
}

TEST(Profile, BlanksAroundKeyAndValueDoNotCount) {
    const Sandbox box;
    PutBytes(box / "a", " [ Colors ] \r\n \t10 = \t 255 \r\n");
    EXPECT_EQ(ProfileRead(box / "a", "Colors", " 10", ""), "255");
    EXPECT_EQ(ProfileRead(box / "a", "Colors", "10", ""), "255");
}

TEST(Profile, CaseOfNamesDoesNotCount) {
    const Sandbox box;
    PutBytes(box / "a", "[COLORS]\nKey=1\n");
    EXPECT_EQ(ProfileRead(box / "a", "colors", "KEY", ""), "1");
}

TEST(Profile, QuotesAroundAValueAreTakenOff) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=\" x \"\nb='y'\nc=\"\nd=\"e'\n");
    EXPECT_EQ(ProfileRead(box / "a", "S", "a", ""), " x ");
    EXPECT_EQ(ProfileRead(box / "a", "S", "b", ""), "y");
    EXPECT_EQ(ProfileRead(box / "a", "S", "c", ""), "\"");
    EXPECT_EQ(ProfileRead(box / "a", "S", "d", ""), "\"e'");
}

TEST(Profile, MissingGivesTheDefaultAndEmptyGivesEmpty) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=\nno equals sign\n;b=1\n[T]\nc=2");
    EXPECT_EQ(ProfileRead(box / "a", "S", "a", "default"), "");
    EXPECT_EQ(ProfileRead(box / "a", "S", "b", "default"), "default");
    EXPECT_EQ(ProfileRead(box / "a", "S", "c", "default"), "default");
    EXPECT_EQ(ProfileRead(box / "a", "U", "c", "default"), "default");
    EXPECT_EQ(ProfileRead(box / "no", "S", "a", "default"), "default");
    EXPECT_EQ(ProfileRead(box.Folder(), "S", "a", "default"), "default");
    EXPECT_EQ(ProfileRead(box / "a", "T", "c", ""), "2");
}

TEST(Profile, FirstOfEqualKeysCounts) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=1\na=2\n[S]\na=3\n");
    EXPECT_EQ(ProfileRead(box / "a", "S", "a", ""), "1");
}

TEST(Profile, LongValueIsCut) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=" + std::string(300, 'x') + "\n");
    EXPECT_EQ(ProfileRead(box / "a", "S", "a", "").size(), 255U);
    EXPECT_EQ(ProfileRead(box / "a", "S", "a", "", 10), "xxxxxxxxxx");
}

TEST(Profile, CutCountsCharactersNotBytes) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=\xE7\xE3o\n"); // three characters in this code page
    EXPECT_EQ(ProfileRead(box / "a", "S", "a", "", 2), "çã");
}

TEST(Profile, EmptyValueRemovesTheKey) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\r\na=1\r\nb=2\r\n");
    EXPECT_TRUE(ProfileWrite(box / "a", "S", "A", ""));
    EXPECT_EQ(BytesOf(box / "a"), "[S]\r\nb=2\r\n");
}

TEST(Profile, RemovingFromNoFileMakesNone) {
    const Sandbox box;
    EXPECT_TRUE(ProfileWrite(box / "a", "S", "a", ""));
    EXPECT_TRUE(box.Names().empty());
}

TEST(Profile, SeveralKeysAreOneWrite) {
    const Sandbox box;
    EXPECT_TRUE(ProfileWriteKeys(box / "a", "S", {{"a", "1"}, {"b", ""}, {"c", "3"}}));
    EXPECT_EQ(BytesOf(box / "a"), "[S]\r\na=1\r\nc=3\r\n");
}

TEST(Profile, TextIsCutAtItsLineEnd) {
    const Sandbox box;
    EXPECT_TRUE(ProfileWrite(box / "a", "S", "a", "1\r\nb=2"));
    EXPECT_EQ(BytesOf(box / "a"), "[S]\r\na=1\r\n");
}

TEST(Profile, AccentsAreOfTheCodePage) {
    const Sandbox box;
    EXPECT_TRUE(ProfileWrite(box / "a", "Cores", "opção", "€ 5"));
    EXPECT_EQ(BytesOf(box / "a"), "[Cores]\r\nop\xE7\xE3o=\x80 5\r\n");
    EXPECT_EQ(ProfileRead(box / "a", "Cores", "opção", ""), "€ 5");
}

TEST(Profile, EveryFailingStepGivesFalseAndLeavesTheOldFile) {
    const Sandbox box;
    bool result = false;
    int written = 0;
    const int count = FailEachOperation(
        EIO,
        [&] {
            PutBytes(box / "a", "[S]\r\na=1\r\n");
            result = ProfileWrite(box / "a", "S", "a", "2");
        },
        [&](int n, int) {
            written += result ? 1 : 0;
            EXPECT_EQ(BytesOf(box / "a"), result ? "[S]\r\na=2\r\n" : "[S]\r\na=1\r\n") << "operation " << n;
            EXPECT_EQ(box.Names().size(), 1U) << "operation " << n;
        });
    EXPECT_EQ(written, 1) << "only the mode of the new file may be refused";
    EXPECT_GE(count, 10);
}

TEST(Windows1252, EveryByteSurvivesTheRoundTrip) {
    std::string all;
    for (int i = 0; i < 256; ++i)
        all += static_cast<char>(i);
    EXPECT_EQ(ToWindows1252(FromWindows1252(all)), all);
}

TEST(Windows1252, CharactersByHand) {
    EXPECT_EQ(FromWindows1252("A\x80\x9F\xA0\xFF"), "A€Ÿ\u00A0ÿ");
    EXPECT_EQ(ToWindows1252("“ž”"), "\x93\x9E\x94");
}

TEST(Windows1252, WhatItLacksIsAQuestionMark) {
    EXPECT_EQ(ToWindows1252("aΩb😀c"), "a?b?c");
    EXPECT_EQ(ToWindows1252("\xC3"), "?");
    EXPECT_EQ(ToWindows1252("\xFF\x80x"), "??x");
}

TEST(Profile, SeveralKeysAreReadAtOnce) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=1\n b = \"2 \"\n[T]\nc=3\n");
    std::vector<SettingText> values = {{"A", "old"}, {"b", {}}, {"c", "old"}};
    ProfileReadKeys(box / "a", "s", values, 1000);
    EXPECT_EQ(values[0].text, "1");
    EXPECT_EQ(values[1].text, "2 ");
    EXPECT_EQ(values[2].text, "");
}

TEST(Profile, SeveralKeysOfAFileThatIsTooLongOrMissingAreAnError) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\na=1\n");
    std::vector<SettingText> values = {{"a", {}}};
    EXPECT_NO_THROW(ProfileReadKeys(box / "a", "S", values, 8));
    EXPECT_THROW(ProfileReadKeys(box / "a", "S", values, 7), RuntimeError);
    EXPECT_THROW(ProfileReadKeys(box / "none", "S", values, 100), RuntimeError);
}

TEST(Profile, NewFileHoldsNothingOfTheOldOne) {
    const Sandbox box;
    PutBytes(box / "a", "; mine\r\n[S]\r\nold=1\r\n[T]\r\nb=2\r\n");
    ProfileWriteNew(box / "a", "S", {{" 0", " 1"}, {" 1", ""}, {" 2", " 3\r\nx=4"}});
    EXPECT_EQ(BytesOf(box / "a"), "[S]\r\n 0= 1\r\n 2= 3\r\n");
    EXPECT_EQ(box.Names(), (std::vector<std::string>{"a"}));
}

TEST(Profile, NewFileThatCannotBeWrittenIsAnErrorAndLeavesTheOldOne) {
    const Sandbox box;
    PutBytes(box / "a", "[S]\r\nold=1\r\n");
    FailFileOperation(2, ENOSPC);
    EXPECT_THROW(ProfileWriteNew(box / "a", "S", {{" 0", " 1"}}), RuntimeError);
    FailFileOperation(0, 0);
    EXPECT_EQ(BytesOf(box / "a"), "[S]\r\nold=1\r\n");
    EXPECT_EQ(box.Names(), (std::vector<std::string>{"a"}));
}

} // namespace
} // namespace pintalux
