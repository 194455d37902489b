// New, Open, Save and Save As, and the road that every opened picture takes.
#pragma once

#include <string>

namespace pintalux {

void mnuFileNew_Click();
void mnuFileOpen_Click();
void mnuFileClose_Click();
void mnuFileSave_Click();
void mnuFileSaveAs_Click();
void mnuFileMRU_Click(int Index);

/// File Save, for the question at closing.
void MySaveAs();

/// Opens the picture of a path in a new window and puts it into the recent files: the sequence of File Open
/// from the new window on. A picture that the loader refuses leaves the new, empty window; nothing is said.
void OpenDocument(const std::string& path);

} // namespace pintalux
