#include "tools/frmText.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "document/frmImage.h"
#include "document/Globals.h"
#include "document/Workspace.h"
#include "surface/system/CommonDialog.h"
#include "surface/window/Layout.h"
#include "surface/window/Screen.h"

#include <algorithm>
#include <utility>

namespace pintalux {

AutoForm<frmTextForm> frmText;

namespace {

constexpr int kSizes = 37;            // 2 to 74 points
constexpr int kSizeStep = 2;          // points
constexpr double kSampleWidth = 5400; // twips
constexpr double kSampleHeight = 2700;
constexpr double kInputWidth = 2700;
constexpr double kSwatchSide = 360;
constexpr double kSampleMargin = 8; // pixels

} // namespace

frmTextForm::frmTextForm() : Form("frmText", Kind::Dialog) {
    Caption("Inserir texto");
    for (int i = 1; i <= kSizes; ++i)
        ComboSize.AddItem(NumberText(i * kSizeStep));
    picFontcol.BackColor(kBlack);
    picFontcol.BorderStyle(1);
    picFontcol.AccessibleName("Cor do texto");
    picSample.BackColor(kWhite);
    picSample.BorderStyle(1);
    lblDisplay.AccessibleName("Amostra");
    Command1.ToolTipText("Escolher a cor do texto");
    Command2.Default(true);
    Command3.Cancel(true);
    Connect();
    LayOut();
}

void frmTextForm::Connect() {
    ComboFont.Click = [this] { ComboFont_Click(); };
    ComboStyle.Click = [this] { ComboStyle_Click(); };
    ComboSize.Click = [this] { ComboSize_Click(); };
    chkStrikeTh.Click = [this] { lblDisplay.FontStrikethru(chkStrikeTh.Value() == 1); };
    chkUnderlined.Click = [this] { lblDisplay.FontUnderline(chkUnderlined.Value() == 1); };
    rtftext.Change = [this] { lblDisplay.Caption(rtftext.Text()); };
    Command1.Click = [this] { Command1_Click(); };
    Command2.Click = [this] { Command2_Click(); };
    Command3.Click = [this] { Command3_Click(); };
}

void frmTextForm::LayOut() {
    ComboFont.Width(kInputWidth);
    picFontcol.Width(kSwatchSide);
    picFontcol.Height(kSwatchSide);
    picSample.Width(kSampleWidth);
    picSample.Height(kSampleHeight);
    lblDisplay.Left(kSampleMargin);
    lblDisplay.Top(kSampleMargin);
    LabelFor(lblFont, ComboFont);
    LabelFor(lblStyle, ComboStyle);
    LabelFor(lblSize, ComboSize);
    LabelFor(lblText, rtftext);
    LabelFor(lblFontcol, Command1);
    Command1.AccessibleName("Escolher a cor do texto");
    LayOutGrid(*this, {{&lblText, 0, 0},
                       {&rtftext, 0, 1, 1, 4},
                       {&lblFont, 1, 0},
                       {&ComboFont, 1, 1, 1, 4},
                       {&lblStyle, 2, 0},
                       {&ComboStyle, 2, 1},
                       {&lblSize, 2, 2, 1, 1, Place::Right},
                       {&ComboSize, 2, 3, 1, 2},
                       {&lblFontcol, 3, 0},
                       {&picFontcol, 3, 1, 1, 1, Place::Left},
                       {&Command1, 3, 2, 1, 1, Place::Left},
                       {&chkStrikeTh, 3, 3},
                       {&chkUnderlined, 3, 4},
                       {&lblSample, 4, 0, 1, 1, Place::Top},
                       {&picSample, 4, 1, 1, 4},
                       {&Command2, 0, 5},
                       {&Command3, 1, 5}});
}

void frmTextForm::Form_Load() {
    for (const std::string& font : Screen.Fonts())
        ComboFont.AddItem(font);
    ComboFont.ListIndex(0);
    ComboStyle.ListIndex(1);
    ComboSize.ListIndex(3);
    lblDisplay.FontBold(true);
    lblDisplay.FontItalic(false);
}

// At each use, not when the colour dialog gives the focus back.
void frmTextForm::Form_Activate() {
    if (!std::exchange(begins_, false)) return;
    rtftext.SetFocus();
    rtftext.SelectAll();
}

// Intended: the close box hides the dialog and keeps it loaded, so that text and settings are there at the
// next use; the two buttons end it.
void frmTextForm::Form_QueryUnload(bool& Cancel) {
    if (byCode_ || ProgramClosing) return;
    Hide();
    begins_ = true;
    Cancel = true;
}

void frmTextForm::ComboFont_Click() {
    lblDisplay.FontName(Screen.Fonts()[static_cast<std::size_t>(ComboFont.ListIndex())]);
}

void frmTextForm::ComboSize_Click() {
    lblDisplay.FontSize((ComboSize.ListIndex() + 1) * kSizeStep);
}

void frmTextForm::ComboStyle_Click() {
    const int style = ComboStyle.ListIndex();
    lblDisplay.FontBold(style == 1 || style == 3);
    lblDisplay.FontItalic(style == 2 || style == 3);
    lblDisplay.Refresh();
}

void frmTextForm::Command1_Click() try {
    CommonDialog1.CancelError = true;
    CommonDialog1.Color = picFontcol.BackColor();
    CommonDialog1.ShowColor();
    picFontcol.BackColor(CommonDialog1.Color);
    lblDisplay.ForeColor(CommonDialog1.Color);
} catch (...) {
    return; // A cancel keeps the colour.
}

void frmTextForm::Command2_Click() {
    frmImage& image = ActiveImage();
    Label& lbltext = image.lbltext;
    lbltext.FontName(lblDisplay.FontName());
    lbltext.FontStrikethru(lblDisplay.FontStrikethru());
    lbltext.FontUnderline(lblDisplay.FontUnderline());
    lbltext.ForeColor(lblDisplay.ForeColor());
    lbltext.FontSize(lblDisplay.FontSize() * image.factor);
    lbltext.FontBold(lblDisplay.FontBold());
    lbltext.FontItalic(lblDisplay.FontItalic());
    // Intended: the text begins with a blank, which is printed too, so that its first letter stands clear of
    // the edge.
    lbltext.Caption(" " + lblDisplay.Caption());
    lbltext.Left(std::max(0.0, -image.PicBG.Left()));
    lbltext.Top(std::max(0.0, -image.PicBG.Top()));
    lbltext.Visible(true);
    UnloadByCode();
}

void frmTextForm::Command3_Click() {
    UnloadByCode();
}

void frmTextForm::UnloadByCode() {
    byCode_ = true;
    Unload();
}

} // namespace pintalux
