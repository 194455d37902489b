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
        .caption = "Apontador",
        .letter = 'A',
    },
    {
        .number = kPenTool,
        .key = "Pen",
        .toolTip = "Desenha uma linha",
        .icon = ":/icons/pen.svg",
        .caption = "Caneta",
        .letter = 'C',
        .page = kPenPage,
        .press = PenPress,
        .drag = PenMove,
    },
    {
        .number = kEraserTool,
        .key = "Eraser",
        .toolTip = "Apaga a selecção da imagem",
        .icon = ":/icons/eraser.svg",
        .caption = "Borracha",
        .letter = 'B',
        .press = EraserPress,
        .drag = EraserMove,
    },
    {
        .number = kFloodTool,
        .key = "Flood",
        .toolTip = "Enche a parte seleccionada.",
        .icon = ":/icons/flood.svg",
        .caption = "Encher",
        .letter = 'E',
        .press = FloodPress,
        .pointer = kFillPointer,
        .tipX = kFillTipX,
        .tipY = kFillTipY,
        .showsDrag = false,
    },
    {
        .number = kLineTool,
        .key = "Line",
        .toolTip = "Desenha uma linha.",
        .icon = ":/icons/line.svg",
        .caption = "Linha",
        .letter = 'L',
        .press = LinePress,
        .drag = LineMove,
        .release = LineRelease,
    },
    {
        .number = kPolyLineTool,
        .key = "PolyLine",
        .toolTip = "Desenha um poligno",
        .icon = ":/icons/polyline.svg",
        .caption = "Linha poligonal",
        .letter = 'P',
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
        .caption = "Formas",
        .letter = 'F',
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
        .caption = "Alterar cores",
        .letter = 'V',
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
        .letter = 'G',
        .hover = PickColour,
        .release = PickRelease,
        .pointer = kEyePointer,
        .tipX = kEyeTipX,
        .tipY = kEyeTipY,
        .atRelease = AtRelease::Nothing,
    },
    {
        .number = kMagTool,
        .key = "Mag",
        .icon = ":/icons/mag.svg",
        .caption = "Lupa",
        .letter = 'U',
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
        .caption = "Texto",
        .letter = 'T',
        .chosen = TextChosen,
        .returnsToToolBefore = true,
    },
};

const std::span<const Tool> PaintingTools = kTools;

} // namespace pintalux
