// What a page is to be: resolution, colours and area, as far as the device offers them.
#pragma once

#include "devices/sane/Scanner.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"
#include "surface/window/SpinnerPair.h"

#include <optional>

namespace pintalux {

class frmScanForm : public Form {
  public:
    frmScanForm();

    Label lblResolution{*this, "lblResolution", "&Resolução:"};
    ComboBox cboResolution{*this, "cboResolution", {}};
    Label lblDots{*this, "lblDots", "pontos por polegada"};
    Label lblMode{*this, "lblMode", "&Cor:"};
    ComboBox cboMode{*this, "cboMode", {}};
    Label lblPaper{*this, "lblPaper", "&Papel:"};
    ComboBox cboPaper{*this, "cboPaper", {}};
    Frame fraArea{*this, "fraArea", "Área em milímetros"};
    Label lblLeft{fraArea, "lblLeft", "&Esquerda:"};
    TextBox txtLeft{fraArea, "txtLeft"};
    ScrollBar VSLeft{fraArea, "VSLeft", ScrollBar::Direction::Vertical};
    Label lblTop{fraArea, "lblTop", "&Topo:"};
    TextBox txtTop{fraArea, "txtTop"};
    ScrollBar VSTop{fraArea, "VSTop", ScrollBar::Direction::Vertical};
    Label lblWidth{fraArea, "lblWidth", "&Largura:"};
    TextBox txtWidth{fraArea, "txtWidth"};
    ScrollBar VSWidth{fraArea, "VSWidth", ScrollBar::Direction::Vertical};
    Label lblHeight{fraArea, "lblHeight", "&Altura:"};
    TextBox txtHeight{fraArea, "txtHeight"};
    ScrollBar VSHeight{fraArea, "VSHeight", ScrollBar::Direction::Vertical};
    CommandButton cmdOK{*this, "cmdOK", "&Digitalizar"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancelar"};

    /// Shows what the device offers, with what was chosen the last time where it still offers that.
    void Offer(const ScanChoices& choices, const ScanSettings& last);
    /// What "Digitalizar" was pressed with; nothing after any other way out.
    const std::optional<ScanSettings>& Choice() const { return choice_; }

  private:
    void LayOut();
    void OfferPapers();
    void TakePaper();
    void ShowArea(const ScanArea& area);
    ScanArea ChosenArea() const;
    void cmdOK_Click();

    ScanChoices choices_;
    std::optional<ScanSettings> choice_;
};

extern AutoForm<frmScanForm> frmScan;

} // namespace pintalux
