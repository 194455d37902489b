// Pintalux 64, a paint and image-retouching program.
#include "app/frmMain.h"
#include "app/StopMessage.h"
#include "files/FileNames.h"
#include "surface/system/App.h"
#include "surface/window/Events.h"

int main(int argc, char** argv) {
    using namespace pintalux;
    Application application(argc, argv);
    OnUntrappedError = StopProgram;
    EndProgram = [] {
        RescueDocuments();
        EndProcess(1);
    };
    RunEvent(EventKind::Ordinary, [] {
        if (frmMain->HandedOver()) EndProcess(0);
        frmMain->Show();
    });
    return frmMain.Loaded() ? application.Run() : 0; // A start that ended in its unload has no loop to leave.
}
