#include "imageops/frmFiltBrow.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "document/Workspace.h"
#include "imageops/ImgFiltMod.h"
#include "imageops/Scaffold.h"
#include "surface/window/Layout.h"
#include "surface/window/ProgressBar.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace pintalux {

AutoForm<frmFiltBrowForm> frmFiltBrow;

namespace {

constexpr double kLevelHeight = 900; // twips kept for the level
constexpr double kListWidth = 2700;  // twips
constexpr int kNoLevel = 1;          // what a filter without a level is run with

/// A row of the browser.
struct Filter {
    const char* listText;  ///< Null: the list does not offer it.
    const char* levelName; ///< Null: it has no level.
    int max, min, tickSpacing;
    void (*run)(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level);
    bool scales = false; ///< The level is a size on the image, so that a preview scales it with the sample.
};

void Darken(Surface& work, Surface& live, ProgressBar& Pb, std::int16_t level) {
    BrightnessFilter(work, live, Pb, SubtractInt16(0, level));
}

// Intended: a text of the list says what stands at its place, not what runs there: "Contraste" softens,
// "Converter em Pixeis" draws outlines, and the filter that makes boxes is not offered.
constexpr Filter kFilters[] = {
    {"Nitidez", "Nitidez", 10, 1, 1, SharpenFilter},
    {"Contraste", "Contraste", 10, 1, 1, SoftenFilter},
    {"Difuso", "Difusão", 10, 1, 1, ScatterFilter},
    {"Escala de cinza", nullptr, 0, 0, 0, GreyFilter},
    {"Inverter", nullptr, 0, 0, 0, InvertFilter},
    {"Auto Brilho", "Auto Brilho", 100, 10, 9, BrightnessFilter},
    {"Recortar", "Escurecer", 100, 10, 9, Darken},
    {"Converter em Pixeis", "Tolerância", 250, 50, 20, OutlineFilter},
    {"Relevo", "Relevo", 200, 100, 10, EmbossFilter},
    {nullptr, "Converter em Pixeis", 50, 5, 5, PixelateFilter, true},
};

const Filter& FilterAt(int index) {
    if (index < 0 || index >= static_cast<int>(std::size(kFilters))) throw RuntimeError(kSubscriptOutOfRange);
    return kFilters[index];
}

/// The row of the n-th entry of the list, which leaves out the rows without a text.
int RowOfEntry(int entry) {
    for (int row = 0; row < static_cast<int>(std::size(kFilters)); ++row) {
        if (kFilters[row].listText != nullptr && entry-- == 0) return row;
    }
    throw RuntimeError(kSubscriptOutOfRange);
}

} // namespace

void RunFilter(int index, Surface& work, Surface& live, std::int16_t level, ProgressBar& Pb) {
    FilterAt(index).run(work, live, Pb, level);
}

std::vector<std::string> frmFiltBrowForm::OfferedFilters() {
    std::vector<std::string> texts;
    for (const Filter& filter : kFilters) {
        if (filter.listText != nullptr) texts.emplace_back(filter.listText);
    }
    return texts;
}

frmFiltBrowForm::frmFiltBrowForm()
    : Form("frmFiltBrow", Kind::Dialog), SampleParts(static_cast<Form&>(*this)) {
    Caption("Filtros de Imagem");
    Command1.Enabled(false);
    cmdApply.Enabled(false);
    cmdApply.Default(true);
    cmdCancel.Cancel(true);
    Command1.ToolTipText("Experimenta o filtro na amostra");
    cmdApply.ToolTipText("Aplica o filtro à imagem ou à selecção");
    FiltList.Click = [this] { FiltList_Click(); };
    Slider1.Change = Slider1.Scroll = [this] { TellLevel(); };
    Command1.Click = [this] { Command1_Click(); };
    cmdApply.Click = [this] { cmdApply_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    LayOut();
}

void frmFiltBrowForm::LayOut() {
    LevelArea.AsPanel();
    FiltList.Width(kListWidth);
    LevelArea.Height(kLevelHeight);
    LayOutGrid(LevelArea,
               {{&lblFiltLevel, 0, 0, 1, 1, Place::Left},
                {&lblValue, 0, 1, 1, 1, Place::Right},
                {&Slider1, 1, 0, 1, 2}},
               4, 0);
    // The row that stretches makes the list tall enough for all its texts.
    LayOutGrid(*this, {{&lblFilter, 0, 0},
                       {&FiltList, 1, 0, 4},
                       {&LevelArea, 5, 0},
                       {&lblSample, 0, 1},
                       {&SampleArea, 1, 1, 5},
                       {&Command1, 1, 2},
                       {&cmdApply, 2, 2},
                       {&cmdCancel, 3, 2},
                       {nullptr, 4, 2}});
    LabelFor(lblFilter, FiltList);
    LabelFor(lblFiltLevel, Slider1);
}

void frmFiltBrowForm::FiltList_Click() {
    const int row = RowOfEntry(FiltList.ListIndex());
    const Filter& filter = FilterAt(row);
    const bool hasLevel = filter.levelName != nullptr;
    ShowLevel(hasLevel);
    cmdApply.Enabled(true);
    Command1.Enabled(true);
    Slider1.Min(hasLevel ? filter.min : kNoLevel);
    if (hasLevel) {
        lblFiltLevel.Caption(filter.levelName);
        Slider1.AccessibleName(filter.levelName);
        Slider1.Max(filter.max);
        Slider1.TickFrequency(filter.tickSpacing);
        Slider1.LargeChange(filter.tickSpacing);
    }
    Slider1.Value(Slider1.Min());
    TellLevel();
    ShowUntouched();
    FiltIndex = ToInt16(row);
}

void frmFiltBrowForm::ShowLevel(bool shown) {
    lblFiltLevel.Visible(shown);
    lblValue.Visible(shown);
    Slider1.Visible(shown);
}

void frmFiltBrowForm::TellLevel() {
    lblValue.Caption(NumberText(Slider1.Value()));
    Slider1.ToolTipText(lblValue.Caption());
}

// The side of a box is scaled with the sample, to a pixel at least; every other level is a number of pixels
// or of shades.
std::int16_t frmFiltBrowForm::SampleLevel(int row) const {
    if (!FilterAt(row).scales) return ToInt16(Slider1.Value());
    const double scaled = Slider1.Value() * (picsource.ScaleWidth() / ActiveImage().picsource.ScaleWidth());
    return std::max<std::int16_t>(ToInt16(scaled), 1);
}

// Intended: a preview takes the level as it is, so that the number on the slider means the same as on the
// image; on a reduced sample filters that look at neighbours therefore appear stronger.
void frmFiltBrowForm::Command1_Click() {
    if (FiltList.ListIndex() < 0) return;
    const int row = RowOfEntry(FiltList.ListIndex());
    Preview([&] { RunFilter(row, picsource, PicDest, SampleLevel(row), TheProgressBar()); });
    FiltIndex = ToInt16(row);
}

void frmFiltBrowForm::cmdApply_Click() {
    FiltLevel = ToInt16(Slider1.Value());
    FiltApplied = true;
    Unload();
}

void frmFiltBrowForm::cmdCancel_Click() {
    FiltCancelled = true;
    Unload();
}

void frmFiltBrowForm::Form_Unload() {
    if (!FiltApplied) FiltCancelled = true;
}

} // namespace pintalux
