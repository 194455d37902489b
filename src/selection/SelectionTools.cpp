#include "selection/SelectionTools.h"

#include "selection/Floating.h"
#include "selection/FreehandSelection.h"
#include "selection/Merge.h"
#include "selection/RectangleSelection.h"
#include "tools/Image1_Pointer.h"
#include "tools/ToolNumbers.h"

namespace pintalux {

namespace {

void ConnectRectangle(frmImage& image) {
    image.PicSelect.MouseDown =
        image.SelectImage.MouseDown = [&image](int, int, double, double) { PicSelect_MouseDown(image); };
    image.PicSelect.MouseUp =
        image.SelectImage.MouseUp = [&image](int, int, double, double) { PicSelect_MouseUp(image); };
    image.SelectImage.MouseMove = [&image](int, int, double X, double Y) {
        MoveOverPiece(image, image.SelectImage, image.PicSelect, X, Y, 1.0 / kTwipsPerPixel);
    };
    image.Timer1.Tick = [&image] { FollowPointer(image, image.PicSelect); };
}

void ConnectFreehand(frmImage& image) {
    Surface& piece = image.PicFreeSelect;
    piece.MouseDown = [&image](int, int, double, double) { PicFreeSelect_MouseDown(image); };
    piece.MouseUp = [&image](int, int, double, double) { PicFreeSelect_MouseUp(image); };
    piece.MouseMove = [&image, &piece](int, int, double X, double Y) {
        MoveOverPiece(image, piece, piece, X, Y, piece.PixelWidth() / piece.ScaleWidth());
    };
    image.TimerFS.Tick = [&image, &piece] { FollowPointer(image, piece); };
}

} // namespace

void ConnectSelection(frmImage& image) {
    ConnectRectangle(image);
    ConnectFreehand(image);
    image.PicFrame.MouseMove = [&image](int, int, double X, double Y) {
        MoveRulerMarks(image, X - image.PicBG.Left(), Y - image.PicBG.Top());
    };
}

void InstallSelectionTools() {
    StepsOf(kSelectTool) = {SelectPress, SelectMove, SelectRelease};
    StepsOf(kFreeSelectTool) = {FreeSelectPress, FreeSelectMove, FreeSelectRelease};
    TheFloatingSteps.mergeRectangle = MergeRectangleByPress;
    TheFloatingSteps.mergeFreehand = MergeFreehandByPress;
}

} // namespace pintalux
