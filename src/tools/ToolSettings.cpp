#include "tools/ToolSettings.h"

#include "base/NumberText.h"
#include "document/Globals.h"

namespace pintalux {

namespace {

constexpr double kPanelWidth = 2700; // twips, as all measures here
constexpr double kTitleHeight = 330;
constexpr double kMargin = 90;
constexpr double kInnerWidth = kPanelWidth - 2 * kMargin;
constexpr double kLabelHeight = 225;
constexpr double kSliderHeight = 330;
constexpr double kBarHeight = 420;

constexpr const char* kPageTitles[] = {"Caneta", "Texturas", "Selecção", "Alterar Cores",
                                       "Area Transfêrencia"};

const std::vector<ToolBar::Row> kBrushes = {
    {"round", "Round", ":/icons/brush-round.svg", ButtonStyle::ButtonGroup, "Round"},
    {"left", "Left Slash", ":/icons/brush-left.svg", ButtonStyle::ButtonGroup, "Left Slash"},
    {"right", "Right Slash", ":/icons/brush-right.svg", ButtonStyle::ButtonGroup, "Right Slash"},
    {"hori", "Horizontal Bar", ":/icons/brush-hori.svg", ButtonStyle::ButtonGroup, "Horizontal Bar"},
    {"vert", "Vertical Bar", ":/icons/brush-vert.svg", ButtonStyle::ButtonGroup, "Vertical Bar"},
};

constexpr const char* kOutlined[] = {":/icons/shape-square.svg", ":/icons/shape-rect.svg",
                                     ":/icons/shape-circle.svg", ":/icons/shape-oval.svg"};
constexpr const char* kFilled[] = {":/icons/shape-square-filled.svg", ":/icons/shape-rect-filled.svg",
                                   ":/icons/shape-circle-filled.svg", ":/icons/shape-oval-filled.svg"};

const std::vector<ToolBar::Row> kShapes = {
    {"square", "Quadrado", kOutlined[0], ButtonStyle::ButtonGroup, "Quadrado"},
    {"rectangle", "Rectângulo", kOutlined[1], ButtonStyle::ButtonGroup, "Rectângulo"},
    {"circle", "Círculo", kOutlined[2], ButtonStyle::ButtonGroup, "Círculo"},
    {"oval", "Elipse", kOutlined[3], ButtonStyle::ButtonGroup, "Elipse"},
};

void SetUpSlider(Slider& slider, const char* name, int ticks, int largeChange) {
    slider.AccessibleName(name);
    slider.ToolTipText(name);
    slider.TickFrequency(ticks);
    slider.LargeChange(largeChange);
}

} // namespace

ToolSettingsPanel::ToolSettingsPanel(Container& window) : window_(window) {
    ToolSettings.ScaleMode(kScaleTwips);
    ToolSettings.BackColor(kButtonFaceColour);
    ToolSettings.Width(kPanelWidth);
    MakePages();
    LayOutTitle();
    LayOutPen();
    LayOutShapes();
    LayOutSelection();
    LayOutWand();
    StackPages();
}

ControlArray<CommandButton> ToolSettingsPanel::PageButtons(const ControlArray<Surface>& pages) {
    ControlArray<CommandButton> buttons;
    for (int i = 0; i < pages.Count(); ++i)
        buttons.Add(pages(i), "cmdTools" + NumberText(i), kPageTitles[i]);
    return buttons;
}

const std::vector<ToolBar::Row>& ToolSettingsPanel::BrushButtons() {
    return kBrushes;
}

const std::vector<ToolBar::Row>& ToolSettingsPanel::ShapeButtons() {
    return kShapes;
}

void ToolSettingsPanel::MakePages() {
    for (int i = 0; i < PicTools.Count(); ++i) {
        Surface& page = PicTools(i);
        page.ScaleMode(kScaleTwips);
        page.BackColor(kButtonFaceColour);
        page.Move(0, kTitleHeight, kPanelWidth, kClosedPageHeight);
        cmdTools(i).Move(0, 0, kPanelWidth, kClosedPageHeight);
        cmdTools(i).Click = [this, i] { cmdTools_Click(i); };
    }
}

void ToolSettingsPanel::LayOutTitle() {
    Picture2.BackColor(kButtonFaceColour);
    Picture2.Move(0, 0, kPanelWidth, kTitleHeight);
    Command1.Picture(":/icons/close.svg");
    Command1.AccessibleName("Fechar os acertos");
    Command1.ToolTipText("Fechar");
    const double side = Picture2.ScaleHeight() - 4;
    Command1.Move(Picture2.ScaleWidth() - side - 2, 2, side, side);
}

void ToolSettingsPanel::LayOutPen() {
    double top = kClosedPageHeight + 30;
    Toolbar1.Move(kMargin, top, kInnerWidth, kBarHeight);
    Toolbar1.ImageSize(20);
    top += kBarHeight;
    Label1.Move(kMargin, top, kInnerWidth, kLabelHeight);
    Slider1.Move(kMargin, top + kLabelHeight - 15, kInnerWidth, kSliderHeight);
    top += kLabelHeight + kSliderHeight - 15;
    Label2.Move(kMargin, top, kInnerWidth, kLabelHeight);
    Slider2.Move(kMargin, top + kLabelHeight - 15, kInnerWidth, kSliderHeight);
    SetUpSlider(Slider1, "LARGURA", 5, 5);
    SetUpSlider(Slider2, "GROSSURA", 5, 5);
    // A round tip has no length.
    Slider1.Enabled(false);
    Label1.Enabled(false);
    Toolbar1.Buttons(1).Value(1);
    Toolbar1.ButtonClick = [this](ToolButton& button) { Toolbar1_ButtonClick(button); };
}

void ToolSettingsPanel::LayOutShapes() {
    double top = kClosedPageHeight + 30;
    Toolbar2.Move(kMargin, top, kInnerWidth, kBarHeight);
    Toolbar2.ImageSize(20);
    top += kBarHeight + 30;
    Option1.Move(kMargin, top, kInnerWidth, 285);
    Option2.Move(kMargin, top + 300, kInnerWidth, 285);
    top += 600;
    Label3.Move(kMargin, top, kInnerWidth, kLabelHeight);
    Slider3.Move(kMargin, top + kLabelHeight - 15, kInnerWidth, kSliderHeight);
    SetUpSlider(Slider3, "LARGURA DA LINHA", 5, 5);
    Option1.Value(true);
    Toolbar2.Buttons(1).Value(1);
    Option1.Click = [this] { Option1_Click(); };
    Option2.Click = [this] { Option2_Click(); };
    Toolbar2.ButtonClick = [this](ToolButton& button) { Toolbar2_ButtonClick(button); };
}

void ToolSettingsPanel::LayOutSelection() {
    Option4.Move(kMargin, kClosedPageHeight + 15, kInnerWidth, 285);
    Option3.Move(kMargin, kClosedPageHeight + 300, kInnerWidth, 285);
    Option4.Value(true);
}

void ToolSettingsPanel::LayOutWand() {
    constexpr double kLabelWidth = 1320;
    Combo2.Move(kMargin, kClosedPageHeight + 60, kInnerWidth, 360);
    Combo2.AccessibleName("Modo de alterar cores");
    double top = kClosedPageHeight + 510;
    const auto row = [&top](Label& label, Slider& slider) {
        label.Move(kMargin, top + 60, kLabelWidth, kLabelHeight);
        slider.Move(kMargin + kLabelWidth, top, kInnerWidth - kLabelWidth, kSliderHeight + 30);
        top += 435;
    };
    row(Label4, Slider4);
    row(Label5, Slider5);
    row(Label6, Slider6);
    SetUpSlider(Slider4, "INTENSIDADE", 1, 1);
    SetUpSlider(Slider5, "RAIO", 10, 1);
    SetUpSlider(Slider6, "PASSOS", 4, 1);
}

double ToolSettingsPanel::FullHeight(int page) const {
    constexpr double kHeights[] = {1845, 1980, 900, 2205};
    return page == kClipPage ? ClipPanelHeight : kHeights[page];
}

void ToolSettingsPanel::cmdTools_Click(int Index) {
    if (PicTools(Index).Height() > kClosedPageHeight) {
        PicTools(Index).Height(kClosedPageHeight);
    } else {
        PicTools(Index).Height(FullHeight(Index));
        const int tool = TheTools->ToolOfPage(Index, CurrentTool);
        if (tool != 0 && ChooseTool) ChooseTool(tool);
    }
    StackPages();
    if (BottomOfPages() > ToolSettings.Height()) CloseOthers(Index);
}

void ToolSettingsPanel::StackPages() {
    for (int i = 1; i < PicTools.Count(); ++i)
        PicTools(i).Top(PicTools(i - 1).Top() + PicTools(i - 1).Height());
}

double ToolSettingsPanel::BottomOfPages() const {
    return PicTools(kClipPage).Top() + PicTools(kClipPage).Height();
}

// From the bottom up, until there is room. Page 0, the pen's, is never closed this way.
void ToolSettingsPanel::CloseOthers(int open) {
    for (int i = 4; i >= 1; --i) {
        if (i == open) continue;
        PicTools(i).Height(kClosedPageHeight);
        StackPages();
        if (BottomOfPages() < ToolSettings.Height()) return;
    }
}

void ToolSettingsPanel::Option1_Click() {
    for (int i = 0; i < 4; ++i)
        Toolbar2.Buttons(i + 1).Image(kOutlined[i]);
    Slider3.Enabled(true);
}

void ToolSettingsPanel::Option2_Click() {
    for (int i = 0; i < 4; ++i)
        Toolbar2.Buttons(i + 1).Image(kFilled[i]);
    Slider3.Enabled(false);
}

void ToolSettingsPanel::Toolbar1_ButtonClick(ToolButton& button) {
    BrushShape = static_cast<std::int16_t>(button.Index() - 1);
    Slider1.Enabled(BrushShape != 0);
    Label1.Enabled(BrushShape != 0);
}

void ToolSettingsPanel::Toolbar2_ButtonClick(ToolButton& button) {
    ShapeType = static_cast<std::int16_t>(button.Index() - 1);
}

} // namespace pintalux
