// The dialog for a new size of the image, in pixels or percent, with the aspect kept or not. "OK" leaves the
// size in `ResizeWidthTwips` and `ResizeHeightTwips`; any other way out sets `ResizeCancelled`.
//
// Every scroll bar is inverted and has a text box: the bar writes the number, digits typed move the bars.
#pragma once

#include "base/Flag.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

#include <array>
#include <cstdint>
#include <string>

namespace pintalux {

inline double ResizeRatio = 1; ///< Width by height of the image when the command began.
inline Flag ResizeCancelled;
inline std::int32_t ResizeHeightTwips = 0, ResizeWidthTwips = 0;

class frmResizeForm : public Form {
  public:
    frmResizeForm();

    OptionButton Option1{*this, "Option1", "&Tamanho em Pixeis"};
    Frame Frame1{*this, "Frame1", ""};
    Label lblPXw{Frame1, "lblPXw", "&Largura"};
    TextBox txtPXw{Frame1, "txtPXw"};
    ScrollBar VSPXw{Frame1, "VSPXw", ScrollBar::Direction::Vertical};
    Label lblPXh{Frame1, "lblPXh", "x  &Altura"};
    TextBox txtPXh{Frame1, "txtPXh"};
    ScrollBar VSPXh{Frame1, "VSPXh", ScrollBar::Direction::Vertical};
    // The letters of the labels are those of the other group: only one of the two takes input.
    OptionButton Option2{*this, "Option2", "&Percentagem"};
    Frame Frame2{*this, "Frame2", ""};
    Label lblPCw{Frame2, "lblPCw", "&Largura"};
    TextBox txtPCw{Frame2, "txtPCw"};
    ScrollBar VSPCw{Frame2, "VSPCw", ScrollBar::Direction::Vertical};
    Label lblPCh{Frame2, "lblPCh", "x  &Altura"};
    TextBox txtPCh{Frame2, "txtPCh"};
    ScrollBar VSPCh{Frame2, "VSPCh", ScrollBar::Direction::Vertical};
    CheckBox ChAspRatio{*this, "ChAspRatio", "&Manter o aspecto da Imagem"};
    CommandButton cmdOK{*this, "cmdOK", "OK"}, cmdCancel{*this, "cmdCancel", "Cancelar"};

    /// The size of the active image and 100 percent, with the aspect kept.
    void ShowImageSize();

    /// Sets all four bars from a width in pixels, which need not be whole.
    void updateall(const double& width);

    void ChAspRatio_Click();
    void Option1_Click();
    void Option2_Click();
    void cmdOK_Click();
    void cmdCancel_Click();

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Activate() override;

  private:
    /// A text box with its bar, and what the user may type.
    struct Number {
        TextBox& text;
        ScrollBar& bar;
        std::size_t longest; ///< Characters that can be typed.
        void (frmResizeForm::*moved)(double n);
        double (frmResizeForm::*impliedWidth)(double n) const;
        std::string lastGood; ///< What goes back into the box when too much was typed.
        std::string settled;  ///< The text that the bars know of.
    };
    enum { kPXw, kPXh, kPCw, kPCh };

    void LayOut();
    void Connect(Number& number);
    void Write(Number& number, const std::string& text);
    void Bar_Change(Number& number);
    void Text_Change(Number& number);
    void Text_KeyPress(Number& number, int& KeyAscii);
    void Text_KeyUp(Number& number);
    void EnableGroup(bool pixels);
    bool KeepsAspect() const { return ChAspRatio.Value() == 1; }

    // What a number of each box means for the others.
    void PXwMoved(double n);
    void PXhMoved(double n);
    void PCwMoved(double n);
    void PChMoved(double n);
    double PXwWidth(double n) const { return n; }
    double PXhWidth(double n) const { return n * ResizeRatio; }
    double PCwWidth(double n) const;
    double PChWidth(double n) const;

    Flag ResizeUpdating;              ///< `updateall` or the set-up moves the bars.
    std::int32_t ResizeWorkWidth = 0; ///< Pixels.
    bool writing_ = false;            ///< The program writes a text: no limit holds.
    bool confirmed_ = false;
    std::array<Number, 4> numbers_;
};

extern AutoForm<frmResizeForm> frmResize;

} // namespace pintalux
