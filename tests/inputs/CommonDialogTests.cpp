#include "surface/system/CommonDialog.h"

#include "inputs/ByHand.h"
#include "support/DialogScript.h"
#include "surface/system/FileThumbnails_native.h"
#include "system/GifBytes.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <QColorDialog>
#include <QComboBox>
#include <QFileDialog>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTreeView>

namespace pintalux {

namespace {

/// The shared dialog and a folder with a few files.
class CommonDialogTest : public testing::Test {
  public:
    ~CommonDialogTest() override {
        ::unsetenv("XDG_CONFIG_HOME");
        std::filesystem::remove_all(folder);
    }

  protected:
    CommonDialogTest() {
        std::string pattern = (std::filesystem::temp_directory_path() / "pintalux-dialog-XXXXXX").string();
        folder = ::mkdtemp(pattern.data());
        for (const char* name : {"a.bmp", "B.JPG", "notas.txt"})
            std::ofstream(folder + "/" + name) << "x";
        ::setenv("XDG_CONFIG_HOME", (folder + "/.settings").c_str(), 1);
        dialog.Filter = "Bitmap (*.bmp)|*.bmp|Jpeg|*.jpg;*.jpeg";
        dialog.FileName(folder + "/a.bmp");
    }

    static QLineEdit& NameOf(QFileDialog& shown) { return *shown.findChild<QLineEdit*>("fileNameEdit"); }
    static QComboBox& TypesOf(QFileDialog& shown) { return *shown.findChild<QComboBox*>("fileTypeCombo"); }
    /// Types a name in place of the proposed one.
    static void TypeName(QFileDialog& shown, const QString& name) {
        WaitFor([&] { return shown.isActiveWindow(); });
        NameOf(shown).setFocus();
        NameOf(shown).selectAll();
        Type(NameOf(shown), name);
    }
    /// Accepts as the accept button does.
    static void Accept(QFileDialog& shown) { static_cast<QDialog&>(shown).accept(); }

    /// What a name typed into the save dialog becomes, without its folder; `then` are the questions that
    /// follow.
    std::string Saved(const QString& name, int filterIndex, std::vector<DialogScript::Step> then = {}) {
        dialog.FilterIndex = filterIndex;
        then.insert(then.begin(), In<QFileDialog>([&](QFileDialog& shown) {
                        TypeName(shown, name);
                        Accept(shown);
                    }));
        const DialogScript script(then);
        dialog.ShowSave();
        EXPECT_EQ(dialog.FilterIndex, filterIndex);
        EXPECT_TRUE(dialog.FileName().starts_with(folder + "/")) << dialog.FileName();
        return dialog.FileName().substr(folder.size() + 1);
    }

    CommonDialog dialog;
    std::string folder;
};

TEST_F(CommonDialogTest, SizeOutlivesTheProgram) {
    {
        const DialogScript script({In<QFileDialog>([](QFileDialog& shown) {
            EXPECT_EQ(shown.size(), QSize(760, 520)) << "before anybody has chosen one";
            shown.resize(700, 480);
            shown.reject();
        })});
        dialog.ShowOpen();
    }
    QSize size;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        size = shown.size();
        shown.reject();
    })});
    CommonDialog afterwards;
    afterwards.ShowSave();
    EXPECT_EQ(size, QSize(700, 480));
}

TEST_F(CommonDialogTest, PicturesAreTheirOwnSymbolsInSquaresOf48Pixels) {
    QImage red(100, 50, QImage::Format_RGB32);
    red.fill(0xFFC02010);
    red.save(QString::fromStdString(folder + "/a.bmp"));
    const FileThumbnails thumbnails(48);
    const auto of = [&](const char* name) {
        return thumbnails.icon(QFileInfo(QString::fromStdString(folder + "/" + name)))
            .pixmap(48, 48)
            .toImage();
    };
    EXPECT_EQ(of("a.bmp").size(), QSize(48, 48));
    EXPECT_EQ(of("a.bmp").pixel(0, 12), 0xFFC02010U);
    EXPECT_EQ(of("a.bmp").pixel(47, 35), 0xFFC02010U);
    EXPECT_EQ(qAlpha(of("a.bmp").pixel(20, 11)), 0);
    EXPECT_EQ(qAlpha(of("a.bmp").pixel(20, 36)), 0);
    const QImage broken = of("B.JPG"); // no picture: whatever symbol the desktop has
    EXPECT_TRUE(broken.isNull() || broken.pixel(20, 20) != 0xFFC02010U);
}

// The toolkit would make room for the whole screen of 25 megapixels.
TEST_F(CommonDialogTest, AGiantThatHidesBehindASmallImageHasTheUsualSymbol) {
    const auto shown = [&](int side) {
        std::ofstream(folder + "/gigante.gif", std::ios::binary)
            << GifScreen(side, side) + GifImage(0, 0, 1, 1, {0}) + ";";
        const QIcon icon =
            FileThumbnails(48).icon(QFileInfo(QString::fromStdString(folder + "/gigante.gif")));
        return icon.pixmap(48, 48).toImage();
    };
    EXPECT_EQ(shown(1).pixel(23, 23), 0xFFFF0000U);
    EXPECT_EQ(shown(48).pixel(0, 0), 0xFFFF0000U);
    EXPECT_NE(shown(5000).pixel(23, 23), 0xFFFFFFFFU);
    EXPECT_EQ(shown(5000), shown(33000)); // no picture either
}

TEST_F(CommonDialogTest, TheNameDoesNotDecideHowAPictureIsRead) {
    QImage red(48, 48, QImage::Format_RGB32);
    red.fill(0xFFC02010);
    red.save(QString::fromStdString(folder + "/B.JPG"), "png");
    const QIcon icon = FileThumbnails(48).icon(QFileInfo(QString::fromStdString(folder + "/B.JPG")));
    EXPECT_EQ(icon.pixmap(48, 48).toImage().pixel(0, 0), 0xFFC02010U);
}

TEST_F(CommonDialogTest, TheSymbolOfAPictureStandsInTheMiddleOfItsSquare) {
    for (const QSize size : {QSize(100, 50), QSize(50, 100), QSize(80, 80), QSize(20, 10), QSize(10, 20),
                             QSize(1, 1000), QSize(1000, 1)}) {
        QImage red(size, QImage::Format_RGB32);
        red.fill(0xFFC02010);
        red.save(QString::fromStdString(folder + "/a.bmp"));
        const QImage shown = FileThumbnails(48)
                                 .icon(QFileInfo(QString::fromStdString(folder + "/a.bmp")))
                                 .pixmap(48, 48)
                                 .toImage();
        QRect seen;
        for (int y = 0; y < 48; ++y)
            for (int x = 0; x < 48; ++x)
                if (qAlpha(shown.pixel(x, y)) > 0) seen |= QRect(x, y, 1, 1);
        SCOPED_TRACE(testing::Message() << size.width() << " by " << size.height());
        const QSize wanted = size.width() > 48 || size.height() > 48
                                 ? size.scaled(48, 48, Qt::KeepAspectRatio).expandedTo({1, 1})
                                 : size;
        EXPECT_EQ(seen.size(), wanted);
        EXPECT_EQ(seen.left(), (48 - wanted.width()) / 2);
        EXPECT_EQ(seen.top(), (48 - wanted.height()) / 2);
    }
}

TEST_F(CommonDialogTest, ListShowsThumbnailsAndWholeColumns) {
    bool fits = false;
    int side = 0;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        auto& list = *shown.findChild<QTreeView*>("treeView");
        side = list.iconSize().height();
        fits = WaitFor([&] {
            int width = 0;
            for (int i = 0; i < list.header()->count(); ++i) {
                if (list.isColumnHidden(i)) continue;
                width += list.columnWidth(i);
                const QString text = list.model()->index(0, i, list.rootIndex()).data().toString();
                if (list.columnWidth(i) < list.fontMetrics().horizontalAdvance(text)) return false;
            }
            return list.model()->rowCount(list.rootIndex()) > 0 && width <= list.viewport()->width();
        });
        shown.reject();
    })});
    dialog.ShowOpen();
    EXPECT_EQ(side, 48);
    EXPECT_TRUE(fits);
}

TEST_F(CommonDialogTest, ProposesTheLastNameAndGivesThePath) {
    QString proposed;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        proposed = NameOf(shown).text();
        Accept(shown);
    })});
    dialog.ShowOpen();
    EXPECT_EQ(proposed, "a.bmp");
    EXPECT_EQ(dialog.FileName(), folder + "/a.bmp");
}

TEST_F(CommonDialogTest, CancelGivesAnEmptyNameAndTheNextProposesTheLast) {
    {
        const DialogScript script({In<QFileDialog>([](QFileDialog& shown) { shown.reject(); })});
        dialog.ShowOpen();
        EXPECT_EQ(dialog.FileName(), "");
    }
    QString proposed;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        proposed = NameOf(shown).text();
        shown.reject();
    })});
    dialog.ShowSave();
    EXPECT_EQ(proposed, "a.bmp");
}

TEST_F(CommonDialogTest, CancelErrorRaises32755) {
    dialog.CancelError = true;
    const DialogScript script({In<QFileDialog>([](QFileDialog& shown) { shown.reject(); })});
    EXPECT_EQ(ErrorOf([&] { dialog.ShowSave(); }), kDialogCancelled);
    EXPECT_EQ(dialog.FileName(), "");
}

TEST_F(CommonDialogTest, FilterTextsShowAsTheyStandAndTheIndexGoesInAndOut) {
    dialog.FilterIndex = 2;
    QStringList shownTexts;
    int first = -1;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        QComboBox& types = TypesOf(shown);
        first = types.currentIndex();
        for (int i = 0; i < types.count(); ++i)
            shownTexts << types.itemText(i);
        types.setCurrentIndex(0);
        TypeName(shown, "novo.bmp");
        Accept(shown);
    })});
    dialog.ShowSave();
    EXPECT_EQ(first, 1);
    EXPECT_EQ(shownTexts, (QStringList{"Bitmap (*.bmp)", "Jpeg"}));
    EXPECT_EQ(dialog.FilterIndex, 1);
}

TEST_F(CommonDialogTest, PatternsMatchInAnyCase) {
    dialog.FilterIndex = 2;
    dialog.FileName(folder + "/nova.jpg");
    QStringList names;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        const auto* view = shown.findChild<QTreeView*>("treeView");
        WaitFor([&] { return view->model()->rowCount(view->rootIndex()) > 0; });
        for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
            names << view->model()->index(row, 0, view->rootIndex()).data().toString();
        shown.reject();
    })});
    dialog.ShowOpen();
    EXPECT_EQ(names, QStringList{"B.JPG"});
}

TEST_F(CommonDialogTest, SaveGivesANameTheEndingOfItsFilter) {
    EXPECT_EQ(Saved("sem ponto", 1), "sem ponto.bmp");
    EXPECT_EQ(Saved("sem ponto", 2), "sem ponto.jpg");
    EXPECT_EQ(Saved("outro.bmp", 2), "outro.jpg");
    EXPECT_EQ(Saved("outro.jpeg", 2), "outro.jpeg");
    EXPECT_EQ(Saved("praia.1", 1), "praia.bmp");
    EXPECT_EQ(Saved(".oculto", 1), ".oculto.bmp");
}

TEST_F(CommonDialogTest, SaveLeavesANameWhoseFilterAsksForNoEnding) {
    dialog.Filter = "Todos|*|Retratos|retrato*.bmp";
    EXPECT_EQ(Saved("sem ponto", 1), "sem ponto");
    EXPECT_EQ(Saved("sem ponto", 2), "sem ponto");
}

TEST_F(CommonDialogTest, TheNameOfAFolderOpensTheFolder) {
    std::filesystem::create_directory(folder + "/fotos.2024");
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        TypeName(shown, "fotos.2024");
        Accept(shown);
        EXPECT_EQ(shown.directory().path().toStdString(), folder + "/fotos.2024");
        TypeName(shown, "praia");
        Accept(shown);
    })});
    dialog.ShowSave();
    EXPECT_EQ(dialog.FileName(), folder + "/fotos.2024/praia.bmp");
}

TEST_F(CommonDialogTest, TheFolderOfTheLastChoiceOutlivesTheProgram) {
    Saved("praia", 1);
    CommonDialog next; // as after a restart
    QString shownFolder;
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        shownFolder = shown.directory().path();
        shown.reject();
    })});
    next.ShowSave();
    EXPECT_EQ(shownFolder.toStdString(), folder);
}

TEST_F(CommonDialogTest, SaveOverAFileAsksInPortuguese) {
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
                                   Accept(shown);
                                   shown.reject();
                               }),
                               PressesButton("Não")});
    dialog.ShowSave();
    EXPECT_NE(script.Dialog(1).text.find("já existe"), std::string::npos) << script.Dialog(1).text;
    EXPECT_EQ(dialog.FileName(), "");
}

TEST_F(CommonDialogTest, TheQuestionIsAboutTheNameThatWillBeWritten) {
    QString question;
    const auto yes = In<QMessageBox>([&](QMessageBox& box) {
        question = box.text();
        PressButton(box, "Sim");
    });
    EXPECT_EQ(Saved("a.jpg", 1, {yes}), "a.bmp");
    EXPECT_TRUE(question.startsWith("a.bmp já existe")) << question.toStdString();
}

TEST_F(CommonDialogTest, OpenProposesNoNameThatDoesNotExist) {
    dialog.FileName("Imagem 1.bmp");
    QString proposed = "?";
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
        proposed = NameOf(shown).text();
        shown.reject();
    })});
    dialog.ShowOpen();
    EXPECT_EQ(proposed, "");
}

TEST_F(CommonDialogTest, OpenRefusesAMissingFile) {
    const DialogScript script({In<QFileDialog>([&](QFileDialog& shown) {
                                   TypeName(shown, "nenhum.bmp");
                                   Accept(shown);
                                   shown.reject();
                               }),
                               ClosesDialog()});
    dialog.ShowOpen();
    EXPECT_NE(script.Dialog(1).text.find("Ficheiro não encontrado"), std::string::npos)
        << script.Dialog(1).text;
    EXPECT_EQ(dialog.FileName(), "");
}

TEST_F(CommonDialogTest, ColourGoesInAndOutUnderATitleOfItsOwn) {
    dialog.DialogTitle = "Abrir"; // left by a file dialog
    dialog.Color = RGB(1, 2, 3);
    QColor start;
    QString title;
    const DialogScript script({In<QColorDialog>([&](QColorDialog& shown) {
        start = shown.currentColor();
        title = shown.windowTitle();
        shown.setCurrentColor(QColor(200, 100, 50));
        shown.accept();
    })});
    dialog.ShowColor();
    EXPECT_EQ(start, QColor(1, 2, 3));
    EXPECT_EQ(title, QColorDialog().windowTitle());
    EXPECT_EQ(dialog.Color, 50 * 65536 + 100 * 256 + 200);
}

TEST_F(CommonDialogTest, CancelledColourStays) {
    dialog.Color = RGB(1, 2, 3);
    const DialogScript script({In<QColorDialog>([&](QColorDialog& shown) {
        shown.setCurrentColor(QColor(200, 100, 50));
        shown.reject();
    })});
    dialog.ShowColor();
    EXPECT_EQ(dialog.Color, RGB(1, 2, 3));
}

} // namespace

} // namespace pintalux
