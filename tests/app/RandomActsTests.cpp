// Thousands of acts of an impatient user in a random order: none stops the program, nothing floats twice, and
// a save writes what was seen.
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "document/Globals.h"
#include "document/Selection.h"
#include "settings/frmPrefs.h"
#include "surface/system/Clipboard.h"
#include "surface/system/Pictures.h"

#include <QWidget>
#include <random>

namespace pintalux {

namespace {

class RandomActsTest : public ProgramTest, public ::testing::WithParamInterface<unsigned> {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
        frmPrefs->Check4.Value(1);
        Clipboard.SetData(RandomPicture(30, 20, 5));
    }
    void TearDown() override {
        Clipboard.Clear();
        ProgramTest::TearDown();
    }

    int Below(int end) { return static_cast<int>(random_() % static_cast<unsigned>(end)); }
    static frmImage& Image() { return static_cast<frmImage&>(*frmMain->ActiveForm()); }
    void ChooseIfOn(const MenuItem& item) {
        if (!item.Enabled()) return;
        acts_ += " " + item.Name();
        Choose(item);
    }

    void Command() {
        frmMainForm& m = *frmMain;
        const MenuItem* items[] = {&m.mnuFlipH,         &m.mnuFlipV,          &m.mnuRotate90,
                                   &m.mnuRotate180,     &m.mnuRotate270,      &m.mnuEditUndo,
                                   &m.mnuEditUndo,      &m.mnuEditRedo,       &m.mnuEditCut,
                                   &m.mnuEditCopy,      &m.mnuEditPaste,      &m.mnuEditPaste,
                                   &m.mnuEditSelectAll, &m.mnuEditSelectNone, &m.mnuZoomActual,
                                   &m.mnuViewRulers,    &m.mnuWindowCascade,  &m.mnuWindowTileVertical};
        ChooseIfOn(*items[static_cast<std::size_t>(Below(static_cast<int>(std::size(items))))]);
    }
    void ZoomOrStep() {
        frmMainForm& m = *frmMain;
        const MenuItem* items[] = {&m.mnuZoomInX(Below(16)), &m.mnuZoomOutX(Below(16)),
                                   &m.mnuColInc(Below(3)), &m.mnuColRed(Below(3))};
        ChooseIfOn(*items[Below(4)]);
    }
    void PressTool() {
        const char* keys[] = {"Select", "FreeSelect", "Select", "FreeSelect", "Pen",       "Eraser",
                              "Line",   "PolyLine",   "Shapes", "ColorWand",  "ColorPick", "Mag",
                              "Flood",  "Cut",        "Copy",   "Paste",      "Undo",      "Redo"};
        QWidget* button = Find(WidgetFor(frmMain->TB2), std::string("TB2_") + keys[Below(18)]);
        if (!button->isEnabled()) return;
        acts_ += " " + button->objectName().toStdString();
        ClickWidget(*button);
    }
    void DragOnTheImage() {
        frmImage& image = Image();
        if (image.WindowState() == kMinimised) return image.WindowState(kNormal);
        acts_ += " drag";
        const auto x = [&] { return Below(static_cast<int>(image.Image1.Width()) + 40) - 20; };
        const auto y = [&] { return Below(static_cast<int>(image.Image1.Height()) + 40) - 20; };
        const int button = Below(6) == 0 ? kRightButton : kLeftButton;
        // A press lies on the image, a drag may leave it.
        int lastX = Below(static_cast<int>(image.Image1.Width()));
        int lastY = Below(static_cast<int>(image.Image1.Height()));
        Press(image, lastX, lastY, button);
        for (int i = Below(5); i > 0; --i) {
            lastX = x();
            lastY = y();
            MoveTo(image, lastX, lastY, button);
            if (Below(15) == 0) Command();
            if (frmMain->ActiveForm() != &image) return;
        }
        Release(image, lastX, lastY, button);
    }
    void GrabWhatFloats() {
        frmImage& image = Image();
        frmMain->Option4.Value(Below(2) == 0);
        frmMain->Option3.Value(!frmMain->Option4.Value());
        Surface& piece = image.PicSelect.Visible() ? image.PicSelect : image.PicFreeSelect;
        if (!piece.Visible()) return;
        acts_ += " grab";
        if (piece.MouseDown) piece.MouseDown(kLeftButton, 0, 1, 1);
        piece.Move(piece.Left() + Below(41) - 20, piece.Top() + Below(41) - 20, piece.Width(),
                   piece.Height());
        if (piece.MouseUp) piece.MouseUp(kLeftButton, 0, 1, 1);
    }
    void ChangeWindow() {
        const int states[] = {kNormal, kMaximised, kMinimised, kNormal, kNormal, kMaximised};
        const int state = states[Below(6)];
        acts_ += " state" + std::to_string(state);
        Image().WindowState(state);
        Image().Timer2.Tick();
    }
    void Act() {
        const int kind = Below(20);
        if (kind < 7) return DragOnTheImage();
        if (kind < 10) return PressTool();
        if (kind < 13) return GrabWhatFloats();
        if (kind < 16) return Command();
        if (kind < 18) return ZoomOrStep();
        if (kind < 19) return ChangeWindow();
        SaveAndCompare();
    }
    void SaveAndCompare() {
        frmImage& image = Image();
        if (!frmMain->mnuFileSave.Enabled() || image.AFCurfile.empty()) return;
        const Picture seen = ImageAsSeen(image);
        Choose(frmMain->mnuFileSave);
        ExpectSamePixels(LoadPicture(image.AFCurfile), seen);
    }

    std::string acts_; ///< For the failure's text.

  private:
    std::mt19937 random_{GetParam()};
};

} // namespace

TEST_P(RandomActsTest, NothingStopsTheProgramAndASaveWritesWhatIsSeen) {
    const DialogScript nothingIsAsked;
    OpenPicture("a.bmp", RandomPicture(90, 70, 1));
    OpenPicture("b.bmp", RandomPicture(40, 120, 2));
    for (int act = 0; act < 400; ++act) {
        SCOPED_TRACE("act " + std::to_string(act));
        Act();
        frmMain->Timer1_Timer();
        ASSERT_TRUE(untrapped.empty()) << acts_;
        EXPECT_FALSE(Image().PicSelect.Visible() && Image().PicFreeSelect.Visible());
        EXPECT_TRUE(!PasteFloating || PieceFloats(Image()));
        if (HasFailure()) return;
    }
    PassEvents();
    EXPECT_TRUE(WidgetFor(*frmMain).updatesEnabled());
}

INSTANTIATE_TEST_SUITE_P(Users, RandomActsTest, ::testing::Values(1U, 2U, 200U, 214U, 217U, 218U));

} // namespace pintalux
