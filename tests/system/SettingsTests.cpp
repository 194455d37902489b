#include "surface/system/Settings.h"

#include "system/Sandbox.h"

#include <cerrno>

namespace pintalux {
namespace {

using namespace std::string_literals;

/// The stores in a folder of the test's own.
class Settings : public testing::Test {
  protected:
    static std::string Get(const std::string& key) {
        return GetSetting("Pintalux64", "Settings", key, "default");
    }
    static void Save(const std::string& key, const std::string& text) {
        SaveSetting("Pintalux64", "Settings", key, text);
    }

    Sandbox box;
    const Variable config{"XDG_CONFIG_HOME", box.Folder()};
    const std::string file = box / "Pintalux64/settings.ini";
    const std::string machineFile = box / "Pintalux64/machine.ini";
};

TEST_F(Settings, MissingGivesTheDefault) {
    EXPECT_EQ(Get("MainLeft"), "default");
    EXPECT_EQ(GetSetting("Pintalux64", "Settings", "MainLeft"), "");
}

TEST_F(Settings, SavedTextComesBack) {
    Save("MainLeft", "1000");
    Save("Rulers", "True");
    Save("MainLeft", "-15");
    EXPECT_EQ(Get("MainLeft"), "-15");
    EXPECT_EQ(Get("Rulers"), "True");
    EXPECT_EQ(BytesOf(file), "[Pintalux64\\Settings]\nMainLeft=-15\nRulers=True\n");
}

TEST_F(Settings, AnyTextComesBack) {
    for (const std::string& text :
         {""s, " "s, "  both ends  "s, "\tx\t"s, "a=b;c[d]"s, "C:\\new\\x41"s, "line\nnext\r\nlast\n"s, "\\"s,
          "\\\\n"s, "\"quoted\""s, "ação €"s, "zero\0inside"s, "#"s, "[Section]"s, "\xFF\xFE no text"s}) {
        Save("Key", text);
        EXPECT_EQ(Get("Key"), text);
    }
}

// The files of earlier versions are read by later ones.
TEST_F(Settings, AnEscapeIsTwoHexadecimalDigits) {
    Save("Key", "\tx\x0F\x1E ");
    EXPECT_EQ(BytesOf(file), "[Pintalux64\\Settings]\nKey=\\x09x\\x0F\\x1E\\x20\n");
    PutBytes(file, "[Pintalux64\\Settings]\nKey=\\x09\\x41\\xA0\\xFF\n");
    EXPECT_EQ(Get("Key"), "\tA\xA0\xFF");
}

TEST_F(Settings, AnyNameComesBack) {
    for (const std::string& key : {"a=b"s, ";comment"s, "[x]"s, "line\nend"s, "ação"s, "back\\slash"s}) {
        SaveSetting("App]", "Sec\ntion", key, key + "!");
        EXPECT_EQ(GetSetting("App]", "Sec\ntion", key), key + "!");
    }
}

TEST_F(Settings, SectionsAndApplicationsAreApart) {
    SaveSetting("A", "One", "Key", "1");
    SaveSetting("A", "Two", "Key", "2");
    SaveSetting("B", "One", "Key", "3");
    EXPECT_EQ(GetSetting("A", "One", "Key"), "1");
    EXPECT_EQ(GetSetting("A", "Two", "Key"), "2");
    EXPECT_EQ(GetSetting("B", "One", "Key"), "3");
}

TEST_F(Settings, CaseOfNamesDoesNotMatter) {
    Save("Undoredo", "0");
    EXPECT_EQ(GetSetting("pintalux64", "SETTINGS", "UndoRedo"), "0");
}

TEST_F(Settings, EditByHandIsSeenAtTheNextRead) {
    Save("MRUlist", "1");
    PutBytes(file, "\xEF\xBB\xBF[Pintalux64\\Settings]\r\n  MRUlist  =  abc \r\n");
    EXPECT_EQ(Get("MRUlist"), "abc");
}

TEST_F(Settings, OtherLinesStay) {
    std::filesystem::create_directory(box / "Pintalux64");
    PutBytes(file, "; my notes\nnonsense\n\n[Pintalux64\\Settings]\n; more\nA=1\n\n[Other]\nB=2\n");
    Save("C", "3");
    EXPECT_EQ(BytesOf(file),
              "; my notes\nnonsense\n\n[Pintalux64\\Settings]\n; more\nA=1\nC=3\n\n[Other]\nB=2\n");
}

TEST_F(Settings, CorruptFileGivesDefaultsAndTakesValues) {
    std::filesystem::create_directory(box / "Pintalux64");
    PutBytes(file, "\0\1\2[[[===\n]=\n\xFF"s);
    EXPECT_EQ(Get("A"), "default");
    Save("A", "1");
    EXPECT_EQ(Get("A"), "1");
}

TEST_F(Settings, SeveralValuesAreOneWrite) {
    Save("A", "0");
    FailFileOperation(0, 0);
    Save("A", "1");
    const int one = FileOperationCount();
    FailFileOperation(0, 0);
    SaveSettings("Pintalux64", "Settings", {{"A", "2"}, {"B", "3"}, {"C", "4"}});
    EXPECT_EQ(FileOperationCount(), one);
    EXPECT_EQ(Get("A") + Get("B") + Get("C"), "234");
}

TEST_F(Settings, EveryFailingStepRaises75AndLeavesTheOldFile) {
    std::string before;
    int written = 0;
    const int count = FailEachOperation(
        ENOSPC,
        [&] {
            std::filesystem::create_directory(box / "Pintalux64");
            before = "[Pintalux64\\Settings]\nA=1\n";
            PutBytes(file, before);
            Save("A", "2");
        },
        [&](int n, int error) {
            written += error == 0 ? 1 : 0;
            if (error != 0) {
                EXPECT_EQ(error, 75) << "operation " << n;
                EXPECT_EQ(BytesOf(file), before) << "operation " << n;
            }
            EXPECT_EQ(std::distance(std::filesystem::directory_iterator(box / "Pintalux64"), {}), 1);
        });
    EXPECT_GE(count, 10);
    EXPECT_EQ(written, 1) << "only the mode of the new file may be refused";
}

TEST_F(Settings, UnreadableFileGivesTheDefaultAndIsNotOverwritten) {
    Save("A", "1");
    FailFileOperation(1, EACCES);
    EXPECT_EQ(Get("A"), "default");
    FailFileOperation(1, EACCES);
    EXPECT_EQ(ErrorOf([] { Save("B", "2"); }), 75);
    EXPECT_EQ(Get("A"), "1");
}

TEST_F(Settings, AFileBeyondFourMegabytesIsNoneOfOursAndStaysAsItIs) {
    constexpr std::size_t kLongest = std::size_t{4} << 20;
    Save("A", "1");
    std::string text = BytesOf(file);
    text.resize(kLongest, ';');
    PutBytes(file, text);
    EXPECT_EQ(Get("A"), "1");
    PutBytes(file, text + ";");
    EXPECT_EQ(Get("A"), "default");
    EXPECT_EQ(ErrorOf([] { Save("B", "2"); }), 75);
    EXPECT_TRUE(BytesOf(file) == text + ";");
}

TEST_F(Settings, FolderIsForTheUserAlone) {
    Save("A", "1");
    EXPECT_EQ(ModeOf(box / "Pintalux64"), 0700U);
}

TEST_F(Settings, RelativeFolderIsIgnored) {
    const Sandbox home;
    const std::string oldHome = std::getenv("HOME") != nullptr ? std::getenv("HOME") : "/";
    ::setenv("XDG_CONFIG_HOME", "relative", 1);
    ::setenv("HOME", home.Folder().c_str(), 1);
    Save("A", "1");
    ::setenv("HOME", oldHome.c_str(), 1);
    EXPECT_EQ(BytesOf(home / ".config/Pintalux64/settings.ini"), "[Pintalux64\\Settings]\nA=1\n");
}

using MachineStore = Settings;

const char* const kKey = "Software\\App Paths\\Pintalux64";

TEST_F(MachineStore, ValuesComeBackByName) {
    EXPECT_EQ(ReadMachineValue(kKey, "MRU0", "none"), "none");
    EXPECT_TRUE(WriteMachineValue(kKey, "MRU0", "/home/ana/férias.bmp"));
    EXPECT_TRUE(WriteMachineValue(kKey, "MRU1", "/tmp/ x.jpg "));
    EXPECT_EQ(ReadMachineValue(kKey, "MRU0"), "/home/ana/férias.bmp");
    EXPECT_EQ(ReadMachineValue(kKey, "MRU1"), "/tmp/ x.jpg ");
    EXPECT_EQ(ReadMachineValue("Software\\Other", "MRU0", "none"), "none");
}

TEST_F(MachineStore, DeletedValueIsGone) {
    WriteMachineValue(kKey, "MRU0", "a");
    WriteMachineValue(kKey, "MRU1", "b");
    EXPECT_TRUE(DeleteMachineValue(kKey, "MRU0"));
    EXPECT_EQ(ReadMachineValue(kKey, "MRU0", "none"), "none");
    EXPECT_EQ(ReadMachineValue(kKey, "MRU1"), "b");
}

TEST_F(MachineStore, DeletingWhatIsNotThereGivesFalse) {
    EXPECT_FALSE(DeleteMachineValue(kKey, "MRU0"));
    EXPECT_TRUE(box.Names().empty());
}

TEST_F(MachineStore, EveryFailingStepGivesFalseAndLeavesTheOldFile) {
    const std::string before = "[Software\\App Paths\\Pintalux64]\nMRU0=old\n";
    std::filesystem::create_directory(box / "Pintalux64");
    bool result = false;
    int written = 0;
    const auto expectFailure = [&](int n, int error) {
        EXPECT_EQ(error, 0) << "operation " << n;
        EXPECT_EQ(BytesOf(machineFile) != before, result) << "operation " << n;
        written += result ? 1 : 0;
    };
    FailEachOperation(
        ENOSPC,
        [&] {
            PutBytes(machineFile, before);
            result = WriteMachineValue(kKey, "MRU0", "new");
        },
        expectFailure);
    FailEachOperation(
        ENOSPC,
        [&] {
            PutBytes(machineFile, before);
            result = DeleteMachineValue(kKey, "MRU0");
        },
        expectFailure);
    EXPECT_EQ(written, 2) << "only the mode of the new file may be refused, once each";
}

} // namespace
} // namespace pintalux
