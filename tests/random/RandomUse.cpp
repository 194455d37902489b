#include "random/RandomUse.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "support/DialogAnswers.h"
#include "support/Documents.h"
#include "support/Hand.h"
#include "support/Pictures.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Pictures.h"
#include "surface/system/Printer.h"
#include "surface/window/Events.h"

#include <cmath>
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QCursor>
#include <QDialog>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QMouseEvent>
#include <QShortcut>
#include <QTimer>
#include <QWheelEvent>
#include <set>

namespace pintalux {

namespace {

constexpr int kMostDocuments = 5;
constexpr double kMostSide = 700; // pixels; what is larger is closed, since each look at it takes long
constexpr int kMostLooks = 60;    // at dialogs in one event

constexpr int kMostThreads = 24;
constexpr std::size_t kMostFiles = 64;
constexpr long kMostMemory = 3000; // megabytes, the sanitizers' own included
constexpr int kMostTimers = 60;
constexpr int kMostWidgets = 3000;

int Part(unsigned number, int count) {
    return count < 1 ? 0 : static_cast<int>(number % static_cast<unsigned>(count));
}

/// A place on an image or up to `beyond` pixels outside of it.
double Place(unsigned number, double length, int beyond) {
    return Part(number, static_cast<int>(length) + 2 * beyond) - beyond;
}

bool Active() {
    return ImageCount > 0 && frmMain->ActiveForm() != nullptr;
}

frmImage& Image() {
    return static_cast<frmImage&>(*frmMain->ActiveForm());
}

std::vector<frmImage*> Documents() {
    std::vector<frmImage*> documents;
    for (const auto& child : frmMain->Children())
        documents.push_back(static_cast<frmImage*>(child.get()));
    return documents;
}

template <class Widget>
QList<Widget*> Shown(QWidget& parent) {
    QList<Widget*> found;
    for (Widget* widget : parent.findChildren<Widget*>()) {
        if (widget->isVisible() && widget->isEnabled()) found.push_back(widget);
    }
    return found;
}

/// Tools that leave the image unlike its state at the end of a stroke: something floats, or nothing is
/// recorded.
bool EndsUnrecorded(int tool) {
    return tool == kSelectTool || tool == kFreeSelectTool || tool == kMagTool || tool == kTextTool ||
           tool == kPointerTool;
}

long MegabytesInUse() {
    std::ifstream in("/proc/self/statm");
    long pages = 0;
    long resident = 0;
    in >> pages >> resident;
    return resident * ::sysconf(_SC_PAGESIZE) >> 20;
}

int TimersInUse() {
    int timers = 0;
    for (const QWidget* widget : QApplication::topLevelWidgets()) {
        for (const QTimer* timer : widget->findChildren<QTimer*>())
            timers += timer->isActive() ? 1 : 0;
    }
    return timers;
}

} // namespace

void RandomUse::SetUp() {
    ProgramTest::SetUp();
    KeepsRuns = true;
    SavePicture(RandomPicture(60, 40, 1), Folder("pictures") + "/0.bmp");
    SavePicture(RandomPicture(120, 90, 2), Folder("pictures") + "/1.bmp");
    SavePicture(RandomPicture(1, 1, 3), Folder("pictures") + "/2.bmp");
    PutBytes(Folder("pictures") + "/3.bmp", "BM, but no picture");
    BmpToJpeg(Folder("pictures") + "/0.bmp", Folder("pictures") + "/4.jpg", 80);
    PutBytes(Folder("pictures") + "/5.klc", "[Colors]\r\n0= 255\r\n1= 65280\r\n");
    StartWhole(SomeFile(0));
    Printer().PrintToFileForTests(Folder("pictures") + "/page.pdf");
}

void RandomUse::TearDown() {
    untrapped.clear();
    for (frmImage* image : Documents())
        image->alreadysaved = true;
    ProgramTest::TearDown();
    EndRun();
}

std::string RandomUse::SomeFile(unsigned number) const {
    static const char* const kNames[] = {"0.bmp", "1.bmp", "2.bmp", "3.bmp", "4.jpg", "5.klc", "none.bmp"};
    return Folder("pictures") + "/" + kNames[number % std::size(kNames)];
}

int RandomUse::Do(const std::vector<RandomEvent>& events) {
    const DialogAnswers answers([this](QWidget& dialog) { AnswerAtRandom(dialog); });
    for (std::size_t i = 0; i < events.size(); ++i) {
        DoOne(events[i]);
        std::string broken = Broken();
        if (broken.empty()) continue;
        ADD_FAILURE() << "event " << i << ": " << broken << "\n" << TextOf({events[i]}) << story_;
        return static_cast<int>(i);
    }
    return -1;
}

void RandomUse::DoOne(const RandomEvent& event) {
    answers_ = event.numbers[3];
    story_ += event.act + " ";
    story_ = story_.substr(story_.size() < 300 ? 0 : story_.size() - 300);
    looks_ = 0;
    const Numbers& n = event.numbers;
    if (event.act == "tool") Tool(n);
    if (event.act == "drag") DragOnImage(n);
    if (event.act == "press" || event.act == "move" || event.act == "release") Hand(event.act, n);
    if (event.act == "piece") DragPiece(n);
    if (event.act == "menu") Menu(n);
    if (event.act == "bar") Bar(n);
    if (event.act == "key") Key(n);
    if (event.act == "image-key") ImageKey(n);
    if (event.act == "wheel") Wheel(n);
    if (event.act == "walk") Walk(n);
    if (event.act == "zoom") Zoom(n);
    if (event.act == "panel") Poke(WidgetFor(frmMain->ToolSettings), n);
    if (event.act == "colour") Poke(WidgetFor(frmMain->ColTB), n);
    if (event.act == "settings") {
        RunEvent(EventKind::Ordinary, frmMain->mnuFileSaveOptions.Click);
    }
    if (event.act == "scroll") Scroll(n);
    if (event.act == "window") Window(n);
    if (event.act == "open") Open(n);
    if (event.act == "close") Close(n);
    if (event.act == "hand-off") PutBytes(HandOffFile(), SomeFile(n[0]) + "\n");
    if (event.act == "foreign")
        Clipboard.SetData(RandomPicture(1 + Part(n[0], 80), 1 + Part(n[1], 60), n[2]));
    if (event.act == "wait") WaitFor([] { return false; }, 35);
    QCoreApplication::processEvents();
    KeepSmall();
}

void RandomUse::Tool(const Numbers& n) {
    const int tool = kFirstTool + Part(n[0], kLastTool - kFirstTool + 1);
    ToolButton& button = frmMain->TB2.Buttons(tool);
    button.Value(1);
    story_ += button.Key() + " ";
    RunEvent(EventKind::Ordinary, [&] { frmMain->TB2.ButtonClick(button); });
}

void RandomUse::InStroke(const frmImage& image) {
    for (const frmImage* document : Documents()) {
        if (document == &image) inStroke_[document] = document->ListBackup.ListCount();
    }
}

void RandomUse::Hand(const std::string& act, const Numbers& n) {
    if (!Active()) return;
    frmImage& image = Image();
    // A press falls on the image; what follows may lie anywhere. No button is held that was not pressed here.
    const int beyond = act == "press" ? 0 : 12;
    const double x = Place(n[0], std::max(1.0, image.Image1.Width()), beyond);
    const double y = Place(n[1], std::max(1.0, image.Image1.Height()), beyond);
    if (act == "press") {
        pressed_ = &image;
        button_ = n[2] % 5 == 0 ? kRightButton : kLeftButton;
        Press(image, x, y, button_);
    } else if (pressed_ != &image) {
        MoveTo(image, x, y, 0);
        return;
    } else if (act == "move") {
        MoveTo(image, x, y, button_);
    } else {
        pressed_ = nullptr;
        Release(image, x, y, button_);
        if (!EndsUnrecorded(CurrentTool)) return;
    }
    InStroke(image);
}

void RandomUse::DragOnImage(const Numbers& n) {
    if (!Active()) return;
    frmImage& image = Image();
    const int button = n[2] % 7 == 0 ? kRightButton : kLeftButton;
    double x = Place(n[0], std::max(1.0, image.Image1.Width()), 0);
    double y = Place(n[1], std::max(1.0, image.Image1.Height()), 0);
    pressed_ = nullptr;
    Press(image, x, y, button);
    std::mt19937 way(n[2]);
    const int steps = Part(n[3], 6);
    for (int i = 0; i < steps && Active() && &Image() == &image; ++i) {
        x += static_cast<double>(way() % 41) - 20;
        y += static_cast<double>(way() % 41) - 20;
        MoveTo(image, x, y, button);
    }
    // Tools that ask, such as the text tool, may have left another window in front.
    if (!Active() || &Image() != &image) return InStroke(image);
    Release(image, x, y, button);
    if (EndsUnrecorded(CurrentTool)) InStroke(image);
}

void RandomUse::DragPiece(const Numbers& n) {
    if (!Active()) return;
    frmImage& image = Image();
    Control* piece = nullptr;
    if (image.PicSelect.Visible()) piece = &image.SelectImage;
    if (image.PicFreeSelect.Visible()) piece = &image.PicFreeSelect;
    if (image.lbltext.Visible()) piece = &image.lbltext;
    if (piece == nullptr) return;
    InStroke(image);
    QWidget& widget = WidgetFor(*piece);
    const QPointF place(Part(n[0], std::max(1, widget.width())), Part(n[1], std::max(1, widget.height())));
    const QPoint screen(400, 300);
    QCursor::setPos(screen);
    SendMouse(widget, QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
    QCursor::setPos(screen + QPoint(Part(n[2], 81) - 40, Part(n[3], 61) - 30));
    WaitFor([] { return false; }, 25);
    // A drag may end nowhere.
    if (n[2] % 11 != 0) SendMouse(widget, QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
}

void RandomUse::Menu(const Numbers& n) {
    // Left out: what needs a device of this machine, and the end.
    static const std::set<std::string> kNotHere = {"mnuFileAquire", "mnuFileTSelect", "mnuFilePrinterSetup",
                                                   "mnuFileExit", "mnuFileSaveOptions"};
    const std::vector<MenuItem*>& items = frmMain->Items();
    MenuItem& item = *items[static_cast<std::size_t>(Part(n[0], static_cast<int>(items.size())))];
    if (!item.Enabled() || !item.Click || kNotHere.contains(item.Name())) return;
    if (Active() && (item.Name() == "mnuEditUndo" || item.Name() == "mnuEditRedo") && Image().factor != 1)
        stretched_[&Image()] = true;
    story_ += item.Name() + " ";
    RunEvent(EventKind::Ordinary, item.Click);
    if (item.Name() == "mnuEditCut") AfterCut();
}

void RandomUse::Bar(const Numbers& n) {
    const int place = kNewButton + Part(n[0], kRedoButton);
    ToolButton& button = frmMain->TB2.Buttons(place);
    if (button.Key().empty() || !button.Enabled()) return;
    if (Active() && (place == kUndoButton || place == kRedoButton) && Image().factor != 1)
        stretched_[&Image()] = true;
    story_ += button.Key() + " ";
    RunEvent(EventKind::Ordinary, [&] { frmMain->TB2.ButtonClick(button); });
    if (place == kCutButton) AfterCut();
}

// A cut takes no state.
void RandomUse::AfterCut() {
    if (Active()) InStroke(Image());
}

void RandomUse::Key(const Numbers& n) {
    static const int kKeys[] = {Qt::Key_Escape, Qt::Key_Return,   Qt::Key_Delete, Qt::Key_Left,
                                Qt::Key_Down,   Qt::Key_Tab,      Qt::Key_A,      Qt::Key_Space,
                                Qt::Key_F5,     Qt::Key_Backspace};
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr) widget = &WidgetFor(*frmMain);
    const int key = kKeys[n[0] % std::size(kKeys)];
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, key == Qt::Key_A ? "a" : "");
        QCoreApplication::sendEvent(widget, &event);
        widget = QApplication::focusWidget();
        if (widget == nullptr) return;
    }
}

// On the image: a hand that draws and carries by keys, and that may let go of a key or not.
void RandomUse::ImageKey(const Numbers& n) {
    if (!Active()) return;
    static const int kKeys[] = {
        Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Space, Qt::Key_Space,
        Qt::Key_Return,   Qt::Key_Return, Qt::Key_Escape,  Qt::Key_Delete, Qt::Key_Plus,  Qt::Key_Minus,
        Qt::Key_PageDown, Qt::Key_Home,   Qt::Key_Control, Qt::Key_C,      Qt::Key_S,     Qt::Key_M,
        Qt::Key_P,        Qt::Key_V,      Qt::Key_G,       Qt::Key_U,      Qt::Key_E,     Qt::Key_F};
    frmImage& image = Image();
    const int key = kKeys[n[0] % std::size(kKeys)];
    const Qt::KeyboardModifiers held = n[1] % 3 == 0 ? Qt::ShiftModifier : Qt::NoModifier;
    for (unsigned times = n[2] % 4 + 1; times > 0 && Active() && &Image() == &image; --times) {
        QKeyEvent press(QEvent::KeyPress, key, held);
        QCoreApplication::sendEvent(&WidgetFor(image.Image1), &press);
        if (n[3] % 3 == 0 || !Active() || &Image() != &image) continue;
        QKeyEvent release(QEvent::KeyRelease, key, held);
        QCoreApplication::sendEvent(&WidgetFor(image.Image1), &release);
    }
    if (Active() && &Image() == &image && (image.byKeys || EndsUnrecorded(CurrentTool))) InStroke(image);
}

void RandomUse::Wheel(const Numbers& n) {
    if (!Active()) return;
    frmImage& image = Image();
    static const Qt::KeyboardModifiers kHeld[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
    QWidget& widget = WidgetFor(n[0] % 5 == 0 ? static_cast<Control&>(image.HS) : image.PicFrame);
    const QPointF place(Part(n[1], std::max(1, widget.width())), Part(n[2], std::max(1, widget.height())));
    QWheelEvent event(place, widget.mapToGlobal(place), QPoint(),
                      QPoint(Part(n[3], 300) - 150, Part(n[2], 900) - 450), Qt::NoButton,
                      kHeld[n[0] % std::size(kHeld)], Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&widget, &event);
}

// F6 and Tab, and back.
void RandomUse::Walk(const Numbers& n) {
    for (QObject* child : WidgetFor(*frmMain).children()) {
        auto* shortcut = qobject_cast<QShortcut*>(child);
        if (shortcut != nullptr && n[0] % 2 == 0 && shortcut->key() == QKeySequence(Qt::Key_F6))
            emit shortcut->activated();
    }
    QWidget* widget = QApplication::focusWidget();
    if (widget == nullptr || n[0] % 2 == 0) return;
    QKeyEvent tab(QEvent::KeyPress, n[1] % 2 == 0 ? Qt::Key_Tab : Qt::Key_Backtab, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &tab);
}

void RandomUse::Zoom(const Numbers& n) {
    if (!Active()) return;
    const int level = Part(n[0], 16);
    const auto& click = n[1] % 2 == 0 ? frmMain->mnuZoomInX.Click : frmMain->mnuZoomOutX.Click;
    // Half of the time the view goes back to 1:1.
    RunEvent(EventKind::Ordinary, [&] { click(n[2] % 2 == 0 ? 0 : level); });
    stretched_.erase(&Image());
}

void RandomUse::Poke(QWidget& panel, const Numbers& n) {
    const QList<QWidget*> widgets = Shown<QWidget>(panel);
    if (widgets.empty()) return;
    QWidget& widget = *widgets[Part(n[0], static_cast<int>(widgets.size()))];
    const QPointF place(Part(n[1], std::max(1, widget.width())), Part(n[2], std::max(1, widget.height())));
    SendMouse(widget, QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
    ClickAt(widget, place, n[3] % 6 == 0 ? Qt::RightButton : Qt::LeftButton);
}

void RandomUse::Scroll(const Numbers& n) {
    if (!Active()) return;
    ScrollBar& bar = n[0] % 2 == 0 ? Image().HS : Image().VS;
    if (bar.Visible()) bar.Value(Part(n[1], static_cast<int>(bar.Max()) + 1));
}

void RandomUse::Window(const Numbers& n) {
    const std::vector<frmImage*> documents = Documents();
    if (documents.empty()) return;
    frmImage& image = *documents[static_cast<std::size_t>(Part(n[0], static_cast<int>(documents.size())))];
    RunEvent(EventKind::Ordinary, [&] {
        if (n[1] % 4 == 0) {
            image.WindowState(Part(n[2], 3));
        } else {
            image.WindowState(kNormal);
            image.Show();
        }
    });
}

void RandomUse::Open(const Numbers& n) {
    RunEvent(EventKind::Ordinary, [&] { OpenDocument(SomeFile(n[0])); });
}

void RandomUse::Close(const Numbers& n) {
    if (Active()) RunEvent(EventKind::Ordinary, frmMain->mnuFileClose.Click);
    if (n[0] % 8 != 0) return;
    for (frmImage* image : Documents()) {
        image->alreadysaved = true;
        image->Unload();
    }
}

/// Decides by itself what comes next: a button, a file, a value; at last the way out.
void RandomUse::AnswerAtRandom(QWidget& dialog) {
    answers_ = answers_ * 1103515245U + 12345U;
    const unsigned number = answers_ >> 8;
    ++looks_;
    if (looks_ > 2 * kMostLooks) {
        std::fprintf(stderr, "a dialog cannot be left: %s\n", dialog.windowTitle().toUtf8().constData());
        std::abort();
    }
    if (looks_ > kMostLooks) {
        if (auto* as = dynamic_cast<QDialog*>(&dialog)) return as->reject();
        dialog.close();
        return;
    }
    const QList<QAbstractButton*> buttons = Shown<QAbstractButton>(dialog);
    const auto press = [&] {
        if (!buttons.empty()) buttons[Part(number, static_cast<int>(buttons.size()))]->click();
    };
    if (dynamic_cast<QMessageBox*>(&dialog) != nullptr) return press();
    if (auto* files = dynamic_cast<QFileDialog*>(&dialog)) {
        if (number % 3 == 0) return files->reject();
        const std::string chosen = files->acceptMode() == QFileDialog::AcceptOpen
                                       ? SomeFile(number / 3)
                                       : Folder("pictures") + "/s" + std::to_string(number / 3 % 4);
        return ChoosesFile(chosen, 0)(dialog);
    }
    if (number % 4 == 0) {
        if (number / 4 % 2 == 0) {
            dialog.close();
            return;
        }
        for (QAbstractButton* button : buttons) {
            if (button->text().remove('&') == "OK") return button->click();
        }
        return press();
    }
    if (number % 4 == 1) return press();
    const QList<QWidget*> widgets = Shown<QWidget>(dialog);
    if (widgets.empty()) return;
    QWidget* widget = widgets[Part(number / 4, static_cast<int>(widgets.size()))];
    if (auto* text = dynamic_cast<QLineEdit*>(widget); text != nullptr && !text->isReadOnly()) {
        static const char* const kTexts[] = {"1", "40", "150", "0", "", "-3", "abc", "99999"};
        text->setText(kTexts[number / 64 % std::size(kTexts)]);
    } else if (auto* slider = dynamic_cast<QAbstractSlider*>(widget)) {
        slider->setValue(slider->minimum() + Part(number / 64, slider->maximum() - slider->minimum() + 1));
    } else if (auto* list = dynamic_cast<QComboBox*>(widget); list != nullptr && list->count() > 0) {
        list->setCurrentIndex(Part(number / 64, list->count()));
    } else {
        ClickAt(*widget, QPointF(Part(number / 64, std::max(1, widget->width())), widget->height() / 2.0));
    }
}

/// A long run stays quick: few documents, and small ones.
void RandomUse::KeepSmall() {
    const std::vector<frmImage*> documents = Documents();
    for (std::size_t i = 0; i < documents.size(); ++i) {
        frmImage& image = *documents[i];
        const bool large =
            image.PicMerge.PixelWidth() > kMostSide || image.PicMerge.PixelHeight() > kMostSide;
        const bool old = documents.size() > kMostDocuments && i + kMostDocuments < documents.size();
        if (!large && !old && image.ListBackup.ListCount() < 200) continue;
        image.alreadysaved = true;
        image.Unload();
    }
    if (ImageCount == 0) OpenDocument(SomeFile(0));
}

std::string RandomUse::Broken() {
    if (!untrapped.empty())
        return "an error nobody caught: " + std::to_string(untrapped[0].Number()) + " " + untrapped[0].Text();
    const std::vector<frmImage*> documents = Documents();
    if (static_cast<int>(documents.size()) != ImageCount) return "the documents are counted wrongly";
    const std::set<const frmImage*> open(documents.begin(), documents.end());
    std::erase_if(inStroke_, [&](const auto& entry) { return !open.contains(entry.first); });
    std::erase_if(stretched_, [&](const auto& entry) { return !open.contains(entry.first); });
    for (const frmImage* image : documents) {
        std::string broken = BrokenOf(*image);
        if (!broken.empty()) return image->Caption() + ": " + broken;
    }
    return BrokenBounds();
}

std::string RandomUse::BrokenOf(const frmImage& image) {
    const int count = image.ListBUorder.ListCount();
    const int cursor = image.ListBUorder.ListIndex();
    if (count == 0) {
        // A file that was no picture: its window was never laid out.
        stretched_[&image] = true;
        return {};
    }
    if (cursor < 0 || cursor >= count) return "the cursor is outside of the list";
    for (int i = 0; i < count; ++i) {
        const int place = std::stoi(image.ListBUorder.List(i));
        if (place < 0 || place >= image.ListBackup.ListCount()) return "an order without a state";
    }
    const std::string state = image.ListBackup.List(std::stoi(image.ListBUorder.List(cursor)));
    if (!States().Exists(state)) return "the current state is gone";
    const auto stroke = inStroke_.find(&image);
    if (stroke != inStroke_.end() && stroke->second != image.ListBackup.ListCount()) {
        inStroke_.erase(stroke);
    } else if (stroke != inStroke_.end()) {
        return {};
    }
    if (PieceFloats(image) || image.lbltext.Visible() || image.unrecorded || image.pathOpen) {
        inStroke_[&image] = image.ListBackup.ListCount();
        return {};
    }
    if (!(image.PicMerge.Image() == States().LoadState(state))) return "the image is not the current state";
    if (stretched_.contains(&image)) return {};
    const double width = image.PicMerge.PixelWidth() * image.factor;
    const double height = image.PicMerge.PixelHeight() * image.factor;
    if (std::abs(image.Image1.Width() - width) > 1e-6 || std::abs(image.Image1.Height() - height) > 1e-6)
        return "the display has " + std::to_string(image.Image1.Width()) + " by " +
               std::to_string(image.Image1.Height()) + " pixels, not the image's size times the zoom, " +
               std::to_string(width) + " by " + std::to_string(height);
    return {};
}

std::string RandomUse::BrokenBounds() const {
    if (const std::size_t threads = NamesIn("/proc/self/task").size(); threads > kMostThreads)
        return std::to_string(threads) + " threads";
    if (const std::size_t files = NamesIn("/proc/self/fd").size(); files > kMostFiles)
        return std::to_string(files) + " open files";
    if (const long memory = MegabytesInUse(); memory > kMostMemory)
        return std::to_string(memory) + " MB of memory";
    if (const int timers = TimersInUse(); timers > kMostTimers) return std::to_string(timers) + " timers";
    if (const auto widgets = QApplication::allWidgets().size(); widgets > kMostWidgets)
        return std::to_string(widgets) + " widgets";
    std::size_t states = 0;
    for (const frmImage* image : Documents())
        states += static_cast<std::size_t>(image->ListBackup.ListCount());
    if (const std::size_t files = StateFileNames().size(); files > states)
        return std::to_string(files) + " state files for " + std::to_string(states) + " states";
    return {};
}

} // namespace pintalux
