// program_places [tool...]: where the controls of the main window lie once the tools of these buttons were
// chosen, for the tests that use the program with the hand. A line for each: name, left, top, width, height,
// in pixels from the inside's left top corner. The settings are the user's, so the window is as large as the
// program's.
#include "app/frmMain.h"
#include "surface/system/App.h"
#include "surface/window/Events.h"

#include <cstdio>
#include <cstdlib>
#include <QApplication>
#include <QMainWindow>

namespace {

QWidget* MainWindow() {
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (qobject_cast<QMainWindow*>(window) != nullptr) return window;
    }
    return nullptr;
}

void PrintPlaces(const QWidget& window) {
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const QString name = control->objectName();
        if (!control->isVisible() || name.isEmpty() || name.startsWith("qt_")) continue;
        const QPoint place = control->mapTo(&window, QPoint());
        std::printf("%s %d %d %d %d\n", qUtf8Printable(name), place.x(), place.y(), control->width(),
                    control->height());
    }
}

} // namespace

int main(int argc, char** argv) {
    using namespace pintalux;
    // Off the display: the next program there gets the same numbers for its windows, and a window manager
    // that is behind would take the end of ours for the end of theirs.
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Application application(argc, argv);
    App.CommandForTests(""); // the arguments name tools
    *frmMain;
    frmMain->Timer2.Enabled(false); // no first document
    frmMain->Show();
    DoEvents();
    frmMain->cmdTools_Click(0); // as the start leaves the pages
    frmMain->cmdTools_Click(4);
    for (int i = 1; i < argc; ++i) {
        ToolButton& button = frmMain->TB2.Buttons(argv[i]);
        button.Value(1);
        frmMain->TB2_ButtonClick(button);
    }
    DoEvents();
    const QWidget* const window = MainWindow();
    if (window == nullptr) return EXIT_FAILURE;
    PrintPlaces(*window);
    std::fflush(stdout);
    std::_Exit(EXIT_SUCCESS); // an exit would store the window's place
}
