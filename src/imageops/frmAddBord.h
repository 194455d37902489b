// The dialog that grows the canvas: a margin on each side in a chosen colour. It works on the document
// that it was opened for itself.
#pragma once

#include "base/Flag.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

namespace pintalux {

class frmImage;

class frmAddBordForm : public Form {
  public:
    frmAddBordForm();

    Label lblTop{*this, "lblTop", "&Topo"};
    TextBox txtTop{*this, "txtTop"};
    ScrollBar VSTop{*this, "VSTop", ScrollBar::Direction::Vertical};
    Label lblBottom{*this, "lblBottom", "&Fundo"};
    TextBox txtBottom{*this, "txtBottom"};
    ScrollBar VSBottom{*this, "VSBottom", ScrollBar::Direction::Vertical};
    Label lblLeft{*this, "lblLeft", "&Esquerda"};
    TextBox txtLeft{*this, "txtLeft"};
    ScrollBar VSLeft{*this, "VSLeft", ScrollBar::Direction::Vertical};
    Label lblRight{*this, "lblRight", "&Direita"};
    TextBox txtRight{*this, "txtRight"};
    ScrollBar VSRight{*this, "VSRight", ScrollBar::Direction::Vertical};
    CheckBox ChSym{*this, "ChSym", "&Simétricas"};
    Label lblColour{*this, "lblColour", "&Cor do Bordo :"};
    ComboBox Combo1{*this, "Combo1", {"Branco", "Preto", "Vermelho", "Verde", "Azul", "Cor Actual"}};
    CommandButton cmdApply{*this, "cmdApply", "&Actualizar"}, cmdCancel{*this, "cmdCancel", "Cancelar"};

    /// The document that the dialog was opened for.
    frmImage* document = nullptr;

    void cmdApply_Click();

  protected:
    void Form_Load() override;
    void Form_Activate() override;

  private:
    void LayOut();
    void Connect(TextBox& text, ScrollBar& bar);
    void Mirror(const ScrollBar& bar);

    Flag mirroring_; ///< A handler is moving the other bars.
};

extern AutoForm<frmAddBordForm> frmAddBord;

inline Flag BordersAdded; ///< The dialog grew the image before it went.

} // namespace pintalux
