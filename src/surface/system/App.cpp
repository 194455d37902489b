#include "surface/system/App.h"

#include "surface/system/ClipboardData_native.h"
#include "surface/system/Session_native.h"
#include "surface/system/StockTexts_native.h"
#include "surface/system/Theme_native.h"
#include "surface/window/Events.h"
#include "surface/window/TextPaste_native.h"

#include <clocale>
#include <cstdlib>
#include <exception>
#include <optional>
#include <QApplication>
#include <QLocale>
#include <QPalette>
#include <QTimer>
#include <QToolTip>
#include <QTranslator>

namespace pintalux {

namespace {

std::string joinedArguments;
std::optional<std::string> commandForTests;

/// The look of the desktop, as it is now: a theme may change while the program runs.
void FollowDesktop() {
    QApplication::setPalette(QPalette()); // what the desktop says, without what was made of it before
    const QPalette palette = PaletteFor(QApplication::palette());
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
}

/// No error of a handler may unwind the toolkit's own frames further than to here.
class GuardedApplication final : public QApplication {
  public:
    using QApplication::QApplication;
    /// The session manager ends the program so; nobody else does.
    bool event(QEvent* event) override {
        return (event->type() == QEvent::Quit && EndOfSession()) || QApplication::event(event);
    }
    bool notify(QObject* receiver, QEvent* event) override {
        try {
            // The poll ticks all day: what the toolkit asks about hands and windows, a tick need not be
            // asked.
            if (event->type() == QEvent::Timer && receiver->metaObject() == &QTimer::staticMetaObject)
                return receiver->event(event);
            if (event->type() == QEvent::ThemeChange && receiver->isWindowType()) FollowDesktop();
            return QApplication::notify(receiver, event);
        } catch (...) {
            RunEvent(EventKind::Ordinary,
                     [error = std::current_exception()] { std::rethrow_exception(error); });
            return true;
        }
    }
};

/// The toolkit prefers Wayland where it finds it; window places, the tray and picking from the screen need
/// X11.
class DisplayChoice {
  public:
    DisplayChoice() : made_(!qEnvironmentVariableIsSet("QT_QPA_PLATFORM") && OnADisplay()) {
        // Without an X display only Wayland is tried, as the other would complain in the terminal.
        if (made_)
            qputenv("QT_QPA_PLATFORM", qEnvironmentVariableIsSet("DISPLAY") ? "xcb;wayland" : "wayland");
    }
    /// Programs that we start choose for themselves.
    void TakeBack() const {
        if (made_) qunsetenv("QT_QPA_PLATFORM");
    }

  private:
    static bool OnADisplay() {
        return qEnvironmentVariableIsSet("DISPLAY") || qEnvironmentVariableIsSet("WAYLAND_DISPLAY");
    }
    bool made_;
};

DisplayChoice PrepareToolkit() {
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    // Every point of a stroke counts: the toolkit would drop those between two frames.
    QCoreApplication::setAttribute(Qt::AA_CompressHighFrequencyEvents, false);
    QLocale::setDefault(QLocale(QLocale::Portuguese, QLocale::Portugal));
    return {};
}

} // namespace

struct Application::Native {
    Native(int& argc, char** argv) : display(PrepareToolkit()), app(argc, argv) {
        display.TakeBack();
        std::setlocale(LC_NUMERIC,
                       "C"); // the toolkit takes the desktop's, and a decimal comma would enter our files
        QApplication::setApplicationName("pintalux64");
        // No display name: the toolkit would hang it on the title of every dialog.
        QGuiApplication::setDesktopFileName("pintalux64");
        QApplication::setQuitOnLastWindowClosed(false); // the main window's unload says when
        QApplication::setStyle(new LookStyle);
        FollowDesktop();
        LoadStockTexts(texts);
        QCoreApplication::installTranslator(&texts);
        AskForTextBy(TextOfOther);
    }
    DisplayChoice display;
    GuardedApplication app;
    QTranslator texts;
};

Application::Application(int& argc, char** argv) : native_(std::make_unique<Native>(argc, argv)) {
    joinedArguments.clear();
    // The toolkit has taken out its own options by now.
    for (int i = 1; i < argc; ++i) {
        if (i > 1) joinedArguments += ' ';
        joinedArguments += argv[i];
    }
}

Application::~Application() = default;

int Application::Run() {
    return QApplication::exec();
}

void Application::Quit(int code) {
    QApplication::exit(code);
}

std::string AppObject::Command() const {
    return commandForTests.value_or(joinedArguments);
}

void AppObject::CommandForTests(std::string command) {
    commandForTests = std::move(command);
}

} // namespace pintalux
