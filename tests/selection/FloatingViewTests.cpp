// A freehand piece that floats, on the screen at a zoom, against a slow model; and what becomes of it.
#include "selection/EditCommands.h"
#include "selection/Nudge.h"
#include "selection/SelectionTest.h"
#include "support/ScreenModel.h"
#include "surface/system/Clipboard.h"

#include <QBackingStore>

namespace pintalux {
namespace {

constexpr Pixel kKey = 0x8894A0;

class FloatingViewTest : public SelectionTest {
  protected:
    void SetUp() override {
        SelectionTest::SetUp();
        // Room for a document beside the panels.
        frmMain->MDIForm::Width(12000);
        frmMain->MDIForm::Height(9000);
    }
    void TearDown() override {
        Clipboard.Clear();
        SelectionTest::TearDown();
    }

    /// A picture with holes, a crack of a pixel and a lonely pixel in it.
    static Bitmap Piece(int width, int height) {
        Bitmap piece = RandomPicture(width, height, 7, 0x7F7F7F);
        piece.Fill({0, 0, 7, 6}, kKey);
        piece.Fill({11, 8, 12, height}, kKey);
        piece.Fill({1, 9, 8, 16}, kKey);
        piece.Set(4, 13, 0x0000FF);
        piece.Fill({width / 2, height / 3, width - 9, height - 8}, kKey);
        return piece;
    }

    frmImage& Paste(const Bitmap& piece, int level) {
        frmImage& image = OpenRandom(640, 480, static_cast<unsigned>(level));
        ZoomToLevel(level);
        Clipboard.SetData(piece);
        FreeSelActive = true;
        mnuEditPaste_Click();
        EXPECT_TRUE(image.PicFreeSelect.Visible());
        // From the corner that is seen to that of the image.
        image.HS.Value(0);
        image.VS.Value(0);
        image.PicFreeSelect.Move(0, 0, image.PicFreeSelect.Width(), image.PicFreeSelect.Height());
        return image;
    }

    /// What the memory behind the window holds, once all is painted.
    static QImage Window(const QWidget& inside) {
        for (int pass = 0; pass < 5; ++pass)
            QCoreApplication::processEvents();
        const QWidget* window = inside.window();
        return static_cast<const QImage*>(window->backingStore()->paintDevice())->copy();
    }

    /// Whether a pixel of the view shows anything of the piece.
    static bool Inside(const Bitmap& piece, int x, int y, const QSize& view) {
        if (!QRect(QPoint(0, 0), view).contains(x, y)) return false;
        for (const Pixel p : ModelPixels(piece, x, y, view.width(), view.height()))
            if (p != kKey) return true;
        return false;
    }

    /// Along the outline every second pair of pixels is inverted.
    static bool Dotted(const Bitmap& piece, int x, int y, const QSize& view) {
        if (!Inside(piece, x, y, view) || (x + y) / 2 % 2 != 0) return false;
        return !Inside(piece, x - 1, y, view) || !Inside(piece, x + 1, y, view) ||
               !Inside(piece, x, y - 1, view) || !Inside(piece, x, y + 1, view);
    }

    /// Compares all of the view that is seen with the picture and the piece over it.
    static void ExpectScreen(frmImage& image, const Bitmap& below, const Bitmap& piece) {
        const QWidget& display = WidgetFor(image.Image1);
        const QWidget& floating = WidgetFor(image.PicFreeSelect);
        if (display.devicePixelRatio() != 1) GTEST_SKIP() << "counts the pixels of an ordinary screen";
        const QImage shot = Window(display);
        const QPoint origin = display.mapTo(display.window(), QPoint(0, 0));
        const bool floats = floating.isVisible();
        QRect seen = display.visibleRegion().boundingRect();
        if (floats) seen |= floating.visibleRegion().boundingRect().translated(floating.pos());
        ASSERT_GT(seen.width() * seen.height(), 400);
        int shown = 0;
        for (int y = seen.top(); y <= seen.bottom(); ++y) {
            for (int x = seen.left(); x <= seen.right(); ++x) {
                std::uint32_t expected = ModelScreen(below, x, y, display.width(), display.height());
                const QPoint at = QPoint(x, y) - floating.pos();
                if (floats && Inside(piece, at.x(), at.y(), floating.size())) {
                    ++shown;
                    expected =
                        ModelLaid(ModelPixels(piece, at.x(), at.y(), floating.width(), floating.height()),
                                  kKey, expected);
                    if (Dotted(piece, at.x(), at.y(), floating.size())) expected ^= 0xFFFFFF;
                }
                ASSERT_EQ(shot.pixel(origin + QPoint(x, y)) & 0xFFFFFF, expected & 0xFFFFFF)
                    << x << ", " << y;
            }
        }
        EXPECT_EQ(shown > 0, floats);
    }

    /// 1:16, 1:4, 1:3, 1:2, 1:1, 2:1, 16:1.
    static constexpr int kLevels[] = {0, 12, 13, 14, 15, 16, 30};
};

TEST_F(FloatingViewTest, APasteShowsToThePixelWhereverItIsCarried) {
    const Bitmap piece = Piece(230, 170);
    for (const int level : kLevels) {
        SCOPED_TRACE(level);
        frmImage& image = Paste(piece, level);
        const int step = level > 15 ? level - 14 : 1;
        ExpectScreen(image, Before(), piece);
        CarryFreehand(image, 3 * step, 2 * step);
        EXPECT_EQ(image.PicFreeSelect.Left(), 3 * step);
        ExpectScreen(image, Before(), piece);
        Nudge(image, -1, 1);
        ExpectScreen(image, Before(), piece);
        image.NeedtoPaste();
        const double factor = FactorOf(level);
        const auto place = [&](int carried, int nudge) {
            return static_cast<int>(std::nearbyint((carried * step + nudge * factor) / factor));
        };
        const Bitmap merged = WithPiece(Before(), piece, place(3, -1), place(2, 1), kKey);
        ExpectSamePixels(ImageOf(image), merged);
        ExpectScreen(image, merged, piece);
        Choose("Undo");
        Choose("Undo");
        ExpectSamePixels(ImageOf(image), Before());
        ExpectScreen(image, Before(), piece);
    }
}

TEST_F(FloatingViewTest, ALassoShowsToThePixelOverItsHole) {
    for (const int level : kLevels) {
        SCOPED_TRACE(level);
        frmImage& image = OpenRandom(640, 480, static_cast<unsigned>(level));
        CutMode();
        ZoomToLevel(level);
        SelectPath(image, {{14.5, 4.5}, {29.5, 12.5}, {22.5, 24.5}, {5.5, 22.5}});
        ASSERT_TRUE(image.PicFreeSelect.Visible());
        const Bitmap piece = image.SelHolder.Image();
        const int step = level > 15 ? level - 14 : 1;
        CarryFreehand(image, 3 * step, 2 * step);
        ExpectScreen(image, ImageOf(image), piece);
    }
}

TEST_F(FloatingViewTest, AZoomMergesWhatWasPastedAndShowsIt) {
    const Bitmap piece = Piece(60, 40);
    for (const auto& [from, to] : {std::pair{30, 12}, {12, 30}, {15, 17}}) {
        SCOPED_TRACE(testing::Message() << from << " to " << to);
        frmImage& image = Paste(piece, from);
        ZoomToLevel(to);
        EXPECT_FALSE(image.PicFreeSelect.Visible());
        const Bitmap merged = WithPiece(Before(), piece, 0, 0, kKey);
        ExpectSamePixels(ImageOf(image), merged);
        ExpectScreen(image, merged, piece);
    }
}

TEST_F(FloatingViewTest, AReducedPieceIsCutAsItsPixelsNotAsItsMeans) {
    const Bitmap piece = Piece(60, 40);
    frmImage& image = Paste(piece, 14);
    const Bitmap seen = image.PicFreeSelect.Image();
    ASSERT_EQ(seen.Width(), 30);
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 30; ++x)
            ASSERT_EQ(seen.At(x, y), piece.At(ModelCell(x, 60, 30), ModelCell(y, 40, 20))) << x << ", " << y;
}

} // namespace
} // namespace pintalux
