// The open documents on disk, so that a run that dies loses none: the index of this run follows every change,
// and what runs that died have left is opened again.
#pragma once

#include "files/RunIndex.h"

#include <set>
#include <string>
#include <vector>

namespace pintalux {

class frmImage;

/// Whether the program keeps an index of its run and offers what others left. The program itself switches it
/// on.
inline bool KeepsRuns = false;

/// Begins to keep an index. Without this call, and where no folder takes the files, nothing is kept.
void BeginRun();
/// A clean end: nothing is left of the run.
void EndRun();

/// The documents have changed: the index follows, behind. A document that is being closed is left out.
void NoteDocuments(const frmImage* closing = nullptr);

/// The documents as the index has them.
std::string DocumentsText();

/// Before the process ends by a signal: what floats is recorded, and every state is complete on disk.
void SettleDocuments();

/// What the runs that died have left, as far as it can be judged. A run stays out of it if its index cannot
/// be read, or if no picture of it can be opened and one might have been worth it; the sweep takes it in
/// time.
struct LeftDocuments {
    std::vector<RunFiles> runs;
    /// To be offered: they were changed, or never had a file, and a state of theirs is whole.
    std::vector<RunDocument> documents;
    /// States of documents that were saved, never changed, or have nothing to see.
    std::set<std::string> dispensable;
};
LeftDocuments FindLeftDocuments();

/// Opens a document at its last whole state, with its undo history, as changed.
void OpenLeftDocument(const RunDocument& document);
/// Deletes the states of what was offered and what is dispensable. An index keeps what else it names, or
/// goes.
void DeleteLeftDocuments(const LeftDocuments& left);
/// Documents are open again: the old indices give up those that stand in ours now, and what is dispensable.
void TakeLeftDocuments(const LeftDocuments& left);
/// All stays for the next start, however late it comes.
void KeepLeftDocuments(const LeftDocuments& left);

} // namespace pintalux
