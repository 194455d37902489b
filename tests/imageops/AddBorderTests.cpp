// The dialog that grows the canvas: its boxes and bars, what it makes of the document, what it refuses.
#include "imageops/ImageDialogTest.h"

#include "document/Globals.h"
#include "imageops/frmAddBord.h"
#include "surface/system/TempNames.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

namespace pintalux {
namespace {

class AddBorderTest : public ImageDialogTest {
  protected:
    static void InDialog(const std::function<void()>& act) {
        InDialogOf(frmMain->mnuAddBorders, frmAddBord, act);
    }
    static void PressApply() { ClickWidget(WidgetFor(frmAddBord->cmdApply)); }
    static std::vector<std::string> Texts() {
        return {frmAddBord->txtTop.Text(), frmAddBord->txtBottom.Text(), frmAddBord->txtLeft.Text(),
                frmAddBord->txtRight.Text()};
    }
    static void SetMargins(int top, int bottom, int left, int right) {
        frmAddBord->VSTop.Value(400 - top);
        frmAddBord->VSBottom.Value(400 - bottom);
        frmAddBord->VSLeft.Value(400 - left);
        frmAddBord->VSRight.Value(400 - right);
    }
};

} // namespace

TEST_F(AddBorderTest, OpensWithOneRowOnTop) {
    NewDocument(20, 10);
    InDialog([] {
        EXPECT_EQ(Texts(), (std::vector<std::string>{"1", "0", "0", "0"}));
        EXPECT_EQ(frmAddBord->VSTop.Value(), 399);
        EXPECT_EQ(frmAddBord->VSLeft.Value(), 400);
        EXPECT_EQ(frmAddBord->VSLeft.Max(), 400);
        EXPECT_EQ(frmAddBord->Combo1.Text(), "Branco");
        EXPECT_EQ(frmAddBord->ChSym.Value(), 0);
    });
}

TEST_F(AddBorderTest, AppliedAtOnceItAddsOneRowOnTop) {
    const Picture picture = RandomPicture(20, 10, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    InDialog([] { PressApply(); });
    Picture expected = Solid(20, 11, kWhite);
    expected.Copy(0, 1, picture, picture.Bounds());
    ExpectSamePixels(ImageOf(image), expected);
    EXPECT_EQ(StateCount(image), 2);
}

TEST_F(AddBorderTest, EachSideGrowsByItsMarginInTheChosenColour) {
    const Colour colours[] = {0xFFFFFF, 0, 0x0000FF, 0x00FF00, 0xFF0000, 0x123456};
    const Picture picture = RandomPicture(20, 10, 3);
    for (int index = -1; index < 6; ++index) {
        const Colour wanted = index < 0 ? kBlack : colours[index]; // black without a choice
        frmImage& image = OpenPicture("a.bmp", picture);
        InDialog([=] {
            SetMargins(2, 3, 4, 5);
            frmAddBord->Combo1.ListIndex(index);
            // The current colour counts as it is when the button is pressed.
            frmMain->SetCurrentColour(0x123456);
            PressApply();
        });
        Picture expected = Solid(29, 15, wanted);
        expected.Copy(4, 2, picture, picture.Bounds());
        ExpectSamePixels(ImageOf(image), expected);
        ExpectSamePixels(image.Image1.Picture(), expected);
        ExpectSamePixels(image.Pic1BU.Image(), expected);
        EXPECT_EQ(image.Image1.Width(), 29);
        EXPECT_EQ(image.PicBG.Height(), 15);
        EXPECT_EQ(image.SelectLeft, 4);
        EXPECT_EQ(image.SelectTop, 2);
        EXPECT_EQ(image.Selectwidth, 20);
        EXPECT_EQ(image.Selectheight, 10);
        EXPECT_EQ(image.Width(), 29 * 15 + 120);
        EXPECT_EQ(image.Height(), 15 * 15 + 420);
        EXPECT_FALSE(ScreenLocked());
        Choose(frmMain->mnuEditUndo);
        ExpectSamePixels(ImageOf(image), picture);
        Choose(frmMain->mnuEditRedo);
        ExpectSamePixels(ImageOf(image), expected);
    }
}

TEST_F(AddBorderTest, SymmetricalMarginsMoveTogether) {
    NewDocument(20, 10);
    InDialog([] {
        frmAddBord->ChSym.Value(1);
        EXPECT_EQ(Texts(), (std::vector<std::string>{"1", "0", "0", "0"}));
        frmAddBord->VSLeft.Value(370);
        EXPECT_EQ(Texts(), (std::vector<std::string>(4, "30")));
        Retype(frmAddBord->txtBottom, "12");
        EXPECT_EQ(Texts(), (std::vector<std::string>(4, "12")));
        frmAddBord->ChSym.Value(0);
        frmAddBord->VSRight.Value(399);
        EXPECT_EQ(Texts(), (std::vector<std::string>{"12", "12", "12", "1"}));
    });
}

TEST_F(AddBorderTest, ANumberAbove400BecomesItAtTheKeysRelease) {
    NewDocument(20, 10);
    InDialog([] {
        Retype(frmAddBord->txtTop, "999");
        EXPECT_EQ(frmAddBord->txtTop.Text(), "400");
        EXPECT_EQ(frmAddBord->VSTop.Value(), 0);
    });
}

TEST_F(AddBorderTest, OnlyDigitsAreTyped) {
    NewDocument(20, 10);
    InDialog([] {
        Retype(frmAddBord->txtLeft, "1a2-.3");
        EXPECT_EQ(frmAddBord->txtLeft.Text(), "123");
        Type(WidgetFor(frmAddBord->txtLeft), "\b");
        EXPECT_EQ(frmAddBord->txtLeft.Text(), "12");
        EXPECT_EQ(frmAddBord->VSLeft.Value(), 388);
    });
}

TEST_F(AddBorderTest, OfWhatThePointerPastesTheDigitsCountUpTo400) {
    const auto widthWith = [&](const char* pasted) {
        frmImage& image = NewDocument(20, 10, 0x3264C8);
        InDialog([=] {
            PasteByPointer(frmAddBord->txtLeft, pasted);
            PressApply();
        });
        return ImageOf(image).Width();
    };
    EXPECT_EQ(widthWith("99999999999999999999"), 420);
    EXPECT_EQ(widthWith("1x2"), 32);
    EXPECT_EQ(widthWith("-5"), 25);
    EXPECT_EQ(widthWith("abc"), 20);
    EXPECT_EQ(widthWith("1e3"), 33);
    EXPECT_TRUE(untrapped.empty());
}

// Nor does a text count for more that came past the keys and the bar.
TEST_F(AddBorderTest, ATextThatNoKeyBroughtIsAtMost400) {
    frmImage& image = NewDocument(20, 10, 0x3264C8);
    InDialog([] {
        frmAddBord->txtLeft.Text("1e9");
        frmAddBord->txtRight.Text("-7");
        PressApply();
    });
    EXPECT_EQ(ImageOf(image).Width(), 420);
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(AddBorderTest, EmptyBoxesGiveTheSameImageAndAState) {
    const Picture picture = RandomPicture(20, 10, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    InDialog([] {
        for (TextBox* box :
             {&frmAddBord->txtTop, &frmAddBord->txtBottom, &frmAddBord->txtLeft, &frmAddBord->txtRight})
            box->Text("");
        PressApply();
    });
    ExpectSamePixels(ImageOf(image), picture);
    EXPECT_EQ(StateCount(image), 2);
}

TEST_F(AddBorderTest, EveryOtherWayOutChangesNothing) {
    frmImage& image = NewDocument(20, 10, 0x3264C8);
    ExpectOtherWaysOutChangeNothing(image, frmMain->mnuAddBorders, frmAddBord,
                                    [] { SetMargins(9, 9, 9, 9); });
}

// A side above 32000 could not be recorded.
TEST_F(AddBorderTest, ASideThatCouldNotBeRecordedIsRefused) {
    frmImage& image = NewDocument(31900, 2, 0x3264C8);
    const DialogScript script({[](QWidget&) {
                                   SetMargins(0, 0, 100, 1);
                                   PressApply();
                                   EXPECT_TRUE(frmAddBord.Loaded());
                                   SetMargins(0, 0, 100, 0);
                                   PressApply();
                               },
                               PressesButton("OK")});
    Choose(frmMain->mnuAddBorders);
    EXPECT_NE(script.Dialog(1).text.find("32001 por 2"), std::string::npos);
    EXPECT_EQ(ImageOf(image).Width(), 32000);
    EXPECT_EQ(StateCount(image), 2);
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(AddBorderTest, EachMarginCountsTowardsTheLargestSide) {
    struct Case {
        bool high;
        int top, bottom, left, right;
        const char* told;
    };
    for (const Case& c :
         {Case{true, 101, 0, 0, 0, "2 por 32001"}, Case{true, 0, 101, 0, 0, "2 por 32001"},
          Case{true, 60, 41, 3, 4, "9 por 32001"}, Case{false, 0, 0, 101, 0, "32001 por 2"},
          Case{false, 0, 0, 0, 101, "32001 por 2"}, Case{false, 3, 4, 60, 41, "32001 por 9"}}) {
        SCOPED_TRACE(testing::Message() << c.top << ' ' << c.bottom << ' ' << c.left << ' ' << c.right);
        frmImage& image = NewDocument(c.high ? 2 : 31900, c.high ? 31900 : 2, 0x3264C8);
        const DialogScript script({[&c](QWidget&) {
                                       SetMargins(c.top, c.bottom, c.left, c.right);
                                       PressApply();
                                       // A pixel less fits.
                                       SetMargins(c.top - (c.top > 0 && c.high ? 1 : 0),
                                                  c.bottom - (c.top == 0 && c.high ? 1 : 0),
                                                  c.left - (c.left > 0 && !c.high ? 1 : 0),
                                                  c.right - (c.left == 0 && !c.high ? 1 : 0));
                                       PressApply();
                                   },
                                   PressesButton("OK")});
        Choose(frmMain->mnuAddBorders);
        EXPECT_EQ(script.Dialog(1),
                  Message("critical", std::string("A imagem ficaria com ") + c.told +
                                          " pixeis, e o máximo são 32000. A imagem ficou como estava: "
                                          "escolha margens mais pequenas."));
        EXPECT_EQ(c.high ? ImageOf(image).Height() : ImageOf(image).Width(), 32000);
    }
}

TEST_F(AddBorderTest, TheViewKeepsItsZoom) {
    frmImage& image = NewDocument(20, 10);
    Choose(frmMain->mnuZoomInX(2));
    ASSERT_EQ(image.factor, 3);
    InDialog([] { PressApply(); });
    EXPECT_EQ(image.factor, 3);
    EXPECT_EQ(image.Image1.Width(), 60);
    EXPECT_EQ(image.Image1.Height(), 33);
    EXPECT_EQ(image.PicBG.Height(), 33);
}

TEST_F(AddBorderTest, WithRulersTheWindowHasRoomForThem) {
    frmImage& image = NewDocument(40, 30);
    Choose(frmMain->mnuViewRulers);
    InDialog([] { PressApply(); });
    EXPECT_EQ(image.Width(), image.LeftRuler.Width() + 40 * 15 + 120);
    EXPECT_EQ(image.Height(), image.TopRuler.Height() + 31 * 15 + 420);
    Choose(frmMain->mnuViewRulers);
}

// A margin that no 16-bit number could count any more is refused like one that no file could hold.
TEST_F(AddBorderTest, ARefusedSizeLeavesTheDocumentWhole) {
    frmImage& image = NewDocument(32000, 2, 0x3264C8);
    FloatRectangle(image, 3, 0, 2, 2);
    const DialogScript script({[](QWidget&) {
                                   SetMargins(0, 0, 400, 400);
                                   PressApply();
                                   EXPECT_TRUE(frmAddBord.Loaded());
                                   ClickWidget(WidgetFor(frmAddBord->cmdCancel));
                               },
                               PressesButton("OK")});
    Choose(frmMain->mnuAddBorders);
    EXPECT_NE(script.Dialog(1).text.find("32800 por 2"), std::string::npos) << script.Dialog(1).text;
    EXPECT_EQ(script.Dialog(1).icon, "critical");
    EXPECT_TRUE(ImageOf(image) == Solid(32000, 2, 0x3264C8));
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_EQ(image.SelectLeft, 3);
    EXPECT_EQ(image.Selectwidth, 2);
    EXPECT_EQ(StateCount(image), 1);
    EXPECT_FALSE(ScreenLocked());
    EXPECT_TRUE(untrapped.empty());
}

TEST_F(AddBorderTest, WithoutATemporaryFolderTheBordersAreThereUnrecorded) {
    const Picture picture = RandomPicture(20, 10, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    TempFoldersForTests(false);
    InDialog([] { PressApply(); });
    TempFoldersForTests(true);
    ExpectSamePixels(ImageOf(image), With(Solid(20, 11, kWhite), 0, 1, picture));
    EXPECT_EQ(StateCount(image), 1);
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(AddBorderTest, AFullDiskKeepsTheStepsInMemory) {
    ExpectDoneOnAFullDisk(
        [] { InDialog([] { PressApply(); }); },
        [](const Picture& picture) { return With(Solid(200, 101, kWhite), 0, 1, picture); });
}

TEST_F(AddBorderTest, AMaximisedWindowIsLeftAlone) {
    frmImage& image = NewDocument(20, 10);
    image.WindowState(kMaximised);
    PassEvents();
    const double width = image.Width();
    InDialog([] { PressApply(); });
    EXPECT_EQ(image.WindowState(), kMaximised);
    EXPECT_EQ(image.Width(), width);
    EXPECT_EQ(ImageOf(image).Height(), 11);
}

// The piece and its dashes are away before the image grows; the image is the clean one.
TEST_F(AddBorderTest, AFreehandPieceThatWasOnlyLiftedGoes) {
    const Picture picture = RandomPicture(30, 20, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    FloatFreehand(image, 5, 4, {".###.", "#####", ".###."});
    image.piece = PieceState::Lifted;
    InDialog([] { PressApply(); });
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    ExpectDone(image, picture, With(Solid(30, 21, kWhite), 0, 1, picture));
}

TEST_F(AddBorderTest, AFreehandPieceThatWasMovedIsLandedFirst) {
    frmImage& image = OpenPicture("a.bmp", Solid(30, 20, 0x3264C8));
    FloatFreehand(image, 5, 4, {".###.", "#####", ".###."});
    image.SelHolder.LineBF(1, 1, 3, 1, 0x0000FF);
    image.piece = PieceState::Grabbed;
    InDialog([] { PressApply(); });
    Picture landed = Solid(30, 20, 0x3264C8);
    landed.Fill({6, 5, 9, 6}, 0x0000FF);
    ExpectSamePixels(ImageOf(image), With(Solid(30, 21, kWhite), 0, 1, landed));
    EXPECT_FALSE(image.PicFreeSelect.Visible());
}

TEST_F(AddBorderTest, ARectangleThatWasMovedFloatsOnOverTheLargerImage) {
    const Picture picture = RandomPicture(30, 20, 3);
    frmImage& image = OpenPicture("a.bmp", picture);
    FloatRectangle(image, 5, 4, 8, 6);
    const Picture piece = image.SelHolder.Image();
    image.PicSelect.Move(12, 9, 8, 6);
    image.piece = PieceState::Grabbed;
    InDialog([] {
        SetMargins(2, 0, 3, 0);
        PressApply();
    });
    const Picture grown = With(Solid(33, 22, kWhite), 3, 2, picture);
    ExpectSamePixels(ImageOf(image), grown);
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_EQ(image.PicSelect.Left(), 12);
    EXPECT_EQ(image.PicSelect.Top(), 9);
    EXPECT_EQ(StateCount(image), 2);
    image.NeedtoPaste();
    ExpectSamePixels(ImageOf(image), With(grown, 12, 9, piece));
}

// The piece was lifted at 5, 4; over the larger image it lies at 5, 4 still, and drops there.
TEST_F(AddBorderTest, ARectangleThatFloatsStaysAtItsPlace) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(30, 20, 3));
    CurrentTool = 13;
    Drag(image, {{5, 4}, {10, 10}, {20, 14}});
    ASSERT_TRUE(image.PicSelect.Visible());
    const double left = image.PicSelect.Left();
    InDialog([] {
        SetMargins(2, 0, 3, 0);
        PressApply();
    });
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_EQ(image.PicSelect.Left(), left);
    const Picture grown = ImageOf(image);
    const Picture piece = image.SelHolder.Image();
    Choose(frmMain->mnuColInc(0));
    EXPECT_FALSE(image.PicSelect.Visible());
    for (const Box& box : Bitmap::Difference(grown, ImageOf(image))) {
        const Box changed = Bitmap::Shrunk(grown, ImageOf(image), box);
        EXPECT_EQ(Intersection(changed, {5, 4, 5 + piece.Width(), 4 + piece.Height()}), changed);
    }
}

} // namespace pintalux
