// The tool settings panel: five stacked pages, each headed by its button. Strokes read these controls
// directly, never copies of their values.
#pragma once

#include "surface/window/ControlArray.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/ScrollPanel.h"
#include "surface/window/Surface.h"
#include "surface/window/ToolBar.h"
#include "tools/ToolTable.h"

#include <array>
#include <cstdint>

namespace pintalux {

inline constexpr double kClosedPageHeight = 300; // twips

/// The height of a closed page in twips: that, or more where the desktop's font wants it.
double ClosedPageHeight();

struct ToolSettingsPanel;

/// The panel of the running program.
inline Registered<ToolSettingsPanel> TheToolSettings;

struct ToolSettingsPanel {
    explicit ToolSettingsPanel(Container& window);

  private:
    Container& window_;

  public:
    ScrollPanel ToolSettings{window_, "ToolSettings"};
    Surface Picture2{ToolSettings, "Picture2"};       ///< The title strip.
    CommandButton Command1{Picture2, "Command1", ""}; ///< Hides the panel.
    ControlArray<Surface> PicTools{ToolSettings, "PicTools",
                                   5}; ///< A `SettingsPage` each; closed 300 twips high.
    ControlArray<CommandButton> cmdTools{PageButtons(PicTools)}; ///< Heads the pages.

    // The pen
    ToolBar Toolbar1{PicTools(kPenPage), "Toolbar1", BrushButtons()};
    Label Label1{PicTools(kPenPage), "Label1", "LARGURA"}; ///< Of the brush tip.
    Slider Slider1{PicTools(kPenPage), "Slider1", 1, 50};
    Label Label2{PicTools(kPenPage), "Label2", "GROSSURA"}; ///< Of the pen.
    Slider Slider2{PicTools(kPenPage), "Slider2", 1, 50};
    // Shapes
    ToolBar Toolbar2{PicTools(kShapesPage), "Toolbar2", ShapeButtons()};
    OptionButton Option1{PicTools(kShapesPage), "Option1", "LINHA DE FORA"};
    OptionButton Option2{PicTools(kShapesPage), "Option2", "PREENCHIDO"};
    Label Label3{PicTools(kShapesPage), "Label3", "LARGURA DA LINHA"};
    Slider Slider3{PicTools(kShapesPage), "Slider3", 1, 50};
    // Selections
    OptionButton Option4{PicTools(kSelectionPage), "Option4", "CURTAR E ARRASTAR"};
    OptionButton Option3{PicTools(kSelectionPage), "Option3", "COPIAR E LARGAR"};
    // The wand
    ComboBox Combo2{
        PicTools(kWandPage), "Combo2", {"Brilho", "Escurecer", "Vermelho", "Verde", "Azul", "Cor actual"}};
    Label Label4{PicTools(kWandPage), "Label4", "INTENSIDADE"};
    Label Label5{PicTools(kWandPage), "Label5", "RAIO"};
    Label Label6{PicTools(kWandPage), "Label6", "PASSOS"};
    Slider Slider4{PicTools(kWandPage), "Slider4", 1, 10};
    Slider Slider5{PicTools(kWandPage), "Slider5", 1, 100};
    Slider Slider6{PicTools(kWandPage), "Slider6", 10, 50};

    std::int16_t ClipPanelHeight = 580; ///< Full height in twips of the clip tray's page.
    std::int16_t BrushShape = 0; ///< 0 round, 1 left slash, 2 right slash, 3 horizontal bar, 4 vertical bar.
    std::int16_t ShapeType = 0;  ///< 0 square, 1 rectangle, 2 circle, 3 ellipse.

    /// Opens or closes a page. Opening chooses the page's tool; other pages close from the bottom if there is
    /// no room.
    void cmdTools_Click(int Index);
    /// The height of an open page in twips.
    double FullHeight(int page) const;
    /// Shows at each head whether its page is open. For who changes a page's height from outside.
    void ShowMarks();
    /// Gives the tray's page this width, and this height beyond that of its slots, in twips.
    void RoomForTray(double width, double extraHeight);
    void Option1_Click();
    void Option2_Click();
    void Toolbar1_ButtonClick(ToolButton& button);
    void Toolbar2_ButtonClick(ToolButton& button);

    /// Presses a tool's button and makes it the current tool; set by the main window.
    std::function<void(int tool)> ChooseTool;

  private:
    static ControlArray<CommandButton> PageButtons(const ControlArray<Surface>& pages);
    static const std::vector<ToolBar::Row>& BrushButtons();
    static const std::vector<ToolBar::Row>& ShapeButtons();
    void MakePages();
    void ConnectPages();
    void LayOut();
    double WantedPanelWidth() const;
    double WandLabelWidth() const;
    double LayOutPen();
    double PutAt(Control& control, double top, double height) const;
    double LayOutBar(ToolBar& bar) const;
    double LayOutLabelled(Label& label, Slider& slider, double top) const;
    double LayOutShapes();
    double LayOutSelection();
    double LayOutWand();
    void LayOutTitle();
    void StackPages();
    void CloseOthers(int open);
    double BottomOfPages() const;
    double width_ = 0; ///< Of the panel, in twips.
    double trayWidth_ = 0;
    double trayExtra_ = 0;
    std::array<double, 4> pageHeights_{}; ///< What the pages take for their controls, head included.

    Registered<ToolSettingsPanel>::Entry entry_{TheToolSettings, *this};
};

} // namespace pintalux
