// The text tool: the dialog composes a line of text; it floats over the view as `lbltext`, is dragged, and is
// printed into the image by the next press or by a command.
#pragma once

namespace pintalux {

class frmImage;

/// What the choice of the tool does: text still floating is printed first, then the dialog shows.
void TextChosen();

/// Prints the floating text at the label's place, in the size of the label, and hides it. Both are view
/// pixels: at a zoom other than 1:1 the text lands as much larger and further out.
void CommitTextByPress(frmImage& image);
/// The same, but where `PicMerge` printed or drew last.
void CommitTextByCommand(frmImage& image);

/// Puts both in as what happens to floating text.
void ConnectTextSteps();

/// Connects the label and the drag timer of a new document.
void ConnectText(frmImage& image);

} // namespace pintalux
