#include "imageops/frmBWiz.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "colour/ColourPanel.h"
#include "imageops/Scaffold.h"
#include "surface/system/CommonDialog.h"
#include "surface/window/Layout.h"

#include <algorithm>
#include <array>

namespace pintalux {

AutoForm<frmBWizForm> frmBWiz;

namespace {

constexpr double kListWidth = 2700;      // twips
constexpr double kSliderWidth = 240;     // pixels
constexpr double kSettingsHeight = 2400; // twips kept for three sliders

enum class Second { None, Highlight, FrameSize }; // What `SL2` means.

struct FrameStyle {
    const char* name;
    Second second;
    bool shadow, colour, outerLine, innerLine, currentColour; // What is shown besides the size.
    void (*paint)(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb);
};

void PaintBevel(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    BevelFrame(work, live, c.size, c.highlight, c.shadow, c.outerLine, c.innerLine, Pb);
}
void PaintFadedBevel(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    FadedBevelFrame(work, live, c.size, c.highlight, c.shadow, c.outerLine, c.innerLine, Pb);
}
void PaintGreyMould(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    MouldFrame(work, live, c.size, c.frameSize, 0xC0C0C0, Pb);
}
void PaintMould(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    MouldFrame(work, live, c.size, c.frameSize, c.colour, Pb);
}
void PaintPlain(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    PlainFrame(work, live, c.size, c.colour, c.outerLine, c.innerLine, Pb);
}
void PaintInward(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    RidgeFrame(work, live, c.size, c.outerLine, c.innerLine, true, Pb);
}
void PaintOutward(Surface& work, Surface& live, FrameChoice c, ProgressBar& Pb) {
    RidgeFrame(work, live, c.size, c.outerLine, c.innerLine, false, Pb);
}

const std::array<FrameStyle, 7> kStyles = {{
    {"Botão 1", Second::Highlight, true, false, false, false, false, PaintBevel},
    {"Botão 2", Second::Highlight, true, false, true, false, false, PaintFadedBevel},
    {"Moldura - P/B", Second::FrameSize, false, false, false, false, false, PaintGreyMould},
    {"Moldura - Cores", Second::FrameSize, false, true, false, false, false, PaintMould},
    {"Bordo Colorido", Second::None, false, true, true, true, true, PaintPlain},
    {"Bordo P/B - P/dentro", Second::None, false, false, true, false, false, PaintInward},
    {"Bordo P/B - P/fora", Second::None, false, false, true, false, false, PaintOutward},
}};

const FrameStyle& StyleAt(int index) {
    if (index < 0 || index >= static_cast<int>(kStyles.size())) throw RuntimeError(kSubscriptOutOfRange);
    return kStyles[static_cast<std::size_t>(index)];
}

void MakeVisible(bool shown, std::initializer_list<Control*> controls) {
    for (Control* control : controls)
        control->Visible(shown);
}

} // namespace

void PaintFrame(int style, Surface& work, Surface& live, const FrameChoice& choice, ProgressBar& Pb) {
    StyleAt(style).paint(work, live, choice, Pb);
}

// Intended: the lines count as they are ticked, also in a style that does not show them, so that going
// through the styles loses no tick.
FrameChoice StoredFrameChoice() {
    return {BWizSize, BWizHighlight, BWizShadow, BWizFrameSize, BWizColour, BWizOuterLine, BWizInnerLine};
}

frmBWizForm::frmBWizForm() : Form("frmBWiz", Kind::Dialog), SampleParts(static_cast<Form&>(*this)) {
    Caption(" Molduras");
    for (const FrameStyle& style : kStyles)
        BordList.AddItem(style.name);
    Lb1.Caption("TAMANHO DO BORDO");
    Lb3.Caption("INTENSIDADE DA SOMBRA");
    cmdApply.Default(true);
    cmdCancel.Cancel(true);
    Command1.ToolTipText("Experimenta a moldura na amostra");
    cmdApply.ToolTipText("Coloca a moldura na imagem ou na selecção");
    BordList.Click = [this] { BordList_Click(); };
    for (Slider* slider : {&SL1, &SL2, &SL3})
        slider->Change = slider->Scroll = [this] { TellValues(); };
    Check3.Click = [this] { Check3_Click(); };
    cmdColorsel.Click = [this] { cmdColorsel_Click(); };
    Command1.Click = [this] { Command1_Click(); };
    cmdApply.Click = [this] { cmdApply_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    LayOut();
}

void frmBWizForm::LayOut() {
    for (Surface* area : {&SettingsArea, &ColourArea})
        area->AsPanel();
    BordList.Width(kListWidth);
    SettingsArea.Height(kSettingsHeight);
    for (Slider* slider : {&SL1, &SL2, &SL3}) {
        slider->Width(kSliderWidth);
        slider->LargeChange(10);
        slider->TickFrequency(10);
    }
    LayOutGrid(SettingsArea,
               {{&Lb1, 0, 0, 1, 1, Place::Left},
                {&LbValue1, 0, 1, 1, 1, Place::Right},
                {&SL1, 1, 0, 1, 2},
                {&Lb2, 2, 0, 1, 1, Place::Left},
                {&LbValue2, 2, 1, 1, 1, Place::Right},
                {&SL2, 3, 0, 1, 2},
                {&Lb3, 4, 0, 1, 1, Place::Left},
                {&LbValue3, 4, 1, 1, 1, Place::Right},
                {&SL3, 5, 0, 1, 2},
                {nullptr, 6, 0}},
               4, 0);
    LayOutGrid(ColourArea,
               {{&cmdColorsel, 0, 0}, {&Check3, 1, 0}, {&Check1, 2, 0}, {&Check2, 3, 0}, {nullptr, 4, 0}}, 8,
               0);
    // The row that stretches makes the list tall enough for all its texts.
    LayOutGrid(*this, {{&lblStyle, 0, 0},
                       {&BordList, 1, 0, 4},
                       {&SettingsArea, 5, 0},
                       {&ColourArea, 5, 1},
                       {&lblSample, 0, 1},
                       {&SampleArea, 1, 1, 4},
                       {&Command1, 1, 2},
                       {&cmdApply, 2, 2},
                       {&cmdCancel, 3, 2},
                       {nullptr, 4, 2}});
    LabelFor(lblStyle, BordList);
    LabelFor(Lb1, SL1);
    LabelFor(Lb3, SL3);
}

void frmBWizForm::ShowLastState() {
    BordList.ListIndex(std::max<int>(BWizStyle, 0));
    SL1.Value(BWizSize);
    SL2.Value(StyleAt(BordList.ListIndex()).second == Second::FrameSize ? BWizFrameSize : BWizHighlight);
    SL3.Value(BWizShadow);
    cmdColorsel.BackColor(BWizColour);
    TellValues();
}

void frmBWizForm::Form_Activate() {
    BordList.SetFocus();
}

void frmBWizForm::BordList_Click() {
    const FrameStyle& style = StyleAt(BordList.ListIndex());
    MakeVisible(false, {&Lb1, &LbValue1, &SL1, &Lb2, &LbValue2, &SL2, &Lb3, &LbValue3, &SL3, &cmdColorsel,
                        &Check1, &Check2, &Check3});
    Lb2.Caption(style.second == Second::FrameSize ? "TAMANHO DA MOLDURA" : "INTENSIDADE");
    SL2.AccessibleName(Lb2.Caption());
    MakeVisible(true, {&Lb1, &LbValue1, &SL1});
    MakeVisible(style.second != Second::None, {&Lb2, &LbValue2, &SL2});
    MakeVisible(style.shadow, {&Lb3, &LbValue3, &SL3});
    MakeVisible(style.colour, {&cmdColorsel});
    MakeVisible(style.outerLine, {&Check1});
    MakeVisible(style.innerLine, {&Check2});
    MakeVisible(style.currentColour, {&Check3});
}

void frmBWizForm::TellValues() {
    LbValue1.Caption(NumberText(SL1.Value()));
    LbValue2.Caption(NumberText(SL2.Value()));
    LbValue3.Caption(NumberText(SL3.Value()));
}

void frmBWizForm::Check3_Click() {
    if (Check3.Value() == 1) BWizColour = CurrentColour();
    cmdColorsel.BackColor(BWizColour);
}

void frmBWizForm::cmdColorsel_Click() {
    constexpr Colour kNoColour = -1;
    CommonDialog1.CancelError = false;
    CommonDialog1.Color = BWizColour;
    CommonDialog1.ShowColor();
    Check3.Value(0);
    if (CommonDialog1.Color != kNoColour) BWizColour = CommonDialog1.Color;
    cmdColorsel.BackColor(BWizColour);
}

// Lengths shrink or grow with the sample; intensities are the same on every scale.
FrameChoice frmBWizForm::SampleChoice() const {
    return {ToInt16(SL1.Value() / SampleScale),
            ToInt16(SL2.Value()),
            ToInt16(SL3.Value()),
            ToInt16(SL2.Value() / SampleScale),
            cmdColorsel.BackColor(),
            Check1.Value() == 1,
            Check2.Value() == 1};
}

void frmBWizForm::Command1_Click() {
    const int style = BordList.ListIndex();
    if (style < 0) return;
    Preview([&] { PaintFrame(style, picsource, PicDest, SampleChoice(), TheProgressBar()); });
}

void frmBWizForm::cmdApply_Click() {
    BWizStyle = ToInt16(BordList.ListIndex());
    BWizSize = ToInt16(SL1.Value());
    const FrameStyle& style = StyleAt(BWizStyle);
    if (style.second == Second::Highlight) BWizHighlight = ToInt16(SL2.Value());
    if (style.second == Second::FrameSize) BWizFrameSize = ToInt16(SL2.Value());
    if (style.shadow) BWizShadow = ToInt16(SL3.Value());
    if (style.colour) BWizColour = cmdColorsel.BackColor();
    BWizOuterLine = Check1.Value() == 1;
    BWizInnerLine = Check2.Value() == 1;
    BWizCancelled = false;
    applied_ = true;
    Unload();
}

void frmBWizForm::cmdCancel_Click() {
    BWizCancelled = true;
    Unload();
}

void frmBWizForm::Form_Unload() {
    if (!applied_) BWizCancelled = true;
}

} // namespace pintalux
