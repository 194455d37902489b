#include "document/CommandBar.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr ButtonStyle kTool = ButtonStyle::ButtonGroup;

// Intended: the first button keeps the words of the pointer tool as its tool tip; its caption says what it
// does.
const std::vector<ToolBar::Row> kButtons = {
    {"New", "Apontador - não faz selecção.", ":/icons/new.svg", ButtonStyle::Default, "Nova imagem"},
    {"Open", "Abrir imagem", ":/icons/open.svg"},
    {"Save", "Salvar imagem", ":/icons/save.svg"},
    {nullptr, nullptr, nullptr, ButtonStyle::Separator},
    {"Cut", "Curtar imagem", ":/icons/cut.svg"},
    {"Copy", "Copiar", ":/icons/copy.svg"},
    {"Paste", "Colar", ":/icons/paste.svg"},
    {nullptr, nullptr, nullptr, ButtonStyle::Separator},
    {"Undo", "Desfazer", ":/icons/undo.svg"},
    {"Redo", "Refazer", ":/icons/redo.svg"},
    {nullptr, nullptr, nullptr, ButtonStyle::Separator},
    {"Pointer", "Apontador", ":/icons/pointer.svg", kTool},
    {"Select", "Selecionar uma região na imagem", ":/icons/select.svg", kTool},
    {"FreeSelect", "Ferramenta livre de selecção", ":/icons/freeselect.svg", kTool},
    {"Pen", "Desenha uma linha", ":/icons/pen.svg", kTool},
    {"Eraser", "Apaga a selecção da imagem", ":/icons/eraser.svg", kTool},
    {"Flood", "Enche a parte seleccionada.", ":/icons/flood.svg", kTool},
    {"Line", "Desenha uma linha.", ":/icons/line.svg", kTool},
    {"PolyLine", "Desenha um poligno", ":/icons/polyline.svg", kTool},
    {"Shapes", "Desenha uma textura seleccionada", ":/icons/shapes.svg", kTool},
    {"ColorWand", "Alterar cores", ":/icons/colorwand.svg", kTool},
    {"ColorPick", nullptr, ":/icons/colorpick.svg", kTool, "Escolher cor"},
    {"Mag", nullptr, ":/icons/mag.svg", kTool, "Lupa"},
    {"Text", "Inserir texto", ":/icons/text.svg", kTool},
};

constexpr double kEdge = 2;          // pixels above and below the buttons
constexpr double kWideEnough = 4000; // pixels: one row

// The progress bar, in pixels: beside the buttons where that costs them no further row, else a thin line
// below.
constexpr double kProgressWidth = 120;
constexpr double kProgressHeight = 14;
constexpr double kLineHeight = 6;
constexpr double kGap = 8;

} // namespace

CommandBar::CommandBar(Container& window)
    : ToolsTB(window, "ToolsTB"), TB2(ToolsTB, "TB2", kButtons), Pb(ToolsTB, "Pb") {
    ToolsTB.BackColor(kButtonFaceColour);
    TB2.AccessibleName("Caixa de ferramentas");
    Pb.AccessibleName("Progresso");
    // Like their menu items: nothing can be cut, copied or undone at the start.
    for (const int position : {5, 6, 9, 10})
        TB2.Buttons(position).Enabled(false);
    ToolsTB.Resize = [this] { Fit(); };
    ToolsTB.Height((TB2.HeightFor(kWideEnough) + 2 * kEdge) * kTwipsPerPixel);
}

void CommandBar::Fit() {
    const double width = ToolsTB.ScaleWidth();
    const double height = TB2.HeightFor(width);
    const double beside = width - kProgressWidth - 2 * kGap;
    if (beside > 0 && TB2.HeightFor(beside) == height) {
        TB2.Move(0, kEdge, beside, height);
        Pb.Move(beside + kGap, kEdge + (height - kProgressHeight) / 2, kProgressWidth, kProgressHeight);
        ToolsTB.Height((height + 2 * kEdge) * kTwipsPerPixel);
    } else {
        TB2.Move(0, kEdge, width, height);
        Pb.Move(kEdge, kEdge + height + kEdge, std::max(width - 2 * kEdge, 0.0), kLineHeight);
        ToolsTB.Height((height + kLineHeight + 3 * kEdge) * kTwipsPerPixel);
    }
}

} // namespace pintalux
