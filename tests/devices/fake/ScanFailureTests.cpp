// What the user hears of a scanner that fails, and of a page that is none.
#include "devices/fake/FakeScannerTest.h"
#include "devices/frmScan.h"
#include "devices/frmScanSource.h"
#include "devices/frmScanWait.h"
#include "devices/ScanCommands.h"
#include "document/Globals.h"
#include "support/DialogScript.h"
#include "support/Errors.h"
#include "support/Pictures.h"

#include <chrono>
#include <filesystem>
#include <future>
#include <memory>

namespace pintalux {
namespace {

class ScanFailureTest : public FakeScannerTest {
  protected:
    void SetUp() override {
        FakeScannerTest::SetUp();
        TheScanPatience = {std::chrono::seconds(20), 0}; // nothing takes long: no wait shows its window
        Start();
    }
    static DialogScript::Seen Told(const std::string& text) { return Message("exclamation", text); }
};

TEST_F(ScanFailureTest, ALibraryThatDoesNotStartIsToldAndTriedAgain) {
    struct Case {
        SANE_Status status;
        int version;
    };
    for (const Case& refused :
         {Case{SANE_STATUS_IO_ERROR, SANE_CURRENT_MAJOR}, Case{SANE_STATUS_GOOD, SANE_CURRENT_MAJOR + 1}}) {
        TheFakeScanner.whenStarted = refused.status;
        TheFakeScanner.version = refused.version;
        const DialogScript script({PressesButton("OK")});
        EXPECT_EQ(TWAIN_SelectImageSource(nullptr), 0);
        EXPECT_EQ(script.Dialog(0), Told("Dispositivo não disponível: libsane.so.1"));
    }
    TheFakeScanner = {};
    for (int time = 0; time < 2; ++time) {
        const DialogScript script({[](QWidget&) {
            EXPECT_EQ(frmScanSource->lstDevices.ListCount(), 1);
            EXPECT_EQ(frmScanSource->lstDevices.Text(), "Ensaio Um (fake:0)");
            ClickWidget(WidgetFor(frmScanSource->cmdOK));
        }});
        EXPECT_EQ(TWAIN_SelectImageSource(nullptr), 1);
    }
}

TEST_F(ScanFailureTest, ASearchThatFailsIsTold) {
    TheFakeScanner.whenLookedFor = SANE_STATUS_NO_MEM;
    const DialogScript script({PressesButton("OK"), PressesButton("OK"), PressesButton("OK")});
    EXPECT_EQ(TWAIN_SelectImageSource(nullptr), 0);
    const std::string text = "Memória insuficiente: O digitalizador não tem memória que chegue.";
    EXPECT_EQ(script.Dialog(0), Told(text));
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(1), Told(text));
    EXPECT_EQ(script.Dialog(2).text, "Operação Abortada. Erro:0");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanFailureTest, ADeviceThatLetsNobodyInIsToldAndLookedForAnew) {
    TheFakeScanner.whenOpened = SANE_STATUS_ACCESS_DENIED;
    {
        const DialogScript script({PressesButton("OK"), PressesButton("OK")});
        mnuFileAquire_Click();
        EXPECT_EQ(script.Dialog(0),
                  Told("Dispositivo não disponível: Sem permissão para usar o digitalizador."));
        EXPECT_EQ(script.Dialog(1).text, "Operação Abortada. Erro:0");
    }
    TheFakeScanner.whenOpened = SANE_STATUS_GOOD;
    TheFakeScanner.whenLookedFor = SANE_STATUS_IO_ERROR;
    const DialogScript script({PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(0).text,
              "Erro de leitura ou escrita no dispositivo: A ligação ao digitalizador falhou.");
    EXPECT_EQ(TheFakeScanner.opened, std::vector<std::string>{"fake:0"});
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanFailureTest, ADeviceThatFailsAtItsPageIsLookedForAnew) {
    TheFakeScanner.announces = [](SANE_Parameters& page) { page.pixels_per_line = 0; };
    {
        const DialogScript script({[](QWidget&) { ClickWidget(WidgetFor(frmScan->cmdOK)); },
                                   PressesButton("OK"), PressesButton("OK")});
        mnuFileAquire_Click();
        EXPECT_EQ(script.Dialog(2).text, "Operação Abortada. Erro:0");
    }
    TheFakeScanner.whenLookedFor = SANE_STATUS_IO_ERROR;
    const DialogScript script({PressesButton("OK"), PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(0).text,
              "Erro de leitura ou escrita no dispositivo: A ligação ao digitalizador falhou.");
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanFailureTest, ADeviceWithoutAnyOptionGivesItsPageAllTheSame) {
    const DialogScript script({[](QWidget&) {
        EXPECT_FALSE(frmScan->cboResolution.Enabled());
        EXPECT_FALSE(frmScan->cboMode.Enabled());
        EXPECT_FALSE(frmScan->cboPaper.Enabled());
        EXPECT_FALSE(frmScan->fraArea.Enabled());
        ClickWidget(WidgetFor(frmScan->cmdOK));
    }});
    mnuFileAquire_Click();
    ASSERT_EQ(ImageCount, 1);
    ExpectSamePixels(ImageOf(static_cast<frmImage&>(*frmMain->ActiveForm())), [] {
        Picture page = Picture(2, 1, 0x030201);
        page.Set(1, 0, 0x3C3228);
        return page;
    }());
    EXPECT_TRUE(TheFakeScanner.set.empty());
}

TEST_F(ScanFailureTest, ADeviceThatAnnouncesNoPixelsIsAnError) {
    for (const auto& [pixels, bytes] :
         {std::pair(0, 6), std::pair(-1, 6), std::pair(2, 0), std::pair(2, -1)}) {
        TheFakeScanner.announces = [pixels = pixels, bytes = bytes](SANE_Parameters& page) {
            page.pixels_per_line = pixels;
            page.bytes_per_line = bytes;
        };
        EXPECT_EQ(ErrorOf([] { SetBy({}); }), kDeviceError) << pixels << ' ' << bytes;
    }
}

TEST_F(ScanFailureTest, APageThatTurnsOutTooLargeIsRefusedAsSoonAsThatIsKnown) {
    for (const auto& [pixels, lines, error] :
         {std::tuple(32001, 1, +kOverflow), std::tuple(2, 32001, +kOverflow), std::tuple(2, 32000, 0)}) {
        int asked = 0;
        TheFakeScanner.announces = [&asked, pixels = pixels, lines = lines](SANE_Parameters& page) {
            if (++asked == 1) return; // before it starts it foresees another size
            page.pixels_per_line = pixels;
            page.lines = lines;
        };
        EXPECT_EQ(ErrorOf([] { SetBy({}); }), error) << pixels << ' ' << lines;
    }
}

TEST_F(ScanFailureTest, APageThatIsGivenUpWithItsLastRowLeavesNoFile) {
    TheScanPatience = {std::chrono::milliseconds(0), 0}; // each wait shows its window
    const auto givenUp = std::make_shared<std::promise<void>>();
    TheFakeScanner.ends = [givenUp] { givenUp->get_future().wait(); };
    const auto waits = [](QWidget&) {};
    const DialogScript script({waits, waits, [](QWidget&) { ClickWidget(WidgetFor(frmScan->cmdOK)); },
                               [givenUp](QWidget&) {
                                   frmScanWait->cmdCancel_Click();
                                   givenUp->set_value();
                               },
                               PressesButton("OK")});
    mnuFileAquire_Click();
    EXPECT_EQ(script.Dialog(4).text, "Operação Abortada. Erro:0");
    EndScanning();
    EXPECT_FALSE(std::filesystem::exists(Folder("program") + "/Untitled.bmp"));
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(ScanFailureTest, AScanThatIsGivenUpAndDoesNotStopKeepsNobodyWaiting) {
    static constexpr std::chrono::seconds kLong(8);
    TheScanPatience = {std::chrono::milliseconds(0), 0}; // each wait shows its window
    const auto left = std::make_shared<std::promise<void>>();
    const auto stood = std::make_shared<std::promise<bool>>();
    TheFakeScanner.ends = [left, stood] {
        stood->set_value(left->get_future().wait_for(kLong) == std::future_status::timeout);
    };
    const auto waits = [](QWidget&) {};
    const DialogScript script({waits, waits, [](QWidget&) { ClickWidget(WidgetFor(frmScan->cmdOK)); },
                               [](QWidget&) { frmScanWait->cmdCancel_Click(); }, PressesButton("OK")});
    mnuFileAquire_Click();
    left->set_value();
    EXPECT_FALSE(stood->get_future().get()) << "the window went when the device stopped";
    EXPECT_EQ(ImageCount, 0);
}

// Some drivers hang when they are stopped: the page is there all the same.
TEST_F(ScanFailureTest, ADeviceThatDoesNotComeToRestKeepsNobodyWaiting) {
    static constexpr std::chrono::seconds kLong(8);
    const auto opened = std::make_shared<std::promise<void>>();
    const auto gaveIn = std::make_shared<std::promise<bool>>();
    TheFakeScanner.comesToRest = [opened, gaveIn] {
        gaveIn->set_value(opened->get_future().wait_for(kLong) == std::future_status::timeout);
    };
    const DialogScript script({[](QWidget&) { ClickWidget(WidgetFor(frmScan->cmdOK)); }});
    mnuFileAquire_Click();
    EXPECT_EQ(ImageCount, 1);
    opened->set_value();
    EXPECT_FALSE(gaveIn->get_future().get()) << "the page came when the device gave in";
}

} // namespace
} // namespace pintalux
