// The freehand selection: path, mask, piece, drag.
#include "document/Selection.h"
#include "selection/EditCommands.h"
#include "selection/FreehandSelection.h"
#include "selection/RectangleSelection.h"
#include "selection/SelectionTest.h"
#include "support/Hand.h"

#include "surface/raster/Drawing.h"
#include "surface/system/Clipboard.h"

namespace pintalux {
namespace {

constexpr Pixel kKey = 0x8894A0;

// What a path through image pixels encloses, slowly: the path's pixels, and whatever the outside can't reach
// from the corner at 0, 0 over four neighbours. A path that touches the left or top edge encloses its box.
class OutlineModel {
  public:
    OutlineModel(int width, int height, const std::vector<std::pair<int, int>>& points)
        : width_(width), height_(height),
          inside_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 1) {
        left_ = right_ = points.front().first;
        top_ = bottom_ = points.front().second;
        for (const auto& [x, y] : points) {
            left_ = std::min(left_, x);
            right_ = std::max(right_, x);
            top_ = std::min(top_, y);
            bottom_ = std::max(bottom_, y);
        }
        if (left_ == 0 || top_ == 0) return;
        std::vector<char> path(inside_.size(), 0);
        for (std::size_t i = 0; i < points.size(); ++i)
            Trace(path, points[i], points[(i + 1) % points.size()]);
        std::vector<std::pair<int, int>> open{{0, 0}};
        while (!open.empty()) {
            const auto [x, y] = open.back();
            open.pop_back();
            if (x < 0 || y < 0 || x >= width_ || y >= height_) continue;
            const std::size_t at = Index(x, y);
            if (path[at] != 0 || inside_[at] == 0) continue;
            inside_[at] = 0;
            for (const auto& [dx, dy] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}})
                open.emplace_back(x + dx, y + dy);
        }
    }

    int Left() const { return left_; }
    int Top() const { return top_; }
    bool Inside(int x, int y) const {
        return x >= left_ && x <= right_ && y >= top_ && y <= bottom_ && inside_[Index(x, y)] != 0;
    }
    Bitmap Piece(const Bitmap& from) const {
        Bitmap piece(right_ - left_ + 1, bottom_ - top_ + 1, kKey);
        for (int y = top_; y <= bottom_; ++y)
            for (int x = left_; x <= right_; ++x)
                if (Inside(x, y)) piece.Set(x - left_, y - top_, from.At(x, y));
        return piece;
    }
    Bitmap WithHole(Bitmap picture, Pixel colour) const {
        for (int y = 0; y < height_; ++y)
            for (int x = 0; x < width_; ++x)
                if (Inside(x, y)) picture.Set(x, y, colour);
        return picture;
    }

  private:
    std::size_t Index(int x, int y) const {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) + static_cast<std::size_t>(x);
    }
    // Both ends painted; a half goes to the smaller coordinate.
    void Trace(std::vector<char>& path, std::pair<int, int> a, std::pair<int, int> b) {
        const int dx = b.first - a.first;
        const int dy = b.second - a.second;
        const int n = std::max(std::abs(dx), std::abs(dy));
        for (int i = 0; i <= n; ++i) {
            const auto along = [&](int from, int d) {
                return n == 0 ? from : from + static_cast<int>(std::ceil(double(i) * d / n - 0.5));
            };
            path[Index(along(a.first, dx), along(a.second, dy))] = 1;
        }
    }
    int width_, height_;
    int left_, top_, right_, bottom_;
    std::vector<char> inside_;
};

class FreehandTest : public SelectionTest {
  protected:
    /// Draws through image pixels at the current zoom, in the middle of each.
    static void Outline(frmImage& image, const std::vector<std::pair<int, int>>& points) {
        Path path;
        for (const auto& [x, y] : points)
            path.emplace_back((x + 0.5) * image.factor, (y + 0.5) * image.factor);
        SelectPath(image, path);
    }
    const std::vector<std::pair<int, int>> kHeart{{40, 20}, {60, 35}, {48, 70}, {33, 52}, {12, 66}, {15, 30}};
};

TEST_F(FreehandTest, ThePieceIsWhatThePathEnclosesThePathIncluded) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    Outline(image, kHeart);
    const OutlineModel model(120, 90, kHeart);
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_EQ(image.PicFreeSelect.Left(), 12);
    EXPECT_EQ(image.PicFreeSelect.Top(), 20);
    ExpectSamePixels(image.SelHolder.Image(), model.Piece(Before()));
    ExpectSamePixels(image.PicFreeSelect.Image(), model.Piece(Before()));
    ExpectSamePixels(image.Pic1BU.Image(), model.WithHole(Before(), 0xFFFFFF));
    EXPECT_TRUE(FreeSelActive);
    EXPECT_FALSE(image.FreeSelDrawing);
    EXPECT_TRUE(CutAndCopyEnabled());
    EXPECT_EQ(image.FreeMaxX, 0);
    EXPECT_EQ(image.FreeMinY, 0);
    EXPECT_EQ(States(image), 1);
}

TEST_F(FreehandTest, InCopyModeTheSourceStays) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Outline(image, kHeart);
    ExpectSamePixels(image.Pic1BU.Image(), Before());
}

TEST_F(FreehandTest, TheDashesShowOnTheViewAndNeverReachTheImage) {
    frmImage& image = OpenRandom(120, 90);
    Outline(image, kHeart);
    EXPECT_FALSE(image.Image1.Picture() == Before());
    ExpectSamePixels(ImageOf(image), Before());
    Choose("Select");
    ExpectSamePixels(image.Image1.Picture(), Before());
}

TEST_F(FreehandTest, AFirstGrabInCutModeShowsTheHole) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    Outline(image, kHeart);
    CarryFreehand(image, 0, 0);
    const OutlineModel model(120, 90, kHeart);
    ExpectSamePixels(ImageOf(image), model.WithHole(Before(), 0xFFFFFF));
    ExpectSamePixels(image.Image1.Picture(), model.WithHole(Before(), 0xFFFFFF));
}

TEST_F(FreehandTest, APressMergesThePieceWhereItLies) {
    for (const int level : {15, 17}) {
        frmImage& image = OpenRandom(120, 90, static_cast<unsigned>(level));
        CutMode();
        ZoomToLevel(level);
        Outline(image, kHeart);
        const OutlineModel drawn(120, 90, kHeart);
        CarryFreehand(image, static_cast<int>(12 * image.factor), static_cast<int>(8 * image.factor));
        Press(image, 1, 1);
        EXPECT_FALSE(image.PicFreeSelect.Visible());
        EXPECT_FALSE(FreeSelActive);
        EXPECT_TRUE(image.FreeSelDrawing);
        ExpectSamePixels(ImageOf(image), WithPiece(drawn.WithHole(Before(), 0xFFFFFF), drawn.Piece(Before()),
                                                   drawn.Left() + 12, drawn.Top() + 8, kKey));
        EXPECT_EQ(States(image), 2) << level;
        Release(image, 1, 1);
        EXPECT_EQ(States(image), 2) << level;
    }
}

// At half the size the view has no half pixels: a box of 45 by 51 shows as 22 by 26.
TEST_F(FreehandTest, AtAReducingZoomThePieceMergesInItsOwnSize) {
    frmImage& image = OpenRandom(120, 90);
    CutMode();
    ZoomToLevel(14);
    const std::vector<std::pair<int, int>> outline{{40, 20}, {58, 34}, {48, 70},
                                                   {34, 52}, {14, 66}, {16, 30}};
    Outline(image, outline);
    const OutlineModel drawn(120, 90, outline);
    const Bitmap piece = drawn.Piece(Before());
    ASSERT_EQ(piece.Width(), 45);
    ASSERT_EQ(piece.Height(), 51);
    EXPECT_EQ(image.PicFreeSelect.Width(), 22.5);
    EXPECT_EQ(image.PicFreeSelect.Height(), 25.5);
    EXPECT_EQ(image.PicFreeSelect.PixelWidth(), 22);
    EXPECT_EQ(image.PicFreeSelect.PixelHeight(), 26);
    CarryFreehand(image, 6, 4);
    Press(image, 1, 1);
    ExpectSamePixels(ImageOf(image),
                     WithPiece(drawn.WithHole(Before(), 0xFFFFFF), piece, 14 + 12, 20 + 8, kKey));
}

TEST_F(FreehandTest, TheDragThatMergedDrawsNothingAndTheNextPressStartsANewOutline) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Outline(image, kHeart);
    Drag(image, {{80, 70}, {90, 75}, {85, 80}});
    ExpectSamePixels(ImageOf(image), Before());
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    EXPECT_FALSE(image.FreeSelDrawing);
    const std::vector<std::pair<int, int>> next{{80, 60}, {95, 70}, {85, 80}};
    Outline(image, next);
    ExpectSamePixels(image.SelHolder.Image(), OutlineModel(120, 90, next).Piece(Before()));
}

TEST_F(FreehandTest, AStraightDragSelectsNothingAndLeavesNoTrace) {
    frmImage& image = OpenRandom(120, 90);
    for (const Path& path : {Path{{20, 30}, {60, 30}, {40, 30}}, Path{{20, 10}, {20, 50}}, Path{{33, 44}}}) {
        SelectPath(image, path);
        EXPECT_FALSE(image.PicFreeSelect.Visible());
        ExpectSamePixels(ImageOf(image), Before());
        ExpectSamePixels(image.Image1.Picture(), Before());
    }
    EXPECT_EQ(States(image), 1);
}

TEST_F(FreehandTest, APathThatTouchesTheTopOrLeftEdgeSelectsItsWholeBox) {
    frmImage& image = OpenRandom(120, 90);
    for (const auto& outline : {std::vector<std::pair<int, int>>{{0, 20}, {30, 25}, {12, 60}},
                                std::vector<std::pair<int, int>>{{40, 0}, {60, 30}, {30, 22}}}) {
        Outline(image, outline);
        const OutlineModel model(120, 90, outline);
        ExpectSamePixels(image.SelHolder.Image(), model.Piece(Before()));
        EXPECT_TRUE(model.Inside(model.Left(), model.Top()));
        mnuEditSelectNone_Click();
        ExpectSamePixels(ImageOf(image), Before());
    }
}

TEST_F(FreehandTest, APathAcrossTheCornerOfTheImageSelectsItsWholeBox) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    SelectPath(image, {{30.5, 10.5}, {12.5, 40.5}, {-9.5, 20.5}, {-7.5, -6.5}, {14.5, -3.5}});
    const Bitmap piece = image.SelHolder.Image();
    ASSERT_EQ(piece.Width(), 41);
    ASSERT_EQ(piece.Height(), 48);
    for (int y = 0; y <= 40; ++y)
        for (int x = 0; x <= 30; ++x)
            ASSERT_EQ(piece.At(10 + x, 7 + y), Before().At(x, y)) << x << ", " << y;
}

TEST_F(FreehandTest, APathAlongTheRightAndBottomEdgesKeepsItsOutline) {
    frmImage& image = OpenRandom(120, 90);
    const std::vector<std::pair<int, int>> outline{{119, 40}, {119, 89}, {70, 89}};
    Outline(image, outline);
    ExpectSamePixels(image.SelHolder.Image(), OutlineModel(120, 90, outline).Piece(Before()));
}

TEST_F(FreehandTest, APathThatLeavesTheImageTakesWhiteFromOutside) {
    frmImage& image = OpenRandom(60, 40);
    CopyMode();
    SelectPath(image, {{30.5, 10.5}, {70.5, 10.5}, {70.5, 30.5}, {30.5, 30.5}});
    const Bitmap piece = image.SelHolder.Image();
    ASSERT_EQ(piece.Width(), 41);
    EXPECT_EQ(piece.At(29, 5), Before().At(59, 15));
    EXPECT_EQ(piece.At(30, 5), 0xFFFFFFU);
    Press(image, 2, 2);
    ExpectSamePixels(ImageOf(image), Before());
}

TEST_F(FreehandTest, PixelsInTheMaskColourAreLostFromThePiece) {
    Bitmap picture = RandomPicture(60, 40, 3, 0xFFFFFF);
    for (int x = 20; x < 26; ++x)
        picture.Set(x, 20, kKey);
    frmImage& image = OpenPicture("key.bmp", picture);
    CutMode();
    const std::vector<std::pair<int, int>> outline{{10, 10}, {35, 10}, {35, 30}, {10, 30}};
    Outline(image, outline);
    const OutlineModel model(60, 40, outline);
    CarryFreehand(image, 20, 0);
    Press(image, 1, 1);
    Bitmap expected = WithPiece(model.WithHole(picture, 0xFFFFFF), model.Piece(picture), 30, 10, kKey);
    EXPECT_EQ(expected.At(42, 20), picture.At(42, 20));
    ExpectSamePixels(ImageOf(image), expected);
}

TEST_F(FreehandTest, ThePieceTakesThePointerOnlyInsideItsOutline) {
    frmImage& image = OpenRandom(120, 90);
    Outline(image, kHeart);
    const OutlineModel model(120, 90, kHeart);
    const QRegion mask = WidgetFor(image.PicFreeSelect).mask();
    for (int y = 0; y < 51; ++y)
        for (int x = 0; x < 49; ++x) {
            const bool shown = model.Inside(model.Left() + x, model.Top() + y) &&
                               Before().At(model.Left() + x, model.Top() + y) != kKey;
            ASSERT_EQ(mask.contains(QPoint(x, y)), shown) << x << ", " << y;
        }
}

TEST_F(FreehandTest, ThePointerOverAPieceIsTheSizeAllCrossAndMovesTheRulers) {
    RulersOn = true;
    for (const int level : {15, 17}) {
        SCOPED_TRACE(level);
        frmImage& image = OpenRandom(120, 90);
        ZoomToLevel(level);
        Outline(image, kHeart); // its box begins at 12, 20
        const auto pointAt = [&image](int x, int y) {
            const QPointF place((x + 0.5) * image.factor, (y + 0.5) * image.factor);
            SendMouse(WidgetFor(image.PicFreeSelect), QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
        };
        pointAt(28, 10);
        EXPECT_EQ(image.PicFreeSelect.MousePointer(), kPointerSizeAll);
        EXPECT_EQ(image.lblx.Caption(), "40");
        EXPECT_EQ(image.lbly.Caption(), "30");
        PicFreeSelect_MouseDown(image); // what it measures in changes while it is dragged
        pointAt(30, 13);
        EXPECT_EQ(image.lblx.Caption(), "42");
        EXPECT_EQ(image.lbly.Caption(), "33");
        PicFreeSelect_MouseUp(image);
        image.Unload();
    }
    RulersOn = false;
}

TEST_F(FreehandTest, AMenuZoomDropsThePieceAndTheMagnifierLeavesIt) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Outline(image, kHeart);
    ZoomToLevel(16);
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    ExpectSamePixels(ImageOf(image), Before());
    ZoomToLevel(15);
    Outline(image, kHeart);
    Choose("Mag");
    Click(image, 5, 5);
    EXPECT_TRUE(image.PicFreeSelect.Visible());
    EXPECT_EQ(image.PicFreeSelect.Width(), 49);
}

TEST_F(FreehandTest, SelectNoneBringsTheCleanCopyBack) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Outline(image, kHeart);
    mnuEditSelectNone_Click();
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    EXPECT_FALSE(CutAndCopyEnabled());
    ExpectSamePixels(ImageOf(image), Before());
    ExpectSamePixels(image.Image1.Picture(), Before());
}

TEST_F(FreehandTest, SelectAllPutsThePieceBackFirst) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Outline(image, kHeart);
    mnuEditSelectAll_Click();
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    EXPECT_TRUE(image.PicSelect.Visible());
    EXPECT_FALSE(FreeSelActive);
    ExpectSamePixels(image.SelHolder.Image(), Before());
}

TEST_F(FreehandTest, AnotherToolInTheMiddleOfAPathDrawsWithItsOwnPen) {
    frmImage& image = OpenRandom(120, 90);
    Choose("FreeSelect");
    Press(image, 20, 20);
    MoveTo(image, 50, 20);
    Choose("Pen");
    Release(image, 50, 20);
    Click(image, 100, 80);
    EXPECT_EQ(ImageOf(image).At(100, 80), kInkPixel);
}

// What was drawn of the path is no part of the picture.
TEST_F(FreehandTest, APasteInTheMiddleOfAPathLeavesNothingOfIt) {
    for (const auto paste : {mnuEditPaste_Click, PasteFromBar}) {
        frmImage& image = OpenRandom(120, 90);
        Clipboard.SetData(Solid(3, 3, 0xFF));
        Choose("FreeSelect");
        Press(image, 20, 20);
        MoveTo(image, 50, 20);
        paste();
        EXPECT_TRUE(PieceFloats(image));
        ExpectSamePixels(ImageOf(image), Before());
        Release(image, 50, 20);
        mnuEditSelectNone_Click();
        ExpectSamePixels(ImageOf(image), Before());
    }
}

TEST_F(FreehandTest, APenPressThatMergesPaintsNothing) {
    frmImage& image = OpenRandom(120, 90);
    CopyMode();
    Outline(image, kHeart);
    Choose("Pen");
    Click(image, 100, 80);
    ExpectSamePixels(ImageOf(image), Before());
    EXPECT_EQ(States(image), 3);
}

} // namespace
} // namespace pintalux
