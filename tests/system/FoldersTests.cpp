// Where the files of the user lie, whatever the environment says.
#include "surface/system/Folders.h"

#include "system/Sandbox.h"

#include <pwd.h>

namespace pintalux {
namespace {

/// The environment names no folder but the home.
class FoldersTest : public testing::Test {
  protected:
    Variable config{"XDG_CONFIG_HOME", ""};
    Variable data{"XDG_DATA_HOME", ""};
    Variable state{"XDG_STATE_HOME", ""};
    Variable runtime{"XDG_RUNTIME_DIR", ""};
    Variable home{"HOME", "/casa/ana/"};
};

TEST_F(FoldersTest, LieBelowTheHomeFolder) {
    EXPECT_EQ(ConfigHome(), "/casa/ana/.config");
    EXPECT_EQ(SettingsFolder(), "/casa/ana/.config/Pintalux64");
    EXPECT_EQ(DataHome(), "/casa/ana/.local/share");
    EXPECT_EQ(DataFolder(), "/casa/ana/.local/share/Pintalux64");
    EXPECT_EQ(StateFolder(), "/casa/ana/.local/state/Pintalux64");
    EXPECT_EQ(RuntimeFolder(), "");
}

TEST_F(FoldersTest, FoldersThatTheEnvironmentNamesComeFirst) {
    const Variable ownConfig("XDG_CONFIG_HOME", "/c");
    const Variable ownData("XDG_DATA_HOME", "/d//");
    const Variable ownState("XDG_STATE_HOME", "/s");
    const Variable ownRuntime("XDG_RUNTIME_DIR", "/run/ana/");
    EXPECT_EQ(SettingsFolder(), "/c/Pintalux64");
    EXPECT_EQ(DataFolder(), "/d/Pintalux64");
    EXPECT_EQ(StateFolder(), "/s/Pintalux64");
    EXPECT_EQ(RuntimeFolder(), "/run/ana");
}

// A relative path would be another folder wherever the program is started.
TEST_F(FoldersTest, WithoutAHomeTheUsersOwnIsTaken) {
    const passwd* const user = ::getpwuid(::geteuid());
    if (user == nullptr) GTEST_SKIP() << "a user without a name";
    const std::string own = user->pw_dir;
    for (const char* none : {"", "casa/ana"}) {
        const Variable noHome("HOME", none);
        const Variable relative("XDG_CONFIG_HOME", none);
        EXPECT_EQ(SettingsFolder(), own + "/.config/Pintalux64") << none;
        EXPECT_EQ(DataFolder(), own + "/.local/share/Pintalux64") << none;
    }
    const Variable noHome("HOME", "");
    ::unsetenv("HOME");
    EXPECT_EQ(ConfigHome(), own + "/.config");
}

} // namespace
} // namespace pintalux
