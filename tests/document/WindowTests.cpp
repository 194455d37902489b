// A document window from its making to its place among others.
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "document/Zoom.h"

#include <cmath>

namespace pintalux {

namespace {

class DocumentWindowTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }
};

} // namespace

TEST_F(DocumentWindowTest, NewWindowHas300By300PixelsInside) {
    NewImageWindow();
    const frmImage& image = ActiveImage();
    EXPECT_EQ(image.Width(), 4620);
    EXPECT_EQ(image.Height(), 4980);
    EXPECT_EQ(image.factorlevel, 15);
    EXPECT_EQ(image.factor, 1.0);
    EXPECT_EQ(image.AFCurfile, "");
    EXPECT_FALSE(image.alreadysaved);
    EXPECT_EQ(image.ListBackup.ListCount(), 0);
}

TEST_F(DocumentWindowTest, BeforeTheFirstNewTheImageIs4500Wide) {
    NewImageWindow();
    EXPECT_EQ(ActiveImage().PicMerge.Width(), 4500);
    EXPECT_EQ(ActiveImage().PicMerge.Height(), 4500);
    EXPECT_EQ(ActiveImage().Pic1BU.Width(), 4500);
    EXPECT_EQ(CornerOf(ActiveImage()), kWhite);
}

TEST_F(DocumentWindowTest, AfterANewTheCleanCopyIsAsLargeAsTheImage) {
    const frmImage& image = NewDocument(50, 40);
    EXPECT_EQ(image.Pic1BU.Width(), 50);
    EXPECT_EQ(image.Pic1BU.Height(), 40);
}

TEST_F(DocumentWindowTest, OnlyTheDisplayIsSeen) {
    const frmImage& image = NewDocument(50, 40);
    EXPECT_TRUE(image.Image1.Visible());
    EXPECT_TRUE(image.PicBG.Visible());
    EXPECT_TRUE(image.PicFrame.Visible());
    for (const Surface* hidden : {&image.PicMerge, &image.Pic1BU, &image.picsource, &image.picsource1,
                                  &image.SelHolder, &image.PicMask, &image.PicSelect, &image.PicFreeSelect}) {
        EXPECT_FALSE(hidden->Visible()) << hidden->Name();
    }
    EXPECT_EQ(image.SelHolder.BackColor(), MaskKeyColour);
    EXPECT_EQ(image.PicFreeSelect.BackColor(), MaskKeyColour);
    EXPECT_TRUE(image.PicMerge.AutoRedraw());
}

TEST_F(DocumentWindowTest, TheDisplayHoldsACopyOfTheImage) {
    const frmImage& image = OpenPicture("a.bmp", RandomPicture(50, 40, 1));
    ExpectSamePixels(image.Image1.Picture(), RandomPicture(50, 40, 1));
    EXPECT_EQ(image.Image1.Width(), 50);
    EXPECT_EQ(image.PicBG.Width(), 50);
    EXPECT_EQ(image.PicBG.Height(), 40);
}

TEST_F(DocumentWindowTest, CaptionsCountTheOpenWindowsAndRepeat) {
    frmImage& first = NewDocument(10, 10);
    NewDocument(10, 10);
    NewDocument(10, 10);
    EXPECT_EQ(ActiveImage().Caption(), "Imagem 3");
    EXPECT_TRUE(first.Unload());
    EXPECT_EQ(ImageCount, 2);
    NewDocument(10, 10);
    EXPECT_EQ(ImageCount, 3);
    EXPECT_EQ(ActiveImage().Caption(), "Imagem 3");
}

TEST_F(DocumentWindowTest, NewWindowIsTheActiveOne) {
    const frmImage& first = NewDocument(10, 10);
    const frmImage& second = NewDocument(20, 10);
    EXPECT_NE(&first, &second);
    EXPECT_EQ(frmMain->ActiveForm(), &second);
}

TEST_F(DocumentWindowTest, ASmallImageShrinksItsWindow) {
    const frmImage& image = NewDocument(100, 50);
    EXPECT_EQ(image.Width(), 100 * 15 + 120);
    EXPECT_EQ(image.Height(), 50 * 15 + 520);
}

TEST_F(DocumentWindowTest, ALargeImageKeepsTheWindowAndShowsScrollBars) {
    const frmImage& image = NewDocument(1000, 800);
    EXPECT_EQ(image.Width(), 4620);
    EXPECT_EQ(image.Height(), 4980);
    EXPECT_TRUE(image.HS.Visible());
    EXPECT_TRUE(image.VS.Visible());
    EXPECT_TRUE(image.piccorner.Visible());
}

TEST_F(DocumentWindowTest, EachSideShrinksForItself) {
    const frmImage& image = NewDocument(1000, 20);
    EXPECT_EQ(image.Width(), 4620);
    EXPECT_EQ(image.Height(), 20 * 15 + 520);
    EXPECT_TRUE(image.HS.Visible());
}

TEST_F(DocumentWindowTest, AMaximisedWindowIsNotResized) {
    frmImage& image = NewDocument(100, 50);
    image.WindowState(kMaximised);
    PassEvents();
    const double width = image.Width();
    image.PicMerge.Picture(Solid(20, 10, kWhite));
    FitImageWindow();
    EXPECT_EQ(image.Width(), width);
    EXPECT_EQ(image.Image1.Width(), 20);
}

TEST_F(DocumentWindowTest, ANewImageInAMaximisedDocumentIsCentred) {
    NewDocument(100, 50).WindowState(kMaximised);
    PassEvents();
    const frmImage& image = NewDocument(61, 41);
    ASSERT_EQ(image.WindowState(), kMaximised);
    ASSERT_GT(image.PicFrame.ScaleHeight(), 41 + 13);
    EXPECT_EQ(image.PicBG.Left(), std::floor((image.PicFrame.ScaleWidth() - 61) / 2));
    EXPECT_EQ(image.PicBG.Top(), std::floor((image.PicFrame.ScaleHeight() - 41) / 2));
}

TEST_F(DocumentWindowTest, ResizingReturnsToTheTopAndKeepsTheHorizontalPlace) {
    frmImage& image = NewDocument(1000, 800);
    image.VS.Value(60);
    image.HS.Value(40);
    ASSERT_EQ(image.PicBG.Top(), -60);
    image.Width(4000);
    PassEvents();
    EXPECT_EQ(image.PicBG.Top(), 0);
    EXPECT_EQ(image.PicBG.Left(), -40);
}

TEST_F(DocumentWindowTest, TheViewportFillsTheClientArea) {
    frmImage& image = NewDocument(1000, 800);
    EXPECT_EQ(image.PicFrame.Left(), 0);
    EXPECT_EQ(image.PicFrame.Top(), 0);
    EXPECT_EQ(image.PicFrame.Width(), 4620 - 120);
    EXPECT_EQ(image.PicFrame.Height(), 4980 - 420);
    EXPECT_EQ(image.PicFrame.BackColor(), 0xABABAB);
}

TEST_F(DocumentWindowTest, WithRulersTheViewportStandsBesideThem) {
    frmImage& image = NewDocument(1000, 800);
    image.Timer2.Enabled(false); // It would show the rulers, and widen the window for them.
    RulersOn = true;
    image.Width(4500);
    PassEvents();
    EXPECT_EQ(image.PicFrame.Left(), image.LeftRuler.Width());
    EXPECT_EQ(image.PicFrame.Top(), image.TopRuler.Height());
    EXPECT_EQ(image.PicFrame.Width(), 4500 - image.LeftRuler.Width() - 120);
}

TEST_F(DocumentWindowTest, ActivationTicksTheZoomOfThatWindow) {
    frmImage& first = NewDocument(10, 10);
    mnuZoomInX_Click(3);
    NewDocument(10, 10);
    EXPECT_FALSE(frmMain->mnuZoomInX(3).Checked());
    EXPECT_FALSE(frmMain->mnuZoomActual.Enabled());
    first.SetFocus();
    ASSERT_TRUE(WaitFor([&] { return frmMain->ActiveForm() == &first; }));
    EXPECT_TRUE(frmMain->mnuZoomInX(3).Checked());
    EXPECT_TRUE(frmMain->mnuZoomActual.Enabled());
    EXPECT_EQ(first.factor, 4);
}

TEST_F(DocumentWindowTest, AStrokeByHandIsOneState) {
    frmImage& image = NewDocument(60, 40);
    frmMain->SetCurrentColour(0x0000FF);
    Drag(image, {{10, 20}, {30, 20}, {40, 20}});
    EXPECT_EQ(image.ListBUorder.ListCount(), 2);
    EXPECT_EQ(image.PicMerge.Point(25, 20), 0x0000FF);
    ExpectSamePixels(image.Image1.Picture(), ImageOf(image));
    EXPECT_FALSE(image.alreadysaved);
}

TEST_F(DocumentWindowTest, WithoutADocumentThereIsNoActiveOne) {
    EXPECT_EQ(frmMain->ActiveForm(), nullptr);
    EXPECT_THROW(ActiveImage(), RuntimeError);
    Choose(frmMain->mnuFileClose);
    ASSERT_EQ(untrapped.size(), 1U);
    EXPECT_EQ(untrapped[0].Number(), 91);
    untrapped.clear();
}

} // namespace pintalux
