// The open documents on disk, so that a run that dies loses none: the index of this run follows every change,
// and what runs that died have left is opened again.
#pragma once

#include "files/RunIndex.h"

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

/// Before the process ends by a signal: what floats is recorded, and every state is complete on disk.
void SettleDocuments();

/// What is left of the runs that died: documents that were changed, or never had a file, and whose picture is
/// still whole.
struct LeftDocuments {
    std::vector<RunFiles> runs;
    std::vector<RunDocument> documents;
};
LeftDocuments FindLeftDocuments();

/// Opens a document at its last whole state, with its undo history, as changed.
void OpenLeftDocument(const RunDocument& document);
/// Deletes state files and indices.
void DeleteLeftDocuments(const LeftDocuments& left);
/// The documents are open again and stand in our index: the old ones go, with what they list beside.
void TakeLeftRuns(const LeftDocuments& left);

} // namespace pintalux
