#include "app/StopMessage.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/frmImage.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "files/TempFiles.h"
#include "surface/system/App.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"

#include <cstdlib>
#include <optional>

namespace pintalux {

std::function<void(int code)> EndProcess = [](int code) { std::_Exit(code); };

namespace {

// The state file of what the document shows, if it is complete on disk and holds just that.
std::optional<std::string> StateOnDisk(const frmImage& image) {
    const int index = ToInt32(Val(image.ListBUorder.List(image.ListBUorder.ListIndex())));
    std::string path = image.ListBackup.List(index);
    if (path.empty() || !(LoadPicture(path) == image.PicMerge.Image())) return {};
    return path;
}

std::optional<std::string> SaveInto(const std::string& folder, const Picture& picture) {
    std::string path;
    if (!MakeTempFileName(folder, "BI", 0, path)) return {};
    SavePicture(picture, path);
    return path;
}

std::optional<std::string> Rescue(const frmImage& image) {
    std::optional<std::string> path;
    ResumeNext([&] { path = StateOnDisk(image); });
    const Picture picture = image.PicMerge.Image();
    for (const std::string& folder : {std::string{}, App.Path() + "/", std::string("/tmp/")}) {
        if (path) break;
        ResumeNext([&] { path = SaveInto(folder, picture); });
    }
    return path;
}

} // namespace

std::vector<std::string> RescueDocuments() {
    std::vector<std::string> paths;
    if (TheWorkspace.window == nullptr) return paths;
    ResumeNext([] { States().Settle(); });
    for (const auto& child : TheWorkspace.window->Children()) {
        std::optional<std::string> path;
        ResumeNext([&] { path = Rescue(static_cast<const frmImage&>(*child)); });
        if (path) paths.push_back(*path);
    }
    return paths;
}

void StopProgram(const RuntimeError& error) {
    static bool stopping = false;
    if (stopping) return; // A second error, while the message shows, adds nothing.
    stopping = true;
    std::string text = "Erro de execução '" + NumberText(error.Number()) + "':\n\n" + error.Text();
    const std::vector<std::string> paths = RescueDocuments();
    if (!paths.empty()) text += "\n\nAs imagens abertas ficam guardadas em:";
    for (const std::string& path : paths)
        text += "\n" + path;
    ResumeNext([&] { LockWindowUpdate(nullptr); }, [&] { MsgBox(text, BoxButtons::Ok, BoxIcon::Critical); });
    stopping = false;
    EndProcess(1);
}

} // namespace pintalux
