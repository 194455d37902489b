// The dialog for the size and colour of a new image. OK leaves them in `NewWidth`, `NewHeight`,
// `NewBackColor`; any other way out sets `NewCancelled`.
#pragma once

#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

namespace pintalux {

class frmNewForm : public Form {
  public:
    frmNewForm();

    Label lblWidth{*this, "lblWidth", "&Largura"};
    TextBox txtPXw{*this, "txtPXw"};
    ScrollBar VSPXw{*this, "VSPXw", ScrollBar::Direction::Vertical};
    Label lblWidthUnit{*this, "lblWidthUnit", "pixeis"};
    Label lblHeight{*this, "lblHeight", "&Altura"};
    TextBox txtPXh{*this, "txtPXh"};
    ScrollBar VSPXh{*this, "VSPXh", ScrollBar::Direction::Vertical};
    Label lblHeightUnit{*this, "lblHeightUnit", "pixeis"};
    Label lblColour{*this, "lblColour", "&Cor do Fundo"};
    ComboBox Combo1{*this, "Combo1", {"Branco", "Preto", "Vermelho", "Verde", "Azul", "Cor actual"}};
    CommandButton cmdOK{*this, "cmdOK", "OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancelar"};

    void cmdOK_Click();

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Activate() override;

  private:
    bool confirmed_ = false;
};

extern AutoForm<frmNewForm> frmNew;

} // namespace pintalux
