#include "devices/modTwain.h"

#include "base/RuntimeError.h"
#include "devices/frmScan.h"
#include "devices/frmScanSource.h"
#include "devices/frmScanWait.h"
#include "devices/sane/SaneCalls.h"
#include "surface/system/BmpRows.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Control.h"
#include "surface/window/Screen.h"

#include <optional>
#include <span>

namespace pintalux {

namespace {

// For the run: the device, and what the last page was scanned with. The area counts from the corner of the
// glass.
struct LastScan {
    std::string device;
    ScanSettings settings;
};

LastScan& Last() {
    static LastScan last;
    return last;
}

constexpr int kDone = 0;
constexpr int kNothingScanned = 1;

// The wait pointer stands while the device works; a window that asks has the usual one.
void Tell(const std::string& text) {
    const PointerOverAll usual(kPointerDefault);
    MsgBox(text, BoxButtons::Ok, BoxIcon::Exclamation, kMessageTitle);
}

/// Runs work on a thread aside that makes a `Result`; nothing if the user gave up. Raises the work's error.
template <class Result, class Work>
std::optional<Result> Aside(const std::string& what, Work work) {
    const auto result = std::make_shared<std::optional<Result>>();
    const auto job = std::make_shared<ScanJob>();
    job->work = [result, work](ScanJob& running) { result->emplace(work(running.progress)); };
    if (!WaitForJob(job, what)) return {};
    return std::move(*result);
}

std::optional<std::vector<ScannerDevice>> LookForDevices() {
    auto found = Aside<std::vector<ScannerDevice>>("A procurar digitalizadores...",
                                                   [](ScanProgress&) { return FindScanners(); });
    if (found && found->empty())
        Tell("Não foi encontrado nenhum digitalizador. Verifique se está ligado e tente de novo.");
    return found;
}

bool ChooseDevice(const std::vector<ScannerDevice>& devices) {
    const PointerOverAll usual(kPointerDefault);
    frmScanSource->Offer(devices, Last().device);
    frmScanSource->ShowModal();
    const std::string choice = frmScanSource->Choice();
    frmScanSource.Unload();
    if (choice.empty()) return false;
    Last().device = choice;
    return true;
}

bool HaveDevice() {
    if (!Last().device.empty()) return true;
    const std::optional<std::vector<ScannerDevice>> found = LookForDevices();
    if (!found || found->empty()) return false;
    if (found->size() > 1) return ChooseDevice(*found);
    Last().device = found->front().name;
    return true;
}

std::optional<ScanSettings> AskForSettings(const ScanChoices& choices) {
    const PointerOverAll usual(kPointerDefault);
    frmScan->Offer(choices, Last().settings);
    frmScan->ShowModal();
    const std::optional<ScanSettings> choice = frmScan->Choice();
    frmScan.Unload();
    return choice;
}

// The page goes into its file as it comes. Whoever gave up finds no piece of it. The user has the page as
// soon as it is whole: a device that does not come to rest keeps nobody waiting.
void ScanIntoFile(Scanner& scanner, const ScanSettings& settings, const std::string& fileName, ScanJob& job) {
    std::optional<BmpRows> file;
    const auto take = [&](std::span<const std::uint8_t> row) {
        if (!file) file.emplace(fileName, static_cast<int>(row.size() / 3));
        file->Add(row);
    };
    scanner.Scan(settings, job.progress, take, [&] {
        if (!file) throw RuntimeError(kDeviceError, "O digitalizador não enviou imagem nenhuma.");
        file->Finish();
        if (job.progress.cancelled) DeleteFile(fileName);
        job.done = true;
    });
}

int Acquire(const std::string& fileName) {
    if (!HaveDevice()) return kNothingScanned;
    const auto scanner = std::make_shared<std::optional<Scanner>>();
    const std::string device = Last().device;
    const auto choices = Aside<ScanChoices>("A ligar ao digitalizador...", [scanner, device](ScanProgress&) {
        return scanner->emplace(device).Choices();
    });
    if (!choices) return kNothingScanned;
    const std::optional<ScanSettings> settings = AskForSettings(*choices);
    if (!settings) return kNothingScanned;
    Last().settings = *settings;
    ScanSettings wanted = *settings;
    wanted.area.left += choices->glass.left;
    wanted.area.right += choices->glass.left;
    wanted.area.top += choices->glass.top;
    wanted.area.bottom += choices->glass.top;
    const auto job = std::make_shared<ScanJob>();
    job->work = [scanner, wanted, fileName](ScanJob& running) {
        ScanIntoFile(**scanner, wanted, fileName, running);
    };
    return WaitForJob(job, "A digitalizar...") ? kDone : kNothingScanned;
}

} // namespace

int TWAIN_IsAvailable() {
    if (OpenScannerLibrary() == nullptr) throw RuntimeError(kFileNotFound, "libsane.so.1");
    return 1;
}

void ForgetScanner() {
    Last() = {};
}

int TWAIN_SelectImageSource(Control*) try {
    const std::optional<std::vector<ScannerDevice>> found = LookForDevices();
    return found && !found->empty() && ChooseDevice(*found) ? 1 : 0;
} catch (const RuntimeError& error) {
    Tell(error.Text());
    return 0;
}

// A device that failed is forgotten, so that the next scan looks again for what is connected.
int TWAIN_AcquireToFilename(Control*, const std::string& fileName) try {
    return Acquire(fileName);
} catch (const RuntimeError& error) {
    if (error.Number() == kDeviceError || error.Number() == kDeviceUnavailable) Last().device.clear();
    Tell(error.Text());
    return kNothingScanned;
}

} // namespace pintalux
