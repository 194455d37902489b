// What commands do with a piece that was grabbed or pasted, and with one that was only lifted.
#include "document/FileCommands.h"
#include "document/Selection.h"
#include "imageops/ImageCommands.h"
#include "selection/EditCommands.h"
#include "selection/FreehandSelection.h"
#include "selection/RectangleSelection.h"
#include "selection/SelectionTest.h"
#include "support/DialogScript.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Pictures.h"

namespace pintalux {
namespace {

constexpr Pixel kKey = 0x8894A0, kHole = 0xFFFFFF;

Bitmap Mirrored(const Bitmap& picture) {
    Bitmap result(picture.Width(), picture.Height(), 0);
    for (int y = 0; y < picture.Height(); ++y)
        for (int x = 0; x < picture.Width(); ++x)
            result.Set(x, y, picture.At(picture.Width() - 1 - x, y));
    return result;
}

class PlacedPieceTest : public SelectionTest {
  public:
    void TearDown() override {
        Clipboard.Clear();
        SelectionTest::TearDown();
    }
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }

    // A freehand path around the box 20, 10 to 44, 30 with its lower right corner cut off.
    static void Lasso(frmImage& image) {
        const double f = image.factor;
        SelectPath(image, {{20.5 * f, 10.5 * f},
                           {44.5 * f, 10.5 * f},
                           {44.5 * f, 20.5 * f},
                           {34.5 * f, 30.5 * f},
                           {20.5 * f, 30.5 * f}});
    }
    // What the path above encloses, by the slope of its one slanted edge.
    static bool InLasso(int x, int y) { return x >= 20 && x <= 44 && y >= 10 && y <= 30 && x + y <= 64; }

    Bitmap WithLassoHole(Bitmap picture) const {
        for (int y = 10; y <= 30; ++y)
            for (int x = 20; x <= 44; ++x)
                if (InLasso(x, y)) picture.Set(x, y, kHole);
        return picture;
    }
    Bitmap WithLassoAt(Bitmap picture, int dx, int dy) const {
        for (int y = 10; y <= 30; ++y)
            for (int x = 20; x <= 44; ++x)
                if (InLasso(x, y) && picture.Holds(x + dx, y + dy))
                    picture.Set(x + dx, y + dy, Before().At(x, y));
        return picture;
    }

    /// The rectangle 10, 20 by 40, 25 taken to 40, 25 in cut mode, and the image that shows it there.
    frmImage& MovedRectangle(Bitmap& seen) {
        frmImage& image = OpenRandom(120, 90);
        CutMode();
        SelectRectangle(image, 10, 20, 50, 45);
        CarryRectangle(image, 30, 5);
        seen = WithPiece(WithBox(Before(), 10, 20, 40, 25, kHole), Part(Before(), 10, 20, 40, 25), 40, 25);
        return image;
    }
    frmImage& MovedLasso(Bitmap& seen) {
        frmImage& image = OpenRandom(120, 90);
        CutMode();
        Lasso(image);
        CarryFreehand(image, 30, 20);
        seen = WithLassoAt(WithLassoHole(Before()), 30, 20);
        return image;
    }
    frmImage& PastedRectangle(Bitmap& seen) {
        frmImage& image = OpenRandom(120, 90);
        Clipboard.SetData(Solid(20, 10, 0x123456));
        mnuEditPaste_Click();
        seen = WithBox(Before(), 0, 0, 20, 10, 0x123456);
        return image;
    }
};

struct Command {
    const char* name;
    std::function<void()> run;
};

const Command kCommands[] = {
    {"SelectAll", [] { mnuEditSelectAll_Click(); }},
    {"Paste", [] { mnuEditPaste_Click(); }},
    {"PasteFromBar", [] { PasteFromBar(); }},
    {"FlipBothWays", [] { mnuFlipH_Click(), mnuFlipH_Click(); }},
    {"Copy", [] { mnuEditCopy_Click(); }},
};

TEST_F(PlacedPieceTest, CommandsMergeAPlacedPieceFirst) {
    const std::pair<const char*, frmImage& (PlacedPieceTest::*)(Bitmap&)> pieces[] = {
        {"rectangle", &PlacedPieceTest::MovedRectangle},
        {"lasso", &PlacedPieceTest::MovedLasso},
        {"paste", &PlacedPieceTest::PastedRectangle}};
    for (const auto& [piece, make] : pieces) {
        for (const Command& command : kCommands) {
            SCOPED_TRACE(std::string(piece) + ", " + command.name);
            Clipboard.SetData(Solid(3, 3, 0));
            Bitmap seen;
            frmImage& image = (this->*make)(seen);
            command.run();
            ExpectSamePixels(ImageOf(image), seen);
            EXPECT_GE(States(image), 3);
            PasteFloating = false;
            image.PicSelect.Visible(false);
        }
        ZoomToLevel(15);
    }
}

const Command kWholeImageOperations[] = {
    {"FlipH", [] { mnuFlipH_Click(); }},         {"FlipV", [] { mnuFlipV_Click(); }},
    {"Rotate90", [] { mnuRotate90_Click(); }},   {"Rotate180", [] { mnuRotate180_Click(); }},
    {"Rotate270", [] { mnuRotate270_Click(); }},
};

/// What an operation makes of a picture over which nothing floats.
Bitmap After(const Command& operation, const std::function<frmImage&()>& open) {
    const frmImage& plain = open();
    operation.run();
    return ImageOf(plain);
}

TEST_F(PlacedPieceTest, OperationsOnTheWholeImageTakeAlongWhatWasPlaced) {
    for (const auto make : {&PlacedPieceTest::MovedRectangle, &PlacedPieceTest::MovedLasso,
                            &PlacedPieceTest::PastedRectangle}) {
        for (const Command& operation : kWholeImageOperations) {
            SCOPED_TRACE(operation.name);
            Bitmap seen;
            const frmImage& image = (this->*make)(seen);
            operation.run();
            EXPECT_FALSE(image.PicSelect.Visible() || image.PicFreeSelect.Visible());
            const Bitmap expected =
                After(operation, [&]() -> frmImage& { return OpenPicture("seen.bmp", seen); });
            ExpectSamePixels(ImageOf(image), expected);
        }
    }
}

TEST_F(PlacedPieceTest, TheSavedFileIsWhatWasSeen) {
    for (const auto make : {&PlacedPieceTest::MovedRectangle, &PlacedPieceTest::MovedLasso}) {
        Bitmap seen;
        frmImage& image = (this->*make)(seen);
        pintalux::Choose(frmMain->mnuFileSave);
        ExpectSamePixels(LoadPicture(image.AFCurfile), seen);
        EXPECT_EQ(States(image), 3);
        EXPECT_TRUE(image.alreadysaved);
        EXPECT_FALSE(image.PicSelect.Visible() || image.PicFreeSelect.Visible());
    }
}

TEST_F(PlacedPieceTest, TheFileSavedUnderAnotherNameIsWhatWasSeen) {
    Bitmap seen;
    MovedLasso(seen);
    const DialogScript script({ChoosesFile(File("other.bmp"))});
    pintalux::Choose(frmMain->mnuFileSaveAs);
    ExpectSamePixels(LoadPicture(File("other.bmp")), seen);
}

TEST_F(PlacedPieceTest, ACloseAsksForAPieceThatFloatsAfterTheLastSave) {
    Bitmap seen;
    frmImage& image = MovedRectangle(seen);
    pintalux::Choose(frmMain->mnuFileSave);
    SelectRectangle(image, 60, 50, 70, 60);
    CarryRectangle(image, 10, 10);
    seen = WithPiece(WithBox(seen, 60, 50, 10, 10, kHole), Part(seen, 60, 50, 10, 10), 70, 60);
    const std::string path = image.AFCurfile;
    frmPrefs->Check4.Value(0);
    const DialogScript script({PressesButton("Sim")});
    EXPECT_TRUE(image.Unload());
    ExpectSamePixels(LoadPicture(path), seen);
}

TEST_F(PlacedPieceTest, ACloseOfAFreshDocumentAsksForWhatWasPasted) {
    Clipboard.SetData(Solid(20, 10, 0x123456));
    frmImage& image = NewDocument(60, 40);
    mnuEditPaste_Click();
    frmPrefs->Check4.Value(0);
    const DialogScript script({PressesButton("Cancelar")});
    EXPECT_FALSE(image.Unload());
    ExpectSamePixels(ImageOf(image), WithBox(Bitmap(60, 40, 0xFFFFFF), 0, 0, 20, 10, 0x123456));
}

TEST_F(PlacedPieceTest, ACloseAsksNothingForAPieceThatWasOnlyLifted) {
    frmImage& image = OpenRandom(60, 40);
    CutMode();
    SelectPath(image, {{5.5, 5.5}, {25.5, 5.5}, {25.5, 20.5}});
    frmPrefs->Check4.Value(0);
    const DialogScript nothingIsAsked;
    EXPECT_TRUE(image.Unload());
}

TEST_F(PlacedPieceTest, CopyTakesTheRectangleThatWasDropped) {
    Bitmap seen;
    frmImage& image = MovedRectangle(seen);
    mnuEditCopy_Click();
    ExpectSamePixels(Clipboard.GetData(), Part(Before(), 10, 20, 40, 25));
    EXPECT_EQ(States(image), 3);
    EXPECT_FALSE(CutAndCopyEnabled());
    EXPECT_FALSE(image.PicSelect.Visible());
}

TEST_F(PlacedPieceTest, CutTakesTheRectangleFromWhereItWasDropped) {
    Bitmap seen;
    frmImage& image = MovedRectangle(seen);
    mnuEditCut_Click();
    ExpectSamePixels(Clipboard.GetData(), Part(Before(), 10, 20, 40, 25));
    ExpectSamePixels(ImageOf(image), WithBox(seen, 40, 25, 40, 25, kHole));
    EXPECT_EQ(States(image), 3);
}

TEST_F(PlacedPieceTest, ARectangleDroppedOverTheEdgeIsCopiedWhole) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    SelectRectangle(image, 10, 20, 50, 45);
    CarryRectangle(image, -25, 0);
    mnuEditCopy_Click();
    ExpectSamePixels(Clipboard.GetData(), Part(Before(), 10, 20, 40, 25));
    ExpectSamePixels(ImageOf(image), WithPiece(Before(), Part(Before(), 10, 20, 40, 25), -15, 20));
}

TEST_F(PlacedPieceTest, AFreehandCopyIsAShapeAlsoAfterItsMerge) {
    Bitmap seen;
    frmImage& image = MovedLasso(seen);
    mnuEditCopy_Click();
    EXPECT_TRUE(FreeSelActive);
    const Bitmap clip = Clipboard.GetData();
    EXPECT_EQ(clip.At(24, 20), kKey);
    EXPECT_EQ(clip.At(3, 4), Before().At(23, 14));
    mnuEditPaste_Click();
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_FALSE(image.PicSelect.Visible());
}

TEST_F(PlacedPieceTest, AFreehandCutLeavesItsHoleWhereItWasDropped) {
    for (const bool cut : {true, false}) {
        frmImage& image = OpenRandom(120, 90, cut ? 1 : 2);
        CopyMode();
        Lasso(image);
        CarryFreehand(image, 30, 20);
        if (cut) CutMode();
        mnuEditCut_Click();
        Bitmap expected = WithLassoAt(Before(), 30, 20);
        for (int y = 10; y <= 30 && cut; ++y)
            for (int x = 20; x <= 44; ++x)
                if (InLasso(x, y)) expected.Set(x + 30, y + 20, kHole);
        ExpectSamePixels(ImageOf(image), expected);
        ExpectSamePixels(image.Image1.Picture(), expected);
        EXPECT_EQ(States(image), 3);
    }
}

TEST_F(PlacedPieceTest, AShapeCanBePastedTwice) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Lasso(image);
    mnuEditCopy_Click();
    mnuEditPaste_Click();
    CarryFreehand(image, 40, 40);
    mnuEditPaste_Click();
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_FALSE(image.PicSelect.Visible());
    ExpectSamePixels(ImageOf(image), WithLassoAt(Before(), 20, 30));
}

TEST_F(PlacedPieceTest, ChoosingTheRectangleToolMergesWhatWasPlaced) {
    for (const auto make : {&PlacedPieceTest::MovedRectangle, &PlacedPieceTest::MovedLasso}) {
        Bitmap seen;
        frmImage& image = (this->*make)(seen);
        Choose("Select");
        ExpectSamePixels(ImageOf(image), seen);
        ExpectSamePixels(image.Image1.Picture(), seen);
        EXPECT_EQ(States(image), 3);
    }
}

TEST_F(PlacedPieceTest, AZoomMergesAPlacedLassoAndKeepsARectangle) {
    const std::pair<const char*, std::function<void(frmImage&)>> zooms[] = {
        {"menu", [](frmImage&) { ZoomToLevel(17); }},
        {"actual", [](frmImage&) { mnuZoomActual_Click(); }},
        {"magnifier", [](frmImage& image) {
             Choose("Mag");
             Click(image, 5, 5);
         }}};
    for (const auto& [name, zoom] : zooms) {
        SCOPED_TRACE(name);
        Bitmap seen;
        frmImage& image = MovedLasso(seen);
        zoom(image);
        EXPECT_FALSE(image.PicFreeSelect.Visible());
        ExpectSamePixels(ImageOf(image), seen);
        EXPECT_EQ(States(image), 3);
        frmImage& other = MovedRectangle(seen);
        zoom(other);
        EXPECT_TRUE(other.PicSelect.Visible());
        EXPECT_EQ(States(other), 1);
        EXPECT_EQ(other.SelectImage.Width(), other.PicSelect.Width());
    }
}

// One that was only lifted.

TEST_F(PlacedPieceTest, ALiftedLassoLeavesNoHoleWhenItGoes) {
    const Command roads[] = {
        {"zoom", [] { ZoomToLevel(16); }},
        {"select none", [] { mnuEditSelectNone_Click(); }},
        {"select all", [] { mnuEditSelectAll_Click(); }},
        {"copy", [] { mnuEditCopy_Click(); }},
        {"rectangle tool", [] { Choose("Select"); }},
        {"paste", [] { mnuEditPaste_Click(); }},
        {"paste from the bar", [] { PasteFromBar(); }},
    };
    Clipboard.SetData(Solid(3, 3, 0));
    for (const Command& road : roads) {
        SCOPED_TRACE(road.name);
        frmImage& image = OpenRandom(120, 90);
        CutMode();
        Lasso(image);
        road.run();
        ExpectSamePixels(ImageOf(image), Before());
        ExpectSamePixels(image.Image1.Picture(), Before());
        EXPECT_FALSE(image.PicFreeSelect.Visible() && image.PicSelect.Visible());
    }
}

TEST_F(PlacedPieceTest, ALiftedPieceLeavesNoHoleInTheFile) {
    frmPrefs->Check4.Value(0);
    for (const bool lasso : {true, false}) {
        for (const bool atTheClose : {true, false}) {
            SCOPED_TRACE((lasso ? "lasso" : "rectangle") + std::string(atTheClose ? ", close" : ", save"));
            frmImage& image = OpenRandom(120, 90);
            Edit(image, 0x123456);
            CutMode();
            if (lasso) {
                Lasso(image);
            } else {
                SelectRectangle(image, 10, 20, 50, 45);
            }
            const std::string path = image.AFCurfile;
            if (atTheClose) {
                const DialogScript script({PressesButton("Sim")});
                EXPECT_TRUE(image.Unload());
            } else {
                pintalux::Choose(frmMain->mnuFileSave);
                EXPECT_TRUE(image.PicSelect.Visible() || image.PicFreeSelect.Visible());
            }
            ExpectSamePixels(LoadPicture(path), Bitmap(120, 90, 0x123456));
        }
    }
    frmPrefs->Check4.Value(1);
}

TEST_F(PlacedPieceTest, ACutOfALiftedLassoLeavesTheHoleOfCutMode) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    Lasso(image);
    mnuEditCut_Click();
    ExpectSamePixels(ImageOf(image), WithLassoHole(Before()));
    frmImage& other = OpenRandom(120, 90, 2);
    CopyMode();
    Lasso(other);
    mnuEditCut_Click();
    ExpectSamePixels(ImageOf(other), Before());
}

TEST_F(PlacedPieceTest, ALiftedLassoUnderTheMagnifierMergesWhereItCameFrom) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    Lasso(image);
    Choose("Mag");
    Click(image, 5, 5);
    Choose("Pointer");
    Press(image, 200, 160);
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(PlacedPieceTest, SelectNoneWithAHoleTakesAStateThatUndoLeaves) {
    Bitmap seen;
    frmImage& image = MovedRectangle(seen);
    mnuEditSelectNone_Click();
    EXPECT_EQ(States(image), 2);
    ExpectSamePixels(ImageOf(image), WithBox(Before(), 10, 20, 40, 25, kHole));
    pintalux::Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(ImageOf(image), Before());
    frmImage& other = MovedLasso(seen);
    mnuEditSelectNone_Click();
    EXPECT_EQ(States(other), 2);
    ExpectSamePixels(ImageOf(other), WithLassoHole(Before()));
    pintalux::Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(ImageOf(other), Before());
}

TEST_F(PlacedPieceTest, SelectNoneWithoutAHoleTakesNoState) {
    Bitmap seen;
    frmImage& image = PastedRectangle(seen);
    CutMode();
    CarryRectangle(image, 20, 20);
    mnuEditSelectNone_Click();
    EXPECT_EQ(States(image), 1);
    ExpectSamePixels(ImageOf(image), Before());
}

// The clean copy.

TEST_F(PlacedPieceTest, AMergeAfterAnOperationKeepsItsResult) {
    for (const Command& operation : kWholeImageOperations) {
        SCOPED_TRACE(operation.name);
        frmImage& image = OpenRandom(120, 90);
        CopyMode();
        Lasso(image);
        operation.run();
        Choose("Pointer");
        Press(image, 2, 2);
        EXPECT_FALSE(image.PicFreeSelect.Visible());
        const Bitmap plain = After(operation, [&]() -> frmImage& { return OpenRandom(120, 90); });
        ExpectSamePixels(ImageOf(image), WithLassoAt(plain, 0, 0));
    }
}

TEST_F(PlacedPieceTest, APieceLiftedAfterATurnMergesIntoTheWholeImage) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    mnuRotate90_Click();
    const Bitmap turned = ImageOf(image);
    SelectPath(image, {{20.5, 90.5}, {44.5, 90.5}, {44.5, 110.5}, {20.5, 110.5}});
    Choose("Pointer");
    Press(image, 2, 2);
    ExpectSamePixels(ImageOf(image), turned);
}

TEST_F(PlacedPieceTest, InCutModeTheHoleLiesWhereThePieceLies) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    Lasso(image);
    mnuFlipH_Click();
    CarryFreehand(image, 0, 50);
    ExpectSamePixels(ImageOf(image), WithLassoHole(Mirrored(Before())));
    Choose("Pointer");
    Press(image, 2, 2);
    ExpectSamePixels(ImageOf(image), WithLassoAt(WithLassoHole(Mirrored(Before())), 0, 50));
}

TEST_F(PlacedPieceTest, AMergeAfterUndoAndRedoKeepsTheStateThatIsShown) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Edit(image, 0x123456);
    Lasso(image);
    const Bitmap plain(120, 90, 0x123456);
    pintalux::Choose(frmMain->mnuEditUndo);
    ExpectSamePixels(image.Pic1BU.Image(), Before());
    pintalux::Choose(frmMain->mnuEditRedo);
    ExpectSamePixels(image.Pic1BU.Image(), plain);
    pintalux::Choose(frmMain->mnuEditUndo);
    mnuEditSelectNone_Click();
    ExpectSamePixels(ImageOf(image), Before());
}

// Flags.

TEST_F(PlacedPieceTest, APasteEndsWithItsPiece) {
    const Command roads[] = {{"select none", [] { mnuEditSelectNone_Click(); }},
                             {"copy", [] { mnuEditCopy_Click(); }},
                             {"cut", [] { mnuEditCut_Click(); }},
                             {"select all", [] { mnuEditSelectAll_Click(); }},
                             {"close", [] { ActiveImage().Unload(); }}};
    for (const Command& road : roads) {
        SCOPED_TRACE(road.name);
        Bitmap seen;
        PastedRectangle(seen);
        ASSERT_TRUE(PasteFloating);
        road.run();
        EXPECT_FALSE(PasteFloating);
    }
}

TEST_F(PlacedPieceTest, APasteInAnotherDocumentStaysAPasteWhenItsWindowComesBack) {
    CutMode();
    Bitmap seen;
    frmImage& first = PastedRectangle(seen);
    const Bitmap before = Before();
    frmImage& second = OpenRandom(60, 40, 2);
    EXPECT_FALSE(PasteFloating);
    SelectRectangle(second, 10, 10, 20, 20);
    first.Show();
    ASSERT_EQ(&ActiveImage(), &first);
    EXPECT_TRUE(PasteFloating);
    CarryRectangle(first, 40, 40);
    ExpectSamePixels(ImageOf(first), before);
}

TEST_F(PlacedPieceTest, TheFlagsOfAPasteAreThoseOfTheWindowInFront) {
    for (const bool shape : {false, true}) {
        SCOPED_TRACE(shape);
        frmImage& first = OpenRandom(120, 90);
        frmImage& second = OpenRandom(60, 40, 2);
        Clipboard.SetData(Solid(20, 10, 0x123456));
        FreeSelActive = shape;
        mnuEditPaste_Click();
        ASSERT_TRUE(PieceFloats(second));
        EXPECT_TRUE(PasteFloating);
        EXPECT_EQ(FreePasteActive, Flag(shape));
        first.Show();
        EXPECT_FALSE(PasteFloating || FreePasteActive);
        second.Show();
        EXPECT_TRUE(PasteFloating);
        EXPECT_EQ(FreePasteActive, Flag(shape));
        mnuEditSelectNone_Click();
    }
}

// In the middle of a drag.

TEST_F(PlacedPieceTest, ASaveWhileAPathIsDrawnSavesNoDashes) {
    frmImage& image = OpenRandom(120, 90);
    Choose("FreeSelect");
    Press(image, 20, 20);
    MoveTo(image, 60, 30);
    pintalux::Choose(frmMain->mnuFileSave);
    ExpectSamePixels(LoadPicture(image.AFCurfile), Before());
    MoveTo(image, 40, 60);
    Release(image, 40, 60);
    ExpectSamePixels(ImageOf(image), Before());
    EXPECT_FALSE(image.PicFreeSelect.Visible());
}

TEST_F(PlacedPieceTest, AnUndoWhileAPathIsDrawnIsNotTurnedBackByTheRelease) {
    frmImage& image = OpenRandom(120, 90);
    Edit(image, 0x123456);
    Choose("FreeSelect");
    Press(image, 20, 20);
    MoveTo(image, 60, 30);
    pintalux::Choose(frmMain->mnuEditUndo);
    MoveTo(image, 40, 60);
    Release(image, 40, 60);
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(PlacedPieceTest, AColourStepWhileAPathIsDrawnKeepsNoDashes) {
    frmImage& plain = OpenRandom(120, 90);
    mnuColInc_Click(1);
    const Bitmap stepped = ImageOf(plain);
    ASSERT_NE(stepped, Before());
    frmImage& image = OpenRandom(120, 90);
    Choose("FreeSelect");
    Press(image, 20, 20);
    MoveTo(image, 60, 30);
    ASSERT_NE(ImageOf(image), Before());
    mnuColInc_Click(1);
    ExpectSamePixels(ImageOf(image), stepped);
    MoveTo(image, 40, 60);
    Release(image, 40, 60);
    ExpectSamePixels(ImageOf(image), stepped);
}

TEST_F(PlacedPieceTest, AMergeInTheMiddleOfADragEndsTheDrag) {
    for (const bool shape : {true, false}) {
        SCOPED_TRACE(shape ? "shape" : "rectangle");
        frmImage& image = OpenRandom(120, 90);
        CopyMode();
        shape ? Lasso(image) : SelectRectangle(image, 20, 10, 60, 40);
        shape ? PicFreeSelect_MouseDown(image) : PicSelect_MouseDown(image);
        const Timer& follows = shape ? image.TimerFS : image.Timer1;
        EXPECT_TRUE(follows.Enabled());
        pintalux::Choose(frmMain->mnuFileSave);
        EXPECT_FALSE(follows.Enabled());
        EXPECT_EQ((shape ? image.PicFreeSelect : image.PicSelect).ScaleMode(), kScalePixels);
        ExpectSamePixels(LoadPicture(image.AFCurfile), Before());
    }
}

} // namespace
} // namespace pintalux
