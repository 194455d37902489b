// The resize dialog: its four numbers and how they follow each other; what the command makes of the document.
#include "imageops/ImageDialogTest.h"

#include "document/Globals.h"
#include "imageops/frmResize.h"
#include "surface/raster/Transfer.h"
#include "surface/system/TempNames.h"

#include <cstdint>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace pintalux {
namespace {

class ResizeTest : public ImageDialogTest {
  protected:
    static void InDialog(const std::function<void()>& act) { InDialogOf(frmMain->mnuResize, frmResize, act); }
    static void PressOk() { ClickWidget(WidgetFor(frmResize->cmdOK)); }
    // Width and height in pixels, then in percent, as the boxes show them.
    static std::vector<std::string> Texts() {
        return {frmResize->txtPXw.Text(), frmResize->txtPXh.Text(), frmResize->txtPCw.Text(),
                frmResize->txtPCh.Text()};
    }
    static int Shown(const ScrollBar& bar) { return bar.Max() - bar.Value(); }
    static std::vector<int> Numbers() {
        return {Shown(frmResize->VSPXw), Shown(frmResize->VSPXh), Shown(frmResize->VSPCw),
                Shown(frmResize->VSPCh)};
    }
    using T = std::vector<std::string>;
    using N = std::vector<int>;
};

// A stretch of whole pixels: each takes the pixel under its middle.
Picture Stretched(const Picture& picture, int width, int height) {
    Picture result(width, height, 0);
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x)
            result.Set(x, y,
                       picture.At(StretchedCell(x, picture.Width(), width),
                                  StretchedCell(y, picture.Height(), height)));
    }
    return result;
}

} // namespace

TEST_F(ResizeTest, OpensWithTheImagesSize) {
    NewDocument(300, 200);
    InDialog([] {
        EXPECT_EQ(frmResize->Caption(), "Redimensionar a Imagem");
        EXPECT_EQ(Texts(), (T{" 300", " 200", "100", "100"}));
        EXPECT_EQ(Numbers(), (N{300, 200, 100, 100}));
        EXPECT_EQ(frmResize->ChAspRatio.Value(), 1);
        EXPECT_TRUE(frmResize->Option1.Value());
        EXPECT_EQ(ResizeRatio, 1.5);
        EXPECT_EQ(frmResize->VSPXw.Min(), 0);
        EXPECT_EQ(frmResize->VSPXw.Max(), 32767);
        EXPECT_EQ(frmResize->VSPCw.Min(), 1);
        EXPECT_EQ(frmResize->VSPCw.Max(), 32767);
    });
}

TEST_F(ResizeTest, ANumberThatTheProgramWroteMayBeLong) {
    NewDocument(1000, 1200);
    InDialog([] {
        EXPECT_EQ(Texts(), (T{" 1000", " 1200", "100", "100"}));
        Retype(frmResize->txtPXh, "600");
        EXPECT_EQ(Texts(), (T{"500", "600", "50", "50"}));
    });
}

TEST_F(ResizeTest, TheGroupThatIsChosenTakesInput) {
    NewDocument(300, 200);
    InDialog([] {
        const auto colours = [] {
            return std::vector<std::uint32_t>{static_cast<std::uint32_t>(frmResize->txtPXw.BackColor()),
                                              static_cast<std::uint32_t>(frmResize->txtPXh.BackColor()),
                                              static_cast<std::uint32_t>(frmResize->txtPCw.BackColor()),
                                              static_cast<std::uint32_t>(frmResize->txtPCh.BackColor())};
        };
        EXPECT_TRUE(frmResize->Frame1.Enabled() && frmResize->txtPXw.Enabled() &&
                    frmResize->txtPXh.Enabled());
        EXPECT_FALSE(frmResize->Frame2.Enabled() || frmResize->txtPCw.Enabled() ||
                     frmResize->txtPCh.Enabled());
        EXPECT_EQ(colours(), (std::vector<std::uint32_t>{0x80000016, 0x80000016, 0x80000004, 0x80000004}));
        frmResize->Option2.Value(true);
        EXPECT_FALSE(frmResize->Frame1.Enabled() || frmResize->txtPXw.Enabled() ||
                     frmResize->txtPXh.Enabled());
        EXPECT_TRUE(frmResize->Frame2.Enabled() && frmResize->txtPCw.Enabled() &&
                    frmResize->txtPCh.Enabled());
        EXPECT_EQ(colours(), (std::vector<std::uint32_t>{0x80000004, 0x80000004, 0x80000016, 0x80000016}));
        frmResize->Option1.Value(true);
        EXPECT_TRUE(frmResize->Frame1.Enabled());
    });
}

TEST_F(ResizeTest, TheTabKeyWalksTheChosenGroup) {
    const auto walk = [](int steps) {
        std::vector<std::string> names;
        for (int step = 0; step < steps; ++step) {
            QWidget* focus = WidgetFor(*frmResize).focusWidget();
            if (!focus) break;
            names.push_back(focus->objectName().toStdString());
            QKeyEvent tab(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier);
            QApplication::sendEvent(focus, &tab);
        }
        return names;
    };
    NewDocument(300, 200);
    InDialog([&] {
        frmResize->Option1.SetFocus();
        // The other option of the pair is reached by the arrow keys, as in every group of options.
        EXPECT_EQ(walk(6), (T{"Option1", "txtPXw", "VSPXw", "txtPXh", "VSPXh", "ChAspRatio"}));
        frmResize->Option2.Value(true);
        frmResize->Option2.SetFocus();
        EXPECT_EQ(walk(6), (T{"Option2", "txtPCw", "VSPCw", "txtPCh", "VSPCh", "ChAspRatio"}));
    });
}

TEST_F(ResizeTest, WithTheAspectKeptEveryBarMovesAll) {
    NewDocument(300, 200);
    InDialog([] {
        frmResize->VSPXw.Value(32767 - 150);
        EXPECT_EQ(Texts(), (T{"150", "100", "50", "50"}));
        frmResize->VSPXh.Value(32767 - 50);
        EXPECT_EQ(Texts(), (T{"75", "50", "25", "25"}));
        frmResize->VSPCw.Value(32767 - 200);
        EXPECT_EQ(Texts(), (T{"600", "400", "200", "200"}));
        frmResize->VSPCh.Value(32767 - 10);
        EXPECT_EQ(Texts(), (T{"30", "20", "10", "10"}));
    });
}

// The width of 37 at 50 percent is 18.5; of the bar's value the half goes to the even one: 32748, which
// shows 19.
TEST_F(ResizeTest, PercentagesMayDisagreeWithPixelsByRounding) {
    NewDocument(37, 37);
    InDialog([] {
        frmResize->VSPCw.Value(32767 - 50);
        EXPECT_EQ(Texts(), (T{"19", "19", "50", "50"}));
    });
}

TEST_F(ResizeTest, WithoutTheAspectABarMovesItsSiblingOnly) {
    NewDocument(300, 200);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        frmResize->VSPXw.Value(32767 - 150);
        EXPECT_EQ(Numbers(), (N{150, 200, 50, 100}));
        frmResize->VSPXh.Value(32767 - 20);
        EXPECT_EQ(Numbers(), (N{150, 20, 50, 10}));
        frmResize->VSPCw.Value(32767 - 200);
        EXPECT_EQ(Numbers(), (N{600, 20, 200, 10}));
        frmResize->VSPCh.Value(32767 - 300);
        EXPECT_EQ(Numbers(), (N{600, 600, 200, 300}));
    });
}

TEST_F(ResizeTest, TheAspectSwitchedOnTakesTheHeightFromTheWidth) {
    NewDocument(300, 200);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        frmResize->VSPXw.Value(32767 - 150);
        frmResize->ChAspRatio.Value(1);
        EXPECT_EQ(Texts(), (T{"150", "100", "50", "50"}));
    });
}

TEST_F(ResizeTest, TypedNumbersMoveTheBars) {
    NewDocument(300, 200);
    InDialog([] {
        Retype(frmResize->txtPXw, "60");
        EXPECT_EQ(Texts(), (T{"60", "40", "20", "20"}));
        Retype(frmResize->txtPXh, "100");
        EXPECT_EQ(Texts(), (T{"150", "100", "50", "50"}));
        frmResize->Option2.Value(true);
        Retype(frmResize->txtPCw, "10");
        EXPECT_EQ(Texts(), (T{"30", "20", "10", "10"}));
        Retype(frmResize->txtPCh, "30");
        EXPECT_EQ(Texts(), (T{"90", "60", "30", "30"}));
    });
}

// A tenth as wide as high: 33 is a width of 3, whose height would be 30.
TEST_F(ResizeTest, ATypedHeightStaysAsTyped) {
    NewDocument(20, 200);
    InDialog([] {
        Retype(frmResize->txtPXh, "33");
        EXPECT_EQ(frmResize->txtPXh.Text(), "33");
        EXPECT_EQ(Numbers(), (N{3, 30, 15, 15}));
    });
}

TEST_F(ResizeTest, AWidthAbove32000TwipsIsCutBack) {
    NewDocument(300, 200);
    InDialog([] {
        Retype(frmResize->txtPXw, "3000");
        EXPECT_EQ(Numbers(), (N{2133, 1422, 711, 711}));
        EXPECT_EQ(frmResize->txtPXw.Text(), "2133");
    });
}

TEST_F(ResizeTest, WithoutTheAspectTheTypedNumberCountsUncut) {
    NewDocument(300, 200);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        Retype(frmResize->txtPXw, "3000");
        EXPECT_EQ(frmResize->txtPXw.Text(), "3000");
        EXPECT_EQ(Shown(frmResize->VSPCw), 1000);
    });
}

// 1 of 200 is half a percent, which becomes 1: a width of 2. 25 is 12.5 percent, which become 13: 26.
TEST_F(ResizeTest, WithoutTheAspectATypedNumberGoesToAWholePercentage) {
    NewDocument(200, 100);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        Retype(frmResize->txtPXw, "1");
        EXPECT_EQ(Texts(), (T{"2", " 100", "1", "100"}));
        Type(WidgetFor(frmResize->txtPXw), "5");
        EXPECT_EQ(Texts(), (T{"26", " 100", "13", "100"}));
    });
}

TEST_F(ResizeTest, TooManyDigitsGiveTheLastGoodTextBack) {
    NewDocument(100, 50);
    InDialog([] {
        frmResize->Option2.Value(true);
        Retype(frmResize->txtPCw, "1000");
        EXPECT_EQ(frmResize->txtPCw.Text(), "100");
        Retype(frmResize->txtPCh, "9876");
        EXPECT_EQ(frmResize->txtPCh.Text(), "987");
        frmResize->Option1.Value(true);
        Retype(frmResize->txtPXw, "12345");
        EXPECT_EQ(frmResize->txtPXw.Text(), "1234");
    });
}

TEST_F(ResizeTest, OnlyDigitsAreTyped) {
    NewDocument(300, 200);
    InDialog([] {
        Retype(frmResize->txtPXw, "a1-5.0x");
        EXPECT_EQ(frmResize->txtPXw.Text(), "150");
        Type(WidgetFor(frmResize->txtPXw), "\b");
        EXPECT_EQ(Texts(), (T{"15", "10", "5", "5"}));
    });
}

TEST_F(ResizeTest, AKeyThatTypesNothingChangesNothing) {
    NewDocument(301, 77);
    InDialog([] {
        for (TextBox* box : {&frmResize->txtPXw, &frmResize->txtPXh})
            Type(WidgetFor(*box), "\t");
        EXPECT_EQ(Numbers(), (N{301, 77, 100, 100}));
    });
}

// 2133 of a width of 1 is 213300 percent, and its height 1066500 pixels.
TEST_F(ResizeTest, ABarDrivenOutOfItsRangeStandsAtItsEnd) {
    NewDocument(1, 500);
    InDialog([] {
        Retype(frmResize->txtPXw, "2133");
        EXPECT_EQ(Numbers(), (N{2133, 32767, 32766, 32766}));
    });
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(ResizeTest, TheImageIsStretchedByDroppingAndRepeatingPixels) {
    const Picture picture = RandomPicture(60, 40, 6);
    frmMain->MDIForm::Width(9000); // room for the largest
    struct Size {
        const char* width;
        const char* height;
    };
    for (const Size size : {Size{"30", "20"}, Size{"90", "80"}, Size{"7", "33"}, Size{"91", "3"}}) {
        frmImage& image = OpenPicture("a.bmp", picture);
        InDialog([&] {
            frmResize->ChAspRatio.Value(0);
            frmResize->txtPXw.Text(size.width);
            frmResize->txtPXh.Text(size.height);
            PressOk();
        });
        const Picture expected = Stretched(picture, std::stoi(size.width), std::stoi(size.height));
        ExpectSamePixels(ImageOf(image), expected);
        ExpectSamePixels(image.Image1.Picture(), expected);
        EXPECT_EQ(image.Image1.Width(), expected.Width());
        EXPECT_EQ(image.PicBG.Height(), expected.Height());
        EXPECT_EQ(image.Width(), expected.Width() * 15 + 120);
        EXPECT_EQ(image.Height(), expected.Height() * 15 + 420);
        EXPECT_EQ(image.ListBUorder.ListCount(), 2);
        Choose(frmMain->mnuEditUndo);
        ExpectSamePixels(ImageOf(image), picture);
        Choose(frmMain->mnuEditRedo);
        ExpectSamePixels(ImageOf(image), expected);
    }
}

TEST_F(ResizeTest, ThePixelsDecideWhicheverGroupIsChosen) {
    frmImage& image = NewDocument(60, 40);
    InDialog([] {
        frmResize->Option2.Value(true);
        frmResize->txtPXw.Text("11");
        frmResize->txtPXh.Text("13");
        PressOk();
    });
    EXPECT_EQ(ImageOf(image).Width(), 11);
    EXPECT_EQ(ImageOf(image).Height(), 13);
}

TEST_F(ResizeTest, ASizeOfZeroGivesOnePixel) {
    frmImage& image = NewDocument(60, 40, 0x3264C8);
    InDialog([] {
        frmResize->txtPXw.Text("");
        frmResize->txtPXh.Text("0");
        PressOk();
    });
    ExpectSamePixels(ImageOf(image), Solid(1, 1, 0x3264C8));
    EXPECT_EQ(image.ListBUorder.ListCount(), 2);
}

TEST_F(ResizeTest, AnythingAbove2133PixelsIsTooBig) {
    frmImage& image = NewDocument(60, 40);
    const DialogScript script({[](QWidget&) {
                                   frmResize->txtPXw.Text("2134");
                                   PressOk();
                                   EXPECT_TRUE(frmResize.Loaded());
                                   frmResize->txtPXw.Text("2133");
                                   frmResize->txtPXh.Text("2");
                                   PressOk();
                               },
                               PressesButton("OK")});
    Choose(frmMain->mnuResize);
    EXPECT_EQ(script.Dialog(1).text, "This is much too big !");
    EXPECT_EQ(script.Dialog(1).icon, "critical");
    EXPECT_EQ(ImageOf(image).Width(), 2133);
}

TEST_F(ResizeTest, AfterwardsTheImageIsShownPixelForPixel) {
    frmImage& image = NewDocument(60, 40);
    Choose(frmMain->mnuZoomInX(2));
    InDialog([] {
        frmResize->VSPCw.Value(32767 - 50);
        PressOk();
    });
    EXPECT_EQ(image.factor, 1);
    EXPECT_EQ(image.factorlevel, 15);
    EXPECT_EQ(image.Image1.Width(), 30);
}

TEST_F(ResizeTest, EveryOtherWayOutChangesNothing) {
    frmImage& image = NewDocument(60, 40, 0x3264C8);
    ExpectOtherWaysOutChangeNothing(image, frmMain->mnuResize, frmResize,
                                    [] { frmResize->VSPXw.Value(32767 - 10); });
    EXPECT_TRUE(ResizeCancelled);
}

// Too many digits give the last good text back.
TEST_F(ResizeTest, OfWhatThePointerPastesTheDigitsCount) {
    frmImage& image = NewDocument(100, 100, 0x3264C8);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        PasteByPointer(frmResize->txtPXw, "1x2");
        EXPECT_EQ(Texts(), (T{"12", " 100", "12", "100"}));
        PasteByPointer(frmResize->txtPXh, "-7.");
        EXPECT_EQ(Texts(), (T{"12", "7", "12", "7"}));
        PasteByPointer(frmResize->txtPXh, "12345");
        EXPECT_EQ(frmResize->txtPXh.Text(), "7");
        PasteByPointer(frmResize->txtPXh, "9a");
        PressOk();
    });
    EXPECT_EQ(ImageOf(image).Width(), 12);
    EXPECT_EQ(ImageOf(image).Height(), 9);
}

// What was chosen in the box stays where nothing comes in its place.
TEST_F(ResizeTest, LettersThatThePointerPastesChangeNothing) {
    const Picture picture = RandomPicture(60, 40, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    InDialog([] {
        PasteByPointer(frmResize->txtPXw, "abc");
        EXPECT_EQ(Texts(), (T{" 60", " 40", "100", "100"}));
        PressOk();
    });
    ExpectSamePixels(ImageOf(image), picture);
    EXPECT_TRUE(untrapped.empty());
}

// 0 percent is a size of 0, which is one pixel.
TEST_F(ResizeTest, ZeroPercentGivesOnePixel) {
    frmImage& image = NewDocument(60, 40, 0x3264C8);
    InDialog([] {
        frmResize->Option2.Value(true);
        Retype(frmResize->txtPCw, "0");
        EXPECT_EQ(Numbers(), (N{0, 0, 0, 0}));
        PressOk();
    });
    ExpectSamePixels(ImageOf(image), Solid(1, 1, 0x3264C8));
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(ResizeTest, TheBarsOfPercentagesEndAt32766) {
    NewDocument(60, 40);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        frmResize->VSPCw.Value(frmResize->VSPCw.Min());
        EXPECT_EQ(frmResize->txtPCw.Text(), "32766");
        EXPECT_EQ(frmResize->txtPXw.Text(), "19660"); // 60 * 327.66 = 19659.6
    });
}

// The last good text of each box is its own, from when a key was last released in it.
TEST_F(ResizeTest, EachBoxKeepsItsLastGoodText) {
    NewDocument(100, 100);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        Retype(frmResize->txtPXw, "150");
        Retype(frmResize->txtPXh, "75");
        frmResize->VSPXw.Value(32767 - 90);
        frmResize->txtPXw.Text("99999");
        frmResize->txtPXh.Text("99999");
        EXPECT_EQ(frmResize->txtPXw.Text(), "150");
        EXPECT_EQ(frmResize->txtPXh.Text(), "75");
    });
}

TEST_F(ResizeTest, AHeightThatIsTooLongTakesNoKey) {
    NewDocument(100, 100);
    InDialog([] {
        frmResize->ChAspRatio.Value(0);
        Retype(frmResize->txtPXh, "75");
        Type(WidgetFor(frmResize->txtPXh), "123");
        EXPECT_EQ(frmResize->txtPXh.Text(), "7512");
    });
}

TEST_F(ResizeTest, WithoutATemporaryFolderTheImageIsStretchedUnrecorded) {
    const Picture picture = RandomPicture(20, 10, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    TempFoldersForTests(false);
    InDialog([] {
        frmResize->VSPXw.Value(32767 - 10);
        PressOk();
    });
    TempFoldersForTests(true);
    ExpectSamePixels(ImageOf(image), Stretched(picture, 10, 5));
    EXPECT_EQ(StateCount(image), 1);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(ResizeTest, AFullDiskKeepsTheStepsInMemory) {
    const auto resize = [] {
        frmResize->VSPXw.Value(32767 - 300);
        PressOk();
    };
    ExpectDoneOnAFullDisk([&] { InDialog(resize); },
                          [](const Picture& picture) { return Stretched(picture, 300, 150); });
}

TEST_F(ResizeTest, AMaximisedWindowIsLeftAlone) {
    frmImage& image = NewDocument(60, 40);
    image.WindowState(kMaximised);
    PassEvents();
    const double width = image.Width();
    InDialog([] {
        frmResize->VSPXw.Value(32767 - 30);
        PressOk();
    });
    EXPECT_EQ(image.WindowState(), kMaximised);
    EXPECT_EQ(image.Width(), width);
    EXPECT_EQ(ImageOf(image).Width(), 30);
}

TEST_F(ResizeTest, WithRulersTheWindowHasRoomForThem) {
    frmImage& image = NewDocument(60, 40);
    Choose(frmMain->mnuViewRulers);
    InDialog([] {
        frmResize->VSPXw.Value(32767 - 30);
        PressOk();
    });
    EXPECT_EQ(image.Width(), image.LeftRuler.Width() + 30 * 15 + 120);
    EXPECT_EQ(image.Height(), image.TopRuler.Height() + 20 * 15 + 420);
    Choose(frmMain->mnuViewRulers);
}

TEST_F(ResizeTest, AFreehandPieceThatWasOnlyLiftedGoes) {
    const Picture picture = RandomPicture(30, 20, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    FloatFreehand(image, 5, 4, {".###.", "#####", ".###."});
    image.piece = PieceState::Lifted;
    InDialog([] {
        frmResize->VSPXw.Value(32767 - 15);
        PressOk();
    });
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    ExpectDone(image, picture, Stretched(picture, 15, 10));
}

TEST_F(ResizeTest, AFreehandPieceThatWasMovedIsLandedFirst) {
    frmImage& image = OpenPicture("a.bmp", Solid(30, 20, 0x3264C8));
    FloatFreehand(image, 5, 4, {".###.", "#####", ".###."});
    image.SelHolder.LineBF(1, 1, 3, 1, 0x0000FF);
    image.piece = PieceState::Grabbed;
    InDialog([] {
        frmResize->VSPXw.Value(32767 - 60);
        PressOk();
    });
    Picture landed = Solid(60, 40, 0x3264C8);
    landed.Fill({12, 10, 18, 12}, 0x0000FF);
    ExpectSamePixels(ImageOf(image), landed);
    EXPECT_FALSE(image.PicFreeSelect.Visible());
}

} // namespace pintalux
