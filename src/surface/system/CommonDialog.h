// The desktop's open, save and colour dialogs, with Portuguese texts. Those of files show pictures as
// thumbnails and keep their size and folder beyond the program's end.
#pragma once

#include "surface/raster/Colour.h"

#include <string>

namespace pintalux {

/// One object is shared by several commands, so its last `FileName` is what the next dialog proposes.
class CommonDialog {
  public:
    std::string DialogTitle;  ///< Of the file dialogs.
    std::string Filter;       ///< "Text|*.a;*.b|Text|*.c"; patterns match in any case.
    int FilterIndex = 1;      ///< From 1; the user's choice after the dialog.
    bool CancelError = false; ///< A cancel raises error 32755.
    Colour Color = kBlack;

    /// The path chosen by the dialog just shown; empty after a cancel. Assigned, it is what the next dialog
    /// proposes: a bare name in the folder of the last choice, which outlives the program.
    const std::string& FileName() const { return fileName_; }
    void FileName(std::string value) { fileName_ = proposed_ = std::move(value); }

    void ShowOpen(); ///< Existing files only.
    /// The name gets the first ending of the chosen filter, unless it has one of that filter's: "praia" and
    /// "praia.jpg" become "praia.bmp". Asks before a file of the name so made is written over.
    void ShowSave();
    /// Starts at `Color` and leaves the choice there. A cancel keeps it.
    void ShowColor();

  private:
    std::string LastFolder() const;
    void TakeChoice(const std::string& path);
    std::string fileName_;
    std::string proposed_;
    std::string folder_;
};

/// The one common dialog that all commands share; it keeps its last file name between uses.
inline CommonDialog CommonDialog1;

inline constexpr int kDialogCancelled = 32755;

} // namespace pintalux
