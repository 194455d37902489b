#include "devices/frmScan.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Layout.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace pintalux {

AutoForm<frmScanForm> frmScan;

namespace {

struct Paper {
    const char* name;
    double width, height; ///< Millimetres; 0: all of the glass.
};

constexpr std::array<Paper, 6> kPapers = {{{"Vidro todo", 0, 0},
                                           {"A4", 210, 297},
                                           {"A5", 148, 210},
                                           {"A6", 105, 148},
                                           {"15 x 10 cm", 150, 100},
                                           {"10 x 15 cm", 100, 150}}};

// The devices' own words for their modes are English.
std::string ModeText(const std::string& mode) {
    constexpr std::array<std::array<const char*, 2>, 4> kTexts = {
        {{"Color", "Cores"},
         {"Gray", "Tons de cinza"},
         {"Lineart", "Preto e branco"},
         {"Halftone", "Preto e branco, em pontos"}}};
    for (const auto& [name, text] : kTexts) {
        if (mode == name) return text;
    }
    return mode;
}

constexpr double kChoiceWidth = 5850; // twips; the frame below needs no more, so that the labels stay near

int WholeMillimetres(double value) {
    return static_cast<int>(std::floor(value + 1e-6));
}

double NumberIn(const TextBox& text) {
    return Val(text.Text());
}

} // namespace

frmScanForm::frmScanForm() : Form("frmScan", Kind::Dialog) {
    Caption("Digitalizar");
    BindSpinner(txtLeft, VSLeft);
    BindSpinner(txtTop, VSTop);
    BindSpinner(txtWidth, VSWidth);
    BindSpinner(txtHeight, VSHeight);
    cboPaper.Click = [this] { TakePaper(); };
    cmdOK.Default(true);
    cmdCancel.Cancel(true);
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { Hide(); };
    LayOut();
}

void frmScanForm::LayOut() {
    cboMode.Width(kChoiceWidth);
    LayOutGrid(fraArea, {{&lblLeft, 0, 0},
                         {&txtLeft, 0, 1},
                         {&VSLeft, 0, 2, 1, 1, Place::Left},
                         {&lblTop, 0, 3},
                         {&txtTop, 0, 4},
                         {&VSTop, 0, 5, 1, 1, Place::Left},
                         {&lblWidth, 1, 0},
                         {&txtWidth, 1, 1},
                         {&VSWidth, 1, 2, 1, 1, Place::Left},
                         {&lblHeight, 1, 3},
                         {&txtHeight, 1, 4},
                         {&VSHeight, 1, 5, 1, 1, Place::Left}});
    LayOutGrid(*this, {{&lblResolution, 0, 0},
                       {&cboResolution, 0, 1},
                       {&lblDots, 0, 2},
                       {&lblMode, 1, 0},
                       {&cboMode, 1, 1, 1, 2},
                       {&lblPaper, 2, 0},
                       {&cboPaper, 2, 1, 1, 2},
                       {&fraArea, 3, 0, 1, 3},
                       {&cmdOK, 0, 3},
                       {&cmdCancel, 1, 3}});
    LabelFor(lblResolution, cboResolution);
    LabelFor(lblMode, cboMode);
    LabelFor(lblPaper, cboPaper);
    LabelFor(lblLeft, txtLeft);
    LabelFor(lblTop, txtTop);
    LabelFor(lblWidth, txtWidth);
    LabelFor(lblHeight, txtHeight);
}

void frmScanForm::Offer(const ScanChoices& choices, const ScanSettings& last) {
    choices_ = choices;
    choice_.reset();
    cboResolution.Clear();
    for (const int dots : choices.resolutions)
        cboResolution.AddItem(NumberText(dots));
    const auto among = [](const auto& list, const auto& wanted, const auto& proposed) {
        for (const auto& value : {wanted, proposed}) {
            const auto found = std::find(list.begin(), list.end(), value);
            if (found != list.end()) return static_cast<int>(found - list.begin());
        }
        return list.empty() ? -1 : 0;
    };
    cboResolution.ListIndex(among(choices.resolutions, last.resolution, choices.resolution));
    cboResolution.Enabled(!choices.resolutions.empty());
    cboMode.Clear();
    for (const std::string& mode : choices.modes)
        cboMode.AddItem(ModeText(mode));
    cboMode.ListIndex(among(choices.modes, last.mode, choices.mode));
    cboMode.Enabled(!choices.modes.empty());
    OfferPapers();
    if (!last.area.Empty()) ShowArea(last.area);
}

void frmScanForm::OfferPapers() {
    const ScanArea& glass = choices_.glass;
    const bool offered = !glass.Empty();
    fraArea.Enabled(offered);
    cboPaper.Enabled(offered);
    cboPaper.Clear();
    for (const Paper& paper : kPapers)
        cboPaper.AddItem(paper.name);
    const int width = offered ? WholeMillimetres(glass.right - glass.left) : 0;
    const int height = offered ? WholeMillimetres(glass.bottom - glass.top) : 0;
    for (ScrollBar* bar : {&VSLeft, &VSWidth})
        bar->Max(width);
    for (ScrollBar* bar : {&VSTop, &VSHeight})
        bar->Max(height);
    cboPaper.ListIndex(0);
}

void frmScanForm::TakePaper() {
    const int index = cboPaper.ListIndex();
    if (index < 0) return;
    const Paper& paper = kPapers[static_cast<std::size_t>(index)];
    const ScanArea& glass = choices_.glass;
    const double width = glass.right - glass.left;
    const double height = glass.bottom - glass.top;
    ShowArea({0, 0, paper.width > 0 ? std::min(paper.width, width) : width,
              paper.height > 0 ? std::min(paper.height, height) : height});
}

// The area counts from the corner of the glass.
void frmScanForm::ShowArea(const ScanArea& area) {
    const auto show = [](ScrollBar& bar, TextBox& text, double millimetres) {
        const int number = std::clamp(WholeMillimetres(millimetres), 0, bar.Max());
        bar.Value(bar.Max() - number);
        text.Text(NumberText(number));
    };
    show(VSLeft, txtLeft, area.left);
    show(VSTop, txtTop, area.top);
    show(VSWidth, txtWidth, area.right - area.left);
    show(VSHeight, txtHeight, area.bottom - area.top);
}

ScanArea frmScanForm::ChosenArea() const {
    return {NumberIn(txtLeft), NumberIn(txtTop), NumberIn(txtLeft) + NumberIn(txtWidth),
            NumberIn(txtTop) + NumberIn(txtHeight)};
}

void frmScanForm::cmdOK_Click() {
    ScanSettings settings;
    const int resolution = cboResolution.ListIndex();
    if (resolution >= 0) settings.resolution = choices_.resolutions[static_cast<std::size_t>(resolution)];
    const int mode = cboMode.ListIndex();
    if (mode >= 0) settings.mode = choices_.modes[static_cast<std::size_t>(mode)];
    settings.area = ChosenArea();
    if (settings.area.Empty() && !choices_.glass.Empty()) {
        MsgBox("Área inválida. Insira pelo menos 1 milímetro de largura e de altura.", BoxButtons::Ok,
               BoxIcon::Exclamation, kMessageTitle);
        return;
    }
    choice_ = settings;
    Hide();
}

} // namespace pintalux
