#include "surface/system/App.h"

#include "surface/system/Session_native.h"
#include "surface/system/StockTexts_native.h"
#include "surface/window/Events.h"

#include <clocale>
#include <cstdlib>
#include <exception>
#include <optional>
#include <QApplication>
#include <QLocale>
#include <QPalette>
#include <QToolTip>
#include <QTranslator>

namespace pintalux {

namespace {

std::string joinedArguments;
std::optional<std::string> commandForTests;

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

void SetColour(QPalette& palette, QPalette::ColorRole role, QRgb on, QRgb off) {
    palette.setColor(role, QColor::fromRgb(on));
    palette.setColor(QPalette::Disabled, role, QColor::fromRgb(off));
}

/// One light look, whatever the desktop's theme: the colours around an image never change how it is judged.
QPalette LightPalette() {
    constexpr QRgb kFace = 0xF0F0F0;
    constexpr QRgb kInk = 0x000000;
    constexpr QRgb kFadedInk = 0x6D6D6D; // still 4.5 : 1 on the face
    constexpr QRgb kPaper = 0xFFFFFF;
    QPalette palette{QColor::fromRgb(kFace)};
    SetColour(palette, QPalette::Window, kFace, kFace);
    SetColour(palette, QPalette::WindowText, kInk, kFadedInk);
    SetColour(palette, QPalette::Base, kPaper, kFace);
    SetColour(palette, QPalette::AlternateBase, 0xF7F7F7, kFace);
    SetColour(palette, QPalette::Text, kInk, kFadedInk);
    SetColour(palette, QPalette::Button, kFace, kFace);
    SetColour(palette, QPalette::ButtonText, kInk, kFadedInk);
    SetColour(palette, QPalette::BrightText, kPaper, kPaper);
    SetColour(palette, QPalette::PlaceholderText, kFadedInk, kFadedInk);
    SetColour(palette, QPalette::Light, kPaper, kPaper);
    SetColour(palette, QPalette::Midlight, 0xE3E3E3, 0xE3E3E3);
    SetColour(palette, QPalette::Mid, 0xB8B8B8, 0xB8B8B8);
    SetColour(palette, QPalette::Dark, 0x9A9A9A, 0xB0B0B0);
    SetColour(palette, QPalette::Shadow, 0x696969, 0x9A9A9A);
    SetColour(palette, QPalette::Highlight, 0x336699, 0xB0B0B0);
    SetColour(palette, QPalette::HighlightedText, kPaper, kPaper);
    SetColour(palette, QPalette::ToolTipBase, 0xFFFFEE, 0xFFFFEE);
    SetColour(palette, QPalette::ToolTipText, kInk, kInk);
    SetColour(palette, QPalette::Link, 0x1A5A9E, kFadedInk);
    SetColour(palette, QPalette::LinkVisited, 0x6B3D8C, kFadedInk);
    return palette;
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
        QApplication::setStyle("Fusion");
        QApplication::setPalette(LightPalette());
        QToolTip::setPalette(LightPalette());
        LoadStockTexts(texts);
        QCoreApplication::installTranslator(&texts);
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
