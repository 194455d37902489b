// The screen and the pointer.
#pragma once

#include "surface/raster/Colour.h"

#include <string>
#include <vector>

namespace pintalux {

struct CursorPosition {
    int x = 0;
    int y = 0;
    bool operator==(const CursorPosition&) const = default;
};

struct ScreenObject {
    int TwipsPerPixelX() const { return 15; }
    int TwipsPerPixelY() const { return 15; }
    /// Installed font families, sorted.
    const std::vector<std::string>& Fonts() const;
    int FontCount() const { return static_cast<int>(Fonts().size()); }
    /// A pointer over all windows; 0 gives each window its own again.
    int MousePointer() const;
    void MousePointer(int value);
    int WidthPixels() const;
    /// The place of a window of this size, in pixels, moved so that it can be taken hold of: one whose left
    /// top corner lies on a screen stays, any other goes to where the nearest screen shows the whole window
    /// or, of one that is larger than the screen, its left top part.
    CursorPosition Reachable(const CursorPosition& place, int width, int height) const;
    /// Whether the desktop tells a program where its windows lie, and lets it choose. Wayland does not.
    bool KnowsPlaces() const;
};
extern ScreenObject Screen;

/// A button of the mouse is held, or a modal window or a menu waits for an answer: no time for a message.
bool UserIsBusy();
/// A pointer over all windows for the object's life; then the one before it again.
class PointerOverAll {
  public:
    explicit PointerOverAll(int pointer) : before_(Screen.MousePointer()) { Screen.MousePointer(pointer); }
    ~PointerOverAll() { Screen.MousePointer(before_); }
    PointerOverAll(const PointerOverAll&) = delete;
    PointerOverAll& operator=(const PointerOverAll&) = delete;

  private:
    int before_;
};

/// The pointer's place on the screen, in the toolkit's pixels.
CursorPosition GetCursorPos();

/// The colour that the screen shows at a place; -1 where the program may not look.
Colour ScreenPixel(const CursorPosition& place);

/// The colour that the program's own window paints at a place of the screen, for where the screen may not be
/// looked at; -1 where none of its windows lies.
Colour RenderedPixel(const CursorPosition& place);

} // namespace pintalux
