#include "document/CommandBar.h"

#include "document/BarPositions.h"

#include <algorithm>

namespace pintalux {

namespace {

// Intended: the first button keeps the words of the pointer tool as its tool tip; its caption says what it
// does.
const std::vector<ToolBar::Row> kCommands = {
    {"New", "Apontador - não faz selecção.", ":/icons/new.svg", ButtonStyle::Default, "Novo"},
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
};

std::vector<ToolBar::Row> CommandsAnd(const std::vector<ToolBar::Row>& tools) {
    std::vector<ToolBar::Row> rows = kCommands;
    rows.insert(rows.end(), tools.begin(), tools.end());
    return rows;
}

constexpr double kEdge = 2;          // pixels above and below the buttons
constexpr double kWideEnough = 4000; // pixels: one row

// The progress bar, in pixels: beside the buttons where that costs them no further row, else a thin line
// in place of their lower edge, so that the picture loses next to nothing to it.
constexpr double kProgressWidth = 120;
constexpr double kProgressHeight = 14;
constexpr double kLineHeight = 4;
constexpr double kGap = 8;

} // namespace

CommandBar::CommandBar(Container& window, const std::vector<ToolBar::Row>& tools)
    : ToolsTB(window, "ToolsTB"), TB2(ToolsTB, "TB2", CommandsAnd(tools)) {
    ToolsTB.AsPanel();
    TB2.AccessibleName("Caixa de ferramentas");
    Pb.AccessibleName("Progresso");
    // Like their menu items: nothing can be cut, copied or undone at the start.
    for (const int position : {kCutButton, kCopyButton, kUndoButton, kRedoButton})
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
        Pb.Move(kEdge, kEdge + height, std::max(width - 2 * kEdge, 0.0), kLineHeight);
        ToolsTB.Height((kEdge + height + kLineHeight) * kTwipsPerPixel);
    }
}

} // namespace pintalux
