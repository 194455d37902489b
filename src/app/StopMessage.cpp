#include "app/StopMessage.h"

#include "app/frmMain.h"
#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/frmImage.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "files/TempFiles.h"
#include "surface/system/App.h"
#include "surface/system/FileLayer.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/Events.h"
#include "surface/window/MDIForm.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace pintalux {

std::function<void(int code)> EndProcess = [](int code) { std::_Exit(code); };
std::function<std::chrono::steady_clock::time_point()> StopClock = std::chrono::steady_clock::now;

namespace {

// The state file of what the document shows, if it is complete on disk and holds just that.
std::optional<std::string> StateOnDisk(const frmImage& image, const Picture& seen) {
    const int index = ToInt32(Val(image.ListBUorder.List(image.ListBUorder.ListIndex())));
    std::string path = image.ListBackup.List(index);
    if (path.empty() || !(LoadPicture(path) == seen)) return {};
    return path;
}

std::optional<std::string> SaveInto(const std::string& folder, const Picture& picture) {
    std::string path;
    if (!MakeTempFileName(folder, "BI", 0, path)) return {};
    SavePicture(picture, path);
    return path;
}

std::optional<RescuedImage> Rescue(const frmImage& image) {
    std::optional<std::string> path;
    // A piece that was dragged or pasted is rescued where it lies, over the hole that it may have left.
    Picture picture = image.PicMerge.Image();
    ResumeNext([&] { picture = ImageAsSeen(image); });
    ResumeNext([&] { path = StateOnDisk(image, picture); });
    if (path) return RescuedImage{*path, false};
    for (const std::string& folder : {std::string{}, App.Path() + "/", std::string("/tmp/")}) {
        ResumeNext([&] { path = SaveInto(folder, picture); });
        if (path) return RescuedImage{*path, true};
    }
    return {};
}

} // namespace

std::vector<RescuedImage> RescueDocuments() {
    std::vector<RescuedImage> images;
    if (!TheWorkspace.window) return images;
    ResumeNext([] { States().Settle(); });
    for (const auto& child : TheWorkspace.window->Children()) {
        ResumeNext([&] {
            if (const auto image = Rescue(static_cast<const frmImage&>(*child))) images.push_back(*image);
        });
    }
    return images;
}

namespace {

// One message at a time: an error while it shows adds nothing.
class Showing {
  public:
    Showing() { shows = true; }
    ~Showing() { shows = false; }
    Showing(const Showing&) = delete;
    Showing& operator=(const Showing&) = delete;
    static inline bool shows = false;
};

std::string WithPaths(std::string text, const std::vector<RescuedImage>& images) {
    if (!images.empty()) text += "\n\nAs imagens abertas ficam guardadas em:";
    for (const RescuedImage& image : images)
        text += "\n" + image.path;
    return text;
}

// Rescues and tells; true if the button of this place, from 0, was not the first.
bool TellAndAsk(const std::string& text, const std::vector<std::string>& buttons, BoxIcon icon,
                const std::string& title) {
    const std::vector<RescuedImage> images = RescueDocuments();
    std::size_t pressed = 0;
    ResumeNext([] { LockWindowUpdate(nullptr); },
               [&] { pressed = MsgBox(WithPaths(text, images), buttons, icon, title); });
    if (pressed == 0) return false;
    for (const RescuedImage& image : images)
        if (image.madeNow) ResumeNext([&] { DeleteFile(image.path); });
    return true;
}

// An error that was told: the handler that it ended, and its number.
struct ToldError {
    std::string handler;
    int number;
    std::chrono::steady_clock::time_point when;
};
std::vector<ToldError> toldErrors;

bool ToldLately(const ToldError& error) {
    std::erase_if(toldErrors,
                  [&](const ToldError& told) { return error.when - told.when >= std::chrono::minutes(1); });
    return std::any_of(toldErrors.begin(), toldErrors.end(), [&](const ToldError& told) {
        return told.handler == error.handler && told.number == error.number;
    });
}

// Before the main window shows there is nothing to go on with, and at the end its parts are gone.
bool CanGoOn() {
    return TheWorkspace.window && TheWorkspace.window->Visible() && !frmMainForm::Closing;
}

bool GoesOn(const RuntimeError& error) {
    const std::string text = "Erro de execução '" + NumberText(error.Number()) + "':\n\n" + error.Text();
    if (!CanGoOn()) return TellAndAsk(text, {"Terminar"}, BoxIcon::Critical, {});
    const ToldError told = {FailedHandler(), error.Number(), StopClock()};
    if (ToldLately(told)) return true;
    if (!TellAndAsk(text, {"Terminar", "Continuar"}, BoxIcon::Critical, {})) return false;
    toldErrors.push_back(told);
    return true;
}

} // namespace

void StopProgram(const RuntimeError& error) {
    if (Showing::shows) return;
    bool goesOn = false;
    {
        const Showing showing;
        ResumeNext([&] { goesOn = GoesOn(error); });
    }
    if (!goesOn) EndProcess(1);
}

void EndWithMessage(const std::string& message, const std::string& title) {
    if (Showing::shows) return;
    {
        const Showing showing;
        ResumeNext([&] { TellAndAsk(message, {"OK"}, BoxIcon::None, title); });
    }
    EndProcess(1);
}

} // namespace pintalux
