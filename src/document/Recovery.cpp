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

std::vector<RunDocument> OpenDocuments(const frmImage* closing = nullptr) {
    std::vector<RunDocument> documents;
    for (const auto& child : TheWorkspace.window->Children()) {
        const auto& image = static_cast<const frmImage&>(*child);
        if (&image != closing && image.ListBUorder.ListCount() > 0) documents.push_back(RecordOf(image));
    }
    return documents;
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

enum class Worth { Nothing, Offer, Wait };

/// Nothing, if a close would not ask about it, or there is nothing to see. `whole` becomes what can be
/// opened.
Worth Judge(const RunDocument& document, RunDocument& whole) {
    if (!MakesSense(document)) return Worth::Wait;
    const bool changed = document.order[static_cast<std::size_t>(document.cursor)] != 0;
    if (document.saved || (!changed && !document.file.empty())) return Worth::Nothing;
    whole = document;
    bool blank = false;
    // What cannot be looked at now is not therefore worth nothing.
    ResumeNext([&] {
        whole = WholePart(document);
        blank =
            !changed && !whole.order.empty() && IsOneColour(States().LoadState(StateAt(whole, whole.cursor)));
    });
    if (whole.order.empty()) return Worth::Wait;
    return blank ? Worth::Nothing : Worth::Offer;
}

void AddStates(const std::vector<RunDocument>& documents, std::set<std::string>& states) {
    for (const RunDocument& document : documents)
        states.insert(document.states.begin(), document.states.end());
}

void DeleteStates(const std::set<std::string>& states) {
    std::set<std::string> ours; // A name that was free may have come to us.
    AddStates(OpenDocuments(), ours);
    for (const std::string& state : states)
        if (!ours.contains(state) && IsStateName(state)) ResumeNext([&] { ForgetState(state); });
}

/// The indices give up the documents all of whose states are among these.
void GiveUp(const std::vector<RunFiles>& runs, const std::set<std::string>& states) {
    for (const RunFiles& run : runs) {
        auto rest = ReadIndexFile(run.index);
        if (!rest) continue;
        std::erase_if(*rest, [&](const RunDocument& document) {
            return std::all_of(document.states.begin(), document.states.end(), [&](const std::string& state) {
                return state.empty() || states.contains(state);
            });
        });
        if (rest->empty()) {
            DeleteRunFiles(run);
        } else {
            const std::string text = IndexText(*rest);
            ResumeNext([&] {
                WritePrivateFileAside(run.index,
                                      [&](File& file) { file.Write(std::as_bytes(std::span(text))); });
            });
        }
    }
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
    States().WriteBehind(ourRun.index, IndexText(OpenDocuments(closing)));
}

std::string DocumentsText() {
    return IndexText(OpenDocuments());
}

void SettleDocuments() {
    if (!TheWorkspace.window) return;
    for (const auto& child : TheWorkspace.window->Children()) {
        auto& image = static_cast<frmImage&>(*child);
        // A merge works on the active document.
        ResumeNext([&] { image.Show(); }, [&] { MergeFloating(image); });
    }
    States().Settle();
}

LeftDocuments FindLeftDocuments() {
    LeftDocuments left;
    for (RunFiles& run : LeftRuns()) {
        const auto documents = ReadIndexFile(run.index);
        if (!documents) continue;
        std::vector<RunDocument> offered;
        std::vector<RunDocument> dispensable;
        for (const RunDocument& document : *documents) {
            RunDocument whole;
            const Worth worth = Judge(document, whole);
            if (worth == Worth::Offer) offered.push_back(std::move(whole));
            if (worth == Worth::Nothing) dispensable.push_back(document);
        }
        if (offered.empty() && dispensable.size() < documents->size()) continue;
        left.documents.insert(left.documents.end(), offered.begin(), offered.end());
        AddStates(dispensable, left.dispensable);
        left.runs.push_back(std::move(run));
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
    std::set<std::string> states = left.dispensable;
    AddStates(left.documents, states);
    DeleteStates(states);
    GiveUp(left.runs, states);
}

void TakeLeftDocuments(const LeftDocuments& left) {
    NoteDocuments();
    States().Settle();
    std::set<std::string> states = left.dispensable;
    // As the disk has it: where it refused our index, theirs must stay.
    if (const auto ours = ReadIndexFile(ourRun.index)) AddStates(*ours, states);
    DeleteStates(left.dispensable);
    GiveUp(left.runs, states);
}

void KeepLeftDocuments(const LeftDocuments& left) {
    for (const RunFiles& run : left.runs)
        RenewRunFiles(run);
}

} // namespace pintalux
