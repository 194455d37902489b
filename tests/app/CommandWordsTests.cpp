#include "app/CommandWords.h"

#include "support/Documents.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <vector>

namespace pintalux {

namespace {

std::optional<std::string> AnswerTo(std::vector<const char*> words) {
    words.insert(words.begin(), "pintalux64");
    return AnswerInTerminal(static_cast<int>(words.size()), words.data());
}

} // namespace

TEST(CommandWords, HelpAndVersionAreAnswered) {
    EXPECT_NE(AnswerTo({"--help"}).value_or("").find("pintalux64 [imagem]"), std::string::npos);
    EXPECT_TRUE(AnswerTo({"--version"}).value_or("").starts_with("Pintalux 64 "));
}

TEST(CommandWords, AllElseIsAPath) {
    EXPECT_FALSE(AnswerTo({}));
    EXPECT_FALSE(AnswerTo({"-h"}));
    EXPECT_FALSE(AnswerTo({"--help", "me.bmp"}));
    EXPECT_FALSE(AnswerTo({"praia --version"}));
}

TEST(CommandWords, OneWordThatIsNoOptionIsTheFile) {
    const char* const words[] = {"pintalux64", "praia.jpg", "2.jpg"};
    EXPECT_EQ(LoneFile(1, words), "");
    EXPECT_EQ(LoneFile(2, words), "praia.jpg");
    EXPECT_EQ(LoneFile(3, words), "");
    const char* const option[] = {"pintalux64", "-reverse"};
    EXPECT_EQ(LoneFile(2, option), "");
}

TEST(CommandWords, AFileThatIsCalledSoIsAPath) {
    PutBytes("--version", "");
    EXPECT_FALSE(AnswerTo({"--version"}));
    std::filesystem::remove("--version");
    EXPECT_TRUE(AnswerTo({"--version"}));
}

} // namespace pintalux
