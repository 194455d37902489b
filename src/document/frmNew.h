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

    Label lblWidth;
    TextBox txtPXw;
    ScrollBar VSPXw;
    Label lblWidthUnit;
    Label lblHeight;
    TextBox txtPXh;
    ScrollBar VSPXh;
    Label lblHeightUnit;
    Label lblColour;
    ComboBox Combo1;
    CommandButton cmdOK, cmdCancel;

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
