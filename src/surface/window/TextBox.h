// Text boxes of one line.
#pragma once

#include "surface/window/Control.h"
#include "surface/window/SystemColours.h"

#include <functional>
#include <string>

namespace pintalux {

/// Entering it by the Tab key selects its text; Enter in it presses the form's default button.
class TextBox : public Control {
  public:
    TextBox(Container& parent, std::string name);
    ~TextBox() override;
    std::string Text() const { return text_; }
    void Text(const std::string& value); ///< Cut to the `MaxLength`. Runs `Change` if it differs.
    void MaxLength(int value);           ///< In characters; 0: no limit. Error 380 if negative.
    void SelectAll();
    /// The colour behind the text; it may be a `SystemColour`. At the start it is the desktop's for input.
    Colour BackColor() const { return backColor_; }
    void BackColor(Colour value);

    /// Before a character lands: 8 is backspace; set to 0 to swallow it, to another to put that in its place.
    /// Cursor keys, Delete, Tab, Enter, Escape and shortcuts do not pass here; pasted characters do, one by
    /// one.
    std::function<void(int& KeyAscii)> KeyPress;
    /// After the key took effect. Letters and digits have the code of their capital, F1 is 112. What the
    /// mouse changes (the menu's paste, cut, delete, undo, and the middle button) counts as Shift+Insert, 45.
    std::function<void(int KeyCode, int Shift)> KeyUp;
    std::function<void(int KeyCode, int Shift)> KeyDown;
    std::function<void()> Change;
    std::function<void()> GotFocus;
    std::function<void()> LostFocus;

  private:
    std::string text_;
    int maxLength_ = 0;
    Colour backColor_ = kWhite;
};

} // namespace pintalux
