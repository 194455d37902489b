#include "document/Recovery.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "document/ImageMenus.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "surface/system/FileLayer.h"
#include "surface/window/MDIForm.h"

#include <algorithm>
#include <set>

namespace pintalux {

namespace {

RunFiles ourRun;

RunDocument RecordOf(const frmImage& image) {
    RunDocument document;
    document.file = image.AFCurfile;
    document.caption = image.Caption();
    document.saved = image.alreadysaved;
    document.cursor = image.ListBUorder.ListIndex();
    document.before = image.before;
    for (int i = 0; i < image.ListBackup.ListCount(); ++i)
        document.states.push_back(image.ListBackup.List(i));
    for (int i = 0; i < image.ListBUorder.ListCount(); ++i)
        document.order.push_back(ToInt32(Val(image.ListBUorder.List(i))));
    return document;
}

const std::string& StateAt(const RunDocument& document, int position) {
    return document.states[static_cast<std::size_t>(document.order[static_cast<std::size_t>(position)])];
}

/// Without the states whose files are gone or broke off. The cursor stays on its state; where that one broke
/// off, it goes to what was current before it, or else to the nearest one in front of it that is whole.
RunDocument WholePart(const RunDocument& document) {
    RunDocument whole = document;
    whole.order.clear();
    whole.cursor = 0;
    int before = -1;
    bool cursorIsWhole = false;
    for (int position = 0; position < static_cast<int>(document.order.size()); ++position) {
        if (!States().Adopt(StateAt(document, position))) continue;
        const int place = document.order[static_cast<std::size_t>(position)];
        const int there = static_cast<int>(whole.order.size());
        if (place == document.before) before = there;
        if (position <= document.cursor) whole.cursor = there;
        if (position == document.cursor) cursorIsWhole = true;
        whole.order.push_back(place);
    }
    if (!cursorIsWhole && before >= 0) whole.cursor = before;
    return whole;
}

bool IsOneColour(const Picture& picture) {
    const Pixel first = picture.At(0, 0);
    for (int y = 0; y < picture.Height(); ++y) {
        for (int x = 0; x < picture.Width(); ++x)
            if (picture.At(x, y) != first) return false;
    }
    return true;
}

/// A close would ask about it; or it came from nowhere but the clipboard, and there is something to see.
bool IsWorthKeeping(const RunDocument& document, const RunDocument& whole) {
    if (whole.order.empty() || document.saved) return false;
    if (document.order[static_cast<std::size_t>(document.cursor)] != 0) return true;
    return document.file.empty() && !IsOneColour(States().LoadState(StateAt(whole, whole.cursor)));
}

} // namespace

void BeginRun() {
    ourRun = MakeRunFiles();
}

void EndRun() {
    States().Settle();
    States().ForgetText(ourRun.index);
    DeleteRunFiles(ourRun);
    ourRun = {};
}

void NoteDocuments(const frmImage* closing) {
    if (!ourRun.held) return;
    std::vector<RunDocument> documents;
    for (const auto& child : TheWorkspace.window->Children()) {
        const auto& image = static_cast<const frmImage&>(*child);
        if (&image != closing && image.ListBUorder.ListCount() > 0) documents.push_back(RecordOf(image));
    }
    States().WriteBehind(ourRun.index, IndexText(documents));
}

void SettleDocuments() {
    for (const auto& child : TheWorkspace.window->Children()) {
        auto& image = static_cast<frmImage&>(*child);
        // A merge works on the active document.
        ResumeNext([&] { image.Show(); }, [&] { MergeFloating(image); });
    }
    States().Settle();
}

LeftDocuments FindLeftDocuments() {
    LeftDocuments left;
    left.runs = LeftRuns();
    for (const RunFiles& run : left.runs) {
        for (const RunDocument& document : ReadIndexFile(run.index))
            ResumeNext([&] {
                RunDocument whole = WholePart(document);
                if (IsWorthKeeping(document, whole)) left.documents.push_back(std::move(whole));
            });
    }
    return left;
}

void OpenLeftDocument(const RunDocument& document) {
    const Picture picture = States().LoadState(StateAt(document, document.cursor));
    NewImageWindow();
    frmImage& image = ActiveImage();
    image.PicMerge.Picture(picture);
    image.AFCurfile = document.file;
    FitImageWindow();
    image.Picsize();
    image.Caption(document.caption);
    image.TakeHistory(document);
    EnableImageMenus();
}

void DeleteLeftDocuments(const LeftDocuments& left) {
    for (const RunFiles& run : left.runs) {
        for (const RunDocument& document : ReadIndexFile(run.index)) {
            for (const std::string& state : document.states)
                if (IsStateName(state)) ResumeNext([&] { ForgetState(state); });
        }
        DeleteRunFiles(run);
    }
}

void TakeLeftRuns(const LeftDocuments& left) {
    NoteDocuments();
    States().Settle();
    std::set<std::string> ours;
    for (const auto& child : TheWorkspace.window->Children()) {
        const RunDocument document = RecordOf(static_cast<const frmImage&>(*child));
        ours.insert(document.states.begin(), document.states.end());
    }
    for (const RunFiles& run : left.runs) {
        for (const RunDocument& document : ReadIndexFile(run.index)) {
            for (const std::string& state : document.states)
                if (!ours.contains(state) && IsStateName(state)) ResumeNext([&] { ForgetState(state); });
        }
        DeleteRunFiles(run);
    }
}

} // namespace pintalux
