// Every dialog of the program, in the order in which they go at its end.
#pragma once

#include "app/frmSplash.h"
#include "devices/frmScan.h"
#include "devices/frmScanSource.h"
#include "devices/frmScanWait.h"
#include "document/frmImgprops.h"
#include "document/frmNew.h"
#include "imageops/frmAddBord.h"
#include "imageops/frmBWiz.h"
#include "imageops/frmFiltBrow.h"
#include "imageops/frmResize.h"
#include "settings/frmPrefs.h"
#include "tools/frmText.h"

namespace pintalux {

/// Calls act(dialog) for the `AutoForm` of each.
template <class Act>
void ForEachDialog(const Act& act) {
    act(frmNew);
    act(frmResize);
    act(frmFiltBrow);
    act(frmAddBord);
    act(frmBWiz);
    act(frmText);
    act(frmImgprops);
    act(frmSplash);
    act(frmPrefs);
    act(frmScanSource);
    act(frmScan);
    act(frmScanWait);
}

} // namespace pintalux
