#include "devices/frmScanSource.h"

#include "surface/window/Layout.h"

namespace pintalux {

AutoForm<frmScanSourceForm> frmScanSource;

namespace {

constexpr double kListWidth = 5400;  // twips
constexpr double kListHeight = 1500; // twips

} // namespace

frmScanSourceForm::frmScanSourceForm() : Form("frmScanSource", Kind::Dialog) {
    Caption("Seleccionar Digitalizador");
    lstDevices.Width(kListWidth);
    lstDevices.Height(kListHeight);
    lstDevices.DblClick = [this] { cmdOK_Click(); };
    cmdOK.Default(true);
    cmdCancel.Cancel(true);
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { Hide(); };
    LayOutGrid(
        *this,
        {{&lblDevices, 0, 0}, {&lstDevices, 1, 0, 3}, {&cmdOK, 1, 1}, {&cmdCancel, 2, 1}, {nullptr, 3, 1}});
    LabelFor(lblDevices, lstDevices);
}

void frmScanSourceForm::Offer(const std::vector<ScannerDevice>& devices, const std::string& chosen) {
    devices_ = devices;
    choice_.clear();
    lstDevices.Clear();
    int index = 0;
    for (std::size_t i = 0; i < devices.size(); ++i) {
        lstDevices.AddItem(devices[i].title);
        if (devices[i].name == chosen) index = static_cast<int>(i);
    }
    lstDevices.ListIndex(index);
}

void frmScanSourceForm::cmdOK_Click() {
    const int index = lstDevices.ListIndex();
    if (index < 0) return;
    choice_ = devices_[static_cast<std::size_t>(index)].name;
    Hide();
}

} // namespace pintalux
