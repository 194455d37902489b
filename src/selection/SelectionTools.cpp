#include "selection/SelectionTools.h"

#include "document/BarPositions.h"
#include "selection/Floating.h"
#include "selection/FreehandSelection.h"
#include "selection/Merge.h"
#include "selection/RectangleSelection.h"
#include "tools/Image1_Pointer.h"

namespace pintalux {

namespace {

void SelectImage_MouseDown(frmImage& image) {
    PicSelect_MouseDown(image);
}

void SelectImage_MouseUp(frmImage& image) {
    PicSelect_MouseUp(image);
}

void SelectImage_MouseMove(frmImage& image, double X, double Y) {
    MoveOverPiece(image, image.SelectImage, image.PicSelect, X, Y, 1.0 / kTwipsPerPixel);
}

void PicFreeSelect_MouseMove(frmImage& image, double X, double Y) {
    Surface& piece = image.PicFreeSelect;
    MoveOverPiece(image, piece, piece, X, Y, piece.PixelWidth() / piece.ScaleWidth());
}

// Over the empty viewport.
void PicFrame_MouseMove(frmImage& image, double X, double Y) {
    MoveRulerMarks(image, X - image.PicBG.Left(), Y - image.PicBG.Top());
}

/// An event of a document that needs the document alone.
PointerEvent On(frmImage& image, void (*handler)(frmImage&)) {
    return [&image, handler](int, int, double, double) { handler(image); };
}

/// One that also needs the place.
PointerEvent At(frmImage& image, void (*handler)(frmImage&, double, double)) {
    return [&image, handler](int, int, double X, double Y) { handler(image, X, Y); };
}

} // namespace

void ConnectSelection(frmImage& image) {
    image.PicSelect.MouseDown = On(image, PicSelect_MouseDown);
    image.PicSelect.MouseUp = On(image, PicSelect_MouseUp);
    image.SelectImage.MouseDown = On(image, SelectImage_MouseDown);
    image.SelectImage.MouseUp = On(image, SelectImage_MouseUp);
    image.SelectImage.MouseMove = At(image, SelectImage_MouseMove);
    image.Timer1.Tick = [&image] { FollowPointer(image, image.PicSelect); };
    image.PicFreeSelect.MouseDown = On(image, PicFreeSelect_MouseDown);
    image.PicFreeSelect.MouseUp = On(image, PicFreeSelect_MouseUp);
    image.PicFreeSelect.MouseMove = At(image, PicFreeSelect_MouseMove);
    image.TimerFS.Tick = [&image] { FollowPointer(image, image.PicFreeSelect); };
    image.PicFrame.MouseMove = At(image, PicFrame_MouseMove);
}

void ConnectFloatingSteps() {
    TheFloatingSteps.mergeRectangle = MergeRectangleByPress;
    TheFloatingSteps.mergeFreehand = MergeFreehandByPress;
}

constexpr Tool kTools[] = {
    {
        .number = kSelectTool,
        .key = "Select",
        .toolTip = "Selecionar uma região na imagem",
        .icon = ":/icons/select.svg",
        .caption = "Selecção rectangular",
        .letter = 'S',
        .page = kSelectionPage,
        .chosen = SelectChosen,
        .press = SelectPress,
        .drag = SelectMove,
        .release = SelectRelease,
        .pointer = {kPointerCross},
        .scrollsAtEdges = true,
        .atRelease = AtRelease::Nothing,
    },
    {
        .number = kFreeSelectTool,
        .key = "FreeSelect",
        .toolTip = "Ferramenta livre de selecção",
        .icon = ":/icons/freeselect.svg",
        .caption = "Selecção à mão livre",
        .letter = 'M',
        .page = kSelectionPage,
        .press = FreeSelectPress,
        .drag = FreeSelectMove,
        .release = FreeSelectRelease,
        .scrollsAtEdges = true,
        .atRelease = AtRelease::Nothing,
    },
};

const std::span<const Tool> SelectionTools = kTools;

} // namespace pintalux
