// Every window as it looks, in a small and a large font, in a light and a dark theme: texts have their room,
// and stand out from what lies below. With PINTALUX_SHOTS set to a folder a picture of each window goes
// there; scripts/screenshots.py does that at every scale.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Program.h"

#include "app/Dialogs.h"
#include "app/frmMain.h"
#include "document/Globals.h"
#include "document/Zoom.h"
#include "surface/system/Clipboard.h"
#include "surface/system/CommonDialog.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/system/Printer.h"
#include "surface/system/Theme_native.h"

#include <cmath>
#include <cstdlib>
#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QToolTip>

namespace pintalux {
namespace {

struct Look {
    int points;
    bool dark;
};

QPalette Desktop(bool dark, const QColor& highlight = 0x2D6FB3) {
    QPalette desktop{dark ? QColor(0x2B2D30) : QColor(0xEFEFEF)};
    desktop.setColor(QPalette::Window, dark ? QColor(0x2B2D30) : QColor(0xEFEFEF));
    desktop.setColor(QPalette::Button, dark ? QColor(0x393B40) : QColor(0xEFEFEF));
    desktop.setColor(QPalette::Base, dark ? QColor(0x1E1F22) : QColor(Qt::white));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        desktop.setColor(role, dark ? QColor(0xDFE1E5) : QColor(Qt::black));
    desktop.setColor(QPalette::Highlight, highlight);
    desktop.setColor(QPalette::HighlightedText, Qt::white);
    return PaletteFor(desktop);
}

/// A sky, hills and a sun: what a reduced view of a photograph has to cope with.
Picture Landscape(int width, int height) {
    Picture picture(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const double hill =
                height * (0.6 + 0.1 * std::sin(x * 9.0 / width) + 0.05 * std::sin(x * 31.0 / width));
            const double sun = std::hypot(x - width * 0.7, y - height * 0.25);
            const int grain = (x * 7919 + y * 104729) % 23;
            int red = 90 + 100 * y / height;
            int green = 150 + 60 * y / height;
            int blue = 230;
            if (sun < height * 0.12) red = 250, green = 220, blue = 90;
            if (y > hill) red = 40 + grain * 2, green = 110 + grain * 3, blue = 40 + grain;
            picture.Set(x, y, static_cast<Pixel>(red | green << 8 | blue << 16));
        }
    }
    return picture;
}

/// The width that a text takes without its marks of access keys.
int WidthOf(const QWidget& widget, const QString& text) {
    return widget.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

/// The room that a widget has for its text; empty where it holds none.
QSize RoomOf(const QWidget& widget, const QString& text) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        const QSize room = label->contentsRect().size();
        if (label->wordWrap() && label->heightForWidth(room.width()) <= room.height())
            return {WidthOf(widget, text), room.height()};
        return room;
    }
    if (const auto* box = qobject_cast<const QCheckBox*>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(box);
        return box->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, box).size();
    }
    if (const auto* choice = qobject_cast<const QRadioButton*>(&widget)) {
        QStyleOptionButton option;
        option.initFrom(choice);
        return choice->style()->subElementRect(QStyle::SE_RadioButtonContents, &option, choice).size();
    }
    if (const auto* box = qobject_cast<const QComboBox*>(&widget)) {
        QStyleOptionComboBox option;
        option.initFrom(box);
        return box->style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, box)
            .size();
    }
    constexpr int kEdges = 6;
    return widget.size() - QSize(kEdges, 2);
}

QStringList TextsOf(const QWidget& widget) {
    if (const auto* label = qobject_cast<const QLabel*>(&widget)) return {label->text()};
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) return {button->text()};
    if (const auto* line = qobject_cast<const QLineEdit*>(&widget)) return {line->text()};
    if (const auto* group = qobject_cast<const QGroupBox*>(&widget)) return {group->title()};
    QStringList texts;
    const auto* box = qobject_cast<const QComboBox*>(&widget);
    // The fonts and folders of the machine are its own.
    if (box && box->objectName() != "ComboFont" && box->objectName() != "lookInCombo") {
        for (int i = 0; i < box->count(); ++i)
            texts += box->itemText(i);
    }
    return texts;
}

/// What a colour theme has no say in: colours, pictures, and text that is part of them.
bool HoldsColours(const QWidget& widget) {
    static const QStringList kNames = {"LblCurCol", "cmdColorsel", "lblx", "lbly", "lbltext"};
    return kNames.contains(widget.objectName());
}

/// What lies below the text of a widget: the pixel in a corner, inside the edges of a button.
QColor Below(const QImage& shot, const QWidget& widget, const QWidget& window) {
    const bool edged = qobject_cast<const QPushButton*>(&widget) || qobject_cast<const QLineEdit*>(&widget);
    const QPoint place =
        edged ? QPoint(widget.width() / 2, widget.height() - 4) : QPoint(widget.width() - 1, 0);
    return shot.pixelColor(widget.mapTo(&window, place) * shot.devicePixelRatio());
}

class LooksTest : public ProgramTest, public testing::WithParamInterface<Look> {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        font_ = QApplication::font();
        palette_ = QApplication::palette();
        QFont font = font_;
        font.setPointSize(GetParam().points);
        QApplication::setFont(font);
        QApplication::setPalette(Desktop(GetParam().dark));
        QToolTip::setPalette(QApplication::palette());
    }
    void TearDown() override {
        ProgramTest::TearDown();
        QApplication::setFont(font_);
        QApplication::setPalette(palette_);
    }

    void Look(const std::string& name, QWidget& window) {
        PassEvents();
        SCOPED_TRACE(name);
        const QPixmap shot = window.grab();
        if (const char* folder = std::getenv("PINTALUX_SHOTS")) {
            const QString file = QStringLiteral("%1/%2-%3%4.png")
                                     .arg(folder, QString::fromStdString(name))
                                     .arg(GetParam().points)
                                     .arg(QLatin1String(GetParam().dark ? "-dark" : ""));
            shot.save(file);
        }
        const QImage image = shot.toImage();
        for (const QWidget* widget : window.findChildren<QWidget*>()) {
            if (!widget->isVisible() || widget->visibleRegion().isEmpty()) continue;
            const QString code = widget->objectName();
            if (code.isEmpty() || code.startsWith("qt_")) continue;
            ExpectRoom(*widget);
            ExpectContrast(*widget, image, window);
        }
    }

    static void ExpectRoom(const QWidget& widget) {
        for (const QString& text : TextsOf(widget)) {
            if (text.isEmpty()) continue;
            const QSize room = RoomOf(widget, text);
            EXPECT_LE(WidthOf(widget, text), room.width())
                << widget.objectName().toStdString() << ": " << text.toStdString();
            EXPECT_LE(widget.fontMetrics().tightBoundingRect(text).height(), room.height())
                << widget.objectName().toStdString();
            // Whole, as far as what holds it goes; a panel scrolls.
            const QWidget* holder = widget.parentWidget();
            const bool whole = holder->objectName().isEmpty() || holder->rect().contains(widget.geometry());
            EXPECT_TRUE(whole) << widget.objectName().toStdString() << " in "
                               << holder->objectName().toStdString();
        }
    }

    static void ExpectContrast(const QWidget& widget, const QImage& image, const QWidget& window) {
        if (HoldsColours(widget) || !widget.visibleRegion().contains(widget.rect().center())) return;
        const QStringList texts = TextsOf(widget);
        const auto* button = qobject_cast<const QAbstractButton*>(&widget);
        if (!texts.isEmpty() && !texts.front().isEmpty() &&
            widget.visibleRegion().boundingRect() == widget.rect() &&
            !qobject_cast<const QComboBox*>(&widget)) {
            const QColor ink = widget.palette().color(widget.foregroundRole());
            EXPECT_GE(ContrastOf(ink, Below(image, widget, window)), 4.5)
                << widget.objectName().toStdString();
        }
        if (!button || button->icon().isNull()) return;
        ExpectIconSeen(*button, widget.palette().color(QPalette::Window));
    }

    /// What of an icon stands out from the ground by 3 to 1: its outlines are an eighth of it at least.
    static void ExpectIconSeen(const QAbstractButton& button, const QColor& ground) {
        const QImage icon = button.icon().pixmap(button.iconSize()).toImage();
        int drawn = 0;
        int seen = 0;
        for (int y = 0; y < icon.height(); ++y) {
            for (int x = 0; x < icon.width(); ++x) {
                const QColor colour = icon.pixelColor(x, y);
                if (colour.alpha() < 200) continue;
                ++drawn;
                seen += ContrastOf(colour, ground) >= 3 ? 1 : 0;
            }
        }
        EXPECT_GT(drawn, 0) << button.objectName().toStdString();
        EXPECT_GE(8 * seen, drawn) << button.objectName().toStdString();
    }

  private:
    QFont font_;
    QPalette palette_;
};

TEST_P(LooksTest, MainWindowWithEveryPage) {
    Start();
    frmMain->MDIForm::Move(0, 0, 1280 * 15, 860 * 15);
    OpenPicture("serra.bmp", Landscape(1200, 800));
    for (const int size : {640, 300}) {
        Clipboard.Clear();
        Clipboard.SetData(Landscape(size, 480));
        frmMain->LoadClipboard();
    }
    for (const int page : {0, 1, 2, 3, 4}) {
        if (frmMain->PicTools(page).Height() <= ClosedPageHeight()) frmMain->cmdTools_Click(page);
        frmMain->Timer1_Timer();
        Look("frmMain-page" + std::to_string(page), WidgetFor(*frmMain));
        frmMain->cmdTools_Click(page);
    }
}

TEST_P(LooksTest, MainWindowAsItFirstShows) {
    const std::string path = Folder("pictures") + "/serra.bmp";
    SavePicture(Landscape(1200, 800), path);
    StartWhole(path);
    PassEvents();
    frmMain->Timer1_Timer();
    // As prescribed, where the font leaves a picture in it.
    EXPECT_EQ(frmMain->MDIForm::Width() == 6500, GetParam().points == 10);
    const QWidget* workspace = Find(WidgetFor(*frmMain), "workspace");
    EXPECT_GE(workspace->width(), 50);
    EXPECT_GE(workspace->height(), 200);
    Look("frmMain-first", WidgetFor(*frmMain));
}

TEST_P(LooksTest, AtTheLeastSizeAllIsReached) {
    Start();
    QWidget& window = WidgetFor(*frmMain);
    window.resize(1, 1);
    PassEvents();
    EXPECT_EQ(window.size(), window.minimumSize());
    EXPECT_GE(Find(window, "workspace")->width(), 50);
    for (const char* name : {"TB2_Text", "TB2_New", "Command1", "Command2"}) {
        const QWidget* button = Find(window, name);
        EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect()) << name;
    }
    // The last swatch of the collection, and each head.
    for (const char* name : {"ColorBox", "cmdTools0", "cmdTools4"}) {
        const QWidget* control = Find(window, name);
        const QWidget* panel = Find(window, name == std::string("ColorBox") ? "ColTB" : "ToolSettings");
        const auto* bar = panel->findChild<QScrollBar*>(QString(), Qt::FindDirectChildrenOnly);
        ASSERT_NE(bar, nullptr);
        const int bottom = control->mapTo(panel, QPoint(0, control->height())).y();
        EXPECT_LE(bottom - bar->maximum(), panel->height()) << name;
    }
    Look("frmMain-least", window);
}

TEST_P(LooksTest, DocumentWithRulersAndBars) {
    Start();
    frmMain->MDIForm::Move(0, 0, 900 * 15, 600 * 15);
    frmImage& image = OpenPicture("serra.bmp", Landscape(1200, 800));
    RulersOn = true;
    image.Timer2.Tick();
    image.Width(400 * 15);
    image.Height(300 * 15);
    Look("frmImage-rulers", WidgetFor(*frmMain));
    mnuZoomOutX_Click(3);
    Look("frmImage-quarter", WidgetFor(*frmMain));
}

TEST_P(LooksTest, Dialogs) {
    Start();
    OpenPicture("serra.bmp", Landscape(1200, 800));
    ForEachDialog([this](auto& dialog) {
        dialog->Show();
        Look(dialog->Name(), WidgetFor(*dialog));
        dialog.Unload();
    });
    frmPrefs->Show();
    for (const int tab : {1, 2}) {
        frmPrefs->SSTab1.Tab(tab);
        Look("frmPrefs-" + std::to_string(tab), WidgetFor(*frmPrefs));
    }
    frmPrefs->Hide();
}

TEST_P(LooksTest, MessageBoxes) {
    Start();
    const std::vector<std::pair<const char*, BoxIcon>> kinds = {{"none", BoxIcon::None},
                                                                {"critical", BoxIcon::Critical},
                                                                {"question", BoxIcon::Question},
                                                                {"exclamation", BoxIcon::Exclamation},
                                                                {"information", BoxIcon::Information}};
    for (const auto& [name, icon] : kinds) {
        const std::vector<std::pair<const char*, const char*>> texts = {
            {"", "Imagem muito Grande !"},
            {"-tall", "A imagem serra.bmp foi alterada.\nPretende salvá-la\nantes de a fechar?"},
            {"-long",
             "Não foi possível salvar a imagem, porque o disco onde ela está não tem mais espaço. A imagem "
             "continua aberta e inteira; liberte espaço ou escolha outra pasta, e salve-a de novo antes de "
             "terminar o programa.\n/home/ana/Imagens/Férias de Verão/Serra da Estrela/serra.bmp"}};
        for (const auto& [kind, text] : texts) {
            const DialogScript script({[&, name = name, kind = kind](QWidget& box) {
                Look(std::string("box-") + name + kind, box);
                const auto* label = box.findChild<QLabel*>("qt_msgbox_label");
                EXPECT_GE(label->height(), label->heightForWidth(label->width())) << kind;
                box.close();
            }});
            MsgBox(text, BoxButtons::YesNoCancel, icon, kMessageTitle);
        }
    }
}

TEST_P(LooksTest, TheTextOfAMessageStandsBesideTheMiddleOfItsPicture) {
    Start();
    const DialogScript script({[](QWidget& box) {
        const auto middle = [&](const char* name) {
            const auto* label = box.findChild<QLabel*>(name);
            return label->mapTo(&box, QPoint(0, 0)).y() +
                   label->style()
                       ->itemTextRect(label->fontMetrics(), label->contentsRect(),
                                      static_cast<int>(label->alignment()), true, "I")
                       .center()
                       .y();
        };
        EXPECT_NEAR(middle("qt_msgbox_label"), middle("qt_msgboxex_icon_label"), 2);
        box.close();
    }});
    MsgBox("Imagem muito Grande !", BoxButtons::Ok, BoxIcon::Critical);
}

TEST_P(LooksTest, DialogsOfTheToolkit) {
    Start();
    OpenPicture("serra.bmp", Landscape(1200, 800));
    SavePicture(Landscape(300, 400), Folder("pictures") + "/praia.bmp");
    const auto look = [this](const char* name) {
        return [this, name](QWidget& dialog) {
            Look(name, dialog);
            dialog.close();
        };
    };
    CommonDialog files;
    files.Filter = "Bitmap (*.bmp)|*.bmp|JPEG (*.jpg)|*.jpg";
    files.FileName(Folder("pictures") + "/serra.bmp");
    {
        const DialogScript script({look("open")});
        files.DialogTitle = "Abrir";
        files.ShowOpen();
    }
    {
        const DialogScript script({[this](QWidget& dialog) {
                                       Look("save", dialog);
                                       PressButton(dialog, "Salvar");
                                       dialog.close();
                                   },
                                   look("save-replace")});
        files.DialogTitle = "Savar Como";
        files.ShowSave();
    }
    {
        const DialogScript script({look("colour")});
        files.ShowColor();
    }
    const DialogScript script({look("print")});
    Printer().ShowSetup();
}

TEST_P(LooksTest, ColourPanelWithACollectionAndShades) {
    Start();
    frmMain->MDIForm::Move(0, 0, 900 * 15, 760 * 15);
    for (int i = 0; i < 70; ++i) {
        frmMain->TheColor.BackColor(RGB(i * 37 % 256, i * 91 % 256, i * 53 % 256));
        frmMain->loadselected();
    }
    frmMain->SetCurrentColour(RGB(40, 80, 120));
    frmMain->ColorBlowup(RGB(60, 120, 90));
    Look("colours", *Find(WidgetFor(*frmMain), "ColTB"));
    frmMain->picColBlowup.Visible(false);
}

/// The strongest contrast to the ground of a stretch of pixels, from its left top corner.
double StrongestContrast(const QImage& image, const QRect& stretch) {
    const QColor ground = image.pixelColor(stretch.topLeft());
    double strongest = 1;
    for (int y = stretch.top(); y <= stretch.bottom(); ++y) {
        for (int x = stretch.left(); x <= stretch.right(); ++x)
            strongest = std::max(strongest, ContrastOf(image.pixelColor(x, y), ground));
    }
    return strongest;
}

TEST_P(LooksTest, TitleOfEachDocumentIsRead) {
    Start();
    frmMain->MDIForm::Move(0, 0, 900 * 15, 600 * 15);
    frmImage& other = OpenPicture("serra.bmp", Landscape(400, 200));
    frmImage& active = OpenPicture("praia.bmp", Landscape(300, 160));
    active.Left(other.Left());
    active.Top(other.Top() + 250 * 15);
    QWidget& window = WidgetFor(*frmMain);
    const auto documents = window.findChildren<QMdiSubWindow*>();
    ASSERT_EQ(documents.size(), 2);
    for (const QColor& highlight : {QColor(0xFFE080), QColor(0x2D6FB3)}) {
        QApplication::setPalette(Desktop(GetParam().dark, highlight));
        Look("frmMain-two", window);
        const QImage image = window.grab().toImage();
        for (const QMdiSubWindow* document : documents) {
            SCOPED_TRACE(document->windowTitle().toStdString() + ' ' + highlight.name().toStdString());
            const QPoint corner = document->mapTo(&window, QPoint(0, 0));
            const auto strongest = [&](int left, int width) {
                const double ratio = image.devicePixelRatio();
                const QRect stretch(corner + QPoint(left, 8), QSize(width, 12));
                return StrongestContrast(image, QRect(stretch.topLeft() * ratio, stretch.size() * ratio));
            };
            EXPECT_GE(strongest(document->width() / 2 - 40, 80), 4.5);
            EXPECT_GE(strongest(document->width() - 26, 20), 3);
        }
    }
}

/// How many pixels of a widget turn into something that stands out from what they were by 3 to 1, as the
/// focus comes from another one.
int PixelsThatTurn(QWidget& window, QWidget& widget, QWidget& other) {
    const auto shown = [&](QWidget& focused) {
        focused.setFocus(Qt::TabFocusReason);
        PassEvents();
        return window.grab(QRect(widget.mapTo(&window, QPoint(0, 0)), widget.size())).toImage();
    };
    const QImage before = shown(other);
    const QImage after = shown(widget);
    int turned = 0;
    for (int y = 0; y < before.height(); ++y) {
        for (int x = 0; x < before.width(); ++x)
            turned += ContrastOf(before.pixelColor(x, y), after.pixelColor(x, y)) >= 3 ? 1 : 0;
    }
    return turned;
}

/// Where the Tab key stops and a frame shows it; others show by a mark of their own where keys act.
std::vector<QWidget*> TabStops(QWidget& window) {
    static const QStringList kMarked = {"frmImage", "Image1", "ColorBox", "lstDevices"};
    std::vector<QWidget*> stops;
    for (QWidget* widget : window.findChildren<QWidget*>()) {
        const bool stop = widget->isVisible() && widget->isEnabled() && !widget->focusProxy() &&
                          (widget->focusPolicy() & Qt::TabFocus) != 0;
        if (stop && !widget->visibleRegion().isEmpty() && !kMarked.contains(widget->objectName()))
            stops.push_back(widget);
    }
    return stops;
}

void ExpectFocusSeen(QWidget& window) {
    window.setAttribute(Qt::WA_KeyboardFocusChange);
    window.activateWindow();
    const std::vector<QWidget*> stops = TabStops(window);
    for (std::size_t i = 0; stops.size() > 1 && i < stops.size(); ++i) {
        constexpr int kLeastFrame = 40; // pixels
        EXPECT_GE(PixelsThatTurn(window, *stops[i], *stops[i == 0 ? 1 : i - 1]), kLeastFrame)
            << window.objectName().toStdString() << ' ' << stops[i]->objectName().toStdString();
    }
}

TEST_P(LooksTest, FocusIsSeenOnWhateverHasIt) {
    Start();
    frmMain->MDIForm::Move(0, 0, 1280 * 15, 1000 * 15);
    OpenPicture("serra.bmp", Landscape(300, 200));
    ExpectFocusSeen(WidgetFor(*frmMain));
    ForEachDialog([](auto& dialog) {
        dialog->Show();
        PassEvents();
        ExpectFocusSeen(WidgetFor(*dialog));
        dialog.Unload();
    });
}

TEST_P(LooksTest, Menus) {
    Start();
    OpenPicture("serra.bmp", Landscape(120, 80));
    frmMain->Timer1_Timer();
    auto* window = qobject_cast<QMainWindow*>(&WidgetFor(*frmMain));
    ASSERT_NE(window, nullptr);
    int number = 0;
    for (QAction* action : window->menuBar()->actions()) {
        if (!action->menu()) continue;
        action->menu()->popup(QPoint(0, 0));
        Look("menu" + std::to_string(number++), *action->menu());
        action->menu()->close();
        EXPECT_GE(ContrastOf(action->menu()->palette().color(QPalette::WindowText),
                             action->menu()->palette().color(QPalette::Window)),
                  4.5);
    }
    EXPECT_GT(number, 4);
}

INSTANTIATE_TEST_SUITE_P(Looks, LooksTest,
                         testing::Values(Look{10, false}, Look{15, false}, Look{10, true}, Look{15, true}),
                         [](const auto& look) {
                             return std::to_string(look.param.points) + (look.param.dark ? "Dark" : "Light");
                         });

} // namespace
} // namespace pintalux
