#include "tools/Text.h"

#include "base/Arithmetic.h"
#include "document/frmImage.h"
#include "document/Workspace.h"
#include "surface/window/Screen.h"
#include "tools/frmText.h"
#include "tools/Image1_Pointer.h"

#include <cmath>

namespace pintalux {

namespace {

// The pointer's place on the screen, where the image pixel under it begins.
CursorPosition SnappedCursor(const frmImage& image) {
    const auto snapped = [&image](int v) { return ToInt32(std::floor(v / image.factor) * image.factor); };
    const CursorPosition CursorPoint = GetCursorPos();
    return {snapped(CursorPoint.x), snapped(CursorPoint.y)};
}

void lbltext_MouseDown(frmImage& image) {
    const CursorPosition CursorPoint = SnappedCursor(image);
    image.TextGrabX = ToInt16(CursorPoint.x - image.lbltext.Left());
    image.TextGrabY = ToInt16(CursorPoint.y - image.lbltext.Top());
    image.Timer3.Enabled(true);
}

void Timer3_Timer(frmImage& image) {
    const CursorPosition CursorPoint = SnappedCursor(image);
    image.lbltext.Left(CursorPoint.x - image.TextGrabX);
    image.lbltext.Top(CursorPoint.y - image.TextGrabY);
}

void TakeFont(Surface& surface, const Label& label) {
    surface.FontName(label.FontName());
    surface.FontStrikethru(label.FontStrikethru());
    surface.FontUnderline(label.FontUnderline());
    surface.ForeColor(label.ForeColor());
    surface.FontSize(label.FontSize());
    surface.FontBold(label.FontBold());
    surface.FontItalic(label.FontItalic());
}

void PrintAndHide(frmImage& image) {
    image.PicMerge.Print(image.lbltext.Caption());
    image.lbltext.Visible(false);
}

} // namespace

void TextChosen() {
    frmImage& image = ActiveImage();
    if (image.lbltext.Visible()) image.NeedtoPaste();
    frmText->ShowModal();
}

// Intended: place and size of the label count as they are on the view, so that at 1:1 the print is exactly
// what floated there; at another zoom the text lands as many times larger and further out.
void CommitTextByPress(frmImage& image) {
    TakeFont(image.PicMerge, image.lbltext);
    image.PicMerge.CurrentX(image.lbltext.Left());
    image.PicMerge.CurrentY(image.lbltext.Top());
    PrintAndHide(image);
}

// Intended: a command prints where the image was printed on last, so that several texts committed by commands
// stand below each other as lines do.
void CommitTextByCommand(frmImage& image) {
    TakeFont(image.PicMerge, image.lbltext);
    PrintAndHide(image);
}

void ConnectTextSteps() {
    TheFloatingSteps.commitTextByPress = CommitTextByPress;
    TheFloatingSteps.commitTextByCommand = CommitTextByCommand;
}

void ConnectText(frmImage& image) {
    image.lbltext.MousePointer(kPointerSizeAll);
    image.lbltext.MouseDown = [&image](int, int, double, double) { lbltext_MouseDown(image); };
    image.lbltext.MouseUp = [&image](int, int, double, double) { image.Timer3.Enabled(false); };
    image.Timer3.Tick = [&image] { Timer3_Timer(image); };
}

} // namespace pintalux
