// The window that stands while a device is looked for or read: what happens, how far it is, and a way out.
#pragma once

#include "devices/ScanJob.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"
#include "surface/window/Timer.h"

#include <chrono>

namespace pintalux {

class frmScanWaitForm : public Form {
  public:
    frmScanWaitForm();

    Label lblWhat{*this, "lblWhat"};
    ProgressBar Pb{*this, "Pb"};
    CommandButton cmdCancel{*this, "cmdCancel", "Cancelar"};
    Timer Timer1{20}; ///< Milliseconds between two looks at the job.

    void Watch(std::shared_ptr<ScanJob> job, const std::string& what);
    void cmdCancel_Click();

  protected:
    void Form_QueryUnload(bool& Cancel) override;

  private:
    void Timer1_Timer();

    std::shared_ptr<ScanJob> job_;
    int ticks_ = 0;
    int ticksSinceCancel_ = 0;
};

extern AutoForm<frmScanWaitForm> frmScanWait;

/// How long a job is waited for before this window shows, and how long it stays then at least: one that only
/// flashes tells nobody anything, and takes the keyboard from the window below. Tests want none of it.
struct ScanPatience {
    std::chrono::milliseconds before{250};
    int ticksShown = 20; ///< Of `Timer1`.
};
inline ScanPatience TheScanPatience;

/// Runs the job on a thread of its own while this window stands. True once it is done; false if the user gave
/// up, then the job goes on alone and whatever it finds is dropped. Raises the job's own error.
bool WaitForJob(const std::shared_ptr<ScanJob>& job, const std::string& what);

} // namespace pintalux
