// Every window of the program as a text: names, places, captions, what screen readers hear, tips, ticks. The
// texts are kept in tests/data/windows; a change that is meant is taken over by running with PINTALUX_KEEP=1
// and read in the difference.
#include "support/DialogAnswers.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Folders.h"
#include "support/Hand.h"
#include "support/Program.h"
#include "support/Waiting.h"

#include "app/Dialogs.h"
#include "app/frmMain.h"
#include "document/Selection.h"
#include "surface/system/Clipboard.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QMetaEnum>
#include <QPushButton>
#include <QScrollBar>
#include <QTabBar>
#include <QWidget>
#include <regex>
#include <set>
#include <sstream>
#include <tuple>

namespace pintalux {
namespace {

std::string Quoted(const QString& text) {
    QString line = text;
    return '"' + line.replace('\n', "\\n").toStdString() + '"';
}

/// The ranks among the siblings' coordinates that a widget covers: a grid's rows or columns, whatever the
/// font's size.
template <class Coordinate>
std::string Ranks(const QWidget& widget, Coordinate coordinate, int last = 0) {
    std::set<int> places;
    for (const QObject* sibling : widget.parentWidget()->children()) {
        const auto* other = qobject_cast<const QWidget*>(sibling);
        if (other && !other->isWindow() && !other->objectName().isEmpty()) places.insert(coordinate(*other));
    }
    const auto first = places.find(coordinate(widget));
    const auto rank = std::distance(places.begin(), first);
    const auto covered = std::distance(first, places.upper_bound(std::max(last, *first)));
    return std::to_string(rank) + (covered > 1 ? " to " + std::to_string(rank + covered - 1) : "");
}

/// What a layout may not do to the widget, where somebody said so, and to which side it keeps it.
std::string LimitsOf(const QWidget& widget) {
    std::ostringstream text;
    const QSize least = widget.minimumSize();
    const QSize most = widget.maximumSize();
    // Those of labels, and of bars beside text boxes, follow the font.
    if (!qobject_cast<const QLabel*>(&widget) && !qobject_cast<const QScrollBar*>(&widget)) {
        if (least != QSize(0, 0)) text << " least " << least.width() << 'x' << least.height();
        if (most.width() < QWIDGETSIZE_MAX) text << " most " << most.width() << 'x' << most.height();
    }
    const QLayout& layout = *widget.parentWidget()->layout();
    for (int i = 0; i < layout.count(); ++i) {
        const Qt::Alignment kept = layout.itemAt(i)->alignment();
        if (layout.itemAt(i)->widget() != &widget || !kept) continue;
        text << " kept "
             << QMetaEnum::fromType<Qt::Alignment>().valueToKeys(static_cast<int>(kept)).toStdString();
    }
    return text.str();
}

std::string PlaceOf(const QWidget& widget) {
    std::ostringstream text;
    if (widget.parentWidget()->layout()) {
        text << "row " << Ranks(widget, [](const QWidget& w) { return w.geometry().center().y() / 4; })
             << " column "
             << Ranks(
                    widget, [](const QWidget& w) { return w.x() / 4; }, widget.geometry().right() / 4)
             << LimitsOf(widget);
    } else {
        text << widget.x() << ',' << widget.y() << ' ' << widget.width() << 'x' << widget.height();
    }
    return text.str();
}

std::string ValuesOf(const QWidget& widget) {
    std::string text;
    for (const char* name : {"minimum", "maximum", "value", "singleStep", "pageStep", "tickInterval"}) {
        const QVariant value = widget.property(name);
        if (value.isValid()) text += std::string(" ") + name + " " + value.toString().toStdString();
    }
    for (const char* name : {"wordWrap", "autoRepeat", "flat", "tracking", "textVisible"})
        if (widget.property(name).toBool()) text += std::string(" ") + name;
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        if ((label->alignment() & Qt::AlignRight) != 0) text += " to the right";
        if ((label->alignment() & Qt::AlignHCenter) != 0) text += " in the middle";
        if (label->buddy()) text += " of " + label->buddy()->objectName().toStdString();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        if (!button->icon().pixmap(button->iconSize()).isNull()) text += " with a picture";
    }
    if (const auto* button = qobject_cast<const QPushButton*>(&widget)) {
        if (button->isDefault()) text += " by Enter";
        if (button->property("cancelsDialog").toBool()) text += " by Escape";
    }
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) {
        constexpr int kUnlimited = 32767;
        if (line->maxLength() < kUnlimited) text += " of " + std::to_string(line->maxLength()) + " letters";
        if (line->isReadOnly()) text += " read only";
    }
    if (widget.testAttribute(Qt::WA_SetFont)) {
        if (widget.font().bold()) text += " bold";
        if (widget.font().italic()) text += " italic";
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        text += " choice " + std::to_string(box->currentIndex()) + " of";
        // The fonts of the machine are its own.
        if (box->objectName() == "ComboFont") return text + " all fonts";
        for (int i = 0; i < box->count(); ++i)
            text += " " + Quoted(box->itemText(i));
    }
    if (const auto* list = qobject_cast<const QListWidget*>(&widget)) {
        for (int i = 0; i < list->count(); ++i)
            text += " " + Quoted(list->item(i)->text());
    }
    return text;
}

/// As what a screen reader announces the control, and what it can be asked to do.
std::string RoleOf(const QWidget& widget) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    std::string text = QMetaEnum::fromType<QAccessible::Role>().valueToKey(spoken->role());
    if (spoken->state().checkable) text += spoken->state().checked ? " ticked" : " clear";
    if (QAccessibleActionInterface* actions = spoken->actionInterface())
        if (actions->actionNames().contains(QAccessibleActionInterface::pressAction())) text += " to press";
    return text;
}

/// The height of the menu bar, and so what it leaves to the window's own parts, is the font's: these tell no
/// place.
std::string LineOf(const QWidget& widget, bool ofWindow) {
    std::string line = widget.objectName().toStdString();
    if (!ofWindow || widget.parentWidget()->layout()) line += " at " + PlaceOf(widget);
    const auto add = [&line](const char* name, const QString& text) {
        if (!text.isEmpty()) line += std::string(" ") + name + " " + Quoted(text);
    };
    for (const char* caption : {"text", "title"})
        add("caption", widget.property(caption).toString());
    add("spoken", widget.accessibleName());
    line += " as " + RoleOf(widget);
    add("tip", widget.toolTip());
    line += ValuesOf(widget);
    if (widget.testAttribute(Qt::WA_SetCursor) && widget.cursor().shape() != Qt::IBeamCursor)
        line += " pointer " + std::to_string(static_cast<int>(widget.cursor().shape()));
    if (!widget.isEnabled()) line += " off";
    if (!widget.isVisibleTo(widget.parentWidget())) line += " hidden";
    return line;
}

void Describe(const QWidget& parent, int depth, std::string& text) {
    for (const QObject* child : parent.children()) {
        const auto* widget = qobject_cast<const QWidget*>(child);
        // Documents are windows of their own; what has no name, and a tab bar's buttons, are the toolkit's.
        if (!widget || widget->isWindow() || qobject_cast<const QMenu*>(widget) ||
            qobject_cast<const QMdiSubWindow*>(widget))
            continue;
        const bool named = !widget->objectName().isEmpty() && !widget->objectName().startsWith("qt_") &&
                           !qobject_cast<const QTabBar*>(&parent);
        if (named)
            text +=
                std::string(2 * static_cast<std::size_t>(depth), ' ') + LineOf(*widget, depth == 1) + "\n";
        Describe(*widget, depth + (named ? 1 : 0), text);
    }
}

/// The order in which the Tab key goes through a window, what is disabled or hidden now included.
std::string TabOrderOf(const QWidget& window) {
    std::string text;
    for (const QWidget* at = window.nextInFocusChain(); at != &window; at = at->nextInFocusChain()) {
        if (at->window() != &window || (at->focusPolicy() & Qt::TabFocus) == 0) continue;
        if (qobject_cast<const QTabBar*>(at->parentWidget())) continue; // the toolkit's own
        const QString name = at->objectName();
        if (!name.isEmpty() && !name.startsWith("qt_")) text += " " + name.toStdString();
    }
    return text.empty() ? text : "tab" + text + "\n";
}

std::string TextOf(QWidget& window) {
    window.ensurePolished();
    // A dialog that does not show has no size yet. The frames in it have theirs behind it.
    if (!window.isVisible() && window.layout()) window.adjustSize();
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.prepend(&window);
    for (QWidget* widget : widgets)
        if (widget->layout()) widget->layout()->activate();
    std::string text = "window " + Quoted(window.windowTitle());
    if (!window.layout())
        text += " of " + std::to_string(window.width()) + "x" + std::to_string(window.height());
    text += window.windowIcon().isNull() ? "\n" : " with a picture\n";
    for (const QLayout* layout : window.findChildren<QLayout*>()) {
        const QString owner = layout->parentWidget()->objectName();
        if (owner.isEmpty() || owner.startsWith("qt_")) continue; // the toolkit's own
        const QMargins margins = layout->contentsMargins();
        text += "layout of " + Quoted(owner) + " spacing " + std::to_string(layout->spacing()) + " margins ";
        for (const int margin : {margins.left(), margins.top(), margins.right(), margins.bottom()})
            text += std::to_string(margin) + " ";
        text += "size by " + std::to_string(layout->sizeConstraint()) + "\n";
    }
    Describe(window, 1, text);
    text += TabOrderOf(window);
    return text;
}

/// What the choice of each entry of a list changes in the text of its window, line by line and without
/// places.
std::string ChoicesOf(QWidget& window) {
    const auto linesOf = [](QWidget& shown) {
        static const std::regex place(" at row \\d+ column \\d+( to \\d+)?");
        return std::istringstream(std::regex_replace(TextOf(shown), place, ""));
    };
    std::string text;
    for (QListWidget* list : window.findChildren<QListWidget*>()) {
        for (int row = 0; row < list->count(); ++row) {
            std::istringstream before = linesOf(window);
            list->setCurrentRow(row);
            std::istringstream after = linesOf(window);
            text += "chosen " + Quoted(list->item(row)->text()) + "\n";
            std::string old, line;
            while (std::getline(before, old) && std::getline(after, line))
                if (line != old) text += line + "\n";
        }
    }
    return text;
}

std::string KeptIn(const std::string& path) {
    std::ifstream file(path);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Lines and outlines that lie over other parts: their widgets tell no place.
std::string OutlinesOf(std::initializer_list<const LineControl*> lines,
                       std::initializer_list<const ShapeControl*> shapes) {
    std::ostringstream text;
    const auto look = [&text](const auto& outline) {
        text << (outline.DrawMode() == kDrawInvert ? " inverting"
                                                   : " of " + std::to_string(outline.BorderColor()))
             << (outline.Visible() ? "" : " hidden") << "\n";
    };
    for (const LineControl* line : lines) {
        text << "line " << line->Name() << " from " << line->X1() << ',' << line->Y1() << " to " << line->X2()
             << ',' << line->Y2();
        look(*line);
    }
    for (const ShapeControl* shape : shapes) {
        text << "outline " << shape->Name() << " at " << shape->Left() << ',' << shape->Top() << ' '
             << shape->Width() << 'x' << shape->Height() << " shape " << shape->Shape() << " thick "
             << shape->BorderWidth();
        look(*shape);
    }
    return text.str();
}

/// Those of a document, with the numbers on its rulers.
std::string OutlinesOf(const frmImage& image) {
    std::ostringstream text;
    for (const Surface* scale : {&image.PicTrule, &image.PicLrule}) {
        text << "numbers on " << scale->Name();
        for (const ScreenText& number : scale->Texts())
            text << ' ' << number.text << " at " << number.x << ',' << number.y;
        text << "\n";
    }
    return OutlinesOf({&image.Line1, &image.CrossX, &image.CrossY, &image.LineX, &image.LineY},
                      {&image.SelectShape, &image.ShSquare, &image.PicSelectShape}) +
           text.str();
}

/// What each item of the menus shows, but for captions.
std::string MenusOf(const QList<QAction*>& actions) {
    std::string text;
    for (const QAction* action : actions) {
        if (action->isSeparator() && action->objectName().isEmpty()) continue;
        text +=
            "menu " + (action->objectName().isEmpty() ? action->text() : action->objectName()).toStdString();
        if (action->isCheckable() && action->isChecked()) text += " ticked";
        if (!action->isEnabled()) text += " off";
        if (!action->isVisible()) text += " hidden";
        text += "\n";
        if (action->menu() != nullptr) text += MenusOf(action->menu()->actions());
    }
    return text;
}

/// The main window with its menus and marks, and the titles of its documents.
std::string MainText() {
    QWidget& window = WidgetFor(*frmMain);
    std::string text = TextOf(window);
    for (const QMdiSubWindow* document : window.findChildren<QMdiSubWindow*>())
        text += "document " + Quoted(document->windowTitle()) +
                (document->isWindowModified() ? " changed\n" : "\n");
    return text + MenusOf(window.findChildren<QMenuBar*>().constFirst()->actions()) +
           OutlinesOf({}, {&frmMain->ShCell, &frmMain->ShClip});
}

/// The lines of a text that the one before did not have.
std::string NewLines(const std::string& before, const std::string& after) {
    std::set<std::string> known;
    std::istringstream old(before), now(after);
    std::string line, text;
    while (std::getline(old, line))
        known.insert(line);
    while (std::getline(now, line))
        if (!known.contains(line)) text += line + "\n";
    return text;
}

class KeptTextTest : public ProgramTest {
  protected:
    static void Expect(const std::string& name, QWidget& window, const std::string& more = {}) {
        std::string text = TextOf(window);
        text += ChoicesOf(window);
        ExpectText(name, text + more);
    }
    static void ExpectText(const std::string& name, const std::string& text) {
        const std::string path = TestData() + "/windows/" + name + ".txt";
        if (std::getenv("PINTALUX_KEEP") != nullptr) std::ofstream(path) << text;
        EXPECT_EQ(KeptIn(path), text) << path;
    }
};

} // namespace

TEST_F(KeptTextTest, MainWindow) {
    Start();
    frmMain->MDIForm::Move(0, 0, 18000, 14000);
    Clipboard.Clear();
    frmMain->Timer1_Timer();
    Expect("frmMain", WidgetFor(*frmMain));
}

// Its bars and panels make room for a large font.
TEST_F(KeptTextTest, MainWindowInALargeFont) {
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSize(20);
    QApplication::setFont(large);
    Start();
    frmMain->MDIForm::Move(0, 0, 30000, 24000);
    Clipboard.Clear();
    frmMain->Timer1_Timer();
    Expect("frmMain.large", WidgetFor(*frmMain));
    QApplication::setFont(usual);
}

TEST_F(KeptTextTest, Document) {
    Start();
    Expect("frmImage", WidgetFor(NewDocument(120, 80)));
}

TEST_F(KeptTextTest, Dialogs) {
    Start();
    NewDocument(120, 80);
    ForEachDialog([](auto& dialog) {
        Expect(dialog->Name(), WidgetFor(*dialog));
        dialog.Unload();
    });
}

// As the user finds them: filled in, with their samples in place.
TEST_F(KeptTextTest, DialogsAsTheyOpen) {
    Start();
    for (const auto& [width, height, suffix] : {std::tuple(300, 60, ".wide"), std::tuple(60, 300, ".high")}) {
        NewDocument(width, height);
        for (MenuItem* item :
             {&frmMain->mnuFileNew, &frmMain->mnuResize, &frmMain->mnuAddBorders, &frmMain->mnuBorderWiz,
              &frmMain->mnuFiltBrow, &frmMain->mnuImageProperties, &frmMain->mnuFileSaveOptions}) {
            const DialogScript script({[&, suffix = suffix](QWidget& dialog) {
                PassEvents();
                Expect(dialog.objectName().toStdString() + suffix, dialog);
                PressesEscape()(dialog);
            }});
            Choose(*item);
        }
    }
}

// The view of a document: bars, rulers and what lies on them, from one end of the zoom to the other.
TEST_F(KeptTextTest, DocumentsAtWork) {
    Start();
    frmImage& image = NewDocument(200, 150);
    Choose(frmMain->mnuViewRulers);
    ASSERT_TRUE(WaitFor([&] { return image.TopRuler.Visible(); }));
    for (MenuItem* item : {&frmMain->mnuZoomOutX(15), &frmMain->mnuZoomOutX(3), &frmMain->mnuZoomInX(3),
                           &frmMain->mnuZoomInX(15)}) {
        Choose(*item);
        MoveTo(image, 9, 7, 0);
        image.ShowCross(40, 30);
        PassEvents();
        Expect("frmImage.level" + std::to_string(image.factorlevel), WidgetFor(image), OutlinesOf(image));
    }
}

// What a drag shows on the image, and what it leaves there.
TEST_F(KeptTextTest, DragsAtWork) {
    Start();
    frmMain->MDIForm::Move(0, 0, 18000, 14000);
    PassEvents();
    frmImage& image = NewDocument(200, 150);
    Choose(frmMain->mnuZoomInX(2));
    std::string text, shown;
    const auto after = [&](const std::string& act) {
        PassEvents();
        const std::string now = TextOf(WidgetFor(image)) + OutlinesOf(image);
        text += "after " + act + "\n" + NewLines(shown, now);
        shown = now;
    };
    const auto drags = [&](const std::string& what) {
        Press(image, 70, 52);
        MoveTo(image, 100, 60);
        MoveTo(image, 40, 95);
        after("a drag of " + what);
        Release(image, 40, 95);
        after("its end");
    };
    after("3:1");
    for (const char* tool : {"Pointer", "Pen", "Eraser", "Line", "Select", "FreeSelect"}) {
        ClickWidget(*Find(WidgetFor(*frmMain), std::string("TB2_") + tool));
        drags(tool);
        if (!PieceFloats(image)) continue;
        for (const auto& [key, act] : {std::pair(Qt::Key_Left, "left"), std::pair(Qt::Key_Down, "down")}) {
            Key(WidgetFor(image.Image1), key);
            after(act);
        }
        Key(WidgetFor(image.Image1), Qt::Key_Return);
        after("Enter");
    }
    ClickWidget(*Find(WidgetFor(*frmMain), "TB2_Shapes"));
    for (const char* shape : {"square", "rectangle", "circle", "oval"}) {
        ClickWidget(*Find(WidgetFor(*frmMain), std::string("Toolbar2_") + shape));
        drags(shape);
    }
    // What commands lay on the image.
    for (const auto& [act, item] :
         {std::pair("select all", &frmMain->mnuEditSelectAll), std::pair("a cut", &frmMain->mnuEditCut),
          std::pair("a paste", &frmMain->mnuEditPaste), std::pair("1:2 with it", &frmMain->mnuZoomOutX(1)),
          std::pair("4:1 with it", &frmMain->mnuZoomInX(3)), std::pair("a turn", &frmMain->mnuRotate90),
          std::pair("select none", &frmMain->mnuEditSelectNone),
          std::pair("an undo", &frmMain->mnuEditUndo)}) {
        Choose(*item);
        after(act);
    }
    image.alreadysaved = true;
    ExpectText("frmImage.drags", text);
}

// What the user's acts change in the main window, act by act: menus, buttons, pages, marks.
TEST_F(KeptTextTest, MainWindowAtWork) {
    Start();
    frmMain->MDIForm::Move(0, 0, 18000, 14000);
    Clipboard.Clear();
    std::string text, shown;
    const auto after = [&](const std::string& act) {
        PassEvents();
        frmMain->Timer1_Timer();
        const std::string now = MainText();
        text += "after " + act + "\n" + NewLines(shown, now);
        shown = now;
    };
    const auto acts = [&](const std::string& act, const std::function<void()>& run) {
        run();
        after(act);
    };
    frmMain->Timer1_Timer();
    shown = MainText();
    text = MenusOf(WidgetFor(*frmMain).findChildren<QMenuBar*>().constFirst()->actions());
    acts("a new document", [&] { NewDocument(120, 80); });
    frmImage& image = static_cast<frmImage&>(*frmMain->ActiveForm());
    acts("an edit", [&] { Edit(image, kBlack); });
    acts("a second one", [&] { Edit(image, kWhite); });
    const auto chooses = [&](std::initializer_list<std::pair<const char*, MenuItem*>> commands) {
        for (const auto& [act, item] : commands)
            acts(act, [item = item] { Choose(*item); });
    };
    chooses({{"an undo", &frmMain->mnuEditUndo},
             {"another undo", &frmMain->mnuEditUndo},
             {"a redo", &frmMain->mnuEditRedo},
             {"the monitor off", &frmMain->mnuEditClip},
             {"the monitor on", &frmMain->mnuEditClip},
             {"select all", &frmMain->mnuEditSelectAll},
             {"a copy", &frmMain->mnuEditCopy},
             {"a paste", &frmMain->mnuEditPaste},
             {"2:1", &frmMain->mnuZoomInX(1)}});
    acts("minimised", [&] { image.WindowState(kMinimised); });
    acts("shown again", [&] { image.WindowState(kNormal); });
    chooses({{"select none", &frmMain->mnuEditSelectNone},
             {"1:3", &frmMain->mnuZoomOutX(2)},
             {"the natural size", &frmMain->mnuZoomActual},
             {"rulers", &frmMain->mnuViewRulers},
             {"no rulers", &frmMain->mnuViewRulers},
             {"no tool bar", &frmMain->mnuViewToolbar},
             {"the tool bar", &frmMain->mnuViewToolbar},
             {"no colours", &frmMain->mnuViewColorBox},
             {"the colours", &frmMain->mnuViewColorBox},
             {"no settings", &frmMain->mnuViewSettingsBar},
             {"the settings", &frmMain->mnuViewSettingsBar}});
    for (int i = 0; i < frmMain->PicTools.Count(); ++i) {
        acts("page " + std::to_string(i), [&] { frmMain->cmdTools_Click(i); });
        acts("page " + std::to_string(i) + " closed", [&] { frmMain->cmdTools_Click(i); });
    }
    for (int i = 0; i < frmMain->PicTools.Count(); ++i)
        acts("page " + std::to_string(i) + " below the others", [&] { frmMain->cmdTools_Click(i); });
    for (const char* name :
         {"Toolbar1_left", "Toolbar1_round", "Option2", "Option1", "Toolbar2_circle", "Option3"})
        acts(name, [&] { ClickWidget(*Find(WidgetFor(*frmMain), name)); });
    for (const Slider* slider : {&frmMain->Slider1, &frmMain->Slider2, &frmMain->Slider3, &frmMain->Slider4,
                                 &frmMain->Slider5, &frmMain->Slider6})
        acts(slider->Name() + " at its end", [&] { const_cast<Slider*>(slider)->Value(slider->Max()); });
    acts("a colour", [&] { frmMain->SetCurrentColour(RGB(30, 144, 255)); });
    acts("its cell", [&] { frmMain->loadselected(); });
    WidgetFor(*frmMain).activateWindow();
    acts("keys on the cells", [&] { frmMain->ColorBox.SetFocus(); });
    acts("keys on the spectrum", [&] { frmMain->Image1.SetFocus(); });
    acts("its shades", [] { Key(WidgetFor(frmMain->Image1), Qt::Key_Menu); });
    acts("the next shade", [] { Key(WidgetFor(frmMain->picColBlowup), Qt::Key_Down); });
    acts("keys back on the image", [&] { image.Image1.SetFocus(); });
    acts("no document", [&] {
        image.alreadysaved = true;
        image.Unload();
    });
    ExpectText("frmMain.acts", text);
}

} // namespace pintalux
