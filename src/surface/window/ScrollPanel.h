// A panel of the main window that scrolls where the window is too low for it.
#pragma once

#include "surface/window/Surface.h"

namespace pintalux {

struct ScrollPanelNative;

/// Its controls keep their places; a bar along the right edge moves them all but the header while the lowest
/// one lies out of sight. The bar takes no room of theirs: an aligned panel is wider meanwhile. The wheel
/// scrolls, and so does the Tab key to a control out of sight.
class ScrollPanel : public Surface {
  public:
    ScrollPanel(Container& parent, std::string name);
    ~ScrollPanel() override;
    /// A control that stays where it is while the others scroll below it. Call it once it has its size.
    void Header(Control& control);

  private:
    std::unique_ptr<ScrollPanelNative> scroll_;
};

} // namespace pintalux
