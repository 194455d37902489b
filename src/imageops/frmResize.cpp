#include "imageops/frmResize.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/frmImage.h"
#include "document/Workspace.h"
#include "surface/system/MsgBox.h"
#include "surface/window/Layout.h"
#include "surface/window/Screen.h"
#include "surface/window/SpinnerPair.h"

#include <algorithm>

namespace pintalux {

AutoForm<frmResizeForm> frmResize;

namespace {

constexpr double kLargestTwips = 32000; // Of a side.
constexpr std::size_t kPixelDigits = 4;
constexpr std::size_t kPercentDigits = 3;

/// A bar that would be driven out of its range stands at its end.
void MoveTo(ScrollBar& bar, double value) {
    bar.Value(std::clamp<double>(value, bar.Min(), bar.Max()));
}

/// Moves an inverted bar to the number n.
void ShowNumber(ScrollBar& bar, double n) {
    MoveTo(bar, bar.Max() - n);
}

double ImageWidth() {
    return ActiveImage().PicMerge.ScaleWidth();
}
double ImageHeight() {
    return ActiveImage().PicMerge.ScaleHeight();
}

std::int32_t ClampedToInt32(double value) {
    constexpr double kFar = 1e9;
    return ToInt32(std::clamp(value, -kFar, kFar));
}

} // namespace

frmResizeForm::frmResizeForm()
    : Form("frmResize", Kind::Dialog),
      numbers_{
          {{txtPXw, VSPXw, kPixelDigits, &frmResizeForm::PXwMoved, &frmResizeForm::PXwWidth, "", ""},
           {txtPXh, VSPXh, kPixelDigits, &frmResizeForm::PXhMoved, &frmResizeForm::PXhWidth, "", ""},
           {txtPCw, VSPCw, kPercentDigits, &frmResizeForm::PCwMoved, &frmResizeForm::PCwWidth, "", ""},
           {txtPCh, VSPCh, kPercentDigits, &frmResizeForm::PChMoved, &frmResizeForm::PChWidth, "", ""}}} {
    Caption("Redimensionar a Imagem");
    for (Number& number : numbers_)
        Connect(number);
    Option1.Click = [this] { Option1_Click(); };
    Option2.Click = [this] { Option2_Click(); };
    ChAspRatio.Click = [this] { ChAspRatio_Click(); };
    cmdOK.Click = [this] { cmdOK_Click(); };
    cmdCancel.Click = [this] { cmdCancel_Click(); };
    cmdOK.Default(true);
    cmdCancel.Cancel(true);
    LayOut();
    for (ScrollBar* percent : {&VSPCw, &VSPCh}) {
        percent->Min(1);
        percent->Value(percent->Max());
    }
    Option1.Value(true);
}

void frmResizeForm::LayOut() {
    LabelFor(lblPXw, txtPXw);
    LabelFor(lblPXh, txtPXh);
    LabelFor(lblPCw, txtPCw);
    LabelFor(lblPCh, txtPCh);
    txtPXw.AccessibleName("Largura em pixeis");
    txtPXh.AccessibleName("Altura em pixeis");
    txtPCw.AccessibleName("Largura em percentagem");
    txtPCh.AccessibleName("Altura em percentagem");
    LayOutGrid(Frame1, {{&lblPXw, 0, 0},
                        {&txtPXw, 0, 1},
                        {&VSPXw, 0, 2, 1, 1, Place::Left},
                        {&lblPXh, 0, 3},
                        {&txtPXh, 0, 4},
                        {&VSPXh, 0, 5, 1, 1, Place::Left}});
    LayOutGrid(Frame2, {{&lblPCw, 0, 0},
                        {&txtPCw, 0, 1},
                        {&VSPCw, 0, 2, 1, 1, Place::Left},
                        {&lblPCh, 0, 3},
                        {&txtPCh, 0, 4},
                        {&VSPCh, 0, 5, 1, 1, Place::Left}});
    LayOutGrid(*this, {{&Option1, 0, 0},
                       {&Frame1, 1, 0},
                       {&Option2, 2, 0},
                       {&Frame2, 3, 0},
                       {&ChAspRatio, 4, 0},
                       {&cmdOK, 0, 1},
                       {&cmdCancel, 1, 1, 1, 1, Place::Fill}});
}

void frmResizeForm::Connect(Number& number) {
    BindSpinner(number.text, number.bar);
    number.bar.Change = number.bar.Scroll = [this, &number] { Bar_Change(number); };
    number.text.Change = [this, &number] { Text_Change(number); };
    number.text.KeyUp = [this, &number](int, int) { Text_KeyUp(number); };
    const auto digits = number.text.KeyPress;
    number.text.KeyPress = [this, digits, &number](int& KeyAscii) {
        Text_KeyPress(number, KeyAscii);
        digits(KeyAscii);
    };
}

void frmResizeForm::Form_Load() {
    confirmed_ = false;
}

// The first digit typed replaces the proposed width.
void frmResizeForm::Form_Activate() {
    txtPXw.SetFocus();
    txtPXw.SelectAll();
}

void frmResizeForm::Form_QueryUnload(bool&) {
    if (!confirmed_) ResizeCancelled = true;
}

// The two sizes stand with a blank before them until a bar moves, as the platform formats numbers.
void frmResizeForm::ShowImageSize() {
    ResizeUpdating = true;
    ShowNumber(VSPXh, ImageHeight());
    ShowNumber(VSPXw, ImageWidth());
    ShowNumber(VSPCh, 100);
    ShowNumber(VSPCw, 100);
    Write(numbers_[kPXh], FormattedNumber(ImageHeight()));
    Write(numbers_[kPXw], FormattedNumber(ImageWidth()));
    ResizeUpdating = false;
    ChAspRatio.Value(1);
    for (Number& number : numbers_)
        number.lastGood = number.text.Text();
}

// Intended: the percentage of the height follows that of the width, so that with the aspect kept both are one
// number whatever the pixels round to.
void frmResizeForm::updateall(const double& width) {
    const double w = width;
    ResizeUpdating = true;
    MoveTo(VSPXw, VSPXw.Max() - w);
    MoveTo(VSPCw, VSPCw.Max() - 100 * (w / ImageWidth()));
    MoveTo(VSPXh, VSPXw.Max() - w / ResizeRatio);
    MoveTo(VSPCh, VSPCw.Max() - 100 * (w / ImageWidth()));
    ResizeUpdating = false;
}

void frmResizeForm::Write(Number& number, const std::string& text) {
    writing_ = true;
    number.text.Text(text);
    writing_ = false;
    number.settled = text;
}

// Intended: without the aspect, too, both groups show one size, so that a number of pixels that is no whole
// percentage goes to one that is.
void frmResizeForm::Bar_Change(Number& number) {
    const double n = number.bar.Max() - number.bar.Value();
    Write(number, KeepAlnum(FormattedNumber(n)));
    if (!KeepsAspect()) return (this->*number.moved)(n);
    if (ResizeUpdating) return;
    // Of a height the width is rounded first: there it comes to whole pixels, as it does in a text box.
    const double width = (this->*number.impliedWidth)(n);
    updateall(&number == &numbers_[kPXh] ? RoundHalfEven(width) : width);
}

void frmResizeForm::Text_Change(Number& number) {
    if (writing_ || number.text.Text().size() <= number.longest) return;
    Write(number, number.lastGood);
}

// A height that is already too long takes no key at all; the other boxes give way when the text has
// changed.
void frmResizeForm::Text_KeyPress(Number& number, int& KeyAscii) {
    if (&number != &numbers_[kPXh]) return;
    const std::string text = number.text.Text();
    if (text.size() <= number.longest || text == number.settled) return;
    KeyAscii = 0;
    Write(number, number.lastGood);
}

// A key that typed nothing, such as the Tab that led into the box, changes nothing.
// Intended: the height stays as it was typed, though the width that it implies is rounded and cut, so that no
// digit changes under the hand.
void frmResizeForm::Text_KeyUp(Number& number) {
    const std::string typed = number.text.Text();
    if (typed == number.settled) return;
    number.settled = typed;
    const double value = Val(typed);
    ResizeWorkWidth = ClampedToInt32((this->*number.impliedWidth)(value));
    // The twips of a pixel's height serve for the width too.
    if (Screen.TwipsPerPixelY() * ResizeWorkWidth > kLargestTwips)
        ResizeWorkWidth = ToInt32(kLargestTwips / Screen.TwipsPerPixelY());
    if (KeepsAspect()) {
        updateall(ResizeWorkWidth);
        if (&number == &numbers_[kPXh]) Write(number, typed);
    } else {
        (this->*number.moved)(value);
    }
    number.lastGood = number.text.Text();
}

void frmResizeForm::PXwMoved(double n) {
    ShowNumber(VSPCw, 100 * n / ImageWidth());
}

void frmResizeForm::PXhMoved(double n) {
    ShowNumber(VSPCh, 100 * n / ImageHeight());
}

void frmResizeForm::PCwMoved(double n) {
    ShowNumber(VSPXw, ImageWidth() * n / 100);
}

void frmResizeForm::PChMoved(double n) {
    ShowNumber(VSPXh, ImageHeight() * n / 100);
}

double frmResizeForm::PCwWidth(double n) const {
    return ImageWidth() * n / 100;
}

double frmResizeForm::PChWidth(double n) const {
    return ResizeRatio * (ImageHeight() * n / 100);
}

void frmResizeForm::ChAspRatio_Click() {
    if (!KeepsAspect()) return;
    ShowNumber(VSPXh, Val(txtPXw.Text()) / ResizeRatio);
    VSPCh.Value(VSPCw.Value());
}

void frmResizeForm::Option1_Click() {
    EnableGroup(true);
}

void frmResizeForm::Option2_Click() {
    EnableGroup(false);
}

void frmResizeForm::EnableGroup(bool pixels) {
    Frame1.Enabled(pixels);
    Frame2.Enabled(!pixels);
    for (TextBox* box : {&txtPXw, &txtPXh}) {
        box->Enabled(pixels);
        box->BackColor(pixels ? kSystem3DLight : kSystemMenu);
    }
    for (TextBox* box : {&txtPCw, &txtPCh}) {
        box->Enabled(!pixels);
        box->BackColor(pixels ? kSystemMenu : kSystem3DLight);
    }
}

// Intended: the pixels decide, whichever group is active, as percentages come to whole pixels there.
void frmResizeForm::cmdOK_Click() {
    ResizeCancelled = false;
    ResizeHeightTwips = ClampedToInt32(Val(txtPXh.Text()) * Screen.TwipsPerPixelY());
    ResizeWidthTwips = ClampedToInt32(Val(txtPXw.Text()) * Screen.TwipsPerPixelX());
    if (ResizeHeightTwips > kLargestTwips || ResizeWidthTwips > kLargestTwips) {
        MsgBox("This is much too big !", BoxButtons::Ok, BoxIcon::Critical, kMessageTitle);
        return;
    }
    confirmed_ = true;
    Unload();
}

void frmResizeForm::cmdCancel_Click() {
    ResizeCancelled = true;
    Unload();
}

} // namespace pintalux
