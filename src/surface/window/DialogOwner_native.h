// Dialogs of the toolkit over the windows of the program.
#pragma once

#include <QDialog>

namespace pintalux {

/// The window that a dialog belongs to: the modal one on top, the active one, or the main window; null where
/// none of them shows.
QWidget* OwnerOf(const QDialog& dialog);

/// Puts a dialog that is about to show over the window that the user works in: the modal one on top, the
/// active one, or the main window. The dialog stays its maker's own: a window that goes while the dialog
/// shows, or was hidden just before, does not take the dialog along.
void PlaceOverOwner(QDialog& dialog);

} // namespace pintalux
