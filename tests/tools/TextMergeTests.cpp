// Floating and printed text before it is recorded: what saves, questions, undo and selections do with it.
#include "tools/TextTest.h"

#include "document/UndoCommands.h"
#include "selection/RectangleSelection.h"
#include "surface/system/Pictures.h"

namespace pintalux {
namespace {

class TextMergeTest : public TextTest {
  protected:
    std::string File(const std::string& name) const { return Folder("pictures") + "/" + name; }

    /// A document of a file, with a text that floats where the image was printed on last: at its corner.
    frmImage& WithFloatingText() {
        frmImage& image = OpenPicture("a.bmp", Solid(200, 100, 0xFFFFFF));
        Compose("Olá");
        seen_ = Printed(image.lbltext, 200, 100, 0, 0);
        EXPECT_GT(InkIn(seen_), 30);
        return image;
    }
    /// A new document with a text that a press of a tool printed; its release takes no state.
    frmImage& WithPrintedText(const char* tool) {
        frmImage& image = NewDocument(200, 100);
        Compose("Olá");
        seen_ = Printed(image.lbltext, 200, 100, 0, 0);
        Choose(tool);
        Click(image, 150, 90);
        return image;
    }
    static void Undo() { mnuEditUndo_Click(); }
    static void Redo() { mnuEditRedo_Click(); }

    Picture seen_; ///< The image as it is seen.
};

TEST_F(TextMergeTest, ASaveWritesTheTextThatFloats) {
    frmImage& image = WithFloatingText();
    pintalux::Choose(frmMain->mnuFileSave);
    ExpectSamePixels(LoadPicture(File("a.bmp")), seen_);
    EXPECT_FALSE(image.lbltext.Visible());
    EXPECT_EQ(States(image), 2);
    EXPECT_TRUE(image.alreadysaved);
}

TEST_F(TextMergeTest, ASaveUnderAnotherNameWritesTheTextThatFloats) {
    frmImage& image = WithFloatingText();
    const DialogScript script({ChoosesFile(File("b.bmp"))});
    pintalux::Choose(frmMain->mnuFileSaveAs);
    ExpectSamePixels(LoadPicture(File("b.bmp")), seen_);
    EXPECT_FALSE(image.lbltext.Visible());
}

TEST_F(TextMergeTest, ACloseAsksForTextThatFloatsAndYesSavesIt) {
    frmImage& image = WithFloatingText();
    frmPrefs->Check4.Value(0);
    const DialogScript script({PressesButton("Sim")});
    EXPECT_TRUE(image.Unload());
    ExpectSamePixels(LoadPicture(File("a.bmp")), seen_);
}

TEST_F(TextMergeTest, TheExitAsksForTextThatFloatsAfterTheLastSave) {
    frmImage& image = OpenPicture("a.bmp", Solid(200, 100, 0xFFFFFF));
    pintalux::Choose(frmMain->mnuFileSave);
    ASSERT_TRUE(image.alreadysaved);
    Compose("Olá");
    frmPrefs->Check4.Value(0);
    const DialogScript script({PressesButton("Cancelar")});
    EXPECT_FALSE(frmMain.Unload());
    EXPECT_EQ(script.Count(), 1U);
    EXPECT_GT(InkIn(ImageOf(image)), 30);
}

TEST_F(TextMergeTest, ToolsWhoseReleaseTakesNoStateLeaveTheTextToTheNextOne) {
    for (const char* tool : {"Select", "FreeSelect", "ColorPick"}) {
        SCOPED_TRACE(tool);
        frmImage& image = WithPrintedText(tool);
        EXPECT_FALSE(image.lbltext.Visible());
        EXPECT_FALSE(image.PicSelect.Visible());
        ExpectSamePixels(ImageOf(image), seen_);
        ExpectSamePixels(image.Image1.Picture(), seen_);
        EXPECT_EQ(States(image), 1);
        Choose("Pen");
        Click(image, 190, 95);
        EXPECT_EQ(States(image), 2);
        Undo();
        ExpectSamePixels(ImageOf(image), Solid(200, 100, 0xFFFFFF));
        Redo();
        EXPECT_EQ(ImageOf(image).At(190, 95), kInkPixel);
        EXPECT_GT(InkIn(ImageOf(image)), 30);
        EXPECT_TRUE(image.Unload());
    }
}

TEST_F(TextMergeTest, UndoBehindSuchATextCanBeRedone) {
    frmImage& image = WithPrintedText("Select");
    Undo();
    ExpectSamePixels(ImageOf(image), Solid(200, 100, 0xFFFFFF));
    EXPECT_EQ(States(image), 2);
    Redo();
    ExpectSamePixels(ImageOf(image), seen_);
}

TEST_F(TextMergeTest, RedoNeverTakesSuchATextAway) {
    frmImage& image = NewDocument(200, 100);
    Choose("Pen");
    Click(image, 190, 95);
    Undo();
    Compose("Olá");
    seen_ = Printed(image.lbltext, 200, 100, 0, 0);
    Choose("Select");
    Click(image, 150, 90);
    Redo();
    ExpectSamePixels(ImageOf(image), seen_);
    EXPECT_EQ(States(image), 3);
}

TEST_F(TextMergeTest, ACloseAsksForSuchATextInAFreshDocument) {
    frmImage& image = WithPrintedText("Select");
    frmPrefs->Check4.Value(0);
    const DialogScript script({PressesButton("Cancelar")});
    EXPECT_FALSE(image.Unload());
    EXPECT_EQ(script.Count(), 1U);
    ExpectSamePixels(ImageOf(image), seen_);
}

TEST_F(TextMergeTest, ALiftedLassoThatGoesTakesNoTextAlong) {
    frmImage& image = NewDocument(200, 100);
    Choose("FreeSelect");
    Drag(image, {{150, 60}, {180, 60}, {180, 90}, {150, 60}});
    ASSERT_TRUE(image.PicFreeSelect.Visible());
    Compose("Olá");
    seen_ = Printed(image.lbltext, 200, 100, 0, 0);
    Choose("FreeSelect");
    Click(image, 190, 10);
    mnuEditSelectNone_Click();
    EXPECT_FALSE(image.PicFreeSelect.Visible());
    ExpectSamePixels(ImageOf(image), seen_);
}

} // namespace
} // namespace pintalux
