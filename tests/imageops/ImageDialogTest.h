// What the tests of the dialogs for frames, borders and new sizes share.
#pragma once

#include "imageops/FloatingPieces.h"
#include "support/DialogScript.h"
#include "support/Documents.h"
#include "support/LineMenu.h"
#include "support/Pictures.h"
#include "support/Program.h"

#include "surface/window/Inputs.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>

namespace pintalux {

class ImageDialogTest : public ProgramTest {
  protected:
    void SetUp() override {
        ProgramTest::SetUp();
        Start();
    }

    static int StateCount(const frmImage& image) { return image.ListBUorder.ListCount(); }

    /// Types a text in place of what the box shows.
    static void Retype(TextBox& box, const std::string& text) {
        auto& line = dynamic_cast<QLineEdit&>(WidgetFor(box));
        line.selectAll();
        Type(line, text);
    }

    /// Pastes a text over what the box shows, by the menu of the right button.
    static void PasteByPointer(TextBox& box, const std::string& text) {
        auto& line = dynamic_cast<QLineEdit&>(WidgetFor(box));
        QApplication::clipboard()->setText(QString::fromStdString(text));
        line.selectAll();
        PasteByMenu(line);
    }

    /// The dialog from its menu item, with this done in it. Leaves by "Cancelar" if the act did not.
    template <class TheForm>
    static void InDialogOf(const MenuItem& item, AutoForm<TheForm>& form, const std::function<void()>& act) {
        const DialogScript script({[&](QWidget&) {
            act();
            if (form.Loaded()) ClickWidget(WidgetFor(form->cmdCancel));
        }});
        Choose(item);
        EXPECT_FALSE(form.Loaded());
    }

    /// The command on a picture, with a disk that takes no state: it is done all the same.
    void ExpectDoneOnAFullDisk(const std::function<void()>& command,
                               const std::function<Picture(const Picture&)>& done) {
        const Picture picture = RandomPicture(200, 100, 3);
        frmImage& image = OpenPicture("a.bmp", picture);
        SettleStates();
        const FullDisk full(1000);
        command();
        ExpectDone(image, picture, done(picture));
    }

    /// Leaves the dialog after `act` by "Cancelar", by Escape and by its close box: the image is as it was,
    /// in a window of its size, with no state more.
    template <class TheForm>
    static void ExpectOtherWaysOutChangeNothing(frmImage& image, const MenuItem& item,
                                                AutoForm<TheForm>& form, const std::function<void()>& act) {
        const Picture before = ImageOf(image);
        const double width = image.Width();
        const int states = StateCount(image);
        for (const DialogScript::Step& leave :
             {DialogScript::Step([&](QWidget&) { ClickWidget(WidgetFor(form->cmdCancel)); }), PressesEscape(),
              ClosesDialog()}) {
            const DialogScript script({[&](QWidget& dialog) {
                act();
                leave(dialog);
            }});
            Choose(item);
            EXPECT_FALSE(form.Loaded());
            ExpectSamePixels(ImageOf(image), before);
            EXPECT_EQ(image.Width(), width);
            EXPECT_EQ(StateCount(image), states);
        }
    }

    /// Expects the picture on all surfaces that show the document, and one undo step from it back to
    /// `before`.
    static void ExpectDone(frmImage& image, const Picture& before, const Picture& after) {
        ExpectSamePixels(ImageOf(image), after);
        ExpectSamePixels(image.Image1.Picture(), after);
        EXPECT_EQ(StateCount(image), 2);
        EXPECT_FALSE(ScreenLocked());
        Choose(frmMain->mnuEditUndo);
        ExpectSamePixels(ImageOf(image), before);
        Choose(frmMain->mnuEditRedo);
        ExpectSamePixels(ImageOf(image), after);
    }
};

} // namespace pintalux
