// Every text that the toolkit's dialogs and menus ask for must be among ours: a recorder sits before them,
// and what they lack fails the test by name.
#include "support/Folders.h"
#include "surface/system/StockTexts_native.h"

#include "inputs/ByHand.h"
#include "support/DialogScript.h"
#include "surface/system/Printer.h"

#include <QAction>
#include <QColorDialog>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFontDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QTranslator>
#include <QTreeView>
#include <QXmlStreamReader>
#include <set>
#include <string_view>
#include <vector>

namespace pintalux {

namespace {

/// Asked before our texts; gives nothing, and notes what they lack and what of the English stays as it is.
class Recorder final : public QTranslator {
  public:
    Recorder() {
        EXPECT_TRUE(LoadStockTexts(ours_));
        QCoreApplication::installTranslator(this);
    }
    ~Recorder() override { QCoreApplication::removeTranslator(this); }
    bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char*, int) const override {
        const QString ours = ours_.translate(context, text);
        // The names of all keys are asked for wherever a shortcut is read; the usual ones have their text.
        if (std::string_view(context) == "QShortcut") return {};
        if (ours.isNull() && std::string_view(context) == "QPageSize") return {}; // "A4" is "A4"
        if (ours.isNull()) {
            missing.insert(std::string(context) + ": " + text);
        } else if (QString(text) != ours) {
            english.insert(QString(text));
        }
        return {};
    }
    mutable std::set<std::string> missing;
    mutable std::set<QString> english;

  private:
    QTranslator ours_;
};

std::string Joined(const std::set<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines)
        text += line + '\n';
    return text;
}

/// All texts that a person may see in a widget and those in it, tips and menus included.
QStringList VisibleTexts(const QWidget& root) {
    QStringList texts{root.windowTitle(), root.toolTip()};
    for (const auto* widget : root.findChildren<QWidget*>())
        texts << widget->toolTip() << widget->windowTitle();
    for (const auto* label : root.findChildren<QLabel*>())
        texts << label->text();
    for (const auto* button : root.findChildren<QAbstractButton*>())
        texts << button->text();
    for (const auto* group : root.findChildren<QGroupBox*>())
        texts << group->title();
    for (const auto* action : root.findChildren<QAction*>())
        texts << action->text();
    for (const auto* box : root.findChildren<QComboBox*>())
        for (int i = 0; i < box->count(); ++i)
            texts << box->itemText(i);
    texts.removeAll(QString());
    return texts;
}

class StockTextTest : public testing::Test {
  protected:
    /// Shows the widget and checks all that it says.
    void ExpectPortuguese(QWidget& widget) {
        widget.show();
        QApplication::processEvents();
        seen = VisibleTexts(widget);
        EXPECT_TRUE(recorder.missing.empty()) << "without our text:\n" << Joined(recorder.missing);
        for (const QString& text : seen)
            EXPECT_FALSE(recorder.english.contains(text)) << "still English: " << text.toStdString();
    }
    /// Opens the context menu of a widget.
    QStringList ContextMenuOf(QWidget& widget) {
        QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, widget.mapToGlobal(QPoint(5, 5)));
        QStringList texts;
        QTimer closer;
        QObject::connect(&closer, &QTimer::timeout, [&] {
            auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            if (menu == nullptr) return;
            for (const QAction* action : menu->actions())
                texts << action->text().section('\t', 0, 0);
            menu->close();
        });
        closer.start(5);
        QApplication::sendEvent(&widget, &event);
        WaitFor([&] { return !texts.isEmpty() && QApplication::activePopupWidget() == nullptr; });
        EXPECT_TRUE(recorder.missing.empty()) << "without our text:\n" << Joined(recorder.missing);
        return texts;
    }
    Recorder recorder;
    QStringList seen;
};

TEST_F(StockTextTest, StandardButtons) {
    QDialogButtonBox box;
    for (unsigned bit = QDialogButtonBox::FirstButton; bit <= QDialogButtonBox::LastButton; bit <<= 1)
        box.addButton(static_cast<QDialogButtonBox::StandardButton>(bit));
    ExpectPortuguese(box);
    for (const char* text : {"OK", "Salvar", "Abrir", "&Sim", "&Não", "Cancelar", "Fechar", "Aplicar",
                             "Ajuda", "Repor", "Ignorar", "Tentar novamente", "Não salvar"})
        EXPECT_TRUE(seen.contains(text)) << text;
}

TEST_F(StockTextTest, OpenDialog) {
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    ExpectPortuguese(dialog);
    for (const char* text : {"Procurar em:", "&Nome do ficheiro:", "Ficheiros do tipo:", "&Abrir", "Cancelar",
                             "Retroceder", "Pasta superior", "Criar pasta nova"})
        EXPECT_TRUE(seen.contains(text)) << text;
    const auto* view = dialog.findChild<QTreeView*>("treeView");
    QStringList headers;
    for (int column = 0; column < 4; ++column)
        headers << view->model()->headerData(column, Qt::Horizontal).toString();
    EXPECT_EQ(headers, (QStringList{"Nome", "Tamanho", "Tipo", "Data de modificação"}));
}

TEST_F(StockTextTest, SaveDialog) {
    QFileDialog dialog;
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    ExpectPortuguese(dialog);
    EXPECT_TRUE(seen.contains("&Salvar"));
}

TEST_F(StockTextTest, KindsOfFiles) {
    QFileDialog dialog(nullptr, {}, "/etc");
    ExpectPortuguese(dialog);
    const auto* view = dialog.findChild<QTreeView*>("treeView");
    WaitFor([&] { return view->model()->rowCount(view->rootIndex()) > 3; });
    QStringList kinds;
    for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
        kinds << view->model()->index(row, 2, view->rootIndex()).data().toString();
    EXPECT_TRUE(kinds.contains("Pasta"));
    EXPECT_FALSE(kinds.contains("Folder"));
    EXPECT_TRUE(recorder.missing.empty()) << Joined(recorder.missing);
}

TEST_F(StockTextTest, ColourDialog) {
    QColorDialog dialog;
    dialog.setOption(QColorDialog::ShowAlphaChannel);
    ExpectPortuguese(dialog);
    for (const char* text : {"Seleccionar cor", "Cores &básicas", "&Vermelho:", "V&erde:", "A&zul:"})
        EXPECT_TRUE(seen.contains(text)) << text;
}

TEST_F(StockTextTest, FontDialog) {
    QFontDialog dialog;
    dialog.setOption(QFontDialog::DontUseNativeDialog);
    dialog.show();
    QApplication::processEvents();
    seen = VisibleTexts(dialog);
    EXPECT_TRUE(seen.contains("Seleccionar tipo de letra"));
    EXPECT_TRUE(seen.contains("&Sublinhado"));
}

TEST_F(StockTextTest, MessageBox) {
    QMessageBox box(QMessageBox::Question, "a", "b",
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    box.setDetailedText("c");
    ExpectPortuguese(box);
    EXPECT_TRUE(seen.contains("Mostrar detalhes..."));
}

TEST_F(StockTextTest, MenuOfADocumentWindow) {
    QMdiArea area;
    QMdiSubWindow* document = area.addSubWindow(new QWidget);
    ExpectPortuguese(area);
    QStringList texts;
    for (const QAction* action : document->systemMenu()->actions())
        if (!action->isSeparator()) texts << action->text().section('\t', 0, 0);
    EXPECT_EQ(texts, (QStringList{"&Restaurar", "&Mover", "&Tamanho", "Mi&nimizar", "Ma&ximizar",
                                  "Sempre &visível", "&Fechar"}));
    document->showMaximized();
    QApplication::processEvents();
    EXPECT_TRUE(recorder.missing.empty()) << Joined(recorder.missing);
}

TEST_F(StockTextTest, MenuOfATextBox) {
    QLineEdit line("abc");
    line.show();
    const QStringList texts = ContextMenuOf(line);
    for (const char* text :
         {"&Desfazer", "&Refazer", "Cor&tar", "&Copiar", "C&olar", "Apagar", "Seleccionar tudo"})
        EXPECT_TRUE(texts.contains(text)) << text;
}

TEST_F(StockTextTest, MenuOfALongText) {
    QTextEdit edit("abc");
    edit.show();
    const QStringList texts = ContextMenuOf(*edit.viewport());
    EXPECT_TRUE(texts.contains("Seleccionar tudo"));
    EXPECT_TRUE(texts.contains("Apagar"));
}

TEST_F(StockTextTest, MenuOfAScrollBar) {
    for (const Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        QScrollBar bar(orientation);
        bar.show();
        const QStringList texts = ContextMenuOf(bar);
        EXPECT_TRUE(texts.contains("Deslocar para aqui"));
        EXPECT_TRUE(texts.contains(orientation == Qt::Vertical ? "Página abaixo" : "Página à direita"));
    }
}

TEST_F(StockTextTest, MenuOfANumberBox) {
    QSpinBox box;
    box.show();
    const QStringList texts = ContextMenuOf(box);
    EXPECT_TRUE(texts.contains("A&umentar"));
}

TEST_F(StockTextTest, PrinterDialog) {
    const DialogScript script({In<QDialog>([&](QDialog& dialog) {
        ExpectPortuguese(dialog);
        dialog.reject();
    })});
    Printer().ShowSetup();
    EXPECT_TRUE(seen.contains("Impressora"));
}

/// A text of the source file: who shows it, its English, ours.
struct Text {
    QString context, english, portuguese;
};

std::vector<Text> SourceTexts() {
    QFile file(QString::fromStdString(TestData() + "/../../src/surface/system/stock_pt_PT.ts"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    std::vector<Text> texts;
    Text text;
    for (QXmlStreamReader reader(&file); !reader.atEnd();) {
        if (reader.readNext() != QXmlStreamReader::StartElement) continue;
        if (reader.name() == u"name") text.context = reader.readElementText();
        if (reader.name() == u"source") text.english = reader.readElementText();
        if (reader.name() == u"translation") {
            text.portuguese = reader.readElementText();
            texts.push_back(text);
        }
    }
    EXPECT_GT(texts.size(), 300U);
    return texts;
}

TEST(StockTexts, NoTextStandsTwice) {
    std::set<std::pair<QString, QString>> known;
    for (const Text& text : SourceTexts())
        EXPECT_TRUE(known.emplace(text.context, text.english).second)
            << text.context.toStdString() << ": " << text.english.toStdString();
}

TEST(StockTexts, PlaceholdersAreKept) {
    for (const Text& text : SourceTexts())
        for (const char* placeholder : {"%1", "%2", "%3"})
            EXPECT_EQ(text.english.contains(placeholder), text.portuguese.contains(placeholder))
                << text.english.toStdString();
}

TEST(StockTexts, EveryTextOfTheSourceIsInTheProgram) {
    QTranslator ours;
    ASSERT_TRUE(LoadStockTexts(ours));
    for (const Text& text : SourceTexts())
        EXPECT_EQ(ours.translate(text.context.toUtf8(), text.english.toUtf8()), text.portuguese)
            << text.english.toStdString();
}

} // namespace

} // namespace pintalux
