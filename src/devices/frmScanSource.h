// The choice of the scanner.
#pragma once

#include "devices/sane/Scanner.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"

namespace pintalux {

class frmScanSourceForm : public Form {
  public:
    frmScanSourceForm();

    Label lblDevices{*this, "lblDevices", "&Digitalizadores:"};
    ListBox lstDevices{*this, "lstDevices"};
    CommandButton cmdOK{*this, "cmdOK", "OK"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancelar"};

    /// Fills the list and chooses the device of this name, or the first one.
    void Offer(const std::vector<ScannerDevice>& devices, const std::string& chosen);
    /// The name of the device that OK was pressed on; empty after any other way out.
    const std::string& Choice() const { return choice_; }

  private:
    void cmdOK_Click();

    std::vector<ScannerDevice> devices_;
    std::string choice_;
};

extern AutoForm<frmScanSourceForm> frmScanSource;

} // namespace pintalux
