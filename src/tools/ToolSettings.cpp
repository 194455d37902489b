#include "tools/ToolSettings.h"

#include "base/NumberText.h"
#include "document/Globals.h"
#include "surface/window/TextSize.h"

#include <algorithm>
#include <initializer_list>

namespace pintalux {

namespace {

// Twips, as all measures here. What holds text is as large as the desktop's font wants it, and never smaller
// than this.
constexpr double kLeastWidth = 2100;
constexpr double kTitleHeight = 330;
constexpr double kMargin = 90;
constexpr double kGap = 60;
constexpr double kLabelHeight = 225;
constexpr double kSliderHeight = 330;
constexpr double kLeastSlider = 840; // width
constexpr double kBarHeight = 420;
constexpr double kOptionHeight = 285;

double Twips(int pixels) {
    return pixels * double{kTwipsPerPixel};
}

double LabelHeight() {
    return std::max(kLabelHeight, Twips(TextHeight()));
}

double OptionHeight() {
    return std::max(kOptionHeight, Twips(TextHeight() + 2));
}

double HeightOf(const Control& control, double least) {
    return std::max(least, Twips(WantedHeight(control)));
}

constexpr const char* kPageTitles[] = {"Caneta", "Texturas", "Selecção", "Alterar Cores",
                                       "Area Transfêrencia"};

const std::vector<ToolBar::Row> kBrushes = {
    {"round", "Round", ":/icons/brush-round.svg", ButtonStyle::ButtonGroup, "Round", "Ponta redonda"},
    {"left", "Left Slash", ":/icons/brush-left.svg", ButtonStyle::ButtonGroup, "Left Slash",
     "Ponta inclinada para a esquerda"},
    {"right", "Right Slash", ":/icons/brush-right.svg", ButtonStyle::ButtonGroup, "Right Slash",
     "Ponta inclinada para a direita"},
    {"hori", "Horizontal Bar", ":/icons/brush-hori.svg", ButtonStyle::ButtonGroup, "Horizontal Bar",
     "Ponta horizontal"},
    {"vert", "Vertical Bar", ":/icons/brush-vert.svg", ButtonStyle::ButtonGroup, "Vertical Bar",
     "Ponta vertical"},
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

void SetUpSlider(Slider& slider, Label& label, const char* name, int ticks, int largeChange) {
    slider.ShowValueIn(label);
    slider.AccessibleName(name);
    slider.ToolTipText(name);
    slider.TickFrequency(ticks);
    slider.LargeChange(largeChange);
}

} // namespace

ToolSettingsPanel::ToolSettingsPanel(Container& window) : window_(window) {
    ToolSettings.ScaleMode(kScaleTwips);
    ToolSettings.AccessibleName("Acertos da ferramenta");
    ToolSettings.AccessibleRole(SpokenRole::Group);
    MakePages();
    ConnectPages();
    LayOut();
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

double ClosedPageHeight() {
    constexpr double kEdges = 60;
    return std::max(kClosedPageHeight, Twips(TextHeight()) + kEdges);
}

void ToolSettingsPanel::MakePages() {
    for (int i = 0; i < PicTools.Count(); ++i) {
        PicTools(i).ScaleMode(kScaleTwips);
        PicTools(i).AsPanel();
        PicTools(i).AccessibleName(kPageTitles[i]);
        PicTools(i).AccessibleRole(SpokenRole::Group);
        cmdTools(i).Click = [this, i] { cmdTools_Click(i); };
    }
    Picture2.AsPanel();
    Command1.Picture(":/icons/close.svg");
    Command1.AccessibleName("Fechar os acertos");
    Command1.ToolTipText("Fechar");
    Toolbar1.AccessibleName("Ponta da caneta");
    Toolbar2.AccessibleName("Formas");
    SetUpSlider(Slider1, Label1, "LARGURA", 5, 5);
    SetUpSlider(Slider2, Label2, "GROSSURA", 5, 5);
    SetUpSlider(Slider3, Label3, "LARGURA DA LINHA", 5, 5);
    SetUpSlider(Slider4, Label4, "INTENSIDADE", 1, 1);
    SetUpSlider(Slider5, Label5, "RAIO", 10, 1);
    SetUpSlider(Slider6, Label6, "PASSOS", 4, 1);
    Combo2.AccessibleName("Modo de alterar cores");
}

void ToolSettingsPanel::ConnectPages() {
    // A round tip has no length.
    Slider1.Enabled(false);
    Label1.Enabled(false);
    Toolbar1.Buttons(1).Value(1);
    Toolbar1.ButtonClick = [this](ToolButton& button) { Toolbar1_ButtonClick(button); };
    Option1.Value(true);
    Toolbar2.Buttons(1).Value(1);
    Option1.Click = [this] { Option1_Click(); };
    Option2.Click = [this] { Option2_Click(); };
    Toolbar2.ButtonClick = [this](ToolButton& button) { Toolbar2_ButtonClick(button); };
    Option4.Value(true);
}

// No wider than the widest text wants it.
double ToolSettingsPanel::WantedPanelWidth() const {
    double width = kLeastWidth;
    for (const Control* control :
         std::initializer_list<const Control*>{&Option1, &Option2, &Option3, &Option4, &Label3, &Combo2})
        width = std::max(width, Twips(WantedWidth(*control)) + 2 * kMargin);
    width = std::max(width, WandLabelWidth() + kGap + kLeastSlider + 2 * kMargin);
    for (const char* title : kPageTitles)
        width = std::max(width, Twips(TextWidth(title)) + 400); // its mark and its edges
    return std::max({width, Twips(TextWidth("Acertos-Ferramenta")) + 2 * kTitleHeight, trayWidth_});
}

double ToolSettingsPanel::WandLabelWidth() const {
    const int texts = std::max({WantedWidth(Label4), WantedWidth(Label5), WantedWidth(Label6)});
    return Twips(texts + TextWidth("100")) + kGap;
}

void ToolSettingsPanel::LayOut() {
    width_ = WantedPanelWidth();
    ToolSettings.Width(width_);
    LayOutTitle();
    for (int i = 0; i < PicTools.Count(); ++i) {
        PicTools(i).Move(0, Picture2.Height(), width_, ClosedPageHeight());
        cmdTools(i).Move(0, 0, width_, ClosedPageHeight());
        cmdTools(i).HeadsPage(false);
    }
    pageHeights_ = {LayOutPen(), LayOutShapes(), LayOutSelection(), LayOutWand()};
    StackPages();
}

void ToolSettingsPanel::RoomForTray(double width, double extraHeight) {
    trayWidth_ = width;
    trayExtra_ = extraHeight;
    LayOut();
}

void ToolSettingsPanel::LayOutTitle() {
    Picture2.Move(0, 0, width_, std::max(kTitleHeight, Twips(TextHeight()) + 90));
    const double side = std::max(18.0, Picture2.ScaleHeight() - 4);
    Command1.Move(Picture2.ScaleWidth() - side - 2, (Picture2.ScaleHeight() - side) / 2, side, side);
    ToolSettings.Header(Picture2);
}

// Each of these gives the height of the page below its head, and lays it out from there.

double ToolSettingsPanel::LayOutPen() {
    return LayOutLabelled(Label2, Slider2, LayOutLabelled(Label1, Slider1, LayOutBar(Toolbar1)));
}

double ToolSettingsPanel::LayOutShapes() {
    double top = LayOutBar(Toolbar2) + 30;
    for (OptionButton* option : {&Option1, &Option2})
        top = PutAt(*option, top, OptionHeight()) + 15;
    return LayOutLabelled(Label3, Slider3, top);
}

double ToolSettingsPanel::LayOutSelection() {
    double top = ClosedPageHeight() + 15;
    for (OptionButton* option : {&Option4, &Option3})
        top = PutAt(*option, top, OptionHeight());
    return top;
}

double ToolSettingsPanel::LayOutWand() {
    const double inner = width_ - 2 * kMargin;
    double top = PutAt(Combo2, ClosedPageHeight() + kGap, HeightOf(Combo2, 360)) + 90;
    const double labels = WandLabelWidth() + kGap;
    const auto row = [&](Label& label, Slider& slider) {
        const double height = HeightOf(slider, kSliderHeight + 30);
        label.Move(kMargin, top + (height - LabelHeight()) / 2, labels - kGap, LabelHeight());
        slider.Move(kMargin + labels, top, inner - labels, height);
        top += height + 75;
    };
    row(Label4, Slider4);
    row(Label5, Slider5);
    row(Label6, Slider6);
    return top - 75;
}

// These put a part across the page and give where it ends.

double ToolSettingsPanel::PutAt(Control& control, double top, double height) const {
    control.Move(kMargin, top, width_ - 2 * kMargin, height);
    return top + height;
}

double ToolSettingsPanel::LayOutBar(ToolBar& bar) const {
    bar.ImageSize(20);
    return PutAt(bar, ClosedPageHeight() + 30, HeightOf(bar, kBarHeight));
}

double ToolSettingsPanel::LayOutLabelled(Label& label, Slider& slider, double top) const {
    const double below = PutAt(label, top, LabelHeight()) - 15;
    return PutAt(slider, below, HeightOf(slider, kSliderHeight));
}

double ToolSettingsPanel::FullHeight(int page) const {
    constexpr double kHeights[] = {1845, 1980, 900, 2205};
    // The tray's page grows by what its rows of text take more than the least.
    if (page == kClipPage) return ClipPanelHeight + trayExtra_;
    return std::max(kHeights[page], pageHeights_[static_cast<std::size_t>(page)] + 15);
}

void ToolSettingsPanel::cmdTools_Click(int Index) {
    if (PicTools(Index).Height() > ClosedPageHeight()) {
        PicTools(Index).Height(ClosedPageHeight());
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
    ShowMarks();
}

void ToolSettingsPanel::ShowMarks() {
    for (int i = 0; i < PicTools.Count(); ++i)
        cmdTools(i).HeadsPage(PicTools(i).Height() > ClosedPageHeight());
}

double ToolSettingsPanel::BottomOfPages() const {
    return PicTools(kClipPage).Top() + PicTools(kClipPage).Height();
}

// From the bottom up, until there is room. Page 0, the pen's, is never closed this way.
void ToolSettingsPanel::CloseOthers(int open) {
    for (int i = 4; i >= 1; --i) {
        if (i == open) continue;
        PicTools(i).Height(ClosedPageHeight());
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
