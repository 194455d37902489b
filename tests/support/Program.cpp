#include "support/Program.h"

#include "support/DialogScript.h"
#include "support/Hand.h"

#include "app/StopMessage.h"
#include "devices/frmScanWait.h"
#include "devices/sane/SaneCalls.h"
#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "document/Workspace.h"
#include "files/FileNames.h"
#include "imageops/Frames.h"
#include "imageops/frmAddBord.h"
#include "imageops/frmFiltBrow.h"
#include "imageops/frmResize.h"
#include "imageops/RandomNumbers.h"
#include "selection/ModClipHook.h"
#include "settings/frmPrefs.h"
#include "settings/RecentFiles.h"
#include "surface/system/App.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Pictures.h"
#include "surface/system/Printer.h"
#include "surface/system/TempNames.h"
#include "surface/window/Control_native.h"
#include "surface/window/Events.h"
#include "surface/window/Screen.h"
#include "tools/Wand.h"

#include <QApplication>
#include <QClipboard>
#include <QTimer>
#include <unistd.h>

namespace pintalux {

namespace {

// Every variable that a header of the program defines, as the program finds it at its start.
void ResetGlobals() {
    static const auto endProcess = EndProcess;
    static const auto stopClock = StopClock;
    static const auto endProgram = EndProgram;
    EndProcess = endProcess;
    StopClock = stopClock;
    EndProgram = endProgram;
    OpenScannerLibrary = []() -> void* { return &OpenScannerLibrary; }; // whether or not this machine has it
    TheScanPatience = {};
    ImageCount = 0;
    NewImageMode = false;
    NewWidth = NewHeight = 0;
    NewBackColor = kWhite;
    NewColorIndex = 0;
    NewCancelled = CloseCancelled = false;
    RulersOn = false;
    ZoomOldWidth = 0;
    ZoomRatio = 1;
    ScrollRatioV = ScrollRatioH = 0;
    CurrentTool = 0;
    FreeSelActive = FreePasteActive = PasteFloating = false;
    FiltIndex = FiltLevel = 0;
    FiltCancelled = false;
    BWizStyle = BWizSize = BWizHighlight = BWizShadow = BWizFrameSize = 0;
    BWizColour = kBlack;
    BWizOuterLine = BWizInnerLine = BWizCancelled = false;
    BordersAdded = false;
    ResizeRatio = 1;
    ResizeCancelled = false;
    ResizeHeightTwips = ResizeWidthTwips = 0;
    ClipCaptureOff = false;
    OldWindowProc = {};
    MRUlimit = 0;
    CommonDialog1 = {};
    TheRandomNumbers = RandomNumbers{};
    ProgramClosing = frmMainForm::Closing = SessionOver = false;
    KeepsRuns = false;
    ColorLock = WandStopped = false;
    CollectionCount = 0;
    LockWindowUpdate(nullptr);
    Screen.MousePointer(kPointerDefault);
    QApplication::clipboard()->clear(); // what `Clipboard` holds
    Printer().PrintToFileForTests("");
    FreeMemoryForTests({});
    TempFoldersForTests(true);
}

Qt::MouseButton ToolkitButton(int button) {
    if (button == kRightButton) return Qt::RightButton;
    return button == kMiddleButton ? Qt::MiddleButton : Qt::LeftButton;
}

Qt::MouseButtons ToolkitButtons(int buttons) {
    Qt::MouseButtons held = Qt::NoButton;
    for (const int button : {kLeftButton, kRightButton, kMiddleButton}) {
        if ((buttons & button) != 0) held |= ToolkitButton(button);
    }
    return held;
}

void Send(frmImage& image, QEvent::Type type, double x, double y, Qt::MouseButton button,
          Qt::MouseButtons held) {
    SendMouse(WidgetFor(image.Image1), type, {x, y}, button, held);
}

} // namespace

void ProgramTest::SetUp() {
    root_ = std::filesystem::temp_directory_path() / ("pintalux-test-" + std::to_string(getpid()));
    std::filesystem::remove_all(root_);
    for (const char* name : {"settings", "temporary", "program", "pictures", "state"}) {
        std::filesystem::create_directories(root_ / name);
    }
    setenv("XDG_CONFIG_HOME", (root_ / "settings").c_str(), 1);
    setenv("XDG_RUNTIME_DIR", (root_ / "program").c_str(), 1);
    setenv("XDG_STATE_HOME", (root_ / "state").c_str(), 1);
    setenv("TMPDIR", (root_ / "temporary").c_str(), 1);
    App.PathForTests((root_ / "program").string());
    App.CommandForTests("");
    ResetGlobals();
    OnUntrappedError = [this](const RuntimeError& error) { untrapped.push_back(error); };
}

void ProgramTest::TearDown() {
    for (const RuntimeError& error : untrapped)
        ADD_FAILURE() << "untrapped: " << error.Number() << " " << error.Text();
    if (frmMain.Loaded()) {
        frmPrefs->Check4.Value(1);
        frmMain.Unload();
    }
    frmPrefs.Unload();
    PassEvents();
    EndEventLoop();
    unsetenv("TMPDIR");
    ResetGlobals();
    std::filesystem::remove_all(root_);
}

void ProgramTest::Start() {
    *frmMain;
    frmMain->Timer2.Enabled(false);
    frmMain->Show();
}

void ProgramTest::StartWhole(const std::string& commandLine) {
    App.CommandForTests(commandLine);
    *frmMain;
    frmMain->Show();
    WaitFor([] { return !frmMain->Timer2.Enabled(); });
}

frmImage& ProgramTest::NewDocument(int width, int height, Colour background) {
    NewImageMode = true;
    NewWidth = width;
    NewHeight = height;
    NewBackColor = background;
    NewImageWindow();
    ActiveImage().Picsize();
    FitImageWindow();
    ActiveImage().Backup();
    return ActiveImage();
}

frmImage& ProgramTest::OpenPicture(const std::string& name, const Picture& picture) {
    const std::string path = Folder("pictures") + "/" + name;
    SavePicture(picture, path);
    OpenDocument(path);
    return ActiveImage();
}

std::string ProgramTest::Folder(const std::string& name) const {
    return (root_ / name).string();
}

std::vector<std::string> ProgramTest::StateFileNames() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(root_ / "temporary")) {
        if (entry.path().filename().string().starts_with("BI")) names.push_back(entry.path().string());
    }
    return names;
}

void Press(frmImage& image, double x, double y, int button) {
    Send(image, QEvent::MouseButtonPress, x, y, ToolkitButton(button), ToolkitButton(button));
}

void MoveTo(frmImage& image, double x, double y, int heldButtons) {
    Send(image, QEvent::MouseMove, x, y, Qt::NoButton, ToolkitButtons(heldButtons));
}

void Release(frmImage& image, double x, double y, int button) {
    Send(image, QEvent::MouseButtonRelease, x, y, ToolkitButton(button), Qt::NoButton);
}

void Drag(frmImage& image, const std::vector<std::pair<double, double>>& points) {
    Press(image, points.front().first, points.front().second);
    for (const auto& [x, y] : points)
        MoveTo(image, x, y);
    Release(image, points.back().first, points.back().second);
}

void PassEvents() {
    for (int i = 0; i < 3; ++i) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void EndEventLoop() {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    QCoreApplication::exec();
}

QWidget* Find(QWidget& parent, const std::string& name) {
    auto* found = parent.findChild<QWidget*>(QString::fromStdString(name));
    if (found == nullptr) ADD_FAILURE() << "no control " << name;
    return found;
}

void Type(QWidget& widget, const std::string& text) {
    for (const QChar c : QString::fromStdString(text)) {
        if (c == '\b') {
            Key(widget, Qt::Key_Backspace, "\b");
        } else if (c == '\n') {
            Key(widget, Qt::Key_Return, "\r");
        } else if (c == QChar(0x1b)) {
            Key(widget, Qt::Key_Escape);
        } else {
            Key(widget, c.toUpper().unicode(), QString(c));
        }
    }
}

void ClickWidget(QWidget& widget) {
    ClickAt(widget, QRectF(widget.rect()).center());
}

QWidget& WidgetFor(const Control& control) {
    return *WidgetOf(control);
}

Picture ImageOf(const frmImage& image) {
    return image.PicMerge.Image();
}

} // namespace pintalux
