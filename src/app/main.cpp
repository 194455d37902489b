// Pintalux 64, a paint and image-retouching program.
#include "app/CommandWords.h"
#include "app/frmMain.h"
#include "app/StopMessage.h"
#include "document/Recovery.h"
#include "document/States.h"
#include "files/FileNames.h"
#include "surface/system/App.h"
#include "surface/system/EndSignals.h"
#include "surface/system/Pictures.h"
#include "surface/system/Session.h"
#include "surface/window/Events.h"

#include <chrono>
#include <csignal>
#include <cstdio>

int main(int argc, char** argv) {
    using namespace pintalux;
    if (const auto answer = AnswerInTerminal(argc, argv)) {
        std::fputs(answer->c_str(), stdout);
        return 0;
    }
    // A limit on the size of files is an error of the write, like a full disk; not the end.
    std::signal(SIGXFSZ, SIG_IGN);
    // The toolkit takes as long to be there as a photograph to be read. Who runs already is asked later: an
    // instance that waits for the place of one that has ended comes first.
    if (const std::string file = LoneFile(argc, argv); !file.empty() && !App.OthersRun())
        LoadPictureAhead(LongFileName(file));
    Application application(argc, argv);
    KeepsRuns = true;
    OnEndSignal(SettleDocuments);
    OnSession({[](bool mayAsk) { return frmMain->LogOut(mayAsk); }, [] { frmMain->EndWithSession(); }});
    States();
    OnFault([] { States().WaitInSignal(std::chrono::seconds(10)); });
    OnUntrappedError = StopProgram;
    EndProgram = EndWithMessage;
    RunEvent(EventKind::Ordinary, [] {
        if (frmMain->HandedOver()) EndProcess(0);
        frmMain->Show();
    });
    const int code =
        frmMain.Loaded() ? application.Run() : 0; // A start that ended in its unload has no loop to leave.
    EndRun();
    return code;
}
