// Pintalux 64, a paint and image-retouching program.
#include "app/frmMain.h"
#include "app/StopMessage.h"
#include "files/FileNames.h"
#include "surface/system/App.h"
#include "surface/window/Events.h"

#include <csignal>

int main(int argc, char** argv) {
    using namespace pintalux;
    // A limit on the size of files is an error of the write, like a full disk; not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    Application application(argc, argv);
    OnUntrappedError = StopProgram;
    EndProgram = EndWithMessage;
    RunEvent(EventKind::Ordinary, [] {
        if (frmMain->HandedOver()) EndProcess(0);
        frmMain->Show();
    });
    return frmMain.Loaded() ? application.Run() : 0; // A start that ended in its unload has no loop to leave.
}
