// One row a tool: its button, its page of settings, its steps, and how the pointer handlers treat it. Each
// subsystem has a table of the tools it brings; the main window joins them.
#pragma once

#include "base/Registered.h"
#include "document/BarPositions.h"
#include "surface/window/ToolBar.h"

#include <array>
#include <initializer_list>
#include <span>
#include <vector>

namespace pintalux {

class frmImage;

/// A step of a stroke. X and Y are view pixels, with their fraction at the press.
using StrokeStep = void (*)(frmImage& image, double X, double Y);

/// The pages of the tool settings panel.
enum SettingsPage : int { kNoPage = -1, kPenPage, kShapesPage, kSelectionPage, kWandPage, kClipPage };

/// The pointer over the image: one of the system's shapes, or a picture with its hot spot in pixels.
struct PointerLook {
    PointerShape shape = kPointerDefault;
    const char* picture = nullptr; ///< SVG resource, for `kPointerCustom`.
    int hotX = 0, hotY = 0;
};

/// How a left release ends, behind the tool's own step. The release of any other button shows the image and
/// takes an undo state, but for a tool that never takes one.
enum class AtRelease {
    ShowAndRecord, ///< The image is shown and an undo state taken.
    Show,          ///< The tool changes no image: no release takes a state.
    Nothing,       ///< The step does all there is to do.
};

/// What a tool leaves out does nothing.
struct Tool {
    int number = 0; ///< A `BarPosition`.

    // The button on `TB2`, as in `ToolBar::Row`
    const char* key = nullptr;
    const char* toolTip = nullptr;
    const char* icon = nullptr;
    const char* caption = nullptr; ///< What screen readers call it.

    // The choice
    char letter = 0;                  ///< The capital of the key that chooses it at the image.
    int page = kNoPage;               ///< Opened when the tool is chosen; opening it chooses the tool.
    void (*chosen)() = nullptr;       ///< What a click on its button does besides. Its errors are ignored.
    bool returnsToToolBefore = false; ///< Chosen for one act only.

    // The stroke
    StrokeStep press = nullptr;
    StrokeStep rightPress = nullptr;
    StrokeStep hover = nullptr; ///< Runs at each move, held or not, and ends it.
    StrokeStep drag = nullptr;
    StrokeStep release = nullptr;
    PointerLook pointer = {};
    int tipX = 0, tipY = 0;        ///< Where the tip acts, from the pointer, in view pixels.
    bool leavesWhatFloats = false; ///< Its press merges nothing.
    bool scrollsAtEdges = false;   ///< A drag to the edge of the view scrolls.
    bool showsDrag = true;         ///< Each move of a drag shows the image.
    AtRelease atRelease = AtRelease::ShowAndRecord;
};

class ToolTable {
  public:
    explicit ToolTable(std::initializer_list<std::span<const Tool>> tables);

    /// The row of a tool; an empty one where no tool has the number. Error 9 outside 0 to `kLastTool`.
    const Tool& Row(int number) const;
    /// The buttons of the tools in the order of their numbers.
    std::vector<ToolBar::Row> Buttons() const;
    /// The tool that opening a page chooses: `current` if the page is its own, else the first one of the
    /// page; 0 if there is none.
    int ToolOfPage(int page, int current) const;

  private:
    std::array<Tool, kLastTool + 1> rows_;
    Registered<ToolTable>::Entry entry_;
};

/// The tools of the running program.
inline Registered<ToolTable> TheTools;

} // namespace pintalux
