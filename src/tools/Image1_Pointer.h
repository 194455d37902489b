// The three pointer handlers of a document: press, moves, release, then `Backup`. They convert the point,
// make the checks in a fixed order and hand over to the steps of the current tool. Some strokes end early: a
// press that merges something floating paints nothing; tools 13, 14 and 22 record no state at their release,
// and the magnifier never does.
#pragma once

#include <array>
#include <functional>

namespace pintalux {

class frmImage;

/// The steps of one tool; an empty one does nothing. X and Y are view pixels, with their fraction at the
/// press.
struct ToolSteps {
    std::function<void(frmImage& image, double X, double Y)> press;
    std::function<void(frmImage& image, double X, double Y)> drag;
    std::function<void(frmImage& image, double X, double Y)> release;
};

/// The steps of the tools by number, 0 to 24. Each subsystem puts its own in at the start of the program.
ToolSteps& StepsOf(int tool);

/// What happens to things that float when the image is pressed. Each is set by the subsystem that makes them
/// float.
struct FloatingSteps {
    std::function<void(frmImage& image)> commitText;
    std::function<void(frmImage& image)> mergeRectangle;
    std::function<void(frmImage& image)> mergeFreehand;
};
inline FloatingSteps TheFloatingSteps;

/// Puts the steps of the painting tools into the table.
void InstallPaintingTools();

/// Puts the marks of the rulers and the readouts to a place of the view, in view pixels. Only with rulers on.
void MoveRulerMarks(frmImage& image, double X, double Y);

/// Connects the handlers to the display of a new document.
void ConnectTools(frmImage& image);

void Image1_MouseDown(frmImage& image, int Button, double X, double Y); ///< X, Y in twips of the view.
void Image1_MouseMove(frmImage& image, int Button, double X, double Y);
void Image1_MouseUp(frmImage& image, int Button, double X, double Y);

} // namespace pintalux
