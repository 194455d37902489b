// The parts that a document window is assembled from, in the order of its story: the surfaces, the undo
// lists, the view, the state of a stroke and of a selection.
#pragma once

#include "base/Flag.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"
#include "surface/window/ListStore.h"
#include "surface/window/Surface.h"
#include "surface/window/Timer.h"

#include <cstdint>
#include <functional>
#include <string>

namespace pintalux {

/// The fixed stack of surfaces. Members stand from the back to the front, so that what comes later lies
/// above.
struct DocumentSurfaces {
    explicit DocumentSurfaces(Form& window);

  private:
    Form& window_;

  public:
    Surface PicFrame{window_, "PicFrame"}; ///< The viewport.

    Surface PicBG{PicFrame, "PicBG"};  ///< The backing panel that is moved to scroll; as large as `Image1`.
    Display Image1{PicBG, "Image1"};   ///< What the user sees of `PicMerge`, stretched by `factor`.
    LineControl Line1{PicBG, "Line1"}; ///< The preview of lines and of round shapes.
    ShapeControl SelectShape{PicBG, "SelectShape"}, ShSquare{PicBG, "ShSquare"};
    Label lbltext{PicBG, "lbltext"};
    Surface PicSelect{PicBG, "PicSelect"};
    Display SelectImage{PicSelect, "SelectImage"};
    ShapeControl PicSelectShape{PicSelect, "PicSelectShape"};
    Surface PicFreeSelect{PicBG, "PicFreeSelect"};
    LineControl CrossX{PicBG, "CrossX"}, CrossY{PicBG, "CrossY"}; ///< Where keys act on the image.

    Surface PicMerge{PicFrame, "PicMerge"};   ///< The document's image, never visible: the one truth.
    Surface SelHolder{PicFrame, "SelHolder"}; ///< The floating piece at 1:1.
    ScrollBar HS{PicFrame, "HS", ScrollBar::Direction::Horizontal};
    ScrollBar VS{PicFrame, "VS", ScrollBar::Direction::Vertical};
    Surface piccorner{PicFrame, "piccorner"};
    Surface BelowBar{PicFrame, "BelowBar"};   ///< The rows that the lying bar leaves below it.
    Surface picsource{PicFrame, "picsource"}; ///< The read side of an image operation.
    Surface Pic1BU{PicFrame, "Pic1BU"};       ///< The clean image under a selection.
    Surface PicMask{PicFrame, "PicMask"};     ///< The mask of a freehand selection.

    Surface picsource1{window_, "picsource1"}; ///< Second source, for resizing.
};

/// Ruler strips along the top and the left edge, hidden until the rulers are switched on.
struct DocumentRulers {
    explicit DocumentRulers(Form& window);

  private:
    Form& window_;

  public:
    Surface TopRuler{window_, "TopRuler"}, LeftRuler{window_, "LeftRuler"};
    /// They show the painted scales and move with the image.
    Display ImgTrule{TopRuler, "ImgTrule"}, ImgLrule{LeftRuler, "ImgLrule"};
    LineControl LineX{TopRuler, "LineX"}, LineY{LeftRuler, "LineY"}; ///< Mark the pointer.
    Surface Picture1{TopRuler, "Picture1"};                          ///< The corner with the readout.
    Label lblx{Picture1, "lblx"}, lbly{Picture1, "lbly"};
    Surface PicTrule{window_, "PicTrule"}, PicLrule{window_, "PicLrule"}; ///< The scales are painted here.
};

/// The undo history: files of states, and the walkable order of them.
struct UndoLists {
    ListStore ListBackup;  ///< Paths of the state files, append only; an entry's index is stable.
    ListStore ListBUorder; ///< Each entry is the decimal index of an entry of `ListBackup`; the cursor is the
                           ///< current state.
    std::string sfilename; ///< The newest state file.
    int before = -1;       ///< The entry of `ListBackup` that was current before the last edit; -1 for none.
};

/// Zoom level and factor of one window.
struct DocumentView {
    std::int16_t factorlevel = 15; ///< 0 to 30; 15 is 1:1.
    double factor = 1.0;           ///< View pixels per image pixel.
    int crossX = -1, crossY = -1;  ///< The image pixel that keys act on; -1: the middle of what is seen.
};

/// What a stroke keeps between press, moves and release.
struct StrokeState {
    Flag unrecorded; ///< Text was printed by a press whose release takes no state: the next state has it.
    Flag swallowed;  ///< The press merged what floats: nothing is drawn until its release.
    Flag abandoned;  ///< Escape ended the stroke: its release does nothing.
    Flag byKeys;     ///< A key holds the button, at the cross.
    std::function<void()> EndKeys; ///< The key lets go of the button, if it holds it.
    Flag chainBefore;              ///< `curpoly` as the press found it.
    Flag curpoly;                  ///< The next press starts a new chain of lines.
    std::int16_t sx = 0,
                 sy = 0; ///< Anchor or last point, image pixels (view pixels for the rectangle selection).
    Colour curtranscolor = 0; ///< The image's background when the stroke began.
    Colour curdrawcolor = 0;  ///< What the stroke draws.
    std::int16_t PenTipX1 = 0, PenTipY1 = 0, PenTipX2 = 0, PenTipY2 = 0; ///< Offsets of a slanted tip.
    std::int16_t TextGrabX = 0, TextGrabY = 0;                           ///< Grab offset of the dragged text.
};

/// What was done with the piece that floats.
enum class PieceState {
    Lifted,  ///< Nothing yet: it lies where it came from, and the image is as it was. Also while none floats.
    Grabbed, ///< It was taken by hand.
    Pasted,  ///< It came from the clipboard and never was in the image.
};

/// What a selection keeps.
struct SelectionState {
    std::int32_t SelX = 0, SelY = 0; ///< View pixels where the rectangle began.
    Flag selecting; ///< Set between press and release of the band's drag. Nothing is decided by it.
    double SelectLeft = 0, SelectTop = 0, Selectwidth = 0, Selectheight = 0; ///< Image pixels.
    PieceState piece = PieceState::Lifted;
    Flag hole; ///< The piece left one: in the clean copy from the lift on, in the image from the first grab.
    /// The zoom factor at which a freehand piece was lifted, 0 once it was grabbed and for a pasted one.
    /// Until then its place on the view counts by that factor: not every zoom rescales it.
    double liftedAt = 0;
    double SelectpicX = 0, SelectpicY = 0; ///< Grab offset of a dragged piece.
    Flag FreeSelDrawing;                   ///< The path of the running drag is over.
    Flag pathOpen; ///< A press of the freehand tool began a path that no release has ended.
    std::int16_t FreeStartX = 0, FreeStartY = 0; ///< First point of the path, image pixels.
    std::int16_t FreeMinX = 0, FreeMinY = 0, FreeMaxX = 0, FreeMaxY = 0; ///< Box around the path.
};

} // namespace pintalux
