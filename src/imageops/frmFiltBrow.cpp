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
#include <array>

namespace pintalux {

AutoForm<frmFiltBrowForm> frmFiltBrow;

namespace {

constexpr double kLevelHeight = 900; // twips kept for the level
constexpr double kListWidth = 2700;  // twips
constexpr int kPixelate = 9;         // the entry that the list does not have

using Level = std::int16_t;

struct Filter {
    const char* levelName; ///< Null: it has no level.
    int max, min, tickSpacing;
    void (*run)(Surface& work, Surface& live, ProgressBar& Pb, Level& level);
};

void Darken(Surface& work, Surface& live, ProgressBar& Pb, Level& level) {
    Level negative = SubtractInt16(0, level);
    BrightnessFilter(work, live, negative, Pb);
}

// Intended: from the seventh entry on the list and this table disagree, and "Contraste" softens; every entry
// keeps the effect that its place has, and the tenth filter is not offered.
const std::array<Filter, 10> kFilters = {{
    {"Nitidez", 10, 1, 1, SharpenFilter},
    {"Contraste", 10, 1, 1, SoftenFilter},
    {"Difusão", 10, 1, 1, ScatterFilter},
    {nullptr, 0, 0, 0,
     [](Surface& work, Surface& live, ProgressBar& Pb, Level&) { GreyFilter(work, live, Pb); }},
    {nullptr, 0, 0, 0, [](Surface& work, Surface& live, ProgressBar&, Level&) { InvertFilter(work, live); }},
    {"Auto Brilho", 100, 10, 9,
     [](Surface& work, Surface& live, ProgressBar& Pb, Level& level) {
         BrightnessFilter(work, live, level, Pb);
     }},
    {"Escurecer", 100, 10, 9, Darken},
    {"Tolerância", 250, 50, 20, OutlineFilter},
    {"Relevo", 200, 100, 10, EmbossFilter},
    {"Converter em Pixeis", 50, 5, 5, PixelateFilter},
}};

const Filter& FilterAt(int index) {
    if (index < 0 || index >= static_cast<int>(kFilters.size())) throw RuntimeError(kSubscriptOutOfRange);
    return kFilters[static_cast<std::size_t>(index)];
}

} // namespace

void RunFilter(int index, Surface& work, Surface& live, std::int16_t level, ProgressBar& Pb) {
    FilterAt(index).run(work, live, Pb, level);
}

frmFiltBrowForm::frmFiltBrowForm()
    : Form("frmFiltBrow", Kind::Dialog), SampleParts(static_cast<Form&>(*this)),
      lblFilter(*this, "lblFilter", "Filtro"),
      FiltList(*this, "FiltList",
               {"Nitidez", "Contraste", "Difuso", "Escala de cinza", "Inverter", "Auto Brilho", "Recortar",
                "Converter em Pixeis", "Relevo"}),
      LevelArea(*this, "LevelArea"), lblFiltLevel(LevelArea, "lblFiltLevel"),
      Slider1(LevelArea, "Slider1", 1, 10), Command1(*this, "Command1", "Ver Amostra"),
      cmdApply(*this, "cmdApply", "Actualizar"), cmdCancel(*this, "cmdCancel", "Cancelar") {
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
    LevelArea.BackColor(kButtonFaceColour);
    FiltList.Width(kListWidth);
    LevelArea.Height(kLevelHeight);
    LayOutGrid(LevelArea, {{&lblFiltLevel, 0, 0, 1, 1, Place::Left}, {&Slider1, 1, 0}}, 4, 0);
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
    Slider1.Min(1);
    Slider1.Value(Slider1.Min());
    const int i = FiltList.ListIndex();
    const Filter& filter = FilterAt(i);
    ShowLevel(filter.levelName != nullptr);
    cmdApply.Enabled(true);
    Command1.Enabled(true);
    if (filter.levelName != nullptr) {
        lblFiltLevel.Caption(filter.levelName);
        Slider1.AccessibleName(filter.levelName);
        Slider1.Max(filter.max);
        Slider1.Min(filter.min);
        Slider1.TickFrequency(filter.tickSpacing);
        Slider1.LargeChange(filter.tickSpacing);
    }
    TellLevel();
    ShowUntouched();
    FiltIndex = ToInt16(i);
}

void frmFiltBrowForm::ShowLevel(bool shown) {
    lblFiltLevel.Visible(shown);
    Slider1.Visible(shown);
}

void frmFiltBrowForm::TellLevel() {
    Slider1.ToolTipText(NumberText(Slider1.Value()));
}

// Boxes are scaled with the sample; every other level is a number of pixels or of shades.
std::int16_t frmFiltBrowForm::SampleLevel(int index) const {
    if (index != kPixelate) return ToInt16(Slider1.Value());
    const double scaled = Slider1.Value() * (picsource.ScaleWidth() / ActiveImage().picsource.ScaleWidth());
    return std::max<Level>(ToInt16(scaled), 1);
}

// Intended: a preview takes the level as it is, so that the number on the slider means the same as on the
// image; on a reduced sample filters that look at neighbours therefore appear stronger.
void frmFiltBrowForm::Command1_Click() {
    const int i = FiltList.ListIndex();
    if (i < 0) return;
    Preview([&] { RunFilter(i, picsource, PicDest, SampleLevel(i), TheProgressBar()); });
    FiltIndex = ToInt16(i);
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
