#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/OrdinaryUser.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "devices/EndScanning.h"
#include "devices/frmScan.h"
#include "devices/frmScanSource.h"
#include "devices/frmScanWait.h"
#include "devices/modTwain.h"
#include "devices/ScanCommands.h"
#include "document/Globals.h"
#include "surface/window/Screen.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <fstream>
#include <QListWidget>
#include <QTimer>
#include <QWidget>

namespace pintalux {

namespace {

// The scan commands with the test device of the scanner library.
class ScanTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        TheScanPatience = {std::chrono::milliseconds(0), 0}; // each wait shows its window
        Start();
#ifdef __SANITIZE_ADDRESS__
        // It is unloaded by then, so that no list of known leaks can name it.
        GTEST_SKIP() << "the scanner library's own test device forgets memory at its end";
#endif
        ForgetScanner();
        OpenScannerLibrary = [] { return dlopen("libsane.so.1", RTLD_LAZY | RTLD_LOCAL); };
        if (OpenScannerLibrary() == nullptr) GTEST_SKIP() << "the scanner library is not installed";
        configuration_ = Folder("settings");
        ::setenv("SANE_CONFIG_DIR", configuration_.c_str(), 1);
        Configure(1);
    }
    void TearDown() override {
        EndScanning();
        ::unsetenv("SANE_CONFIG_DIR");
        ProgramTest::TearDown();
    }
    void Configure(int devices, const std::string& more = "") {
        EndScanning();
        std::ofstream(configuration_ + "/dll.conf") << (devices > 0 ? "test\n" : "# none\n");
        std::ofstream(configuration_ + "/test.conf")
            << "number_of_devices " << std::max(devices, 1) // the test device itself fails with none
            << "\nresolution_min 1\nresolution_max 1200\nresolution 50\ngeometry_min 0\ngeometry_max 200\n"
               "geometry_quant 1\ntest-picture \"Solid white\"\n"
            << more;
    }

    /// The windows that wait for the device come and go by themselves.
    static DialogScript::Step Waits() {
        return [](QWidget&) {};
    }
    static DialogScript::Step Scans(const std::function<void()>& set) {
        return [set](QWidget&) {
            set();
            ClickWidget(WidgetFor(frmScan->cmdOK));
        };
    }
    static void Area(int width, int height) {
        frmScan->VSWidth.Value(frmScan->VSWidth.Max() - width);
        frmScan->VSHeight.Value(frmScan->VSHeight.Max() - height);
    }
    /// Scans 51 by 25 millimetres at 100 dots an inch, after these settings, into a document of its own.
    static void ScanPiece(const std::function<void()>& set) {
        // Found, connected, asked, read.
        const DialogScript script({Waits(), Waits(), Scans([&set] {
                                       frmScan->cboResolution.ListIndex(2);
                                       set();
                                       Area(51, 25);
                                   }),
                                   Waits()});
        mnuFileAquire_Click();
        ASSERT_EQ(ImageCount, 1);
        const auto& image = static_cast<frmImage&>(*frmMain->ActiveForm());
        EXPECT_NEAR(image.PicMerge.Width(), 51 / 25.4 * 100, 1);
        EXPECT_NEAR(image.PicMerge.Height(), 25 / 25.4 * 100, 1);
    }
    /// The pages that lie in the program's folder.
    std::vector<std::string> PagesLeft() const {
        std::vector<std::string> names = NamesIn(Folder("program"));
        std::erase_if(names, [](const std::string& name) { return !name.starts_with("Untitled"); });
        return names;
    }

  private:
    std::string configuration_;
};

TEST_F(ScanTest, APageBecomesANewDocumentWithTwoEqualStates) {
    ScanPiece([] {});
    const auto& image = static_cast<frmImage&>(*frmMain->ActiveForm());
    EXPECT_EQ(CornerOf(image), kWhite);
    EXPECT_EQ(EntriesOf(image.ListBUorder), (std::vector<std::string>{"0", "1"}));
    EXPECT_EQ(image.Caption(), "Untitled.bmp");
    EXPECT_EQ(image.AFCurfile, Folder("program") + "/Untitled.bmp");
    EXPECT_TRUE(PagesLeft().empty());
    EXPECT_FALSE(ScreenLocked());
}

// The area counts from the corner of the glass, wherever the device has its zero.
TEST_F(ScanTest, AGlassThatBeginsElsewhereGivesTheAreaThatWasAskedFor) {
    Configure(1, "geometry_min 40\n");
    ScanPiece([] {
        EXPECT_EQ(frmScan->txtWidth.Text(), "160");
        EXPECT_EQ(frmScan->txtHeight.Text(), "160");
        frmScan->VSLeft.Value(frmScan->VSLeft.Max() - 20);
        frmScan->VSTop.Value(frmScan->VSTop.Max() - 30);
    });
}

TEST_F(ScanTest, ACancelledDialogOpensNothingAndSaysSo) {
    const DialogScript script({Waits(), Waits(), PressesEscape(), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(ImageCount, 0);
    EXPECT_EQ(script.Dialog(3), Message("information", "Operação Abortada. Erro:0"));
}

TEST_F(ScanTest, WithoutADeviceTheUserIsToldWhatToDo) {
    Configure(0);
    const DialogScript script({Waits(), PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(1),
              Message("exclamation",
                      "Não foi encontrado nenhum digitalizador. Verifique se está ligado e tente de novo."));
    EXPECT_EQ(script.Dialog(2).text, "Operação Abortada. Erro:0");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanTest, AFaultOfTheDeviceIsToldInItsOwnWords) {
    Configure(1, "read-status-code \"SANE_STATUS_COVER_OPEN\"\n");
    const DialogScript script(
        {Waits(), Waits(), Scans([] { Area(20, 20); }), Waits(), PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(4),
              Message("exclamation",
                      "Erro de leitura ou escrita no dispositivo: A tampa do digitalizador está aberta."));
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(PagesLeft().empty());
}

TEST_F(ScanTest, APageWithoutRowsOpensNothing) {
    Configure(1, "read-status-code \"SANE_STATUS_EOF\"\n");
    const DialogScript script(
        {Waits(), Waits(), Scans([] { Area(20, 20); }), Waits(), PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(
        script.Dialog(4),
        Message("exclamation",
                "Erro de leitura ou escrita no dispositivo: O digitalizador não enviou imagem nenhuma."));
    EXPECT_EQ(script.Dialog(5).text, "Operação Abortada. Erro:0");
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(PagesLeft().empty());
}

TEST_F(ScanTest, AScanThatIsGivenUpInTheMiddleLeavesNothing) {
    Configure(1, "read-delay true\nread-delay-duration 200000\n");
    const auto givesUpBy = [](const DialogScript::Step& way) {
        return [way](QWidget& dialog) {
            EXPECT_EQ(frmScanWait->lblWhat.Caption(), "A digitalizar...");
            way(dialog);
            EXPECT_TRUE(frmScanWait->Visible()) << "it waits for the device";
            EXPECT_EQ(frmScanWait->lblWhat.Caption(), "A cancelar...");
            EXPECT_FALSE(frmScanWait->cmdCancel.Enabled());
        };
    };
    std::vector<DialogScript::Step> before = {Waits()}; // the search
    for (const auto& way : {PressesButton("Cancelar"), PressesEscape(), ClosesDialog()}) {
        std::vector<DialogScript::Step> steps = before;
        steps.insert(steps.end(),
                     {Waits(),
                      Scans([] { frmScan->cboResolution.ListIndex(frmScan->cboResolution.ListCount() - 1); }),
                      givesUpBy(way), PressesButton("OK")});
        const DialogScript script(steps);
        mnuFileAquire_Click();
        EXPECT_EQ(script.Dialog(steps.size() - 1).text, "Operação Abortada. Erro:0");
        EXPECT_EQ(ImageCount, 0);
        EXPECT_TRUE(PagesLeft().empty());
        EXPECT_FALSE(frmScanWait.Loaded());
        before.clear();
    }
}

TEST_F(ScanTest, ADeviceThatVanishedIsForgottenAndTheOnesLeftAreFound) {
    Configure(2);
    {
        const DialogScript script({Waits(),
                                   [](QWidget&) {
                                       frmScanSource->lstDevices.ListIndex(1);
                                       ClickWidget(WidgetFor(frmScanSource->cmdOK));
                                   },
                                   Waits(), Scans([] { Area(20, 20); }), Waits()});
        mnuFileAquire_Click();
        EXPECT_EQ(ImageCount, 1);
    }
    Configure(1);
    {
        const DialogScript script({Waits(), PressesButton("OK"), PressesButton("OK")});
        mnuFileAquire_Click();
        EXPECT_EQ(script.Dialog(1),
                  Message("exclamation", "Dispositivo não disponível: O digitalizador já não está ligado, ou "
                                         "não aceita o que foi pedido."));
        EXPECT_EQ(script.Dialog(2).text, "Operação Abortada. Erro:0");
        EXPECT_EQ(ImageCount, 1);
    }
    const DialogScript script({Waits(), Waits(), Scans([] { Area(20, 20); }), Waits()});
    mnuFileAquire_Click();
    EXPECT_EQ(ImageCount, 2);
}

TEST_F(ScanTest, AFolderThatCannotBeWrittenIsNamedAndNothingOpens) {
    const std::string folder = Folder("program");
    std::filesystem::permissions(folder, std::filesystem::perms(0555));
    {
        const DialogScript script({Waits(), Waits(), Scans([] { Area(20, 20); }), Waits(),
                                   PressesButton("OK"), PressesButton("OK")});
        const OrdinaryUser user;
        mnuFileAquire_Click();
        EXPECT_EQ(script.Dialog(4), Message("exclamation", "Permissão recusada: " + folder +
                                                               "/Untitled.bmp (não tem permissão)"));
        EXPECT_EQ(script.Dialog(5).text, "Operação Abortada. Erro:0");
    }
    std::filesystem::permissions(folder, std::filesystem::perms(0755));
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(PagesLeft().empty());
}

TEST_F(ScanTest, AFullDiskIsToldAndLeavesNoPiece) {
    const DialogScript script(
        {Waits(), Waits(), Scans([] { Area(100, 100); }), Waits(), PressesButton("OK"), PressesButton("OK")});
    {
        const FullDisk disk(4096);
        mnuFileAquire_Click();
    }
    EXPECT_EQ(script.Dialog(4),
              Message("exclamation", "Erro de acesso ao caminho ou ao ficheiro: " + Folder("program") +
                                         "/Untitled.bmp (o ficheiro é demasiado grande)"));
    EXPECT_EQ(script.Dialog(5).text, "Operação Abortada. Erro:0");
    EXPECT_EQ(ImageCount, 0);
    EXPECT_TRUE(PagesLeft().empty());
}

TEST_F(ScanTest, APageThatIsTooLargeIsRefusedWithTheWayOut) {
    Configure(1, "resolution_max 6000\nresolution 6000\n");
    const DialogScript script({Waits(), Waits(), Scans([] {
                                   frmScan->cboResolution.ListIndex(frmScan->cboResolution.ListCount() - 1);
                               }),
                               Waits(), PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(4),
              Message("exclamation", "Excesso de capacidade (overflow): A página tem mais de 32000 pixels de "
                                     "lado. Escolha uma resolução ou uma área menor."));
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanTest, APageThatCannotBeReadBackIsToldByItsNumber) {
    Configure(1, "read-delay true\nread-delay-duration 20000\n");
    const std::string page = Folder("program") + "/Untitled.bmp";
    QTimer thief;
    QObject::connect(&thief, &QTimer::timeout, [&page] { std::filesystem::remove(page); });
    const DialogScript script({Waits(), Waits(), Scans([&thief] {
                                   frmScan->cboResolution.ListIndex(2);
                                   thief.start(0);
                               }),
                               Waits(), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(4).text, "Operação Abortada. Erro:53");
    EXPECT_EQ(script.Dialog(4).icon, "information");
    EXPECT_EQ(Screen.MousePointer(), kPointerDefault);
    LockWindowUpdate(nullptr);
}

TEST_F(ScanTest, AChoiceThatIsCancelledKeepsTheDeviceBefore) {
    Configure(2);
    const auto chooses = [](int index) {
        return [index](QWidget&) {
            frmScanSource->lstDevices.ListIndex(index);
            ClickWidget(WidgetFor(frmScanSource->cmdOK));
        };
    };
    {
        const DialogScript script({Waits(), chooses(1), Waits(), PressesEscape()});
        mnuFileTSelect_Click();
        mnuFileTSelect_Click();
    }
    const DialogScript script({Waits(), [](QWidget&) {
                                   EXPECT_EQ(frmScanSource->lstDevices.ListIndex(), 1);
                                   ClickWidget(WidgetFor(frmScanSource->cmdCancel));
                               }});
    mnuFileTSelect_Click();
}

TEST_F(ScanTest, AnAreaWithoutWidthIsRefusedAndTheWindowStays) {
    const DialogScript script({Waits(), Waits(),
                               [](QWidget& dialog) {
                                   frmScan->txtWidth.Text("0");
                                   ClickWidget(WidgetFor(frmScan->cmdOK));
                                   EXPECT_TRUE(frmScan->Visible());
                                   PressesEscape()(dialog);
                               },
                               PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(3).text, "Área inválida. Insira pelo menos 1 milímetro de largura e de altura.");
    EXPECT_EQ(script.Dialog(4).text, "Operação Abortada. Erro:0");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanTest, AQuickDeviceIsWaitedForWithoutAWindow) {
    TheScanPatience = {std::chrono::seconds(20), 0};
    const DialogScript script({Scans([] { Area(20, 20); })});
    mnuFileAquire_Click();
    EXPECT_EQ(ImageCount, 1);
}

TEST_F(ScanTest, TwoScansInARowHaveTheSameName) {
    for (int i = 0; i < 2; ++i) {
        std::vector<DialogScript::Step> steps = {Waits(), Scans([] { Area(20, 20); }), Waits()};
        if (i == 0) steps.insert(steps.begin(), Waits()); // the search
        const DialogScript script(steps);
        mnuFileAquire_Click();
        EXPECT_EQ(frmMain->ActiveForm()->Caption(), "Untitled.bmp");
    }
    EXPECT_EQ(ImageCount, 2);
}

TEST_F(ScanTest, ThePointerWaitsForTheDeviceAndNotForTheUser) {
    std::vector<int> pointers;
    const auto note = [&pointers] { pointers.push_back(Screen.MousePointer()); };
    const DialogScript script({[&](QWidget&) { note(); }, Waits(), Scans([&] {
                                   note();
                                   Area(20, 20);
                               }),
                               [&](QWidget&) { note(); }});
    mnuFileAquire_Click();
    EXPECT_EQ(pointers, (std::vector<int>{kPointerHourglass, kPointerDefault, kPointerHourglass}));
    EXPECT_EQ(Screen.MousePointer(), kPointerDefault);
}

TEST_F(ScanTest, TheNextScanProposesWhatTheLastOneHad) {
    {
        const DialogScript script({Waits(), Waits(), Scans([] {
                                       frmScan->cboResolution.ListIndex(3);
                                       frmScan->cboMode.ListIndex(1);
                                       Area(31, 22);
                                   }),
                                   Waits()});
        mnuFileAquire_Click();
    }
    const DialogScript script({Waits(), Scans([] {
                                   EXPECT_EQ(frmScan->cboResolution.Text(), "150");
                                   EXPECT_EQ(frmScan->cboMode.ListIndex(), 1);
                                   EXPECT_EQ(frmScan->txtWidth.Text(), "31");
                                   EXPECT_EQ(frmScan->txtHeight.Text(), "22");
                               }),
                               Waits()});
    mnuFileAquire_Click();
}

TEST_F(ScanTest, AFileOfTheSameNameIsNotOverwritten) {
    PutBytes(Folder("program") + "/Untitled.bmp", "mine");
    const DialogScript script({Waits(), Waits(), Scans([] { Area(20, 20); }), Waits()});
    mnuFileAquire_Click();
    EXPECT_EQ(BytesOf(Folder("program") + "/Untitled.bmp"), "mine");
    EXPECT_EQ(static_cast<frmImage&>(*frmMain->ActiveForm()).Caption(), "Untitled1.bmp");
}

TEST_F(ScanTest, OfSeveralDevicesTheUserChoosesOnceForTheRun) {
    Configure(2);
    {
        const DialogScript script({Waits(), [](QWidget&) {
                                       EXPECT_EQ(frmScanSource->lstDevices.ListCount(), 2);
                                       frmScanSource->lstDevices.ListIndex(1);
                                       ClickWidget(WidgetFor(frmScanSource->cmdOK));
                                   }});
        mnuFileTSelect_Click();
        EXPECT_EQ(script.Count(), 2U);
    }
    const DialogScript script({Waits(), Scans([] { Area(20, 20); }), Waits()});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Count(), 3U);
    EXPECT_EQ(ImageCount, 1);
}

} // namespace

} // namespace pintalux
