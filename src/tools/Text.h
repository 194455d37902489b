// The text tool: the dialog composes a line of text; it floats over the view as `lbltext`, is dragged, and is
// printed into the image by the next press or by a command.
#pragma once

namespace pintalux {

class frmImage;

/// What the choice of the tool does: text still floating is printed first, then the dialog shows.
void TextChosen();

/// Prints the floating text at the label's place, in the size of the label, and hides it. Both are view
/// pixels: at 2:1 the text is printed twice as large and twice as far from the corner.
void CommitTextByPress(frmImage& image);
/// The same, but where `PicMerge` printed or drew last.
void CommitTextByCommand(frmImage& image);

/// Enters both in `TheFloatingSteps`.
void ConnectTextSteps();

/// Connects the label and the drag timer of a new document.
void ConnectText(frmImage& image);

} // namespace pintalux
