#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/frmNew.h"
#include "document/Globals.h"

#include <chrono>
#include <QWidget>

namespace pintalux {

namespace {

void EnterInto(TextBox& box, const std::string& text) {
    box.SelectAll();
    Type(WidgetFor(box), text);
}

void EnterSize(int width, int height) {
    EnterInto(frmNew->txtPXw, std::to_string(width));
    EnterInto(frmNew->txtPXh, std::to_string(height));
}

void PressOk() {
    ClickWidget(WidgetFor(frmNew->cmdOK));
}

void PressCancel() {
    ClickWidget(WidgetFor(frmNew->cmdCancel));
}

class NewDialogTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
    // File New, with this done in its dialog; message boxes in between are answered.
    void InNew(const std::function<void()>& act, const std::vector<DialogScript::Step>& boxes = {}) {
        std::vector<DialogScript::Step> steps = {[&act](QWidget&) { act(); }};
        steps.insert(steps.end(), boxes.begin(), boxes.end());
        const DialogScript script(steps);
        Choose(frmMain->mnuFileNew);
        if (script.Count() > 1) message = script.Dialog(1);
        EXPECT_FALSE(frmNew.Loaded());
    }
    static frmImage& Image() { return static_cast<frmImage&>(*frmMain->ActiveForm()); }

    DialogScript::Seen message;
};

} // namespace

TEST_F(NewDialogTest, GreetsWith300By300InWhite) {
    InNew([] {
        EXPECT_EQ(frmNew->txtPXw.Text(), "300");
        EXPECT_EQ(frmNew->txtPXh.Text(), "300");
        EXPECT_EQ(frmNew->VSPXw.Value(), 32467);
        EXPECT_EQ(frmNew->Combo1.Text(), "Branco");
        PressOk();
    });
    EXPECT_EQ(ImageCount, 1);
    ExpectSamePixels(ImageOf(Image()), Solid(300, 300, kWhite));
    EXPECT_EQ(Image().Caption(), "Imagem 1");
    EXPECT_EQ(Image().AFCurfile, "");
    EXPECT_EQ(Image().ListBUorder.ListCount(), 1);
}

TEST_F(NewDialogTest, TheSizeOfTheActiveDocumentIsNotTakenOver) {
    NewDocument(40, 30);
    InNew([] {
        EXPECT_EQ(frmNew->txtPXw.Text(), "300");
        EXPECT_EQ(frmNew->txtPXh.Text(), "300");
        PressCancel();
    });
}

TEST_F(NewDialogTest, EachColourOfTheList) {
    const Colour colours[] = {0xFFFFFF, 0, 0x0000FF, 0x00FF00, 0xFF0000, 0x123456};
    frmMain->SetCurrentColour(0x123456);
    for (int index = -1; index < 6; ++index) {
        InNew([index] {
            EnterSize(5, 4);
            frmNew->Combo1.ListIndex(index);
            PressOk();
        });
        const Colour wanted = index < 0 ? kWhite : colours[index]; // white without a choice
        EXPECT_EQ(Image().PicMerge.BackColor(), wanted) << index;
        ExpectSamePixels(ImageOf(Image()), Solid(5, 4, wanted));
    }
}

TEST_F(NewDialogTest, TheNextOneKeepsTheColourButNotTheSize) {
    InNew([] {
        EnterSize(20, 10);
        frmNew->Combo1.ListIndex(3);
        PressOk();
    });
    InNew([] {
        EXPECT_EQ(frmNew->Combo1.Text(), "Verde");
        EXPECT_EQ(frmNew->txtPXw.Text(), "300");
        PressOk();
    });
    EXPECT_EQ(CornerOf(Image()), 0x00FF00);
}

TEST_F(NewDialogTest, BoxesTakeDigitsOnly) {
    InNew([] {
        EnterInto(frmNew->txtPXw, "a1-b2.");
        EXPECT_EQ(frmNew->txtPXw.Text(), "12");
        Type(WidgetFor(frmNew->txtPXw), "\b");
        EXPECT_EQ(frmNew->txtPXw.Text(), "1");
        PressOk();
    });
    EXPECT_EQ(Image().PicMerge.Width(), 1);
    EXPECT_EQ(Image().PicMerge.Height(), 300);
}

TEST_F(NewDialogTest, BarAndTextFollowEachOther) {
    InNew([] {
        EnterInto(frmNew->txtPXw, "640");
        EXPECT_EQ(frmNew->VSPXw.Value(), 32767 - 640);
        // The up arrow lowers the bar and raises the number.
        frmNew->VSPXw.Value(frmNew->VSPXw.Value() - 1);
        EXPECT_EQ(frmNew->txtPXw.Text(), "641");
        PressCancel();
    });
}

TEST_F(NewDialogTest, AValueAboveTheBarsRangeIsCutAtTheKey) {
    InNew([] {
        EnterInto(frmNew->txtPXh, "40000");
        EXPECT_EQ(frmNew->txtPXh.Text(), "32767");
        EXPECT_EQ(frmNew->VSPXh.Value(), 0);
        PressCancel();
    });
}

TEST_F(NewDialogTest, ASizeOf0IsRefusedAndTheDialogStays) {
    InNew(
        [] {
            EnterSize(0, 20);
            PressOk();
            EXPECT_TRUE(frmNew.Loaded());
            EnterSize(20, 20);
            PressOk();
        },
        {PressesButton("OK")});
    EXPECT_EQ(message, Message("none", "Tamanho inválido. Insira um valor entre 1 e 32767 pixeis."));
    EXPECT_EQ(Image().PicMerge.Width(), 20);
}

TEST_F(NewDialogTest, AnEmptyTextIsRefused) {
    InNew(
        [] {
            frmNew->txtPXw.Text("");
            PressOk();
            EXPECT_TRUE(frmNew.Loaded());
            PressCancel();
        },
        {PressesButton("OK")});
    EXPECT_EQ(message, Message("none", "Tamanho inválido. Insira um valor entre 1 e 32767 pixeis."));
    EXPECT_EQ(ImageCount, 0);
}

TEST_F(NewDialogTest, ASizeBelow1IsRefusedAndLeavesTheDocumentAlone) {
    frmImage& before = OpenPicture("a.bmp", Solid(40, 30, kWhite));
    for (const char* width : {"-3", "0.5"}) {
        InNew(
            [&] {
                frmNew->txtPXw.Text(width);
                PressOk();
                EXPECT_TRUE(frmNew.Loaded());
                PressCancel();
            },
            {PressesButton("OK")});
        EXPECT_EQ(message, Message("none", "Tamanho inválido. Insira um valor entre 1 e 32767 pixeis."))
            << width;
        EXPECT_EQ(ImageCount, 1);
        EXPECT_EQ(before.AFCurfile, Folder("pictures") + "/a.bmp");
    }
}

TEST_F(NewDialogTest, ASizeOver32000IsTooLargeThough32767WasNamed) {
    for (const bool wide : {true, false}) {
        InNew(
            [wide] {
                EnterSize(wide ? 32001 : 2, wide ? 2 : 32001);
                PressOk();
                EXPECT_TRUE(frmNew.Loaded());
                EnterSize(wide ? 32000 : 2, wide ? 2 : 32000);
                PressOk();
            },
            {PressesButton("OK")});
        EXPECT_EQ(message, Message("critical", "Imagem muito Grande !"));
        EXPECT_EQ(Image().PicMerge.Width(), wide ? 32000 : 2);
        EXPECT_EQ(Image().PicMerge.Height(), wide ? 2 : 32000);
    }
}

TEST_F(NewDialogTest, CancelAfterTheRefusalMakesNoImageAndKeepsTheColour) {
    InNew(
        [] {
            EnterSize(32001, 1);
            frmNew->Combo1.ListIndex(1);
            PressOk();
            EXPECT_EQ(frmNew->txtPXw.Text(), "32001");
            PressCancel();
        },
        {PressesButton("OK")});
    EXPECT_TRUE(NewCancelled);
    EXPECT_EQ(ImageCount, 0);
    InNew([] {
        EXPECT_EQ(frmNew->Combo1.Text(), "Preto");
        PressCancel();
    });
}

TEST_F(NewDialogTest, ARefusedSizeIsNotTheOneThatALaterWindowStartsWith) {
    InNew([] {
        EnterSize(50, 40);
        PressOk();
    });
    InNew(
        [] {
            EnterSize(7, 32001);
            PressOk();
            PressCancel();
        },
        {PressesButton("OK")});
    NewImageWindow();
    ExpectSamePixels(ImageOf(Image()), Solid(50, 40, kWhite));
}

TEST_F(NewDialogTest, EveryOtherWayOutMakesNoDocument) {
    for (const DialogScript::Step& leave :
         {DialogScript::Step([](QWidget&) { PressCancel(); }), PressesEscape(), ClosesDialog()}) {
        const DialogScript script({leave});
        Choose(frmMain->mnuFileNew);
        EXPECT_TRUE(NewCancelled);
        EXPECT_EQ(ImageCount, 0);
        EXPECT_FALSE(NewImageMode);
    }
}

TEST_F(NewDialogTest, EnterConfirms) {
    InNew([] {
        EnterSize(7, 6);
        Type(WidgetFor(frmNew->txtPXh), "\n");
    });
    EXPECT_EQ(Image().PicMerge.Width(), 7);
    EXPECT_EQ(Image().PicMerge.Height(), 6);
}

TEST_F(NewDialogTest, NewWindowGoesTheSameRoad) {
    const DialogScript script({[](QWidget&) {
        EnterSize(8, 9);
        PressOk();
    }});
    Choose(frmMain->mnuWindowNewWindow);
    EXPECT_EQ(Image().PicMerge.Height(), 9);
}

TEST_F(NewDialogTest, LaterWindowsStartWithTheLastSizeAndColour) {
    InNew([] {
        EnterSize(50, 40);
        frmNew->Combo1.ListIndex(4);
        PressOk();
    });
    EXPECT_TRUE(NewImageMode);
    PutBytes(Folder("pictures") + "/odd.bmp", "no picture");
    OpenDocument(Folder("pictures") + "/odd.bmp");
    LockWindowUpdate(nullptr);
    EXPECT_EQ(ImageCount, 2);
    ExpectSamePixels(ImageOf(Image()), Solid(50, 40, 0xFF0000));
    const frmImage& opened = OpenPicture("small.bmp", Solid(3, 2, kWhite));
    EXPECT_EQ(opened.PicMerge.BackColor(), 0xFF0000);
    ExpectSamePixels(ImageOf(opened), Solid(3, 2, kWhite));
}

TEST_F(NewDialogTest, OnePixelIsAnImage) {
    InNew([] {
        EnterSize(1, 1);
        PressOk();
    });
    ExpectSamePixels(ImageOf(Image()), Solid(1, 1, kWhite));
    EXPECT_EQ(Image().Image1.Width(), 1);
}

TEST_F(NewDialogTest, ABlankImageOfTheLargestSizeComesAtOnce) {
    NewImageMode = true;
    NewWidth = NewHeight = 32000;
    NewBackColor = kBlack;
    const auto start = std::chrono::steady_clock::now();
    NewImageWindow();
    Image().Picsize();
    FitImageWindow();
    PassEvents();
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start;
    EXPECT_LT(passed.count(), 2.0);
    EXPECT_EQ(Image().PicMerge.Width(), 32000);
    EXPECT_EQ(Image().PicMerge.Point(31999, 31999), kBlack);
    EXPECT_TRUE(Image().HS.Visible());
    EXPECT_TRUE(Image().VS.Visible());
}

} // namespace pintalux
