// The collection of the user's own colours: its grid and its commands.
#include "colour/ColourBoxTest.h"
#include "support/DialogScript.h"

#include <numeric>
#include <QComboBox>

namespace pintalux {
namespace {

class CollectionTest : public ColourBoxTest {
  protected:
    std::string File(const std::string& name = "mine.klc") const { return Folder("pictures") + "/" + name; }

    static void Press(const std::string& key) {
        QWidget* button = Find(WidgetFor(frmMain->Toolbar3), "Toolbar3_" + key);
        ASSERT_NE(button, nullptr);
        ClickWidget(*button);
    }

    /// n colours, each another.
    static std::vector<Colour> Several(int n, Colour first = 1000) {
        std::vector<Colour> colours(static_cast<std::size_t>(n));
        std::iota(colours.begin(), colours.end(), first);
        return colours;
    }

    /// The colours of the cells, from the first to the first empty one, at their left top corners.
    static std::vector<Colour> Cells() {
        std::vector<Colour> colours;
        for (int cell = 0; cell < 78; ++cell) {
            const Colour c = BoxPixel(cell % 6 * 18, 156 + cell / 6 * 18);
            if (c == kEmpty) break;
            colours.push_back(c);
        }
        return colours;
    }
};

constexpr const char* kQuestion = "Do you wish to save the currently selected colors first ?";

TEST_F(CollectionTest, CellsOf16PixelsStandOnAPitchOf18) {
    Collect(Several(78));
    EXPECT_EQ(CollectionCount, 78);
    EXPECT_EQ(frmMain->CollectionX, 90);
    EXPECT_EQ(frmMain->CollectionY, 372);
    for (int y = 156; y < 417; ++y) {
        for (int x = 0; x < 131; ++x) {
            const int column = x / 18;
            const int row = (y - 156) / 18;
            const bool cell = column < 6 && row < 13 && x % 18 < 16 && (y - 156) % 18 < 16;
            ASSERT_EQ(BoxPixel(x, y), cell ? 1000 + row * 6 + column : kEmpty) << x << ", " << y;
        }
    }
}

TEST_F(CollectionTest, TheSeventyNinthColourTakesTheFirstCell) {
    Collect(Several(78));
    Collect({RGB(9, 9, 9)});
    EXPECT_EQ(CollectionCount, 1);
    EXPECT_EQ(BoxPixel(0, 156), RGB(9, 9, 9));
    EXPECT_EQ(BoxPixel(15, 171), RGB(9, 9, 9));
    EXPECT_EQ(BoxPixel(18, 156), 1001);
    EXPECT_EQ(BoxPixel(90, 372), 1077);
    EXPECT_EQ(frmMain->CollectionColors[0], " 592137");
    Collect({RGB(8, 8, 8)});
    EXPECT_EQ(CollectionCount, 2);
    EXPECT_EQ(BoxPixel(18, 156), RGB(8, 8, 8));
}

TEST_F(CollectionTest, CellsBelongToThePictureOfTheBox) {
    Collect({RGB(1, 2, 3)});
    frmMain->ColorBox.Cls();
    EXPECT_EQ(BoxPixel(0, 156), RGB(1, 2, 3));
    EXPECT_EQ(frmMain->CollectionColors[0], " 197121");
    EXPECT_TRUE(frmMain->CollectionDirty);
}

TEST_F(CollectionTest, HasSixCommandsWithTheToldTips) {
    const std::vector<std::pair<std::string, std::string>> told = {
        {"Lock", "Bloquear a alteração de cores"},
        {"Unlock2", "Inserir automaticamente na minha selecção de cores"},
        {"Clear", "Remover a cor da selecção."},
        {"ColDlg", "Usar o selector de cores do Windows."},
        {"OpenCol2", "Abrir uma selecção de cores gravada anteriormente."},
        {"SaveCols", "Salvar a minha selecção de cores"}};
    ASSERT_EQ(frmMain->Toolbar3.ButtonCount(), 6);
    for (int i = 1; i <= 6; ++i) {
        const auto& [key, tip] = told[static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(frmMain->Toolbar3.Buttons(i).Key(), key);
        EXPECT_EQ(frmMain->Toolbar3.Buttons(i).ToolTipText(), tip);
    }
}

TEST_F(CollectionTest, LockButtonTogglesTheLockAndItsPicture) {
    EXPECT_FALSE(ColorLock);
    Press("Lock");
    EXPECT_TRUE(ColorLock);
    EXPECT_EQ(frmMain->Toolbar3.Buttons(1).Image(), ":/icons/lock.svg");
    Press("Lock");
    EXPECT_FALSE(ColorLock);
    EXPECT_EQ(frmMain->Toolbar3.Buttons(1).Image(), ":/icons/unlock.svg");
}

TEST_F(CollectionTest, UnlockButtonLeavesThePictureOfTheLock) {
    Press("Lock");
    Press("Unlock2");
    EXPECT_FALSE(ColorLock);
    EXPECT_EQ(frmMain->Toolbar3.Buttons(1).Image(), ":/icons/lock.svg");
}

TEST_F(CollectionTest, ClearAsksFirst) {
    Collect(Several(3));
    {
        // Enter keeps them, too.
        DialogScript script({PressesButton("Não"), [](QWidget& dialog) { Type(dialog, "\n"); }});
        Press("Clear");
        EXPECT_EQ(
            script.Dialog(0),
            Message("question", "Are you sure you wish to remove your collection of colors ?", "Sim|Não"));
        Press("Clear");
    }
    EXPECT_EQ(CollectionCount, 3);
    DialogScript script({PressesButton("Sim")});
    Press("Clear");
    EXPECT_EQ(CollectionCount, 0);
    EXPECT_TRUE(Cells().empty());
    EXPECT_FALSE(frmMain->CollectionDirty);
    EXPECT_EQ(frmMain->CollectionColors[0], " 1000");
}

TEST_F(CollectionTest, SavedColoursComeBack) {
    Collect(Several(10));
    {
        DialogScript script({ChoosesFile(File())});
        Press("SaveCols");
        EXPECT_EQ(script.Dialog(0).title, "Save Colors");
    }
    frmMain->unloadselected();
    frmMain->SetCurrentColour(kBefore);
    DialogScript script({ChoosesFile(File())});
    Press("OpenCol2");
    EXPECT_EQ(script.Dialog(0).title, "Open Color Collection");
    EXPECT_EQ(Cells(), Several(10));
    EXPECT_EQ(frmMain->TheColor.BackColor(), 1009);
    EXPECT_EQ(frmMain->txtRed.Text(), "241"); // 1009 is 0x0003F1
    EXPECT_EQ(frmMain->txtGreen.Text(), "3");
    EXPECT_EQ(frmMain->LblCurCol.ForeColor(), kWhite);
    EXPECT_TRUE(frmMain->CollectionDirty);
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(CollectionTest, SavedFileHoldsTheTailOfAnEarlierCollection) {
    Collect(Several(4));
    frmMain->unloadselected();
    Collect({RGB(0, 0, 1)});
    DialogScript script({ChoosesFile(File())});
    frmMain->SaveColors();
    EXPECT_EQ(BytesOf(File()), "[Colors]\r\n 0= 65536\r\n 1= 1001\r\n 2= 1002\r\n 3= 1003\r\n");
}

TEST_F(CollectionTest, EmptyCollectionIsRefusedAfterTheDialog) {
    DialogScript script({ChoosesFile(File()), PressesButton("OK")});
    frmMain->SaveColors();
    EXPECT_EQ(script.Dialog(1).text, "No colors in your collection to save.");
    EXPECT_EQ(script.Dialog(1).icon, "none");
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
}

TEST_F(CollectionTest, CancelledSaveWritesNothing) {
    Collect(Several(2));
    DialogScript script({PressesEscape()});
    frmMain->SaveColors();
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
}

TEST_F(CollectionTest, ItsDialogsShowCollectionsOnly) {
    Collect(Several(2));
    frmMain->CollectionAsked = true;
    for (const auto command : {&ColourPanel::OpenColors, &ColourPanel::SaveColors}) {
        const DialogScript script({[](QWidget& dialog) {
            const auto& filters = *dialog.findChild<QComboBox*>("fileTypeCombo");
            EXPECT_EQ(filters.count(), 1);
            EXPECT_EQ(filters.currentText(), "Kelta Color Collection (*.klc)");
            PressesEscape()(dialog);
        }});
        ((*frmMain).*command)();
    }
    EXPECT_EQ(CollectionCount, 2);
}

TEST_F(CollectionTest, UnsavedColoursAreAskedAbout) {
    PutBytes(File(), "[Colors]\r\n 0= 7\r\n");
    Collect(Several(2));
    {
        DialogScript script({PressesButton("Cancelar")});
        frmMain->OpenColors();
        EXPECT_EQ(script.Dialog(0).text, kQuestion);
        EXPECT_EQ(script.Dialog(0).title, "VALMERO Multimédia");
    }
    EXPECT_EQ(Cells(), Several(2));
    DialogScript script({PressesButton("Não"), ChoosesFile(File())});
    frmMain->OpenColors();
    EXPECT_EQ(Cells(), (std::vector<Colour>{7}));
}

TEST_F(CollectionTest, TheLastColourReadIsTheCurrentOneAndItsCaptionCanBeRead) {
    for (const bool dark : {true, false}) {
        PutBytes(File(),
                 dark ? "[Colors]\r\n 0= 16777215\r\n 1= 0\r\n" : "[Colors]\r\n 0= 0\r\n 1= 16777215\r\n");
        DialogScript script({ChoosesFile(File())});
        frmMain->CollectionAsked = true;
        frmMain->OpenColors();
        EXPECT_EQ(frmMain->TheColor.BackColor(), dark ? kBlack : kWhite);
        EXPECT_EQ(frmMain->LblCurCol.ForeColor(), dark ? kWhite : kBlack);
        EXPECT_EQ(frmMain->txtRed.Text(), dark ? "0" : "255");
    }
}

TEST_F(CollectionTest, YesSavesFirstAndAsksNoSecondTime) {
    PutBytes(File("other.klc"), "[Colors]\r\n 0= 7\r\n");
    Collect(Several(2));
    DialogScript script({PressesButton("Sim"), ChoosesFile(File()), ChoosesFile(File("other.klc"))});
    frmMain->OpenColors();
    EXPECT_EQ(script.Count(), 3u);
    EXPECT_EQ(BytesOf(File()), "[Colors]\r\n 0= 1000\r\n 1= 1001\r\n");
    EXPECT_EQ(Cells(), (std::vector<Colour>{7}));
    EXPECT_FALSE(frmMain->CollectionAsked);
}

// Whoever saved and then chose no file is asked again the next time.
TEST_F(CollectionTest, CancelAfterTheSaveAsksAgainNextTime) {
    Collect(Several(2));
    {
        DialogScript script({PressesButton("Sim"), ChoosesFile(File()), PressesEscape()});
        frmMain->OpenColors();
    }
    EXPECT_EQ(Cells(), Several(2));
    EXPECT_FALSE(frmMain->CollectionAsked);
    Collect({RGB(9, 9, 9)});
    DialogScript script({PressesButton("Cancelar")});
    frmMain->OpenColors();
    EXPECT_EQ(script.Dialog(0).text, kQuestion);
}

TEST_F(CollectionTest, CancelledOpenChangesNothing) {
    DialogScript script({PressesEscape()});
    frmMain->OpenColors();
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    EXPECT_EQ(CollectionCount, 0);
}

TEST_F(CollectionTest, ColoursThatCannotBeSavedStay) {
    Collect(Several(78, 0x400000));
    const FullDisk disk(64);
    DialogScript script({PressesButton("Sim"), ChoosesFile(File()), PressesButton("OK")});
    frmMain->OpenColors();
    EXPECT_EQ(script.Count(), 3u);
    EXPECT_EQ(
        script.Dialog(2),
        Message("exclamation", "Erro de acesso ao caminho ou ao ficheiro: " + File() +
                                   " (o ficheiro é demasiado grande).\nAs cores não foram salvas e ficam na "
                                   "palete; escolha outro lugar para o ficheiro."));
    EXPECT_EQ(Cells(), Several(78, 0x400000));
    EXPECT_TRUE(frmMain->CollectionDirty);
    EXPECT_TRUE(NamesIn(Folder("pictures")).empty());
}

TEST_F(CollectionTest, FileThatCannotBeReadIsToldAndTheColoursStay) {
    PutBytes(File(), "[Colors]\r\n 0= 7\r\n");
    std::filesystem::resize_file(File(), 100'000'000);
    Collect(Several(2));
    DialogScript script({PressesButton("Não"), ChoosesFile(File()), PressesButton("OK")});
    frmMain->OpenColors();
    EXPECT_EQ(
        script.Dialog(2),
        Message("exclamation", "Erro de acesso ao caminho ou ao ficheiro: " + File() +
                                   " (o ficheiro é demasiado grande).\nAs suas cores ficam como estavam."));
    EXPECT_EQ(Cells(), Several(2));
    EXPECT_FALSE(ScreenLocked());
}

TEST_F(CollectionTest, FileWithoutColoursGivesAnEmptyGridAndKeepsTheCurrentColour) {
    PutBytes(File(), std::string("BM\x36\0\0\0\0\0", 8));
    DialogScript script({ChoosesFile(File())});
    frmMain->OpenColors();
    EXPECT_TRUE(Cells().empty());
    EXPECT_EQ(frmMain->TheColor.BackColor(), kBefore);
    EXPECT_FALSE(frmMain->CollectionDirty);
}

// All 78 colours arrive between two repaints: the box is painted with none or with all.
TEST_F(CollectionTest, LoadPaintsTheBoxOnce) {
    class PaintCounter : public QObject {
      public:
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++paints;
            return false;
        }
    } counter;
    std::string text = "[Colors]\r\n";
    for (int i = 0; i < 78; ++i)
        text += " " + std::to_string(i) + "= " + std::to_string(1000 + i) + "\r\n";
    PutBytes(File(), text);
    DialogScript script({ChoosesFile(File())});
    PassEvents();
    WidgetFor(frmMain->ColorBox).installEventFilter(&counter);
    frmMain->OpenColors();
    EXPECT_LE(counter.paints, 1); // what the dialog uncovers
    counter.paints = 0;
    PassEvents();
    EXPECT_EQ(counter.paints, 1);
    EXPECT_EQ(Cells(), Several(78));
}

} // namespace
} // namespace pintalux
