// The clip tray and the clipboard monitor behind it.
#include "selection/ClipTray.h"

#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Memory.h"
#include "support/Pictures.h"
#include "support/Program.h"
#include "support/Waiting.h"

#include "document/Globals.h"
#include "surface/system/Clipboard.h"

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QWidget>

namespace pintalux {
namespace {

constexpr int kPage = 4;

class ClipTrayTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        ClipCaptureOff = false;
        Clipboard.Clear();
        SetSetting("ShowSplash", "0");
    }
    void TearDown() override {
        ProgramTest::TearDown();
        ClipCaptureOff = false;
        Clipboard.Clear();
    }

    /// The main window with its monitor on, without the document of the start.
    void StartMonitor() {
        Start();
        Choose(frmMain->mnuEditClip); // it is ticked, but its start is still to come
        Choose(frmMain->mnuEditClip);
        ASSERT_TRUE(frmMain->mnuEditClip.Checked());
    }
    /// What a copy does; each picture of another colour.
    static void Copy(int width = 8, int height = 8) {
        static Colour colour = 0;
        colour = (colour + 0x010305) & 0xFFFFFF;
        Clipboard.SetData(Solid(width, height, colour));
    }
    static void Copies(int count) {
        for (int i = 0; i < count; ++i)
            Copy();
    }
    /// What another program does.
    static void CopyTextElsewhere() {
        QGuiApplication::clipboard()->setText("sol e mar");
        PassEvents();
    }
    static void CopyElsewhere(const char* format, const QByteArray& bytes) {
        auto* data = new QMimeData;
        data->setData(format, bytes);
        QGuiApplication::clipboard()->setMimeData(data);
        PassEvents();
    }
    /// Decodes aside, hence the wait.
    static void ExpectCaptured(int slot, const Picture& picture) {
        EXPECT_TRUE(WaitFor([slot] { return frmMain->PicClipBG(slot).Visible(); }));
        ExpectSamePixels(frmMain->PicClip(slot).Image(), picture);
    }
    static QByteArray Png(int width, int height, QRgb colour) {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(colour);
        QByteArray bytes;
        QBuffer buffer(&bytes);
        image.save(&buffer, "png");
        return bytes;
    }
    static int Filled() {
        int filled = 0;
        for (int i = 0; i < 6; ++i)
            filled += frmMain->PicClipBG(i).Visible() ? 1 : 0;
        return filled;
    }
    static void ExpectMarkAt(int slot) {
        EXPECT_EQ(frmMain->ShClip.Left(), frmMain->PicClipBG(slot).Left() - 90);
        EXPECT_EQ(frmMain->ShClip.Top(), frmMain->PicClipBG(slot).Top() - 90);
    }
    static void ExpectThumbnail(int slot, double left, double top, double width, double height) {
        const Display& thumbnail = frmMain->ImgClip(slot);
        EXPECT_EQ(thumbnail.Left(), left);
        EXPECT_EQ(thumbnail.Top(), top);
        EXPECT_EQ(thumbnail.Width(), width);
        EXPECT_EQ(thumbnail.Height(), height);
    }
    static double PageHeight() { return frmMain->PicTools(kPage).Height(); }
    static void OpenPage() {
        if (PageHeight() <= 300) frmMain->cmdTools_Click(kPage);
    }
    static void ClosePage() {
        if (PageHeight() > 300) frmMain->cmdTools_Click(kPage);
    }
};

} // namespace

TEST_F(ClipTrayTest, FramesStandInTwoColumnsAndThreeRows) {
    Start();
    const std::pair<double, double> places[] = {{210, 720},   {1080, 720}, {210, 1560},
                                                {1080, 1560}, {210, 2400}, {1080, 2400}};
    for (int i = 0; i < 6; ++i) {
        const Surface& frame = frmMain->PicClipBG(i);
        EXPECT_EQ(frame.Left(), places[i].first) << i;
        EXPECT_EQ(frame.Top(), places[i].second) << i;
        EXPECT_EQ(frame.Width(), 675) << i;
        EXPECT_EQ(frame.Height(), 675) << i;
        EXPECT_FALSE(frame.Visible()) << i;
        EXPECT_EQ(frmMain->PicClip(i).Tag(), "") << i;
    }
    EXPECT_FALSE(frmMain->ShClip.Visible());
    EXPECT_FALSE(frmMain->cmdClear.Enabled());
    EXPECT_EQ(frmMain->ChClipLock.Value(), 0);
    EXPECT_EQ(&*TheClipTray, &*frmMain);
}

TEST_F(ClipTrayTest, TheMarkHasTwoPixelsOfTheDesktopsHighlight) {
    StartMonitor();
    OpenPage();
    Clipboard.SetData(RandomPicture(30, 20, 1));
    PassEvents();
    const ShapeControl& mark = frmMain->ShClip;
    QWidget& page = WidgetFor(frmMain->PicTools(kPage));
    const QImage shown = page.grab().toImage();
    const QPoint edge(static_cast<int>(mark.Left() / 15),
                      static_cast<int>((mark.Top() + mark.Height() / 2) / 15));
    const QRgb highlight = page.palette().color(QPalette::Highlight).rgb();
    EXPECT_EQ(shown.pixel(edge), highlight);
    EXPECT_EQ(shown.pixel(edge + QPoint(1, 0)), highlight);
    EXPECT_NE(shown.pixel(edge + QPoint(2, 0)), highlight);
}

TEST_F(ClipTrayTest, AThumbnailStandsInAFrame) {
    StartMonitor();
    Copy();
    ASSERT_TRUE(frmMain->PicClipBG(0).Visible());
    const QImage frame = WidgetFor(frmMain->PicClipBG(0)).grab().toImage();
    const QRgb edge = frame.pixel(0, 0);
    EXPECT_NE(edge, frame.pixel(2, 2));
    for (const QPoint place : {frame.rect().topRight(), frame.rect().bottomLeft(), frame.rect().bottomRight(),
                               QPoint(frame.width() / 2, 0), QPoint(0, frame.height() / 2)})
        EXPECT_EQ(frame.pixel(place), edge) << place.x() << ", " << place.y();
}

TEST_F(ClipTrayTest, CopiedBitmapIsInTheTrayBeforeTheCopyReturns) {
    StartMonitor();
    const Picture copied = RandomPicture(30, 20, 1);
    Clipboard.SetData(copied);
    ExpectSamePixels(frmMain->PicClip(0).Image(), copied);
    ExpectSamePixels(frmMain->ImgClip(0).Picture(), copied);
    EXPECT_EQ(frmMain->PicClip(0).Tag(), "standard");
    EXPECT_TRUE(frmMain->PicClipBG(0).Visible());
    EXPECT_EQ(Filled(), 1);
    EXPECT_EQ(frmMain->NextClip, 1);
    EXPECT_TRUE(frmMain->cmdClear.Enabled());
    EXPECT_TRUE(frmMain->ShClip.Visible());
    EXPECT_EQ(frmMain->ShClip.Left(), 120);
    EXPECT_EQ(frmMain->ShClip.Top(), 630);
    EXPECT_EQ(frmMain->ShClip.Width(), 855);
    EXPECT_EQ(frmMain->ShClip.Height(), 855);
}

TEST_F(ClipTrayTest, BitmapOfAnotherProgramIsCaptured) {
    StartMonitor();
    CopyElsewhere("image/png", Png(3, 2, 0xFF102030));
    ExpectCaptured(0, Solid(3, 2, 0x302010));
    EXPECT_EQ(frmMain->NextClip, 1);
}

TEST_F(ClipTrayTest, BitmapAboveAnEighthOfTheMemoryIsLeftOutAndStillPasted) {
    StartMonitor();
    const SupposedMemory machine(std::uint64_t{8} * 40 * 30 * 4);
    CopyElsewhere("image/png", Png(41, 30, 0xFF102030));
    EXPECT_FALSE(WaitFor([] { return frmMain->NextClip != 0; }, 300));
    ExpectSamePixels(Clipboard.GetData(), Solid(41, 30, 0x302010));
    Copy(41, 30);
    EXPECT_EQ(frmMain->NextClip, 0) << "our own is as large";
    CopyElsewhere("image/png", Png(40, 30, 0xFF102030));
    ExpectCaptured(0, Solid(40, 30, 0x302010));
}

TEST_F(ClipTrayTest, TallBitmapGivesAThumbnailOf307AndAHalfBy615CentredAcross) {
    StartMonitor();
    Copy(100, 200);
    ExpectThumbnail(0, 183.75, 30, 307.5, 615);
}

TEST_F(ClipTrayTest, WideBitmapIsCentredDown) {
    StartMonitor();
    Copy(200, 100);
    ExpectThumbnail(0, 30, 183.75, 615, 307.5);
}

TEST_F(ClipTrayTest, SquareBitmapFillsTheFrameUpToItsMargin) {
    StartMonitor();
    Copy(1, 1);
    ExpectThumbnail(0, 30, 30, 615, 615);
}

TEST_F(ClipTrayTest, WidestAndHighestBitmapsLeaveAThinThumbnail) {
    StartMonitor();
    Copy(32000, 1);
    EXPECT_EQ(frmMain->PicClip(0).Image().Width(), 32000);
    EXPECT_EQ(frmMain->ImgClip(0).Height(), 1.0 / 32000 * 615);
    Copy(1, 32000);
    EXPECT_EQ(frmMain->PicClip(1).Image().Height(), 32000);
    EXPECT_EQ(frmMain->ImgClip(1).Width(), 1.0 / 32000 * 615);
    EXPECT_EQ(frmMain->NextClip, 2);
}

TEST_F(ClipTrayTest, RefilledSlotKeepsTheOffsetThatItsNewPictureDoesNotSet) {
    StartMonitor();
    Copy(100, 200);
    Copies(5);
    Copy(200, 100);
    ExpectThumbnail(0, 183.75, 183.75, 615, 307.5);
}

TEST_F(ClipTrayTest, SeventhCaptureOverwritesSlot0) {
    StartMonitor();
    Copies(6);
    EXPECT_EQ(Filled(), 6);
    EXPECT_EQ(frmMain->NextClip, 0);
    ExpectMarkAt(5);
    const Picture second = frmMain->PicClip(1).Image();
    Clipboard.SetData(RandomPicture(5, 9, 2));
    ExpectSamePixels(frmMain->PicClip(0).Image(), RandomPicture(5, 9, 2));
    ExpectSamePixels(frmMain->PicClip(1).Image(), second);
    EXPECT_EQ(Filled(), 6);
    EXPECT_EQ(frmMain->NextClip, 1);
    ExpectMarkAt(0);
}

TEST_F(ClipTrayTest, TextCapturesNothingAndLeavesTheMark) {
    StartMonitor();
    Copy();
    frmMain->ChClipLock.Value(1);
    CopyTextElsewhere();
    EXPECT_EQ(Filled(), 1);
    EXPECT_EQ(frmMain->NextClip, 1);
    EXPECT_TRUE(frmMain->ShClip.Visible());
}

TEST_F(ClipTrayTest, LockedTrayTakesNoBitmapAndHidesTheMarkAtEach) {
    StartMonitor();
    Copy();
    const Picture kept = frmMain->PicClip(0).Image();
    ClickWidget(WidgetFor(frmMain->ChClipLock));
    EXPECT_TRUE(ClipCaptureOff);
    EXPECT_TRUE(frmMain->ShClip.Visible()) << "locking alone hides nothing";
    Copy();
    EXPECT_EQ(Filled(), 1);
    EXPECT_EQ(frmMain->NextClip, 1);
    EXPECT_FALSE(frmMain->ShClip.Visible());
    ClickWidget(WidgetFor(frmMain->ImgClip(0)));
    EXPECT_TRUE(ClipCaptureOff);
    EXPECT_TRUE(frmMain->ShClip.Visible());
    ExpectSamePixels(Clipboard.GetData(), kept);
    Copy();
    EXPECT_FALSE(frmMain->ShClip.Visible());
    ClickWidget(WidgetFor(frmMain->ChClipLock));
    EXPECT_FALSE(ClipCaptureOff);
    Copy();
    EXPECT_EQ(Filled(), 2);
}

TEST_F(ClipTrayTest, AfterACaptureTheSlotBehindItIsSelected) {
    StartMonitor();
    for (int i = 0; i < 7; ++i) {
        Copy();
        EXPECT_EQ(frmMain->SelectedClip, frmMain->NextClip);
    }
}

TEST_F(ClipTrayTest, OnAFreshTrayASelectedSlotHasNoTag) {
    StartMonitor();
    FreeSelActive = true;
    Copy();
    EXPECT_EQ(frmMain->PicClip(0).Tag(), "free");
    EXPECT_EQ(TheClipTray->PicClip(TheClipTray->SelectedClip).Tag(), "");
}

TEST_F(ClipTrayTest, ClickOnAFreehandPieceSwitchesFreehandOnAndAnotherOff) {
    StartMonitor();
    FreeSelActive = true;
    Copy();
    FreeSelActive = false;
    Copy();
    frmMain->ImgClip_Click(0);
    EXPECT_TRUE(FreeSelActive);
    EXPECT_EQ(frmMain->SelectedClip, 0);
    frmMain->ImgClip_Click(1);
    EXPECT_FALSE(FreeSelActive);
    EXPECT_EQ(frmMain->SelectedClip, 1);
}

TEST_F(ClipTrayTest, ClickPutsTheBitmapOnTheClipboardAndIsNotCaptured) {
    StartMonitor();
    OpenPage();
    const Picture first = RandomPicture(40, 10, 3); // leaves room in its frame
    Clipboard.SetData(first);
    Copies(2);
    ClickWidget(WidgetFor(frmMain->ImgClip(0)));
    ExpectSamePixels(Clipboard.GetData(), first);
    EXPECT_EQ(Filled(), 3);
    EXPECT_EQ(frmMain->NextClip, 3);
    EXPECT_EQ(frmMain->SelectedClip, 0);
    EXPECT_FALSE(ClipCaptureOff);
    ExpectMarkAt(0);
    Copy();
    EXPECT_EQ(Filled(), 4);
}

TEST_F(ClipTrayTest, ClickOnTheFrameIsAClickOnItsThumbnail) {
    StartMonitor();
    Clipboard.SetData(RandomPicture(40, 10, 3));
    Copy();
    ClickWidget(WidgetFor(frmMain->PicClipBG(0)));
    ExpectSamePixels(Clipboard.GetData(), RandomPicture(40, 10, 3));
    EXPECT_EQ(frmMain->SelectedClip, 0);
    EXPECT_EQ(frmMain->NextClip, 2);
}

TEST_F(ClipTrayTest, ClickClearsTheClipboardFirstAndIsHeardTwice) {
    StartMonitor();
    Copy();
    std::vector<bool> heard; // whether a bitmap was there
    SetClipboardViewer([&heard] {
        heard.push_back(IsClipboardFormatAvailable(CF_BITMAP));
        EXPECT_TRUE(ClipCaptureOff);
    });
    frmMain->ImgClip_Click(0);
    EXPECT_EQ(heard, (std::vector<bool>{false, true}));
}

TEST_F(ClipTrayTest, ClearAsksAndNoKeepsEverything) {
    StartMonitor();
    Copies(2);
    const DialogScript script({PressesButton("Não")});
    ClickWidget(WidgetFor(frmMain->cmdClear));
    EXPECT_EQ(script.Dialog(0),
              Message("question", "Tem certeza que deseja limpar a area de transferência ?", "Sim|Não"));
    EXPECT_EQ(Filled(), 2);
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST_F(ClipTrayTest, ClearEmptiesTrayAndClipboard) {
    StartMonitor();
    Copies(3);
    const DialogScript script({PressesButton("Sim")});
    frmMain->cmdClear_Click();
    EXPECT_FALSE(IsClipboardFormatAvailable(CF_BITMAP));
    EXPECT_EQ(Filled(), 0);
    EXPECT_FALSE(frmMain->ShClip.Visible());
    EXPECT_FALSE(frmMain->cmdClear.Enabled());
    EXPECT_EQ(frmMain->NextClip, 0);
    EXPECT_EQ(frmMain->ClipPanelHeight, 580);
    for (int i = 0; i < 3; ++i) {
        EXPECT_TRUE(frmMain->PicClip(i).Picture().Empty()) << i;
        ExpectSamePixels(frmMain->ImgClip(i).Picture(), Solid(8, 8, kWhite));
    }
    Copy();
    EXPECT_TRUE(frmMain->PicClipBG(0).Visible());
}

TEST_F(ClipTrayTest, ClearKeepsTagsTheSelectedSlotAndTheHeightOfThePage) {
    StartMonitor();
    OpenPage();
    FreeSelActive = true;
    Copies(3);
    ASSERT_EQ(PageHeight(), 2400);
    const DialogScript script({PressesButton("Sim")});
    frmMain->cmdClear_Click();
    EXPECT_EQ(frmMain->PicClip(0).Tag(), "free");
    EXPECT_EQ(frmMain->SelectedClip, 3);
    EXPECT_EQ(PageHeight(), 2400);
    Copy();
    EXPECT_EQ(PageHeight(), 1500);
}

TEST_F(ClipTrayTest, OpenPageGrowsWithTheFilledRows) {
    StartMonitor();
    OpenPage();
    EXPECT_EQ(PageHeight(), 580);
    for (const double height : {1500, 1500, 2400, 2400, 3300, 3300, 3300}) {
        Copy();
        EXPECT_EQ(PageHeight(), height);
        EXPECT_EQ(frmMain->ClipPanelHeight, height);
    }
}

TEST_F(ClipTrayTest, ClosedPageStaysClosedAndOpensToItsFullHeight) {
    StartMonitor();
    ClosePage();
    Copies(3);
    EXPECT_EQ(PageHeight(), 300);
    frmMain->cmdTools_Click(kPage);
    EXPECT_EQ(PageHeight(), 2400);
}

TEST_F(ClipTrayTest, WithoutABitmapOnlyButtonAndHeightAreSet) {
    StartMonitor();
    OpenPage();
    frmMain->cmdClear.Enabled(true);
    frmMain->ClipPanelHeight = 3300;
    frmMain->LoadClipboard();
    EXPECT_FALSE(frmMain->cmdClear.Enabled());
    EXPECT_EQ(frmMain->ClipPanelHeight, 580);
    EXPECT_EQ(PageHeight(), 580);
    EXPECT_EQ(frmMain->NextClip, 0);
}

TEST_F(ClipTrayTest, BitmapThatCannotBeReadIsPassedOver) {
    StartMonitor();
    Copy();
    const Picture before = frmMain->PicClip(1).Image();
    CopyElsewhere("image/png", "no picture at all");
    EXPECT_EQ(frmMain->NextClip, 1);
    EXPECT_EQ(Filled(), 1);
    EXPECT_FALSE(frmMain->PicClipBG(1).Visible());
    EXPECT_TRUE(untrapped.empty());
    const auto pasteIsOff = [] {
        frmMain->Timer1_Timer();
        return !frmMain->mnuEditPasteNew.Enabled();
    };
    EXPECT_TRUE(WaitFor(pasteIsOff)) << "nothing can come of a paste";
    Copy();
    EXPECT_EQ(frmMain->NextClip, 2);
}

TEST_F(ClipTrayTest, FailingCaptureStillHidesTheMarkOfALockedTray) {
    StartMonitor();
    Copy();
    frmMain->ChClipLock.Value(1);
    ClipCaptureOff = false;
    CopyElsewhere("image/png", "no picture at all");
    EXPECT_TRUE(WaitFor([] { return !frmMain->ShClip.Visible(); }));
    EXPECT_EQ(Filled(), 1);
}

TEST_F(ClipTrayTest, MonitorOffHearsNothingUntilItIsOnAgain) {
    StartMonitor();
    Copy();
    Choose(frmMain->mnuEditClip);
    EXPECT_FALSE(frmMain->mnuEditClip.Checked());
    Copies(2);
    EXPECT_EQ(Filled(), 1);
    EXPECT_EQ(frmMain->NextClip, 1);
    Choose(frmMain->mnuEditClip);
    EXPECT_EQ(Filled(), 1) << "what was copied meanwhile is not fetched";
    Copy();
    EXPECT_EQ(Filled(), 2) << "one slot for one copy";
}

TEST_F(ClipTrayTest, SlotsAreClickedWhileTheMonitorIsOffToo) {
    StartMonitor();
    Clipboard.SetData(RandomPicture(4, 4, 7));
    Choose(frmMain->mnuEditClip);
    Clipboard.Clear();
    ClickWidget(WidgetFor(frmMain->ImgClip(0)));
    ExpectSamePixels(Clipboard.GetData(), RandomPicture(4, 4, 7));
    EXPECT_EQ(Filled(), 1);
}

TEST_F(ClipTrayTest, FifthTickOfTheStartTurnsTheMonitorOn) {
    Clipboard.SetData(RandomPicture(4, 4, 7));
    {
        const DialogScript script({ClosesDialog()});
        Start();
        for (int tick = 1; tick <= 4; ++tick)
            frmMain->Timer2_Timer();
        Copy();
        EXPECT_EQ(Filled(), 0);
        frmMain->Timer2_Timer();
    }
    EXPECT_EQ(Filled(), 0) << "the tray is empty at each start";
    EXPECT_EQ(frmMain->ClipPanelHeight, 580);
    Copy();
    EXPECT_EQ(Filled(), 1);
}

TEST_F(ClipTrayTest, WithoutThePreferenceNothingIsCaptured) {
    SetSetting("Clipmon", "0");
    const DialogScript script({ClosesDialog()});
    StartWhole();
    Copies(2);
    EXPECT_EQ(Filled(), 0);
    EXPECT_EQ(frmMain->ClipPanelHeight, 580);
    Choose(frmMain->mnuEditClip);
    EXPECT_TRUE(frmMain->mnuEditClip.Checked());
    Copy();
    EXPECT_EQ(Filled(), 1);
}

TEST_F(ClipTrayTest, AfterTheExitACopyIsHeardByNobody) {
    StartMonitor();
    Copy();
    Choose(frmMain->mnuFileExit);
    PassEvents();
    ASSERT_FALSE(frmMain.Loaded());
    EXPECT_FALSE(TheClipTray);
    Copy();
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_BITMAP));
}

TEST_F(ClipTrayTest, HookCallsTheOldProcedureFirstAndGivesItsResult) {
    Start();
    std::vector<std::uint32_t> messages;
    frmMain->Procedure = [&messages](ClipTray& window, std::uint32_t message, std::intptr_t first,
                                     std::intptr_t second) {
        messages.push_back(message);
        EXPECT_EQ(window.NextClip, 0) << "the capture comes later";
        return first * 10 + second;
    };
    Clipboard.SetData(RandomPicture(4, 4, 7));
    ClipHookOn(*frmMain);
    EXPECT_EQ(frmMain->Procedure(*frmMain, 0x200, 3, 4), 34);
    EXPECT_EQ(Filled(), 0) << "another message";
    EXPECT_EQ(frmMain->Procedure(*frmMain, WM_DRAWCLIPBOARD, 5, 6), 56);
    EXPECT_EQ(Filled(), 1);
    EXPECT_EQ(messages, (std::vector<std::uint32_t>{0x200, 0x308}));
}

TEST_F(ClipTrayTest, SecondHookIsTheFirst) {
    StartMonitor();
    ClipHookOn(*frmMain);
    Copy();
    EXPECT_EQ(frmMain->NextClip, 1);
    ClipHookOff(*frmMain);
    Copy();
    EXPECT_EQ(frmMain->NextClip, 1);
}

} // namespace pintalux
