// The three pointer handlers of a document: press, moves, release, then `Backup`. They convert the point,
// make the checks in a fixed order and hand over to the steps in the row of the current tool. Some strokes
// end early: a press that merges text or a freehand piece is used up, and its drag and release draw nothing;
// a row may say that its release takes no undo state.
#pragma once

#include <functional>

namespace pintalux {

class frmImage;

/// What happens to things that float when the image is pressed. Each is set by the subsystem that makes them
/// float.
struct FloatingSteps {
    /// Prints the text where it floats: by a press, whose release takes the undo state.
    std::function<void(frmImage& image)> commitTextByPress;
    /// Prints it where `PicMerge` prints next: by a command.
    std::function<void(frmImage& image)> commitTextByCommand;
    std::function<void(frmImage& image)> mergeRectangle;
    std::function<void(frmImage& image)> mergeFreehand;
};
inline FloatingSteps TheFloatingSteps;

/// Puts the marks of the rulers and the readouts to a place of the view, in view pixels. Only with rulers on.
void MoveRulerMarks(frmImage& image, double X, double Y);

/// Escape: takes away a line, shape, band or path that is being drawn, without a state; its release does
/// nothing. False if there is none.
bool AbandonStroke(frmImage& image);

/// Merges what floats where it lies, as a press on the image does, and draws nothing.
void LayDown(frmImage& image);

/// Connects the handlers to the display of a new document.
void ConnectTools(frmImage& image);

void Image1_MouseDown(frmImage& image, int Button, double X, double Y); ///< X, Y in twips of the view.
void Image1_MouseMove(frmImage& image, int Button, double X, double Y);
void Image1_MouseUp(frmImage& image, int Button, double X, double Y);

} // namespace pintalux
