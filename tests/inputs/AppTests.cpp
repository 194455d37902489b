#include "surface/system/App.h"
#include "surface/system/Theme_native.h"

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
  public:
    ~AppTest() override {
        App.PathForTests("");
        App.CommandForTests("");
        std::filesystem::remove_all(folder);
    }

  protected:
    AppTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "pintalux-app-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        App.PathForTests(folder);
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

// Another one that waits for the place of one that has ended comes before a start that only looks.
TEST_F(AppTest, LookingForOthersTakesNoLock) {
    EXPECT_FALSE(App.OthersRun());
    EXPECT_FALSE(InAnotherProcess([&] {
        App.PathForTests(folder);
        return App.PrevInstance();
    }));
    const RunningInstance other(folder);
    EXPECT_TRUE(App.OthersRun());
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

// Others may look into it, as into most folders of a user; they may not put anything there.
TEST_F(AppTest, WhoMayWriteInTheRuntimeFolderDecides) {
    using std::filesystem::perms;
    for (const auto& [rights, taken] : {std::pair(0700, true),
                                        {0755, true},
                                        {0711, true},
                                        {0720, false},
                                        {0702, false},
                                        {0500, ::geteuid() == 0}}) {
        std::filesystem::permissions(folder, static_cast<perms>(rights));
        EXPECT_EQ(RunFolderWith(folder) == folder, taken) << std::oct << rights;
    }
    std::filesystem::permissions(folder, perms::owner_all);
}

TEST_F(AppTest, TheDesktopKnowsItByItsEntry) {
    EXPECT_EQ(QGuiApplication::desktopFileName(), "pintalux64");
}

// Before the main window shows, and behind it, the last window may close: the splash, a message.
TEST_F(AppTest, NoWindowThatClosesEndsTheProgramByItself) {
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
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

QPalette DesktopOf(QRgb window, QRgb base, QRgb text, QRgb highlight) {
    QPalette desktop{QColor(window)};
    for (const auto role : {QPalette::Window, QPalette::Button})
        desktop.setColor(role, QColor(window));
    desktop.setColor(QPalette::Base, QColor(base));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        desktop.setColor(role, QColor(text));
    desktop.setColor(QPalette::Highlight, QColor(highlight));
    desktop.setColor(QPalette::HighlightedText, Qt::white);
    return desktop;
}

TEST(Application, LookFollowsTheDesktop) {
    const QPalette dark = PaletteFor(DesktopOf(0x2B2D30, 0x1E1F22, 0xDFE1E5, 0x3584E4));
    EXPECT_EQ(dark.color(QPalette::Window), QColor(0x2B2D30));
    EXPECT_EQ(dark.color(QPalette::Base), QColor(0x1E1F22));
    EXPECT_EQ(dark.color(QPalette::WindowText), QColor(0xDFE1E5));
    EXPECT_EQ(dark.color(QPalette::Highlight), QColor(0x3584E4));
    EXPECT_EQ(QApplication::palette(), PaletteFor(QApplication::palette())); // the running program's
}

TEST(Application, TextIsReadInEveryTheme) {
    // A desktop whose own text is too faint, and some of odd colours.
    for (const QPalette& desktop : {DesktopOf(0xEFEFEF, 0xFFFFFF, 0x000000, 0x308CC6),
                                    DesktopOf(0x2B2D30, 0x1E1F22, 0xDFE1E5, 0x2D6FB3),
                                    DesktopOf(0xF6F5F4, 0xFFFFFF, 0xA0A0A0, 0x99C1F1),
                                    DesktopOf(0x808080, 0x707070, 0xC0C0C0, 0x808000),
                                    DesktopOf(0x073642, 0x002B36, 0x839496, 0x268BD2),
                                    DesktopOf(0x000000, 0x000000, 0xFFFF00, 0x00FF00),
                                    DesktopOf(0x4A3A6A, 0xFFF0C0, 0x101010, 0xFFFF80)}) {
        const QPalette made = PaletteFor(desktop);
        // Frames around what is chosen or has the focus.
        EXPECT_GE(ContrastOf(made.color(QPalette::Highlight), made.color(QPalette::Window)), 3);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            SCOPED_TRACE(testing::Message()
                         << made.color(QPalette::Window).name().toStdString() << ' ' << group);
            const auto contrast = [&](QPalette::ColorRole text, QPalette::ColorRole ground) {
                return ContrastOf(made.color(group, text), made.color(group, ground));
            };
            EXPECT_GE(contrast(QPalette::WindowText, QPalette::Window), 4.5);
            EXPECT_GE(contrast(QPalette::Text, QPalette::Base), 4.5);
            EXPECT_GE(contrast(QPalette::ButtonText, QPalette::Button), 4.5);
            EXPECT_GE(contrast(QPalette::HighlightedText, QPalette::Highlight), 4.5);
            EXPECT_GE(contrast(QPalette::ToolTipText, QPalette::ToolTipBase), 4.5);
            EXPECT_GE(contrast(QPalette::Link, QPalette::Base), 4.5);
        }
    }
}

TEST(Application, ChosenTextStaysWhiteInADarkTheme) {
    const QPalette dark = PaletteFor(DesktopOf(0x2B2D30, 0x1E1F22, 0xDFE1E5, 0x2D6FB3));
    EXPECT_EQ(dark.color(QPalette::HighlightedText), QColor(Qt::white));
}

TEST(Application, ContrastIsThatOfTheGuidelines) {
    EXPECT_DOUBLE_EQ(ContrastOf(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(ContrastOf(Qt::white, Qt::white), 1);
    EXPECT_NEAR(ContrastOf(QColor(0x767676), Qt::white), 4.54,
                0.01); // the lightest grey that is read on white
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
