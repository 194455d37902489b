// Where Tab, F6 and F1 lead, and what screen readers call the buttons.
#include "app/Dialogs.h"
#include "document/BarPositions.h"
#include "document/FileCommands.h"
#include "selection/ImageKeyTest.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Buttons.h"
#include "surface/window/Control_native.h"
#include "tools/ToolTable.h"

#include <algorithm>
#include <QAccessible>
#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBrowser>
#include <set>

namespace pintalux {
namespace {

class FocusTest : public ImageKeyTest {
  protected:
    static std::string Where() {
        const QWidget* widget = QApplication::focusWidget();
        return widget ? widget->objectName().toStdString() : "nowhere";
    }
    static void Press(int key, Qt::KeyboardModifiers held = Qt::NoModifier) {
        QWidget* widget = QApplication::focusWidget();
        ASSERT_NE(widget, nullptr);
        QKeyEvent event(QEvent::KeyPress, key, held);
        QCoreApplication::sendEvent(widget, &event);
    }
    void SetUp() override {
        ImageKeyTest::SetUp();
        WidgetFor(*frmMain).activateWindow();
        PassEvents();
    }
};

TEST_F(FocusTest, TabLeavesTheDocumentAndComesBack) {
    frmMain->cmdTools_Click(0);
    frmImage& image = NewDocument(900, 900);
    NewDocument(300, 300);
    image.Show();
    PassEvents();
    EXPECT_EQ(Where(), "Image1");
    std::vector<std::string> walk;
    int documents = 0;
    for (int i = 0; i < 60 && documents == 0; ++i) {
        Press(Qt::Key_Tab);
        walk.push_back(Where());
        if (QApplication::focusWidget() == &WidgetFor(image.Image1)) ++documents;
    }
    EXPECT_EQ(documents, 1);
    const auto passed = [&](const std::string& name) {
        return std::find(walk.begin(), walk.end(), name) != walk.end();
    };
    for (const char* name :
         {"TB2_New", "cmdTools0", "Slider2", "cmdTools4", "txtRed", "Picture4", "ColorBox"})
        EXPECT_TRUE(passed(name)) << name;
    for (const char* name : {"HS", "VS", "Slider4", "Combo2", "Option3"})
        EXPECT_FALSE(passed(name)) << name << " lies on a closed page or is no stop";
    EXPECT_EQ(std::count(walk.begin(), walk.end(), "Image1"), 2)
        << "the document's and the spectrum; the other document takes no part";
    std::vector<std::string> back{"Image1"};
    while (back.size() < walk.size()) {
        Press(Qt::Key_Backtab, Qt::ShiftModifier);
        back.push_back(Where());
    }
    EXPECT_EQ(back, std::vector<std::string>(walk.rbegin(), walk.rend()));
}

TEST_F(FocusTest, AnOpenPageIsInTheChain) {
    NewDocument(300, 300);
    frmMain->cmdTools_Click(3);
    PassEvents();
    std::vector<std::string> walk;
    for (int i = 0; i < 60; ++i) {
        Press(Qt::Key_Tab);
        walk.push_back(Where());
    }
    EXPECT_NE(std::find(walk.begin(), walk.end(), "Slider4"), walk.end());
}

TEST_F(FocusTest, F6GoesFromAreaToArea) {
    frmImage& image = NewDocument(300, 300);
    PassEvents();
    const auto f6 = [](bool next) {
        for (QObject* child : WidgetFor(*frmMain).children()) {
            auto* shortcut = qobject_cast<QShortcut*>(child);
            const QKeySequence wanted =
                next ? QKeySequence(Qt::Key_F6) : QKeySequence(Qt::SHIFT | Qt::Key_F6);
            if (shortcut && shortcut->key() == wanted) emit shortcut->activated();
        }
    };
    std::vector<std::string> walk;
    for (int i = 0; i < 5; ++i) {
        f6(true);
        walk.push_back(Where());
    }
    EXPECT_EQ(walk, (std::vector<std::string>{"txtRed", "TB2_New", "cmdTools0", "cmdTools4", "Image1"}));
    EXPECT_TRUE(image.CrossX.Visible()) << "it shows that the image has the focus";
    f6(false);
    EXPECT_EQ(Where(), "cmdTools4");
    frmMain->mnuViewSettingsBar_Click();
    PassEvents();
    f6(true);
    f6(true);
    f6(true);
    EXPECT_NE(Where(), "cmdTools0") << "a panel that is closed is left out";
}

TEST_F(FocusTest, AFreehandLiftLeavesTheFocusOnTheImage) {
    frmImage& image = OpenRandom(60, 40);
    PassEvents();
    image.Image1.SetFocus();
    SelectPath(image, {{10, 10}, {25, 10}, {25, 20}});
    EXPECT_EQ(Where(), "Image1");
}

TEST_F(FocusTest, F1ShowsTheHelpAndEscapeClosesIt) {
    NewDocument(60, 40);
    for (QObject* child : WidgetFor(*frmMain).children()) {
        auto* shortcut = qobject_cast<QShortcut*>(child);
        if (shortcut && shortcut->key() == QKeySequence(Qt::Key_F1)) emit shortcut->activated();
    }
    QWidget* help = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == "help") help = window;
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    const QString text = help->findChild<QTextBrowser*>()->toPlainText();
    // Each tool with its letter, by the name that screen readers hear.
    for (int number = kFirstTool; number <= kLastTool; ++number) {
        const Tool& tool = TheTools->Row(number);
        EXPECT_TRUE(text.contains(QString(tool.letter) + "\n" + tool.caption)) << tool.caption;
    }
    for (const char* key : {"Ctrl+S", "Ctrl+Z", "F6", "Escape", "Espaço"})
        EXPECT_TRUE(text.contains(key)) << key;
    Type(*help, "\x1b");
    EXPECT_FALSE(help->isVisible());
}

TEST_F(FocusTest, F1InADialogTellsOfDialogsAndLeavesItOpen) {
    bool seen = false;
    const DialogScript script({[&](QWidget& dialog) {
        QKeyEvent event(QEvent::KeyPress, Qt::Key_F1, Qt::NoModifier);
        QCoreApplication::sendEvent(dialog.focusWidget() ? dialog.focusWidget() : &dialog, &event);
        auto* help = dialog.findChild<QDialog*>("help");
        ASSERT_NE(help, nullptr);
        EXPECT_TRUE(help->isVisible());
        EXPECT_NE(&WidgetFor(*frmMain), help->parentWidget()) << "or the dialog would lock it";
        const auto& text = *help->findChild<QTextBrowser*>();
        EXPECT_TRUE(text.toPlainText().contains("Caixas de diálogo"));
        EXPECT_GT(text.verticalScrollBar()->value(), 0) << "it opens at what it says of dialogs";
        Type(*help, "\x1b");
        EXPECT_FALSE(help->isVisible());
        seen = dialog.isVisible();
        PressesEscape()(dialog);
    }});
    mnuFileNew_Click();
    EXPECT_TRUE(seen);
}

TEST_F(FocusTest, EveryDialogBeginsAtTheControlThatIsUsedFirstAndItsNumberIsTypedOver) {
    NewDocument(120, 80);
    struct Row {
        MenuItem& item;
        const char* first;
        const char* selected; ///< What the first key would take the place of.
    };
    for (const Row& row : {Row{frmMain->mnuFileNew, "txtPXw", "300"},
                           {frmMain->mnuResize, "txtPXw", " 120"},
                           {frmMain->mnuAddBorders, "txtTop", "1"},
                           {frmMain->mnuBorderWiz, "BordList", ""},
                           {frmMain->mnuFiltBrow, "FiltList", ""},
                           {frmMain->mnuImageProperties, "Command1", ""},
                           {frmMain->mnuFileSaveOptions, "qt_tabwidget_tabbar", ""}}) {
        WidgetFor(*frmMain).activateWindow(); // as a desktop does once a dialog is gone
        PassEvents();
        const DialogScript script({[&row](QWidget& dialog) {
            EXPECT_TRUE(WaitFor([&] { return Where() == row.first; })) << Where();
            const auto* line = qobject_cast<const QLineEdit*>(QApplication::focusWidget());
            EXPECT_EQ(line ? line->selectedText().toStdString() : "", row.selected) << row.first;
            PressesEscape()(dialog);
        }});
        pintalux::Choose(row.item);
    }
}

/// The controls of a window, whatever holds them.
std::vector<const Control*> ControlsIn(const Control& holder) {
    std::vector<const Control*> all;
    for (const Control* child : holder.Native().children) {
        all.push_back(child);
        for (const Control* inner : ControlsIn(*child))
            all.push_back(inner);
    }
    return all;
}

TEST_F(FocusTest, EveryButtonOfADialogDoesSomething) {
    NewDocument(40, 30);
    int buttons = 0;
    ForEachDialog([&](auto& dialog) {
        for (const Control* control : ControlsIn(*dialog)) {
            const auto* button = dynamic_cast<const CommandButton*>(control);
            if (button == nullptr) continue;
            EXPECT_TRUE(button->Click) << button->Name() << " of " << dialog->Name();
            ++buttons;
        }
        dialog.Unload();
    });
    EXPECT_GT(buttons, 20);
}

// A reader that asked about what is gone would end the program.
TEST_F(FocusTest, ScreenReadersAreToldThatAWidgetIsGone) {
    struct Spoken {
        QPointer<QWidget> widget;
        QAccessible::Id id;
        std::string name;
    };
    const auto spokenIn = [](QWidget& window) {
        QList<QWidget*> widgets = window.findChildren<QWidget*>();
        widgets.append(&window);
        std::vector<Spoken> spoken;
        for (QWidget* widget : widgets)
            spoken.push_back({widget, QAccessible::uniqueId(QAccessible::queryAccessibleInterface(widget)),
                              widget->objectName().toStdString()});
        return spoken;
    };
    std::set<std::string> gone;
    const auto expectGone = [&](const std::vector<Spoken>& all, const std::string& window) {
        for (const Spoken& spoken : all) {
            if (spoken.widget) continue; // Some dialogs stay, unseen, until they are shown again.
            gone.insert(spoken.name);
            EXPECT_EQ(QAccessible::accessibleInterface(spoken.id), nullptr)
                << spoken.name << " in " << window;
        }
    };
    frmImage& image = NewDocument(40, 30);
    ForEachDialog([&](auto& dialog) {
        const std::string name = dialog->Name();
        const auto spoken = spokenIn(WidgetFor(*dialog));
        dialog.Unload();
        PassEvents();
        expectGone(spoken, name);
    });
    const auto spoken = spokenIn(WidgetFor(image));
    image.Unload();
    PassEvents();
    expectGone(spoken, "a document");
    EXPECT_TRUE(gone.contains("txtPXw") && gone.contains("SSTab1") && gone.contains("PicBG"));
}

// One line of text stands beside the middle of the picture that the program draws itself.
TEST_F(FocusTest, AQuestionStandsBesideItsOwnPicture) {
    const DialogScript script({[](QWidget& box) {
        const auto& picture = *box.findChild<QLabel*>("qt_msgboxex_icon_label");
        const auto& text = *box.findChild<QLabel*>("qt_msgbox_label");
        EXPECT_EQ(picture.pixmap().deviceIndependentSize(), QSizeF(48, 48));
        EXPECT_GE(text.height(), 48);
        EXPECT_TRUE(text.alignment().testFlag(Qt::AlignVCenter));
        EXPECT_TRUE(text.alignment().testFlag(Qt::AlignLeft));
        PressesEscape()(box);
    }});
    EXPECT_EQ(MsgBox("Limpar?", BoxButtons::YesNo, BoxIcon::Question), BoxAnswer::No);
}

// What draws is not also scrolled or read by the window around.
TEST_F(FocusTest, TheKeysOfTheHandGoNoFurther) {
    frmImage& image = NewDocument(60, 40);
    Choose("Pen");
    for (const int code : {37, 38, 39, 40, 33, 34, 35, 36, 32, 27, 107, 109, 66, 67})
        EXPECT_TRUE(image.Image1.Key({code})) << code;
    EXPECT_EQ(CurrentTool, kPenTool);
    for (const int code : {9, 16, 112})
        EXPECT_FALSE(image.Image1.Key({code})) << code;
    EXPECT_FALSE(image.Image1.KeyReleased({9}));
}

TEST_F(FocusTest, TheCrossGoesOnFromWhereThePointerWasLast) {
    frmImage& image = NewDocument(60, 40);
    Choose("Select");
    image.Image1.MouseMove(0, 0, 90 * kTwipsPerPixel, 80 * kTwipsPerPixel); // beyond the image
    EXPECT_EQ(image.crossX, 59);
    EXPECT_EQ(image.crossY, 39);
    image.Image1.MouseMove(0, 0, -90 * kTwipsPerPixel, -80 * kTwipsPerPixel);
    EXPECT_EQ(image.crossX, 0);
    EXPECT_EQ(image.crossY, 0);
    image.Image1.MouseMove(0, 0, 35 * kTwipsPerPixel, 12 * kTwipsPerPixel);
    Tap(image, Qt::Key_Right);
    EXPECT_EQ(image.crossX, 36);
    EXPECT_EQ(image.crossY, 12);
}

// The tips of bucket and dropper stand beside the pointer.
TEST_F(FocusTest, TheCrossGoesOnFromWhereTheTipOfTheToolWas) {
    struct Case {
        const char* tool;
        int right, down;
    };
    frmImage& image = NewDocument(100, 80);
    for (const auto& [tool, right, down] :
         {Case{"Pen", 0, 0}, Case{"Flood", -14, 16}, Case{"ColorPick", -16, 14}}) {
        Choose(tool);
        image.Image1.MouseMove(0, 0, 40 * kTwipsPerPixel, 30 * kTwipsPerPixel);
        EXPECT_EQ(image.crossX, 40 + right) << tool;
        EXPECT_EQ(image.crossY, 30 + down) << tool;
    }
}

TEST_F(FocusTest, TheNewButtonIsSpokenNovoAndItsTipDescribesIt) {
    auto* spoken = QAccessible::queryAccessibleInterface(Find(WidgetFor(frmMain->TB2), "TB2_New"));
    ASSERT_NE(spoken, nullptr);
    EXPECT_EQ(spoken->text(QAccessible::Name), "Novo");
    EXPECT_EQ(spoken->text(QAccessible::Description), "Apontador - não faz selecção.");
    auto* pen = QAccessible::queryAccessibleInterface(Find(WidgetFor(frmMain->TB2), "TB2_Pen"));
    EXPECT_EQ(pen->role(), QAccessible::RadioButton);
    EXPECT_EQ(pen->text(QAccessible::Name), "Caneta");
}

} // namespace
} // namespace pintalux
