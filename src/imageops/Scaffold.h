// What all image operations share around their pixel routine.
//
// The road of one: `ChooseTarget`; a `LoadedWork` takes a copy of the pixels; the dialog, if there is one;
// the pixel routine, which lands its result on the work and the live surface; `DropRectangle` or
// `DropFreehand` for a selection; `FinishOperation`, which shows the image and takes the one undo state.
// Nothing is caught on the way: an error stops the program, with every document safe on a disk.
#pragma once

#include "base/Flag.h"
#include "surface/raster/Colour.h"

#include <functional>

namespace pintalux {

class frmImage;
class ProgressBar;
class Surface;
struct SampleParts;

enum class Target {
    Rectangle,  ///< `PicSelect` floats: worked on there, the live surface is `SelHolder`.
    Freehand,   ///< `PicFreeSelect` floats: the same two surfaces.
    WholeImage, ///< Worked on in `picsource`; the live surface is `PicMerge`.
};

/// What floats decides, the rectangle before the freehand piece.
Target ChooseTarget(const frmImage& image);

/// The surfaces that a pixel routine gets.
struct WorkSurfaces {
    Surface& work;
    Surface& live;
};
WorkSurfaces SurfacesOf(frmImage& image, Target target);

/// False for a surface without extent, such as a selection drawn along a line: no routine can run over it.
bool HasPixels(const Surface& surface);

/// The progress bar of the main window.
ProgressBar& TheProgressBar();

/// While it lives, the work surface of a target holds a copy of the live one, in the copy's own size whatever
/// the zoom. For a selection the document's window is not repainted meanwhile; at the end `PicSelect` has the
/// size back that it has on the view.
class LoadedWork {
  public:
    LoadedWork(frmImage& image, Target target);
    ~LoadedWork();
    LoadedWork(const LoadedWork&) = delete;
    LoadedWork& operator=(const LoadedWork&) = delete;

  private:
    void ShowAgain() const;

    frmImage& image_;
    Target target_;
    double viewWidth_, viewHeight_;
    bool locked_ = false;
};

/// The active document, for an operation that takes what floats as its target.
frmImage& ImageForOperation();
/// The active document, for an operation that takes the whole image whatever floats: a piece that was grabbed
/// or pasted is merged first.
frmImage& WholeImageForOperation();
/// Brings the document of a command back to the front: another one may have opened while its dialog stood.
void BringBack(frmImage& image);

/// While it lives, a freehand piece is masked and nothing else is: `FreeSelActive` goes by the target. At
/// other times the flag says what the next paste makes float, and outlives its piece.
class MaskOnlyFreehand {
  public:
    explicit MaskOnlyFreehand(Target target);
    ~MaskOnlyFreehand();
    MaskOnlyFreehand(const MaskOnlyFreehand&) = delete;
    MaskOnlyFreehand& operator=(const MaskOnlyFreehand&) = delete;

  private:
    Flag kept_;
};

/// A pasted piece that was never dragged: its place on the view becomes the selection's.
void TakePastedPlace(frmImage& image);

/// Drops `width` by `height` pixels of `SelHolder` onto the image, where the selection is; it ends.
void DropRectangle(frmImage& image, double width, double height);

/// Drops `SelHolder` in its own size onto the clean copy, where the freehand piece floats, without the pixels
/// of `MaskKeyColour`; the selection ends.
void DropFreehand(frmImage& image);

/// Runs a routine that has no dialog and knows no mask over what floats, or over the image; lands, drops and
/// finishes it. On a piece it works on `SelHolder`; outside a freehand outline nothing changes.
void RunMasklessStep(frmImage& image, const std::function<void(Surface& work, Surface& live)>& routine);

/// Gives the pixels of the target to a dialog's sample, before the dialog is shown.
void PrepareSample(frmImage& image, Target target, SampleParts& sample);

/// What follows an accepted dialog: its area is repainted, `routine` runs over the surfaces of the target, if
/// they have pixels, and its result is committed. Nothing happens to a document that was closed meanwhile.
void RunOperation(frmImage& image, Target target,
                  const std::function<void(Surface& work, Surface& live)>& routine);

/// Drops the result of a selection onto the image, shows it and records one undo state.
void Commit(frmImage& image, Target target);

/// Shows the image and records one undo state.
void FinishOperation(frmImage& image);

/// Shows an image whose size has changed, at `factor` view pixels for each of its own.
void ShowNewSize(frmImage& image, double factor);

/// Margins in pixels.
struct Margins {
    int left, top, right, bottom;
};

/// Gives the image margins in a colour and shows it at the zoom that there is. A rectangle that floats stays
/// where it is on the view.
void GrowCanvas(frmImage& image, const Margins& margins, Colour colour);

/// Shows the active document, whose size has changed, pixel for pixel, so that tools hit what they point at:
/// its window fits, its scroll bars and rulers follow.
void ShowActualSize(frmImage& image);

/// The document's window takes the size of the image, with the rulers' if they are on, unless it is
/// maximised. A window that grows stays within the workspace.
void FitWindow(frmImage& image);

} // namespace pintalux
