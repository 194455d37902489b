// New, Open, Save and Save As, and the road that every opened picture takes.
#pragma once

#include <string>

namespace pintalux {

void mnuFileNew_Click();
void mnuFileOpen_Click();
void mnuFileClose_Click();
void mnuFileMRU_Click(int Index);

/// How a save ended. A failure was told to the user, with path and reason, and changed nothing.
enum class SaveResult { Saved, Failed, Cancelled };
SaveResult mnuFileSave_Click();
SaveResult mnuFileSaveAs_Click();

/// File Save, for the question at closing.
SaveResult MySaveAs();

/// Opens the picture of a path in a new window and puts it into the recent files: the sequence of File Open
/// from the new window on. A picture that the loader refuses leaves the new, empty window; nothing is said.
void OpenDocument(const std::string& path);

} // namespace pintalux
