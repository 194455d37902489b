// The Preferences: three tabs of settings. Loaded early and never shown until asked; its controls are the
// live values that the rest of the program reads.
#pragma once

#include "settings/Setting.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

namespace pintalux {

class frmPrefsForm : public Form {
  public:
    frmPrefsForm();

    SSTab SSTab1;
    // "Geral"
    CheckBox Check1, Check2, Check3, Check4;
    // "Memória"
    Label Label1;
    ComboBox Combo1;
    Label Label4;
    CheckBox Check5;
    Label Label5;
    ComboBox Combo2;
    Label Label6;
    // "JPEG"
    Frame Frame1;
    Label Label2;
    Slider Slider1;
    Label Label3;

    CommandButton Command1, Command2;

    void Check5_Click();
    void Command1_Click();
    void Command2_Click();

  protected:
    void Form_Load() override;

  private:
    void LayOut();
    void Save(); ///< To the store; what cannot be written is told, and the run goes on.
};

extern AutoForm<frmPrefsForm> frmPrefs;

} // namespace pintalux
