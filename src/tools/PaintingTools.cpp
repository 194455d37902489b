#include "tools/PaintingTools.h"

#include "document/BarPositions.h"
#include "tools/Text.h"
#include "tools/Wand.h"

namespace pintalux {

// The pictures of the tools that point with their tip.
constexpr PointerLook kFillPointer{kPointerCustom, ":/icons/cursor-fill.svg", 16, 15};
constexpr PointerLook kEyePointer{kPointerCustom, ":/icons/cursor-eye.svg", 16, 16};
constexpr PointerLook kMagPointer{kPointerCustom, ":/icons/cursor-mag.svg", 12, 12};

constexpr Tool kTools[] = {
    {
        .number = kPointerTool,
        .key = "Pointer",
        .toolTip = "Apontador",
        .icon = ":/icons/pointer.svg",
    },
    {
        .number = kPenTool,
        .key = "Pen",
        .toolTip = "Desenha uma linha",
        .icon = ":/icons/pen.svg",
        .page = kPenPage,
        .press = PenPress,
        .drag = PenMove,
    },
    {
        .number = kEraserTool,
        .key = "Eraser",
        .toolTip = "Apaga a selecção da imagem",
        .icon = ":/icons/eraser.svg",
        .press = EraserPress,
        .drag = EraserMove,
    },
    {
        .number = kFloodTool,
        .key = "Flood",
        .toolTip = "Enche a parte seleccionada.",
        .icon = ":/icons/flood.svg",
        .press = FloodPress,
        .pointer = kFillPointer,
        .showsDrag = false,
    },
    {
        .number = kLineTool,
        .key = "Line",
        .toolTip = "Desenha uma linha.",
        .icon = ":/icons/line.svg",
        .press = LinePress,
        .drag = LineMove,
        .release = LineRelease,
    },
    {
        .number = kPolyLineTool,
        .key = "PolyLine",
        .toolTip = "Desenha um poligno",
        .icon = ":/icons/polyline.svg",
        .chosen = PolyLineChosen,
        .press = PolyLinePress,
        .drag = LineMove,
        .release = PolyLineRelease,
    },
    {
        .number = kShapesTool,
        .key = "Shapes",
        .toolTip = "Desenha uma textura seleccionada",
        .icon = ":/icons/shapes.svg",
        .page = kShapesPage,
        .press = ShapesPress,
        .drag = ShapesMove,
        .release = ShapesRelease,
    },
    {
        .number = kColorWandTool,
        .key = "ColorWand",
        .toolTip = "Alterar cores",
        .icon = ":/icons/colorwand.svg",
        .page = kWandPage,
        .press = WandPress,
        .drag = WandMove,
        .release = WandRelease,
    },
    {
        .number = kColorPickTool,
        .key = "ColorPick",
        .icon = ":/icons/colorpick.svg",
        .caption = "Escolher cor",
        .hover = PickColour,
        .release = PickRelease,
        .pointer = kEyePointer,
        .atRelease = AtRelease::Nothing,
    },
    {
        .number = kMagTool,
        .key = "Mag",
        .icon = ":/icons/mag.svg",
        .caption = "Lupa",
        .press = MagnifierPress,
        .rightPress = MagnifierRightPress,
        .pointer = kMagPointer,
        .leavesWhatFloats = true,
        .atRelease = AtRelease::Show,
    },
    {
        .number = kTextTool,
        .key = "Text",
        .toolTip = "Inserir texto",
        .icon = ":/icons/text.svg",
        .chosen = TextChosen,
        .returnsToToolBefore = true,
    },
};

const std::span<const Tool> PaintingTools = kTools;

} // namespace pintalux
