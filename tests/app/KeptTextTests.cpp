// Every window of the program as a text: names, places, captions, what screen readers hear, tips, ticks. The
// texts are kept in tests/data/windows; a change that is meant is taken over by running with PINTALUX_KEEP=1
// and read in the difference.
#include "support/DialogAnswers.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Folders.h"
#include "support/Program.h"
#include "support/Waiting.h"

#include "app/Dialogs.h"
#include "app/frmMain.h"
#include "surface/system/Clipboard.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <QAbstractButton>
#include <QAccessible>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
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
        text << " kept " << QMetaEnum::fromType<Qt::Alignment>().valueToKeys(kept).toStdString();
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
        if (!widget || widget->isWindow() || qobject_cast<const QMenu*>(widget)) continue;
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
    QList<QWidget*> widgets = window.findChildren<QWidget*>();
    widgets.append(&window);
    for (QWidget* widget : widgets)
        if (widget->layout()) widget->layout()->activate();
    std::string text = "window " + Quoted(window.windowTitle());
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

class KeptTextTest : public ProgramTest {
  protected:
    static void Expect(const std::string& name, QWidget& window) {
        const std::string path = TestData() + "/windows/" + name + ".txt";
        std::string text = TextOf(window);
        text += ChoicesOf(window);
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
            const DialogScript script({[&](QWidget& dialog) {
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
    EXPECT_TRUE(WaitFor([&] { return image.TopRuler.Visible(); }));
    for (MenuItem* item : {&frmMain->mnuZoomOutX(15), &frmMain->mnuZoomOutX(3), &frmMain->mnuZoomInX(3),
                           &frmMain->mnuZoomInX(15)}) {
        Choose(*item);
        PassEvents();
        Expect("frmImage.level" + std::to_string(image.factorlevel), WidgetFor(image));
    }
}

} // namespace pintalux
