// The tool settings panel: five stacked pages, each headed by its button. Strokes read these controls
// directly, never copies of their values.
#pragma once

#include "surface/window/ControlArray.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Surface.h"
#include "surface/window/ToolBar.h"

#include <cstdint>

namespace pintalux {

inline constexpr double kClosedPageHeight = 300; // twips

struct ToolSettingsPanel {
    explicit ToolSettingsPanel(Container& window);

    Surface ToolSettings;
    Surface Picture2;               ///< The title strip.
    CommandButton Command1;         ///< Hides the panel.
    ControlArray<Surface> PicTools; ///< The pages 0 to 4; closed ones are 300 twips high.
    ControlArray<CommandButton> cmdTools;

    // Page 0, the pen
    ToolBar Toolbar1;
    Label Label1; ///< "LARGURA", of the brush tip.
    Slider Slider1;
    Label Label2; ///< "GROSSURA", of the pen.
    Slider Slider2;
    // Page 1, shapes
    ToolBar Toolbar2;
    OptionButton Option1, Option2; ///< Outline or filled.
    Label Label3;                  ///< "LARGURA DA LINHA"
    Slider Slider3;
    // Page 2, selections
    OptionButton Option4, Option3; ///< Cut or copy.
    // Page 3, the wand
    ComboBox Combo2;
    Label Label4, Label5, Label6;
    Slider Slider4, Slider5, Slider6;

    std::int16_t ClipPanelHeight = 580; ///< Full height in twips of page 4, the clip tray.
    std::int16_t BrushShape = 0; ///< 0 round, 1 left slash, 2 right slash, 3 horizontal bar, 4 vertical bar.
    std::int16_t ShapeType = 0;  ///< 0 square, 1 rectangle, 2 circle, 3 ellipse.

    /// Opens or closes a page. Opening chooses the page's tool; other pages close from the bottom if there is
    /// no room.
    void cmdTools_Click(int Index);
    void Option1_Click();
    void Option2_Click();
    void Toolbar1_ButtonClick(ToolButton& button);
    void Toolbar2_ButtonClick(ToolButton& button);

    /// Presses a tool's button and makes it the current tool; set by the main window.
    std::function<void(int tool)> ChooseTool;

  private:
    void MakePages();
    void LayOutPen();
    void LayOutShapes();
    void LayOutSelection();
    void LayOutWand();
    void LayOutTitle();
    void StackPages();
    void CloseOthers(int open);
    double BottomOfPages() const;
    double FullHeight(int page) const;
};

/// The panel of the running program; null before it is made.
inline ToolSettingsPanel* TheToolSettings = nullptr;

} // namespace pintalux
