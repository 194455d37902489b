// The document window. There is no document object beside it: the surfaces, the undo lists and a handful of
// members are the document, and commands reach them by name.
//
// The life of one edit: a tool draws on `PicMerge` in image pixels; each step copies it out by
// `Image1.Picture(PicMerge.Image())`, so that it shows at the current zoom; the release draws the final
// figure, copies it out and calls `Backup`, which records one undo state. Nothing reaches the undo lists
// before an action is finished.
#pragma once

#include "document/DocumentParts.h"
#include "files/RunIndex.h"
#include "surface/window/Form.h"

#include <cstdint>
#include <string>

namespace pintalux {

/// A pixel of the image.
struct CrossPlace {
    int x, y;
};

class frmImage : public Form,
                 public DocumentRulers,
                 public DocumentSurfaces,
                 public UndoLists,
                 public DocumentView,
                 public StrokeState,
                 public SelectionState {
  public:
    frmImage();
    ~frmImage() override;

    std::string AFCurfile; ///< Path of the document's file; empty if it was never saved or loaded.
    Flag alreadysaved;     ///< Set from a successful save until the next recorded state.

    // Layout (frmImage_Zoom.cpp, frmImage_Rulers.cpp)
    /// Lays out the scroll bars and centres the image; after any change of image size or zoom. Error 6 where
    /// a scroll range exceeds 32767 pixels.
    void Picsize();
    /// Shows the cross at an image pixel, the nearest one there is, and brings it into view.
    void ShowCross(int x, int y);
    void HideCross();
    /// The image pixel in the middle of what is seen.
    CrossPlace MiddleOfView() const;
    void hiderulers();
    void drawrulers();

    // Undo and redo (frmImage_Undo.cpp)
    /// Records `PicMerge.Image` as a new state, at the end of the history; trims to the step limit.
    void Backup();
    /// Moves the cursor one state back (one forward) and gives the path of the state that is now current.
    std::string MyUndo();
    std::string MyRedo();
    /// Empties the image and fits the window to what is left. No command does: an undo keeps what is shown.
    void Blankme();
    /// Takes the undo history that a run before has left; the document counts as changed.
    void TakeHistory(const RunDocument& left);

    // Selections (selection/frmImage_FreeSelect.cpp, frmImage_ShapeMe.cpp, frmImage_Merge.cpp)
    /// Lifts what lies inside the closed path on `PicMask` to `SelHolder` and shows it on `PicFreeSelect`.
    void MakeSelection();
    /// Clips `Name2` to its pixels that are not `Color`, scanning line by line or column by column.
    void ShapeMe(Colour Color, bool HorizontalScan, Surface& Name2);
    /// Merges whatever floats into `PicMerge`. Records a state, also when nothing floats.
    void NeedtoPaste();

    /// Whether the document stands behind its first state and was not saved since.
    bool Changed() const;
    /// Asks whether to save, if the document stands behind its first state. Its only result is
    /// `CloseCancelled`.
    void CheckChanged();

    static constexpr int kDragInterval = 20;          // milliseconds
    Timer Timer1{kDragInterval, EventKind::Pointer};  ///< A drag of `PicSelect`.
    Timer Timer3{kDragInterval, EventKind::Pointer};  ///< A drag of `lbltext`.
    Timer TimerFS{kDragInterval, EventKind::Pointer}; ///< A drag of `PicFreeSelect`.
    Timer Timer2{250};                                ///< The rulers follow `RulersOn`.

  protected:
    void Form_Load() override;
    void Form_QueryUnload(bool& Cancel) override;
    void Form_Unload() override;
    void Form_Resize() override;
    void Form_Activate() override;

  private:
    void ConnectScrollBars();
    void LayOutHorizontal();
    void LayOutVertical();
    void LayOutCorner();
    void DrawCross();
    void VS_Change();
    void HS_Change();
    void Timer2_Timer();
    void ShowRulers();
    void HideRulers();
    void TrimHistory();
    int CurrentState() const;

    Flag rulersShown_; ///< The value of `RulersOn` that this window has acted on.
};

/// Makes a new document window, numbers it, shows it. It is the active one afterwards.
void NewImageWindow();

/// Shows the active document at 1:1 and shrinks its window to the image, unless it is maximised; never
/// enlarges it.
void FitImageWindow();

} // namespace pintalux
