#include "document/frmNew.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "colour/ListedColour.h"
#include "document/Globals.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Layout.h"
#include "surface/window/SpinnerPair.h"

namespace pintalux {

AutoForm<frmNewForm> frmNew;

namespace {

// Intended: sizes above 32000 are refused although the message before names 32767, so that no later size
// overflows.
constexpr std::int32_t kLargestSide = 32000;

} // namespace

frmNewForm::frmNewForm() : Form("frmNew", Kind::Dialog) {
    Caption("Nova Imagem");
    BindSpinner(txtPXw, VSPXw);
    BindSpinner(txtPXh, VSPXh);
    cmdOK.Default(true);
    cmdCancel.Cancel(true);
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { Unload(); };
    LabelFor(lblWidth, txtPXw);
    LabelFor(lblHeight, txtPXh);
    LabelFor(lblColour, Combo1);
    LayOutGrid(*this, {{&lblWidth, 0, 0},
                       {&txtPXw, 0, 1},
                       {&VSPXw, 0, 2, 1, 1, Place::Left},
                       {&lblWidthUnit, 0, 3},
                       {&lblHeight, 1, 0},
                       {&txtPXh, 1, 1},
                       {&VSPXh, 1, 2, 1, 1, Place::Left},
                       {&lblHeightUnit, 1, 3},
                       {&lblColour, 2, 0},
                       {&Combo1, 2, 1, 1, 3},
                       {&cmdOK, 0, 4},
                       {&cmdCancel, 1, 4}});
}

void frmNewForm::Form_Load() {
    confirmed_ = false;
}

// The first digit typed replaces the proposed width.
void frmNewForm::Form_Activate() {
    txtPXw.SelectAll();
}

void frmNewForm::Form_QueryUnload(bool&) {
    if (!confirmed_) NewCancelled = true;
}

void frmNewForm::cmdOK_Click() {
    // What rounds to nothing, or is less, is no size: a window of it could not be made, and the commands
    // behind it would run over the document that was there before.
    constexpr double kNothing = 0.5;
    if (Val(txtPXw.Text()) <= kNothing || Val(txtPXh.Text()) <= kNothing) {
        MsgBox("Tamanho inválido. Insira um valor entre 1 e 32767 pixeis.", BoxButtons::Ok, BoxIcon::None,
               kMessageTitle);
        return;
    }
    const std::int32_t height = ToInt32(Val(txtPXh.Text()));
    const std::int32_t width = ToInt32(Val(txtPXw.Text()));
    NewBackColor = ListedColour(Combo1.ListIndex(), kWhite);
    NewColorIndex = ToInt16(Combo1.ListIndex());
    // Intended: this refusal comes after the colour was noted, so that the next New proposes it; the size is
    // not taken, since no state of such an image could be recorded.
    if (height > kLargestSide || width > kLargestSide) {
        MsgBox("Imagem muito Grande !", BoxButtons::Ok, BoxIcon::Critical, kMessageTitle);
        return;
    }
    NewHeight = height;
    NewWidth = width;
    NewCancelled = false;
    confirmed_ = true;
    Unload();
}

} // namespace pintalux
