// Operations on what floats: where they work, where their result lands, what is left of the selection.
#include "imageops/FloatingPieces.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "imageops/frmFiltBrow.h"
#include "surface/window/ProgressBar.h"

namespace pintalux {
namespace {

constexpr int kGrey = 3, kInvert = 4, kBrighten = 5, kOutline = 7;
constexpr Colour kDark = 0x202020;

class SelectionOperationTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        FiltCancelled = false;
        Start();
    }
    static void InBrowser(const std::function<void()>& act) {
        const DialogScript script({[&](QWidget&) { act(); }});
        Choose(frmMain->mnuFiltBrow);
    }
    static void Apply(int index, int level = 0) {
        InBrowser([=] {
            frmFiltBrow->FiltList.ListIndex(index);
            if (level != 0) frmFiltBrow->Slider1.Value(level);
            ClickWidget(WidgetFor(frmFiltBrow->cmdApply));
        });
    }
    static void Cancel() {
        InBrowser([] { ClickWidget(WidgetFor(frmFiltBrow->cmdCancel)); });
    }
    static int StateCount(const frmImage& image) { return image.ListBUorder.ListCount(); }
    static Picture Inverted(Picture picture) {
        for (int y = 0; y < picture.Height(); ++y) {
            for (int x = 0; x < picture.Width(); ++x)
                picture.Set(x, y, picture.At(x, y) ^ 0xFFFFFF);
        }
        return picture;
    }
    /// The box of a picture, inverted in its place.
    static Picture InvertedInside(const Picture& picture, const Box& box) {
        Picture result = picture;
        for (int y = box.top; y < box.bottom; ++y) {
            for (int x = box.left; x < box.right; ++x)
                if (result.Holds(x, y)) result.Set(x, y, result.At(x, y) ^ 0xFFFFFF);
        }
        return result;
    }
};

struct ZoomCase {
    double factor;
    const char* name;
};
class ZoomedSelectionTest : public SelectionOperationTest, public ::testing::WithParamInterface<ZoomCase> {};

} // namespace

// Rectangles.

TEST_F(SelectionOperationTest, AFilterOnARectangleChangesOnlyThatAndEndsIt) {
    const Picture before = RandomPicture(40, 30, 1);
    frmImage& image = OpenPicture("a.bmp", before);
    FloatRectangle(image, 5, 7, 12, 9);
    image.SelectShape.Visible(true);
    Apply(kInvert);
    ExpectSamePixels(ImageOf(image), InvertedInside(before, {5, 7, 17, 16}));
    ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
    EXPECT_TRUE(SelectionEnded(image));
    EXPECT_EQ(StateCount(image), 2);
    EXPECT_FALSE(ScreenLocked());
}

TEST_P(ZoomedSelectionTest, AFilterOnARectangleIsRight) {
    const Picture before = RandomPicture(64, 48, 2);
    frmImage& image = OpenPicture("a.bmp", before);
    ShowAtFactor(image, GetParam().factor);
    FloatRectangle(image, 16, 8, 32, 24);
    Apply(kInvert);
    ExpectSamePixels(ImageOf(image), InvertedInside(before, {16, 8, 48, 32}));
    EXPECT_TRUE(SelectionEnded(image));
}

TEST_P(ZoomedSelectionTest, TheFloatingPieceKeepsItsSizeBehindTheDialogAndAfterACancel) {
    const Picture before = RandomPicture(64, 48, 3);
    frmImage& image = OpenPicture("a.bmp", before);
    ShowAtFactor(image, GetParam().factor);
    FloatRectangle(image, 16, 8, 32, 24);
    const double width = 32 * GetParam().factor;
    const double height = 24 * GetParam().factor;
    InBrowser([&] {
        EXPECT_TRUE(image.PicSelect.Visible());
        EXPECT_EQ(image.PicSelect.Width(), width);
        EXPECT_EQ(image.PicSelect.Height(), height);
        EXPECT_FALSE(ScreenLocked());
        ClickWidget(WidgetFor(frmFiltBrow->cmdCancel));
    });
    EXPECT_EQ(image.PicSelect.Width(), width);
    EXPECT_EQ(image.PicSelect.Height(), height);
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_TRUE(frmMain->mnuEditCut.Enabled());
    ExpectSamePixels(ImageOf(image), before);
    EXPECT_EQ(StateCount(image), 1);
    EXPECT_FALSE(FiltCancelled);
}

INSTANTIATE_TEST_SUITE_P(Zooms, ZoomedSelectionTest,
                         ::testing::Values(ZoomCase{1, "Actual"}, ZoomCase{3, "In3"}, ZoomCase{16, "In16"},
                                           ZoomCase{0.5, "Out2"}, ZoomCase{0.125, "Out8"}),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_F(SelectionOperationTest, TheSampleShowsThePiece) {
    frmImage& image = NewDocument(40, 40);
    image.PicMerge.LineBF(10, 10, 19, 19, 0x0000FF);
    FloatRectangle(image, 10, 10, 10, 10);
    InBrowser([] {
        ExpectSamePixels(frmFiltBrow->imgSample.Picture(), Solid(258, 258, 0x0000FF));
        ClickWidget(WidgetFor(frmFiltBrow->cmdCancel));
    });
}

TEST_F(SelectionOperationTest, ARectanglePartlyOutsideLandsWithWhatIsInside) {
    frmImage& image = NewDocument(20, 20, kDark);
    FloatRectangle(image, 15, -4, 10, 10);
    Apply(kBrighten, 64);
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kDark), 15, 0, Solid(5, 6, 0x606060)));
}

TEST_F(SelectionOperationTest, ARectangleLargerThanTheImageCoversIt) {
    frmImage& image = NewDocument(20, 20, kDark);
    FloatRectangle(image, -5, -5, 40, 40);
    Apply(kBrighten, 64);
    ExpectSamePixels(ImageOf(image), Solid(20, 20, 0x606060));
    EXPECT_TRUE(SelectionEnded(image));
}

TEST_F(SelectionOperationTest, ARectangleWithoutExtentJustEnds) {
    frmImage& image = NewDocument(20, 20, kDark);
    for (const auto& [width, height] : {std::pair(0, 8), {8, 0}, {0, 0}}) {
        FloatRectangle(image, 3, 3, width, height);
        InBrowser([] {
            for (int i = 0; i < 9; ++i) {
                frmFiltBrow->FiltList.ListIndex(i);
                ClickWidget(WidgetFor(frmFiltBrow->Command1));
            }
            ClickWidget(WidgetFor(frmFiltBrow->cmdApply));
        });
        EXPECT_TRUE(SelectionEnded(image));
        FloatRectangle(image, 3, 3, width, height);
        Choose(frmMain->mnuColInc(1));
        EXPECT_TRUE(SelectionEnded(image));
        ExpectSamePixels(ImageOf(image), Solid(20, 20, kDark));
    }
    EXPECT_EQ(StateCount(image), 7);
}

TEST_F(SelectionOperationTest, HalfPixelsOfThePlaceRoundToTheEvenOne) {
    frmImage& image = NewDocument(20, 20, kDark);
    FloatRectangle(image, 3, 3, 4, 4);
    image.SelectLeft = 2.5;
    image.SelectTop = 3.5;
    Apply(kBrighten, 64);
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kDark), 2, 4, Solid(4, 4, 0x606060)));
}

TEST_F(SelectionOperationTest, ThePieceIsStretchedToThePlaceTold) {
    frmImage& image = NewDocument(20, 20, kDark);
    FloatRectangle(image, 3, 3, 4, 4);
    image.Selectwidth = 8;
    Apply(kBrighten, 64);
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kDark), 3, 3, Solid(8, 4, 0x606060)));
}

TEST_F(SelectionOperationTest, OutlinesOfARectangleAreBlackOnWhite) {
    frmImage& image = NewDocument(20, 20, kDark);
    image.PicMerge.LineBF(10, 0, 19, 19, 0xFF2020);
    const Picture before = ImageOf(image);
    FloatRectangle(image, 5, 5, 10, 10);
    Apply(kOutline, 50);
    Picture expected = With(before, 5, 5, Solid(10, 10, kWhite));
    // Where blue begins; the piece's first row has no neighbour above it and stays blank.
    expected.Fill({10, 6, 11, 15}, 0x000000);
    ExpectSamePixels(ImageOf(image), expected);
    EXPECT_TRUE(SelectionEnded(image));
}

TEST_F(SelectionOperationTest, AGrabAfterAnOperationLiftsFromTheImageAgain) {
    frmImage& image = NewDocument(20, 20, kDark);
    FloatRectangle(image, 3, 3, 4, 4);
    PasteFloating = true;
    Apply(kGrey);
    EXPECT_FALSE(PasteFloating);
}

TEST_F(SelectionOperationTest, APastedPieceIsFilteredWhereItFloats) {
    frmImage& image = NewDocument(20, 20, kDark);
    ShowAtFactor(image, 2);
    image.SelHolder.Picture(Solid(4, 4, 0x404040));
    image.PicSelect.Move(6, 10, 8, 8);
    image.PicSelect.Visible(true);
    PasteFloating = true;
    Apply(kBrighten, 32);
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kDark), 3, 5, Solid(4, 4, 0x606060)));
}

// Freehand pieces.

TEST_F(SelectionOperationTest, AFilterOnAFreehandPieceKeepsItsOutside) {
    frmImage& image = NewDocument(12, 10, kDark);
    FloatFreehand(image, 4, 5, {".##.", "####", ".#.."});
    Apply(kBrighten, 64);
    Picture expected = Solid(12, 10, kDark);
    for (const auto& [x, y] : {std::pair(5, 5), {6, 5}, {4, 6}, {5, 6}, {6, 6}, {7, 6}, {5, 7}})
        expected.Set(x, y, 0x606060);
    ExpectSamePixels(ImageOf(image), expected); // the path of the drag is gone, too
    ExpectSamePixels(image.Image1.Picture(), expected);
    EXPECT_TRUE(SelectionEnded(image));
    EXPECT_TRUE(FreeSelActive);
    EXPECT_FALSE(PasteFloating);
    EXPECT_EQ(StateCount(image), 2);
    EXPECT_EQ(frmMain->Pb.Value(), 0);
}

TEST_F(SelectionOperationTest, AFreehandPlaceIsCutDownToWholePixels) {
    frmImage& image = NewDocument(20, 20, kDark);
    ShowAtFactor(image, 4);
    FloatFreehand(image, 4, 4, {"####", "####", "####", "####"});
    image.PicFreeSelect.Move(23, 10, 15, 18); // 5.75, 2.5; the piece keeps its size
    Apply(kBrighten, 64);
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kDark), 5, 2, Solid(4, 4, 0x606060)));
}

TEST_F(SelectionOperationTest, AFreehandPieceIsRightAtAZoom) {
    frmImage& image = NewDocument(20, 20, kDark);
    ShowAtFactor(image, 3);
    FloatFreehand(image, 4, 4, {"##", ".#"});
    Apply(kBrighten, 64);
    Picture expected = Solid(20, 20, kDark);
    for (const auto& [x, y] : {std::pair(4, 4), {5, 4}, {5, 5}})
        expected.Set(x, y, 0x606060);
    ExpectSamePixels(ImageOf(image), expected);
}

TEST_F(SelectionOperationTest, AFreehandPieceTooSmallForTheViewIsWorkedOnAllTheSame) {
    frmImage& image = NewDocument(20, 20, kDark);
    ShowAtFactor(image, 1.0 / 16);
    FloatFreehand(image, 4, 4, {"##", "##"});
    ASSERT_EQ(image.PicFreeSelect.PixelWidth(), 0);
    Apply(kBrighten, 64);
    EXPECT_TRUE(SelectionEnded(image));
    ExpectSamePixels(ImageOf(image), With(Solid(20, 20, kDark), 4, 4, Solid(2, 2, 0x606060)));
}

TEST_F(SelectionOperationTest, AFreehandPieceIsMaskedWhateverTheNextPasteWouldBe) {
    frmImage& image = NewDocument(12, 10, kDark);
    FloatFreehand(image, 4, 5, {".##.", "####"});
    FreeSelActive = false;
    Apply(kBrighten, 64);
    Picture expected = Solid(12, 10, kDark);
    for (const auto& [x, y] : {std::pair(5, 5), {6, 5}, {4, 6}, {5, 6}, {6, 6}, {7, 6}})
        expected.Set(x, y, 0x606060);
    ExpectSamePixels(ImageOf(image), expected);
    EXPECT_FALSE(FreeSelActive);
}

TEST_F(SelectionOperationTest, InvertingAFreehandPieceLandsItsWholeBox) {
    frmImage& image = NewDocument(12, 10, kDark);
    FloatFreehand(image, 4, 5, {"#.", "##"});
    Apply(kInvert);
    Picture expected = With(Solid(12, 10, kDark), 4, 5, Solid(2, 2, 0xDFDFDF));
    expected.Set(5, 5, 0x776B5F);
    ExpectSamePixels(ImageOf(image), expected);
}

TEST_F(SelectionOperationTest, OutlinesOfAFreehandPieceLeaveItsBoxBlank) {
    frmImage& image = OpenPicture("a.bmp", RandomPicture(12, 10, 4));
    const Picture before = ImageOf(image);
    FloatFreehand(image, 4, 5, {"#.#", "###", ".#."});
    Apply(kOutline, 50);
    ExpectSamePixels(ImageOf(image), With(before, 4, 5, Solid(3, 3, kWhite)));
}

TEST_F(SelectionOperationTest, ACancelLeavesAFreehandPieceFloating) {
    frmImage& image = NewDocument(12, 10, kDark);
    FloatFreehand(image, 4, 5, {"#.", "##"});
    const Picture before = ImageOf(image);
    Cancel();
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_TRUE(FreeSelActive);
    EXPECT_TRUE(frmMain->mnuEditCopy.Enabled());
    ExpectSamePixels(ImageOf(image), before);
    EXPECT_EQ(StateCount(image), 1);
}

// A flag that outlived its piece.

TEST_F(SelectionOperationTest, WithNothingFloatingNoPixelIsLeftOut) {
    frmImage& image = NewDocument(9, 9, MaskKeyColour);
    FreeSelActive = true;
    InBrowser([] {
        frmFiltBrow->FiltList.ListIndex(kGrey);
        ClickWidget(WidgetFor(frmFiltBrow->Command1));
        // 0.59 x 149 + 0.3 x 160 + 0.11 x 137: the split lifts green and blue by one.
        EXPECT_EQ(frmFiltBrow->imgSample.Picture().At(5, 5), 0x979797U);
        ClickWidget(WidgetFor(frmFiltBrow->cmdApply));
    });
    ExpectSamePixels(ImageOf(image), Solid(9, 9, 0x979797));
    EXPECT_TRUE(FreeSelActive);
    EXPECT_EQ(StateCount(image), 2);
}

TEST_F(SelectionOperationTest, ARectangleIsNotMaskedByAnOldFlag) {
    frmImage& image = NewDocument(9, 9, MaskKeyColour);
    FloatRectangle(image, 2, 2, 4, 4);
    FreeSelActive = true;
    Apply(kGrey);
    ExpectSamePixels(ImageOf(image), With(Solid(9, 9, MaskKeyColour), 2, 2, Solid(4, 4, 0x979797)));
}

TEST_F(SelectionOperationTest, UndoBringsTheImageBeforeAnOperationOnASelection) {
    const Picture before = RandomPicture(20, 20, 6);
    frmImage& image = OpenPicture("a.bmp", before);
    FloatRectangle(image, 2, 2, 9, 9);
    Apply(kInvert);
    Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(ImageOf(image), before);
    EXPECT_FALSE(image.PicSelect.Visible());
}

} // namespace pintalux
