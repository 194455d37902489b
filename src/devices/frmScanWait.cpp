#include "devices/frmScanWait.h"

#include "surface/window/Layout.h"

#include <thread>

namespace pintalux {

AutoForm<frmScanWaitForm> frmScanWait;

namespace {

constexpr double kBarWidth = 4500; // twips
constexpr double kBarHeight = 240; // twips
// A device gets two seconds to stop before the window goes without it: 100 looks of 20 milliseconds.
constexpr int kTicksToStop = 100;

// Whether the job is done before the time is over. Nothing else happens meanwhile.
bool EndsWithin(const ScanJob& job, std::chrono::milliseconds time) {
    const auto end = std::chrono::steady_clock::now() + time;
    while (!job.done && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return job.done;
}

} // namespace

frmScanWaitForm::frmScanWaitForm() : Form("frmScanWait", Kind::Dialog) {
    Caption("Digitalizar");
    Pb.Width(kBarWidth);
    Pb.Height(kBarHeight);
    Pb.AccessibleName("Progresso");
    cmdCancel.Cancel(true);
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    Timer1.Tick = [this] { Timer1_Timer(); };
    LayOutGrid(*this, {{&lblWhat, 0, 0}, {&Pb, 1, 0}, {&cmdCancel, 2, 0, 1, 1, Place::Right}});
}

void frmScanWaitForm::Watch(std::shared_ptr<ScanJob> job, const std::string& what) {
    job_ = std::move(job);
    ticks_ = ticksSinceCancel_ = 0;
    lblWhat.Caption(what);
    Pb.Value(0);
    cmdCancel.Enabled(true);
    Timer1.Enabled(true);
}

void frmScanWaitForm::cmdCancel_Click() {
    if (!job_) return;
    job_->progress.cancelled = true;
    cmdCancel.Enabled(false);
    lblWhat.Caption("A cancelar...");
}

void frmScanWaitForm::Timer1_Timer() {
    if (!job_) return;
    Pb.Value(job_->progress.percent.load());
    ++ticks_;
    if (job_->progress.cancelled) ++ticksSinceCancel_;
    const bool over = job_->done && (ticks_ >= TheScanPatience.ticksShown || job_->progress.cancelled);
    if (!over && ticksSinceCancel_ < kTicksToStop) return;
    Timer1.Enabled(false);
    job_.reset();
    Unload();
}

// The close box is the same as "Cancelar": the window goes once the device has stopped.
void frmScanWaitForm::Form_QueryUnload(bool& Cancel) {
    if (!job_) return;
    cmdCancel_Click();
    Cancel = true;
}

bool WaitForJob(const std::shared_ptr<ScanJob>& job, const std::string& what) {
    Start(job);
    if (TheScanPatience.before.count() == 0 || !EndsWithin(*job, TheScanPatience.before)) {
        frmScanWait->Watch(job, what);
        frmScanWait->ShowModal();
    }
    if (!job->done || job->progress.cancelled) return false;
    if (job->failure) throw *job->failure;
    return true;
}

} // namespace pintalux
