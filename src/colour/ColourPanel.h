// The colour panel: the one current colour, which every tool reads from `TheColor`, and six spinners to set
// it.
//
// Who sets the current colour does it in this order: `TheColor.BackColor`; the caption's contrast; `txtRGB`;
// the readout. `SetCurrentColour` does all four. Scroll bars are inverted: the top is the largest number.
// Their events run nested in assignments; `ColorUpdating` stops the two sides, RGB and HSL, from driving each
// other.
#pragma once

#include "base/Flag.h"
#include "base/Registered.h"
#include "colour/ModHSL.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Surface.h"

#include <cstdint>
#include <string>

namespace pintalux {

struct ColourPanel;

/// The panel of the running program.
inline Registered<ColourPanel> TheColourPanel;

struct ColourPanel {
    explicit ColourPanel(Container& window);

    Surface ColTB;
    Surface Picture1;           ///< The title strip.
    CommandButton Command2;     ///< Hides the panel.
    Surface TheColor;           ///< Its background colour is the current colour.
    Label LblCurCol;            ///< "ACTUAL", laid over `TheColor`.
    Surface Picture6;           ///< The working colour: follows the pointer over pictures and palettes.
    Surface Picture4, Picture5; ///< Fixed swatches, white and black.
    Label lblColor;             ///< The readout.

    Label lblRed, lblGreen, lblBlue, lblHue, lblSat, lblLum;
    TextBox txtRed;
    ScrollBar VSred;
    TextBox txtGreen;
    ScrollBar VSgreen;
    TextBox txtBlue;
    ScrollBar VSblue;
    TextBox txtHue;
    ScrollBar VShue;
    TextBox txtSat;
    ScrollBar VSsat;
    TextBox txtLum;
    ScrollBar VSlum;

    Flag ColorUpdating;          ///< While the panel moves its own scroll bars.
    std::int16_t TypedValue = 0; ///< The number last typed into one of the six boxes.
    HslValue PanelHsl;           ///< What the three HSL boxes show.
    /// Which of the three notations the readout uses; one is set.
    Flag ColorDisplayHex, ColorDisplayRgb = true, ColorDisplayCor;

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

  private:
    void LayOut();
    void LayOutSwatches();
    void LayOutSpinners();
    void ConnectRgb(TextBox& text, ScrollBar& bar);
    void ConnectHsl(TextBox& text, ScrollBar& bar);
    void Typed(TextBox& tested, const TextBox& read, ScrollBar& bar);
    void SetRgbSide(Colour c);
    void SetHslSide(Colour c);
    void ShowCaptionContrast();

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
