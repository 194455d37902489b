// The dialog that composes a line of text. OK puts it over the active image; "Cancelar" leaves all as it was.
// Both unload the dialog, so that it starts afresh; its close box only hides it, so that text and settings
// stay for the next use.
#pragma once

#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"
#include "surface/window/Surface.h"

namespace pintalux {

class frmTextForm : public Form {
  public:
    frmTextForm();

    Label lblFont{*this, "lblFont", "&Tipo de letra"};
    ComboBox ComboFont{*this, "ComboFont", {}}; ///< Every installed font.
    Label lblStyle{*this, "lblStyle", "&Estilo"};
    ComboBox ComboStyle{*this, "ComboStyle", {"Regular", "Bold", "Itallic", "Bold Itallic"}};
    Label lblSize{*this, "lblSize", "T&amanho"};
    ComboBox ComboSize{*this, "ComboSize", {}}; ///< 2 to 74 points in steps of 2.
    Label lblText{*this, "lblText", "Te&xto"};
    TextBox rtftext{*this, "rtftext"};
    CheckBox chkStrikeTh{*this, "chkStrikeTh", "&Rasurado"};
    CheckBox chkUnderlined{*this, "chkUnderlined", "&Sublinhado"};
    Label lblFontcol{*this, "lblFontcol", "&Cor"};
    Surface picFontcol{*this, "picFontcol"}; ///< Its background is the colour of the text.
    CommandButton Command1{*this, "Command1", "..."};
    Label lblSample{*this, "lblSample", "Amostra"};
    Surface picSample{*this, "picSample"}; ///< The frame around the sample, which cuts what is too long.
    Label lblDisplay{picSample, "lblDisplay"};
    CommandButton Command2{*this, "Command2", "OK"};
    CommandButton Command3{*this, "Command3", "Cancelar"};

    void ComboFont_Click();
    void ComboStyle_Click();
    void ComboSize_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Activate() override;

  private:
    void Connect();
    void LayOut();
    void UnloadByCode();

    bool begins_ = true;  ///< The next activation is the first of a use.
    bool byCode_ = false; ///< A button unloads the form, not the user's close box.
};

extern AutoForm<frmTextForm> frmText;

} // namespace pintalux
