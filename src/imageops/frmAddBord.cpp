#include "imageops/frmAddBord.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "colour/ListedColour.h"
#include "document/frmImage.h"
#include "document/Selection.h"
#include "document/Workspace.h"
#include "imageops/Scaffold.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/Layout.h"
#include "surface/window/SpinnerPair.h"

#include <algorithm>

namespace pintalux {

AutoForm<frmAddBordForm> frmAddBord;

namespace {

constexpr int kWidest = 400; // pixels of a margin

/// What a box shows. A number that was pasted and never reached its bar counts as the widest margin at most.
int MarginIn(const TextBox& text) {
    return ToInt32(std::clamp<double>(Val(text.Text()), 0, kWidest));
}

/// True if the image with its margins can be recorded; else says why not.
bool CanGrow(const frmImage& image, const Margins& m) {
    const int width = image.PicMerge.PixelWidth() + m.left + m.right;
    const int height = image.PicMerge.PixelHeight() + m.top + m.bottom;
    if (width <= kMaxPictureSide && height <= kMaxPictureSide) return true;
    MsgBox("A imagem ficaria com " + NumberText(width) + " por " + NumberText(height) +
               " pixeis, e o máximo são " + NumberText(kMaxPictureSide) +
               ". A imagem ficou como estava: escolha margens mais pequenas.",
           BoxButtons::Ok, BoxIcon::Critical, kMessageTitle);
    return false;
}

} // namespace

frmAddBordForm::frmAddBordForm() : Form("frmAddBord", Kind::Dialog) {
    Caption("Inserir Bordos");
    Connect(txtTop, VSTop);
    Connect(txtBottom, VSBottom);
    Connect(txtLeft, VSLeft);
    Connect(txtRight, VSRight);
    cmdApply.Default(true);
    cmdCancel.Cancel(true);
    ChSym.ToolTipText("As quatro margens mudam juntas");
    cmdApply.Click = [this] { cmdApply_Click(); };
    cmdCancel.Click = [this] { Unload(); };
    LayOut();
}

void frmAddBordForm::LayOut() {
    LabelFor(lblTop, txtTop);
    LabelFor(lblBottom, txtBottom);
    LabelFor(lblLeft, txtLeft);
    LabelFor(lblRight, txtRight);
    LabelFor(lblColour, Combo1);
    LayOutGrid(*this, {{&lblTop, 0, 0},
                       {&txtTop, 0, 1},
                       {&VSTop, 0, 2, 1, 1, Place::Left},
                       {&lblBottom, 1, 0},
                       {&txtBottom, 1, 1},
                       {&VSBottom, 1, 2, 1, 1, Place::Left},
                       {&lblLeft, 2, 0},
                       {&txtLeft, 2, 1},
                       {&VSLeft, 2, 2, 1, 1, Place::Left},
                       {&lblRight, 3, 0},
                       {&txtRight, 3, 1},
                       {&VSRight, 3, 2, 1, 1, Place::Left},
                       {&ChSym, 4, 0, 1, 3},
                       {&lblColour, 5, 0},
                       {&Combo1, 5, 1, 1, 2},
                       {&cmdApply, 0, 3},
                       {&cmdCancel, 1, 3}});
}

// The bar writes the text; digits typed move the bar. Either way the other three follow if the margins are
// symmetrical.
void frmAddBordForm::Connect(TextBox& text, ScrollBar& bar) {
    BindSpinner(text, bar);
    bar.Max(kWidest);
    const auto tell = bar.Change;
    bar.Change = bar.Scroll = [this, tell, &bar] {
        tell();
        Mirror(bar);
    };
    const auto type = text.KeyUp;
    text.KeyUp = [this, type, &bar](int KeyCode, int Shift) {
        type(KeyCode, Shift);
        Mirror(bar);
    };
}

void frmAddBordForm::Mirror(const ScrollBar& bar) {
    if (ChSym.Value() == 0 || mirroring_) return;
    mirroring_ = true;
    for (ScrollBar* other : {&VSTop, &VSBottom, &VSLeft, &VSRight})
        other->Value(bar.Value());
    mirroring_ = false;
}

void frmAddBordForm::Form_Load() {
    BordersAdded = false;
    Combo1.ListIndex(0);
    for (ScrollBar* bar : {&VSBottom, &VSLeft, &VSRight})
        bar->Value(kWidest);
    VSTop.Value(kWidest - 1);
}

// The first digit typed replaces the proposed margin.
void frmAddBordForm::Form_Activate() {
    txtTop.SelectAll();
}

void frmAddBordForm::cmdApply_Click() {
    if (document != nullptr && document->Loaded()) BringBack(*document);
    frmImage& image = ActiveImage();
    const Colour colour = ListedColour(Combo1.ListIndex(), kBlack);
    const Margins margins{MarginIn(txtLeft), MarginIn(txtTop), MarginIn(txtRight), MarginIn(txtBottom)};
    if (!CanGrow(image, margins)) return;
    EndFreehandPiece(image); // A rectangle floats on over the larger image.
    LockWindowUpdate(image.hWnd());
    GrowCanvas(image, margins, colour);
    image.Backup();
    LockWindowUpdate(nullptr);
    BordersAdded = true;
    Unload();
}

} // namespace pintalux
