#include "surface/system/App.h"

#include "inputs/ByHand.h"
#include "surface/window/Events.h"

#include <clocale>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <QLocale>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pintalux {

namespace {

/// A folder of the test's own in the place of the program's.
class AppTest : public testing::Test {
  protected:
    AppTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "pintalux-app-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        App.PathForTests(folder);
    }
    ~AppTest() override {
        App.PathForTests("");
        App.CommandForTests("");
        std::filesystem::remove_all(folder);
    }
    std::string folder;
};

/// A running instance: holds the lock of a folder.
class RunningInstance {
  public:
    explicit RunningInstance(const std::string& folder)
        : descriptor_(::open((folder + "/pintalux64.lock").c_str(), O_RDWR | O_CREAT, 0600)) {
        EXPECT_EQ(::flock(descriptor_, LOCK_EX | LOCK_NB), 0);
    }
    ~RunningInstance() { ::close(descriptor_); }
    RunningInstance(const RunningInstance&) = delete;
    RunningInstance& operator=(const RunningInstance&) = delete;

  private:
    int descriptor_;
};

/// What `question` answers in a second process.
template <class Question>
bool InAnotherProcess(Question question) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(question() ? 1 : 0);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST_F(AppTest, FirstInstanceSeesNoOther) {
    EXPECT_FALSE(App.PrevInstance());
    EXPECT_FALSE(App.PrevInstance());
}

TEST_F(AppTest, SecondInstanceSeesTheFirst) {
    ASSERT_FALSE(App.PrevInstance());
    EXPECT_TRUE(InAnotherProcess([&] {
        App.PathForTests(folder); // forgets the answer inherited
        return App.PrevInstance();
    }));
}

TEST_F(AppTest, LockDiesWithItsProcess) {
    EXPECT_FALSE(InAnotherProcess([] { return App.PrevInstance(); }));
    EXPECT_TRUE(std::filesystem::exists(folder + "/pintalux64.lock"));
    EXPECT_FALSE(App.PrevInstance());
}

TEST_F(AppTest, WhenItsHolderEndsTheLockGoesToTheNextThatAsks) {
    {
        const RunningInstance other(folder);
        EXPECT_TRUE(App.PrevInstance());
        EXPECT_TRUE(App.PrevInstance());
    }
    EXPECT_FALSE(App.PrevInstance());
    EXPECT_TRUE(InAnotherProcess([&] {
        App.PathForTests(folder);
        return App.PrevInstance();
    }));
}

// What the run folder is where $XDG_RUNTIME_DIR holds this text.
std::string RunFolderWith(const std::string& runtimeFolder) {
    const char* const before = std::getenv("XDG_RUNTIME_DIR");
    const std::string kept = before == nullptr ? "" : before;
    ::setenv("XDG_RUNTIME_DIR", runtimeFolder.c_str(), 1);
    App.PathForTests("");
    const std::string found = App.RunFolder();
    if (before == nullptr)
        ::unsetenv("XDG_RUNTIME_DIR");
    else
        ::setenv("XDG_RUNTIME_DIR", kept.c_str(), 1);
    return found;
}

TEST_F(AppTest, InstancesMeetInTheRuntimeFolderWhereverTheyLie) {
    EXPECT_EQ(RunFolderWith(folder), folder);
    EXPECT_EQ(RunFolderWith(folder + "/"), folder);
}

TEST_F(AppTest, ARuntimeFolderThatOthersMayWriteIsNotTaken) {
    std::filesystem::permissions(folder, std::filesystem::perms::all);
    const std::string found = RunFolderWith(folder);
    EXPECT_NE(found, folder);
    struct stat made = {};
    ASSERT_EQ(::stat(found.c_str(), &made), 0) << found;
    EXPECT_EQ(made.st_mode & 0777, 0700U);
    EXPECT_EQ(made.st_uid, ::getuid());
}

TEST_F(AppTest, PathHasNoTrailingSeparator) {
    App.PathForTests(folder + "/");
    EXPECT_EQ(App.Path(), folder);
}

TEST_F(AppTest, PathIsTheExecutablesFolderWhereThatIsWritable) {
    App.PathForTests("");
    EXPECT_EQ(App.Path(), std::filesystem::read_symlink("/proc/self/exe").parent_path().string());
}

TEST_F(AppTest, PathOfAUserWithoutThatRightIsMadeInTheDataFolder) {
    const std::string data = folder + "/share";
    const bool answered = InAnotherProcess([&] {
        App.PathForTests("");
        const std::filesystem::path executable =
            std::filesystem::read_symlink("/proc/self/exe").parent_path();
        std::filesystem::permissions(folder, std::filesystem::perms::all);
        if (::geteuid() == 0 && ::setuid(65534) != 0) return false;
        if (::access(executable.c_str(), W_OK) == 0) return true; // the user's own build folder
        ::setenv("XDG_DATA_HOME", data.c_str(), 1);
        struct stat made = {};
        return App.Path() == data + "/Pintalux64" && ::stat(App.Path().c_str(), &made) == 0 &&
               (made.st_mode & 0777) == 0700;
    });
    EXPECT_TRUE(answered);
}

TEST_F(AppTest, CommandCanBeGivenForTests) {
    App.CommandForTests("/home/ana/uma foto.jpg");
    EXPECT_EQ(App.Command(), "/home/ana/uma foto.jpg");
}

TEST(Application, SetsPortugueseAndKeepsTheDecimalPoint) {
    EXPECT_EQ(QLocale().territory(), QLocale::Portugal);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

TEST(Application, LookIsLightWhateverTheDesktopSays) {
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), QColor(0xF0, 0xF0, 0xF0));
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), QColor(Qt::white));
    EXPECT_EQ(QApplication::palette().color(QPalette::Text), QColor(Qt::black));
}

TEST(Application, ErrorInAToolkitCallbackGoesToTheTop) {
    class Thrower final : public QObject {
        bool event(QEvent* event) override {
            if (event->type() == QEvent::User) throw RuntimeError(kDeviceError);
            return QObject::event(event);
        }
    };
    const UntrappedErrors errors;
    Thrower thrower;
    QEvent event(QEvent::User);
    QApplication::sendEvent(&thrower, &event);
    EXPECT_EQ(errors.numbers, std::vector<int>{kDeviceError});
}

} // namespace

} // namespace pintalux
