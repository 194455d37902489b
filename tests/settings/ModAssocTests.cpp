#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/OrdinaryUser.h"
#include "support/Program.h"

#include "settings/frmPrefs.h"
#include "settings/ModAssoc.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

namespace pintalux {

namespace {

class ModAssocTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        data_ = Folder("settings") + "/data";
        for (const auto& [name, value] :
             {std::pair<const char*, std::string>{"XDG_CONFIG_HOME", Folder("settings")},
              {"XDG_DATA_HOME", data_},
              {"XDG_DATA_DIRS", data_ + "/system"}}) {
            const char* before = std::getenv(name);
            kept_.emplace_back(name, before == nullptr ? std::string{} : before);
            ::setenv(name, value.c_str(), 1);
        }
        list_ = Folder("settings") + "/mimeapps.list";
        entry_ = data_ + "/applications/pintalux64.desktop";
    }
    void TearDown() override {
        for (const auto& [name, value] : kept_) {
            if (value.empty()) {
                ::unsetenv(name);
            } else {
                ::setenv(name, value.c_str(), 1);
            }
        }
        ProgramTest::TearDown();
    }
    std::string data_, list_, entry_;

  private:
    std::vector<std::pair<const char*, std::string>> kept_;
};

TEST_F(ModAssocTest, AFirstAssociationMakesListAndEntry) {
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_EQ(BytesOf(list_), "[Default Applications]\nimage/bmp=pintalux64.desktop;\n[Added Associations]\n"
                              "image/bmp=pintalux64.desktop;\n");
    EXPECT_NE(BytesOf(entry_).find("\nExec=\"/opt/pintalux64\" %f\n"), std::string::npos);
}

TEST_F(ModAssocTest, AnExtensionWithoutAPointGetsOne) {
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", "jpg"));
    EXPECT_NE(BytesOf(list_).find("image/jpeg=pintalux64.desktop;"), std::string::npos);
}

TEST_F(ModAssocTest, OtherLinesAndOtherProgramsStay) {
    PutBytes(list_, "# mine\n[Default Applications]\ntext/plain=editor.desktop\nimage/gif=viewer.desktop;"
                    "pintalux64.desktop;other.desktop;\n\nnonsense \x01\xff\n[Removed "
                    "Associations]\nimage/gif=old.desktop;\n");
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".gif"));
    EXPECT_EQ(BytesOf(list_),
              "# mine\n[Default "
              "Applications]\ntext/plain=editor.desktop\nimage/gif=pintalux64.desktop;viewer.desktop;"
              "other.desktop;\n\nnonsense \x01\xff\n[Removed Associations]\nimage/gif=old.desktop;\n"
              "[Added Associations]\nimage/gif=pintalux64.desktop;\n");
}

TEST_F(ModAssocTest, ASecondTimeChangesNothing) {
    RegisterExtension("/opt/pintalux64", ".bmp");
    const std::string once = BytesOf(list_);
    const auto written = std::filesystem::last_write_time(list_);
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_EQ(BytesOf(list_), once);
    EXPECT_EQ(std::filesystem::last_write_time(list_), written);
}

// In the entry's file each backslash that the program is started by stands as two, and in quotes as four.
TEST_F(ModAssocTest, EverySignOfAPathReachesTheProgram) {
    EXPECT_TRUE(RegisterExtension(R"(/opt/a b\c"d`e$f%g'h)", ".bmp"));
    EXPECT_NE(BytesOf(entry_).find(R"(
Exec="/opt/a b\\\\c\\"d\\`e\\$f%%g'h" %f
)"),
              std::string::npos)
        << BytesOf(entry_);
}

TEST_F(ModAssocTest, ALinkedListIsChangedWhereItLies) {
    PutBytes(Folder("settings") + "/elsewhere", "[Default Applications]\n");
    std::filesystem::create_symlink("elsewhere", list_);
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_TRUE(std::filesystem::is_symlink(list_));
    EXPECT_NE(BytesOf(Folder("settings") + "/elsewhere").find("image/bmp=pintalux64.desktop;"),
              std::string::npos);
}

TEST_F(ModAssocTest, AListThatCannotBeReadIsLeftAlone) {
    std::filesystem::create_directories(list_);
    EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_TRUE(std::filesystem::is_directory(list_));
}

TEST_F(ModAssocTest, AListThatMayNotBeReadKeepsItsBytes) {
    PutBytes(list_, "[Default Applications]\ntext/plain=editor.desktop\n");
    std::filesystem::permissions(list_, std::filesystem::perms(0));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".bmp"));
    }
    std::filesystem::permissions(list_, std::filesystem::perms(0600));
    EXPECT_EQ(BytesOf(list_), "[Default Applications]\ntext/plain=editor.desktop\n");
}

TEST_F(ModAssocTest, AListFullOfGarbageKeepsEveryByte) {
    std::string garbage;
    unsigned seed = 4711;
    for (int i = 0; i < 5000; ++i) {
        seed = seed * 1103515245 + 12345;
        garbage += static_cast<char>(seed >> 16);
    }
    PutBytes(list_, garbage);
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    const std::string after = BytesOf(list_);
    EXPECT_TRUE(after.starts_with(garbage));
    EXPECT_EQ(after.substr(garbage.size()), "\n[Default Applications]\nimage/bmp=pintalux64.desktop;\n"
                                            "[Added Associations]\nimage/bmp=pintalux64.desktop;\n");
}

TEST_F(ModAssocTest, ForeignLineEndsStay) {
    PutBytes(
        list_,
        "\xEF\xBB\xBF[Default Applications]\r\ntext/plain=editor.desktop\r\nimage/bmp=viewer.desktop\r\n");
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_TRUE(
        BytesOf(list_).starts_with("\xEF\xBB\xBF[Default Applications]\r\ntext/plain=editor.desktop\r\n"
                                   "image/bmp=pintalux64.desktop;viewer.desktop;"))
        << BytesOf(list_);
}

TEST_F(ModAssocTest, AListOfManyMegabytesIsLeftAlone) {
    PutBytes(list_, std::string(2 << 20, 'x'));
    EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_EQ(std::filesystem::file_size(list_), std::uintmax_t{2} << 20);
}

TEST_F(ModAssocTest, ALinkToNowhereIsFollowed) {
    std::filesystem::create_symlink("nowhere", list_);
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_TRUE(std::filesystem::is_symlink(list_));
    EXPECT_TRUE(std::filesystem::exists(Folder("settings") + "/nowhere"));
}

TEST_F(ModAssocTest, ALinkInACircleIsLeftAlone) {
    std::filesystem::create_symlink("mimeapps.list", list_);
    EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_TRUE(std::filesystem::is_symlink(list_));
}

TEST_F(ModAssocTest, APipeIsLeftAlone) {
    ASSERT_EQ(::mkfifo(list_.c_str(), 0600), 0);
    EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_TRUE(std::filesystem::is_fifo(list_));
}

TEST_F(ModAssocTest, ThePreferencesCloseWhereNothingCanBeAssociated) {
    Start();
    std::filesystem::create_directories(list_);
    const DialogScript nothingIsSaid;
    frmPrefs->Check2.Value(1);
    frmPrefs->Command1_Click();
    EXPECT_EQ(StoredSetting("Associate"), "1");
}

TEST_F(ModAssocTest, AFolderThatCannotBeWrittenIsNoReasonToSpeak) {
    PutBytes(list_, "[Default Applications]\n");
    std::filesystem::create_directories(data_ + "/applications");
    for (const std::string& folder : {Folder("settings"), data_ + "/applications"})
        std::filesystem::permissions(folder, std::filesystem::perms(0555));
    {
        const OrdinaryUser user;
        EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".bmp"));
    }
    for (const std::string& folder : {Folder("settings"), data_ + "/applications"})
        std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_EQ(BytesOf(list_), "[Default Applications]\n");
    EXPECT_FALSE(std::filesystem::exists(entry_));
}

TEST_F(ModAssocTest, APathWithBlanksAndSignsIsOneWord) {
    EXPECT_TRUE(RegisterExtension("/opt/a b/50%/\"x\"/$y", ".bmp"));
    EXPECT_NE(BytesOf(entry_).find("\nExec=\"/opt/a b/50%%/\\\\\"x\\\\\"/\\\\$y\" %f\n"), std::string::npos)
        << BytesOf(entry_);
}

TEST_F(ModAssocTest, TheSystemsOwnEntryIsUsed) {
    std::filesystem::create_directories(data_ + "/system/applications");
    PutBytes(data_ + "/system/applications/pintalux64.desktop", "[Desktop Entry]\n");
    EXPECT_TRUE(RegisterExtension("/opt/pintalux64", ".bmp"));
    EXPECT_FALSE(std::filesystem::exists(entry_));
}

TEST_F(ModAssocTest, OtherExtensionsAreNotRegistered) {
    EXPECT_FALSE(RegisterExtension("/opt/pintalux64", ".jpeg"));
    EXPECT_FALSE(std::filesystem::exists(list_));
}

TEST_F(ModAssocTest, OkInThePreferencesAssociatesBmpJpegAndGif) {
    Start();
    frmPrefs->Check2.Value(1);
    frmPrefs->Command1_Click();
    const std::string list = BytesOf(list_);
    for (const char* kind : {"image/bmp=", "image/jpeg=", "image/gif="})
        EXPECT_NE(list.find(kind), std::string::npos) << kind;
    EXPECT_EQ(StoredSetting("Associate"), "1");
}

TEST_F(ModAssocTest, NothingIsAssociatedBeforeOk) {
    SetSetting("Associate", "1");
    Start();
    EXPECT_EQ(frmPrefs->Check2.Value(), 1);
    frmPrefs->Check2.Value(0);
    frmPrefs->Check2.Value(1);
    frmPrefs.Unload();
    EXPECT_FALSE(std::filesystem::exists(list_));
    EXPECT_FALSE(std::filesystem::exists(entry_));
}

TEST_F(ModAssocTest, ToTakeTheTickAwayUndoesNoAssociation) {
    Start();
    frmPrefs->Check2.Value(1);
    frmPrefs->Command1_Click();
    const std::string associated = BytesOf(list_);
    frmPrefs->Check2.Value(0);
    frmPrefs->Command1_Click();
    EXPECT_EQ(BytesOf(list_), associated);
    EXPECT_EQ(StoredSetting("Associate"), "0");
}

} // namespace

} // namespace pintalux
