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

    SSTab SSTab1{*this, "SSTab1", {"Geral", "Memória", "JPEG"}};

    // "Geral"
    CheckBox Check1{SSTab1.Page(0), "Check1", "Mostrar ecrã inicial no arranque"};
    CheckBox Check2{SSTab1.Page(0), "Check2", "Associar o programa com ficheiros bmp, jpg e gif"};
    CheckBox Check3{SSTab1.Page(0), "Check3", "Monitor da Area de Transferência no arranque"};
    CheckBox Check4{SSTab1.Page(0), "Check4", "Não perguntar se pretende Salvar as alterações ao Sair"};

    // "Memória"
    Label Label1{SSTab1.Page(1), "Label1", "Limitar a abertura em simultâneo a"};
    ComboBox Combo1{SSTab1.Page(1), "Combo1", {"3", "5", "7", "10", "15"}};
    Label Label4{SSTab1.Page(1), "Label4", "Imagens."};
    CheckBox Check5{SSTab1.Page(1), "Check5", "Refazer e desfazer ilimitado"};
    Label Label5{SSTab1.Page(1), "Label5", "Limitar o Refazer e Desfazer a"};
    ComboBox Combo2{SSTab1.Page(1), "Combo2", {"5", "10", "15", "20", "25", "30"}};
    Label Label6{SSTab1.Page(1), "Label6", "passos."};

    // "JPEG"
    Frame Frame1{SSTab1.Page(2), "Frame1", "JPEG Qualidade de Gravação"};
    Label Label2{Frame1, "Label2", "POUCA"};
    Slider Slider1{Frame1, "Slider1", 10, 90};
    Label Label3{Frame1, "Label3", "MUITA"};
    Label lblValue{Frame1, "lblValue"}; ///< Of the slider.

    CommandButton Command1{*this, "Command1", "OK"};
    CommandButton Command2{*this, "Command2", "Cancelar"};

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
