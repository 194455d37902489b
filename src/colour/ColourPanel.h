// The colour panel: the one current colour, which every tool reads from `TheColor`, and six spinners to set
// it.
//
// Who sets the current colour does it in this order: `TheColor.BackColor`; the caption's contrast; `txtRGB`;
// the readout. `SetCurrentColour` does all four. Scroll bars are inverted: the top is the largest number.
// Their events run nested in assignments; `ColorUpdating` stops the two sides, RGB and HSL, from driving each
// other.
//
// Below them lies `ColorBox`: the spectrum, and the grid of the user's own colours. The pointer over either
// previews a colour in `Picture6`; a press makes it the current one. What the user commits fills the grid
// while `ColorLock` is off.
#pragma once

#include "base/Flag.h"
#include "base/Registered.h"
#include "colour/CollectionFile.h"
#include "colour/ModHSL.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Screen.h"
#include "surface/window/ScrollPanel.h"
#include "surface/window/Surface.h"
#include "surface/window/ToolBar.h"

#include <cstdint>
#include <optional>
#include <string>

namespace pintalux {

inline Flag ColorLock;                   ///< On: committed colours are not added to the collection.
inline std::int16_t CollectionCount = 0; ///< The cell last filled, 1 to 78; 0 while there is none.

struct ColourPanel;

/// The panel of the running program.
inline Registered<ColourPanel> TheColourPanel;

struct ColourPanel {
    explicit ColourPanel(Container& window);
    ~ColourPanel();

  private:
    Container& window_;
    static constexpr ScrollBar::Direction kUpright = ScrollBar::Direction::Vertical;

  public:
    ScrollPanel ColTB{window_, "ColTB"};
    Surface Picture1{ColTB, "Picture1"};              ///< The title strip.
    CommandButton Command2{Picture1, "Command2", ""}; ///< Hides the panel.
    Surface TheColor{ColTB, "TheColor"};              ///< Its background colour is the current colour.
    Label LblCurCol{TheColor, "LblCurCol", "ACTUAL"}; ///< Laid over `TheColor`.
    Surface Picture4{ColTB, "Picture4"}, Picture5{ColTB, "Picture5"}; ///< Fixed swatches, white and black.
    Label lblColor{ColTB, "lblColor"};                                ///< The readout.

    Label lblRed{ColTB, "lblRed", "R"};
    TextBox txtRed{ColTB, "txtRed"};
    ScrollBar VSred{ColTB, "VSred", kUpright};
    Label lblGreen{ColTB, "lblGreen", "G"};
    TextBox txtGreen{ColTB, "txtGreen"};
    ScrollBar VSgreen{ColTB, "VSgreen", kUpright};
    Label lblBlue{ColTB, "lblBlue", "B"};
    TextBox txtBlue{ColTB, "txtBlue"};
    ScrollBar VSblue{ColTB, "VSblue", kUpright};
    Label lblHue{ColTB, "lblHue", "H"};
    TextBox txtHue{ColTB, "txtHue"};
    ScrollBar VShue{ColTB, "VShue", kUpright};
    Label lblSat{ColTB, "lblSat", "S"};
    TextBox txtSat{ColTB, "txtSat"};
    ScrollBar VSsat{ColTB, "VSsat", kUpright};
    Label lblLum{ColTB, "lblLum", "L"};
    TextBox txtLum{ColTB, "txtLum"};
    ScrollBar VSlum{ColTB, "VSlum", kUpright};

    /// The commands of the collection.
    ToolBar Toolbar3{
        ColTB,
        "Toolbar3",
        {{"Lock", "Bloquear a alteração de cores", ":/icons/lock.svg"},
         {"Unlock2", "Inserir automaticamente na minha selecção de cores", ":/icons/unlock.svg"},
         {"Clear", "Remover a cor da selecção.", ":/icons/clear.svg"},
         {"ColDlg", "Usar o selector de cores do Windows.", ":/icons/coldlg.svg"},
         {"OpenCol2", "Abrir uma selecção de cores gravada anteriormente.", ":/icons/opencol.svg"},
         {"SaveCols", "Salvar a minha selecção de cores", ":/icons/savecols.svg"}}};
    Surface ColorBox{ColTB, "ColorBox"}; ///< Spectrum above Y 155, the collection's grid below.
    Display Image1{ColorBox, "Image1"};  ///< The spectrum.
    /// The working colour: follows the pointer over pictures and palettes.
    Surface Picture6{ColorBox, "Picture6"};
    /// Shades around a colour, hidden until a right press asks for them.
    Surface picColBlowup{ColorBox, "picColBlowup"};
    ShapeControl ShCell{ColorBox, "ShCell"}; ///< Marks the cell of the grid that keys act on.

    Flag ColorUpdating;          ///< While the panel moves its own scroll bars.
    std::int16_t TypedValue = 0; ///< The number last typed into one of the six boxes.
    HslValue PanelHsl;           ///< What the three HSL boxes show.
    /// Which of the three notations the readout uses; one is set.
    Flag ColorDisplayHex, ColorDisplayRgb = true, ColorDisplayCor;

    std::int16_t CollectionX = 0, CollectionY = 0; ///< Top left corner of the cell last filled, pixels.
    CollectionTexts CollectionColors; ///< Each cell's colour as text; a cleared collection's stay.
    Flag CollectionDirty;             ///< A cell was filled since the collection was last cleared.
    Flag CollectionAsked;             ///< The question about unsaved colours was answered by saving them.

    /// Makes a colour the current one and brings caption, spinners and readout up to date.
    void SetCurrentColour(Colour c);
    /// Sets the six bars and the RGB boxes from a colour.
    void txtRGB(Colour c);
    /// The same for the RGB side only.
    void txtRGB2(Colour c);
    /// After a change on the RGB side: the colour from the boxes, then the HSL side.
    void UpdateColScrolls();
    /// After a change on the HSL side: the colour from the boxes, then the RGB side.
    void UpdateHSLscrolls();
    /// The working colour and its readout only; the current colour stays.
    void ChangeColor(Colour c);
    /// Writes the readout of a colour in the chosen notation.
    void ShowReadout(Colour c);
    /// A click changes the notation.
    void lblColor_Click();

    // Picking (ColourPanel_Picking.cpp). Points in twips on the spectrum, in pixels on the surfaces.
    void Image1_MouseMove(int Button);
    void Image1_MouseDown(int Button, double X, double Y);
    void ColorBox_MouseMove(int Button, double X, double Y);
    void ColorBox_MouseDown(int Button, double X, double Y);
    void picColBlowup_MouseMove();
    /// Paints the shades around a colour, from 25 below it upwards, and shows them.
    void ColorBlowup(Colour c);
    /// Makes the working colour the current one and adds it to the collection unless that is locked.
    void CommitWorkingColour();
    /// The colour dialog's choice; black if the user cancels it.
    Colour PickColorDialog();

    // The collection (ColourPanel_Collection.cpp)
    /// Adds the current colour to the next cell; behind the last comes the first again.
    void loadselected();
    /// Empties the grid. What `CollectionColors` holds stays.
    void unloadselected();
    /// Asks for a file and fills the grid from it; its last colour becomes the current one.
    void OpenColors();
    void SaveColors();
    void Toolbar3_ButtonClick(ToolButton& button);

  private:
    void LayOut();
    double LayOutSwatches(double width, double top);
    double LayOutSpinners(double width, double top);
    void LayOutBox(double width, double top);
    void ConnectBox();
    // By keys (ColourPanel_Keys.cpp)
    void ConnectBoxKeys();
    bool GridKey(const KeyStroke& key);
    void GoToCell(int cell);
    bool SpectrumKey(const KeyStroke& key);
    void GoToHue(int x, int y);
    void OpenShades(Control& from, int x, int y, Colour c);
    bool ShadesKey(const KeyStroke& key);
    void GoToShade(int row);
    void LeaveShades();
    void LeftByKeys();
    void Mark(int left, int top, int width, int height, Colour colour);
    std::optional<Colour> SampleAtPointer(CursorPosition& remembered);
    std::optional<Colour> GridColourAt(double X, double Y) const;
    void PlaceBlowup(double left, double top);
    void FallBackToCurrent();
    bool SaveCollection();
    void FillFrom(const std::vector<Colour>& colours);
    void ToggleLock();
    void ClearByCommand();
    void PickByDialog();
    void ConnectRgb(TextBox& text, ScrollBar& bar);
    void ConnectHsl(TextBox& text, ScrollBar& bar);
    void Typed(TextBox& tested, const TextBox& read, ScrollBar& bar);
    void SetRgbSide(Colour c);
    void SetHslSide(Colour c);
    void ShowCaptionContrast();

    // What keys act on: the cell, from 0; the place on the spectrum and the row of shades, in pixels.
    int gridCell_ = 0;
    int hueX_ = 53, hueY_ = 77;
    int shade_ = 0;
    Control* shadesFrom_ =
        nullptr; ///< Where keys asked for the shades; null while the strip is the pointer's.
    // The pointer's last place in each handler that samples: where it stands still, nothing is sampled anew.
    CursorPosition overBlowup_, spectrumPress_, overSpectrum_;

    Registered<ColourPanel>::Entry entry_{TheColourPanel, *this};
};

/// The one current colour.
inline Colour CurrentColour() {
    return TheColourPanel->TheColor.BackColor();
}

/// "RGB: 192, 192, 192"
std::string RgbReadout(Colour c);

/// "HEX:#C0C0C0", red first.
// Intended: a green of 0 to 15 is padded in front of its decimal text, so that readouts noted down earlier
// stay findable.
std::string HexReadout(Colour c);

} // namespace pintalux
