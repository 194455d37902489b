// The end of the desktop's session: first the log-out, which can still be called off, then the end.
#include "app/frmMain.h"
#include "app/StopMessage.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "surface/window/Screen.h"
#include "surface/window/Waiting.h"

namespace pintalux {

bool frmMainForm::LogOut(bool mayAsk) {
    answeredFor_.reset();
    if (!mayAsk) {
        SettleDocuments();
        return true;
    }
    std::vector<frmImage*> saved;
    for (const auto& child : Children()) {
        auto& image = static_cast<frmImage&>(*child);
        if (image.alreadysaved) saved.push_back(&image);
    }
    bool cancel = false;
    Form_QueryUnload(cancel);
    // Nothing closes here: what was saved still is.
    for (frmImage* image : saved)
        image->alreadysaved = true;
    if (cancel) return false;
    SettleDocuments();
    answeredFor_ = DocumentsText();
    return true;
}

// Who was asked at the log-out and has changed nothing since has taken his leave. Whatever else there is
// comes back at the next start.
void frmMainForm::EndWithSession() {
    const bool answered = answeredFor_ && *answeredFor_ == DocumentsText();
    if (answered && !UserIsBusy() && !Waiting()) {
        SessionOver = true;
        Unload();
        return;
    }
    SettleDocuments();
    EndProcess(0);
}

} // namespace pintalux
