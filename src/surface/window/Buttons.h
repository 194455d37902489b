// Command buttons and frames.
#pragma once

#include "surface/window/Control.h"
#include "surface/window/SystemColours.h"

#include <string>

namespace pintalux {

/// A push button. An ampersand in the caption marks the access key. `Click` runs by mouse, space, access key,
/// and Enter while it has the focus.
class CommandButton : public Control {
  public:
    CommandButton(Container& parent, std::string name, std::string caption);
    const std::string& Caption() const { return caption_; }
    void Caption(std::string value);
    void Default(bool value);                  ///< Pressed by Enter anywhere on the dialog.
    void Cancel(bool value);                   ///< Pressed by Escape anywhere on the dialog.
    void Picture(const std::string& resource); ///< An icon beside or instead of the caption.
    /// Makes it the head of a page: flat, its text to the left behind a triangle that points down while the
    /// page is open.
    void HeadsPage(bool open);
    /// The colour of the face, a `SystemColour` at the start. Another is shown exactly, with the caption in
    /// black or white on it, whichever can be read.
    Colour BackColor() const { return backColor_; }
    void BackColor(Colour value);

  private:
    std::string caption_;
    Colour backColor_ = kSystemMenu;
};

/// A frame with a caption around other controls; children in twips.
class Frame : public Container {
  public:
    Frame(Container& parent, std::string name, const std::string& caption);
    int PixelWidth() const override;
    int PixelHeight() const override;
};

} // namespace pintalux
