// What every part that touches a selection needs. Its words, each with one meaning:
//
// - piece: pixels that can be moved over the image, a rectangle or a freehand shape. `SelHolder` has them at
//   1:1; `PicSelect` (rectangle) or `PicFreeSelect` (freehand) shows them at the zoom.
// - band: the dotted frame `SelectShape` that a drag of the rectangle tool draws.
// - lift: to copy a piece out of the image. The image stays as it is.
// - float: to lie over the image without being part of it. A piece floats while its surface is visible.
// - placed: of a piece, grabbed by hand or pasted; one that was only lifted has changed nothing yet.
// - hole: the background left where a piece was lifted in cut mode.
// - clean copy: `Pic1BU`, the image that a freehand piece is merged into: its hole is in it, no dash of its
//   path is.
// - merge: to make what floats part of the image. `NeedtoPaste` does it by command, a press on the image does
//   it too.
// - drop: the merge that ends an operation on a piece.
// - discard: to take a piece away unmerged.
// - work and live surface: what a pixel routine draws on, and what takes its result.
// - land: to store a routine's result as the picture of both.
#pragma once

#include "document/frmImage.h"
#include "surface/raster/Transfer.h"

namespace pintalux {

/// Sets `SelectLeft`, `SelectTop`, `Selectwidth` and `Selectheight` to where `place`, a band or a piece, lies
/// in the image: at 2:1 the view pixel 11 is 5.5.
void TakeMembers(frmImage& image, const Control& place);

/// These four in whole image pixels, rounded half to even: 5.5 gives 6. Error 6 beyond 32 bits.
Extent SelectionExtent(const frmImage& image);

/// Switches Cut and Copy on or off, in the menu and on the tool bar.
void EnableCutAndCopy(bool value);

/// Shows the document's image on its display.
void ShowMerge(frmImage& image);

bool PieceFloats(const frmImage& image);
/// Whether a placed piece floats.
bool PieceIsPlaced(const frmImage& image);

/// Before a command that would leave a piece behind or work on the image below it: merges a placed piece and
/// records it as `NeedtoPaste` does. One that was only lifted goes on floating.
void MergePlacedPiece(frmImage& image);
/// Before a save, and before the question whether to save: merges a placed piece or floating text, so that
/// what is written is what is seen. Text that was printed without a state gets its state.
void MergeFloating(frmImage& image);
/// Before an undo or a redo: text that was printed without a state gets one, or it would be lost.
void RecordText(frmImage& image);
/// Before another piece floats: what floats is merged, a piece that was only lifted is discarded.
void MakeRoomForPiece(frmImage& image);
/// Before a zoom, which a clipped surface cannot follow: a freehand piece that was placed is merged.
void MergePlacedFreehand(frmImage& image);
/// The same, and a freehand piece that was only lifted is discarded.
void EndFreehandPiece(frmImage& image);

/// Where a freehand piece lies in the image, in image pixels and their fractions.
struct ImagePlace {
    double x, y;
};
ImagePlace FreehandPlace(const frmImage& image);

/// Takes a piece away. The image is as it was before the lift; a hole that a grab left stays.
void DiscardPiece(frmImage& image);

/// Nothing floats any more, nothing is dragged, and the next grab takes from the image.
void EndPiece(frmImage& image);

/// The image was changed or replaced below a freehand piece: its clean copy follows. An open path has become
/// part of what was recorded and is over.
void FollowWithCleanCopy(frmImage& image);

/// Fills with the background what the freehand piece covers of a copy of the image.
void StampShape(const frmImage& image, Surface& copy);

/// Gives up a freehand path in the middle of its drag: its dashes leave the image.
void AbandonPath(frmImage& image);

/// Sets `PasteFloating` and `FreePasteActive` for the piece of this document.
void TakePieceFlags(const frmImage& image);

/// The image as a merge of the placed piece would make it; document and history stay as they are.
Picture ImageAsSeen(const frmImage& image);

} // namespace pintalux
