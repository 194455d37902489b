// The frame wizard: a list of frame styles, their sizes and intensities, and a sample to try them on.
// "Actualizar" leaves the choice in the state of `Frames.h`; any other way out sets `BWizCancelled`.
#pragma once

#include "imageops/Frames.h"
#include "imageops/Sample.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

namespace pintalux {

/// What a frame is painted with; a style takes of it what it has.
struct FrameChoice {
    std::int16_t size = 0, highlight = 0, shadow = 0, frameSize = 0;
    Colour colour = kBlack;
    Flag outerLine, innerLine;
};

/// Paints the frame of a style, 0 to 6. Error 9 outside.
void PaintFrame(int style, Surface& work, Surface& live, const FrameChoice& choice, ProgressBar& Pb);

/// The choice that `BWizSize` and its companions hold.
FrameChoice StoredFrameChoice();

class frmBWizForm : public Form, public SampleParts {
  public:
    frmBWizForm();

    Label lblStyle{*this, "lblStyle", "&Moldura"}; ///< Heads the list.
    ListBox BordList{*this, "BordList"};
    Surface SettingsArea{*this, "SettingsArea"}; ///< Keeps the room of what is hidden.
    Label Lb1{SettingsArea, "Lb1"}, LbValue1{SettingsArea, "LbValue1"};
    Slider SL1{SettingsArea, "SL1", 0, 100};
    Label Lb2{SettingsArea, "Lb2"}, LbValue2{SettingsArea, "LbValue2"};
    Slider SL2{SettingsArea, "SL2", 0, 100};
    Label Lb3{SettingsArea, "Lb3"}, LbValue3{SettingsArea, "LbValue3"};
    Slider SL3{SettingsArea, "SL3", 0, 200};
    Surface ColourArea{*this, "ColourArea"};
    CommandButton cmdColorsel{ColourArea, "cmdColorsel", "&Seleccionar a Cor"};
    CheckBox Check3{ColourArea, "Check3", "&Utilizar a Cor Actual"};
    CheckBox Check1{ColourArea, "Check1", "Inserir Linha de &Fora"};
    CheckBox Check2{ColourArea, "Check2", "Inserir Linha de &Dentro"};
    CommandButton Command1{*this, "Command1", "&Ver a amostra"};
    CommandButton cmdApply{*this, "cmdApply", "&Actualizar"}, cmdCancel{*this, "cmdCancel", "Cancelar"};

    /// The style, sliders and colour that were applied last.
    void ShowLastState();

    void BordList_Click();
    void Check3_Click();
    void cmdColorsel_Click();
    void Command1_Click();
    void cmdApply_Click();
    void cmdCancel_Click();

  protected:
    void Form_Unload() override;
    void Form_Activate() override;

  private:
    void LayOut();
    void TellValues();
    FrameChoice SampleChoice() const;

    Flag applied_; ///< "Actualizar" was pressed: the unload is no cancel.
};

extern AutoForm<frmBWizForm> frmBWiz;

} // namespace pintalux
