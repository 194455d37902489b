// The real program for form tests, offscreen: a fixture that starts it in folders of its own, and hands that
// press, drag and answer dialogs with the toolkit's own events.
#pragma once

#include "app/frmMain.h"
#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "support/DialogScript.h"
#include "support/Waiting.h"

#include <filesystem>
#include <functional>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace pintalux {

class ProgramTest : public ::testing::Test {
  protected:
    /// Fresh folders for settings, temporary files and the program's own; the settings the test wants to
    /// find.
    void SetUp() override;
    /// Closes everything without questions. Fails the test on an untrapped error that it did not expect.
    void TearDown() override;

    /// Loads the main window; the delayed start is switched off, so that no dialog greets. Call it first.
    void Start();
    /// The same with the full start of the program, up to the first document or its dialog.
    void StartWhole(const std::string& commandLine = {});

    /// A new document by the road of File New, without its dialog.
    frmImage& NewDocument(int width, int height, Colour background = kWhite);
    /// Writes a BMP file and opens it.
    frmImage& OpenPicture(const std::string& name, const Picture& picture);

    std::string
    Folder(const std::string& name) const; ///< "settings", "temporary", "program", "pictures" or "state".
    /// The state files in the temporary folder.
    std::vector<std::string> StateFileNames() const;

    /// What reached the top untrapped, since `Start`. Tests that expect an error look here and clear it.
    std::vector<RuntimeError> untrapped;

  private:
    std::filesystem::path root_;
};

// The hand on the image: view pixels of `Image1`; buttons as in `MouseButtonBits`.
void Press(frmImage& image, double x, double y, int button = kLeftButton);
void MoveTo(frmImage& image, double x, double y, int heldButtons = kLeftButton);
void Release(frmImage& image, double x, double y, int button = kLeftButton);
/// Press, moves through the points, release at the last.
void Drag(frmImage& image, const std::vector<std::pair<double, double>>& points);

void PassEvents();
/// What follows the unload of the main window: the end of the event loop. Before it no dialog can show again.
void EndEventLoop();

/// The control of a form by its code name, as a toolkit widget. Fails the test and gives null if there is
/// none.
QWidget* Find(QWidget& parent, const std::string& name);
/// Types text or a key into a widget with real key events. "\b" is backspace, "\n" Enter, "\x1b" Escape.
void Type(QWidget& widget, const std::string& text);
/// A click with the left button in the middle of a widget.
void ClickWidget(QWidget& widget);
/// The widget of a window object.
QWidget& WidgetFor(const Control& control);

/// The image of a document as rows of colours, for comparisons.
Picture ImageOf(const frmImage& image);

} // namespace pintalux
