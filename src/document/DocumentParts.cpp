#include "document/DocumentParts.h"

#include "document/Globals.h"

namespace pintalux {

namespace {

constexpr double kScrollBarDepth = 17; // pixels

void Hide(std::initializer_list<Control*> controls) {
    for (Control* control : controls)
        control->Visible(false);
}

// The ruler strips, in twips: 24 pixels high, 32 wide.
constexpr double kTopDepth = 360;
constexpr double kLeftDepth = 480;

// A preview that inverts what lies under it, so that it shows on any picture.
template <class Overlay>
void MakePreview(Overlay& overlay) {
    overlay.DrawMode(kDrawInvert);
    overlay.Visible(false);
}

} // namespace

DocumentSurfaces::DocumentSurfaces(Form& window) : window_(window) {
    PicFrame.BackColor(kWorkspaceColour);
    Image1.AccessibleName("Imagem");
    for (Surface* surface :
         {&PicMerge, &Pic1BU, &picsource, &picsource1, &SelHolder, &PicSelect, &PicFreeSelect}) {
        surface->AutoSize(true);
    }
    for (Surface* surface : {&SelHolder, &PicFreeSelect})
        surface->BackColor(MaskKeyColour);
    Hide({&PicMerge, &Pic1BU, &picsource, &picsource1, &SelHolder, &PicMask, &PicSelect, &PicFreeSelect,
          &lbltext});
    Hide({&HS, &VS, &piccorner, &BelowBar});
    MakePreview(Line1);
    MakePreview(SelectShape);
    MakePreview(ShSquare);
    MakePreview(CrossX);
    MakePreview(CrossY);
    PicSelectShape.DrawMode(kDrawInvert);
    HS.Height(kScrollBarDepth);
    VS.Width(kScrollBarDepth);
    piccorner.Move(0, 0, kScrollBarDepth, kScrollBarDepth);
    piccorner.AsPanel();
    BelowBar.AsPanel();
    PicFrame.AccessibleName("Vista da imagem");
    PicBG.AccessibleName("Fundo da imagem");
    for (Control* piece : std::initializer_list<Control*>{&PicSelect, &SelectImage, &PicFreeSelect})
        piece->AccessibleName("Selecção a flutuar");
    HS.AccessibleName("Deslocamento horizontal");
    VS.AccessibleName("Deslocamento vertical");
    // The image alone takes the keys of its window.
    Image1.TakesFocus(FocusBy::TabAndClick);
    Image1.AccessibleRole(SpokenRole::Canvas);
    HS.TakesFocus(FocusBy::Nothing);
    VS.TakesFocus(FocusBy::Nothing);
    for (Control* around : std::initializer_list<Control*>{&PicFrame, &PicBG, &PicSelect, &SelectImage,
                                                           &PicFreeSelect, &lbltext})
        around->LeavesFocusTo(Image1);
}

DocumentRulers::DocumentRulers(Form& window) : window_(window) {
    for (Surface* surface : {&TopRuler, &LeftRuler, &Picture1, &PicTrule, &PicLrule}) {
        surface->BackColor(kWhite);
    }
    Hide({&TopRuler, &LeftRuler, &PicTrule, &PicLrule});
    TopRuler.Height(kTopDepth);
    LeftRuler.Move(0, kTopDepth, kLeftDepth, 0);
    PicTrule.Height(kTopDepth);
    PicLrule.Width(kLeftDepth);
    ImgTrule.Height(TopRuler.ScaleHeight());
    ImgLrule.Width(LeftRuler.ScaleWidth());
    for (Surface* scale : {&PicTrule, &PicLrule}) {
        scale->FontName("Small Fonts");
        scale->PrintsOver();
    }
    for (Label* readout : {&lblx, &lbly})
        readout->FontName("Small Fonts");
    Picture1.Move(0, 0, LeftRuler.ScaleWidth(), TopRuler.ScaleHeight());
    lblx.Move(2, 1, LeftRuler.ScaleWidth() - 3, TopRuler.ScaleHeight() / 2 - 1);
    lbly.Move(2, TopRuler.ScaleHeight() / 2, LeftRuler.ScaleWidth() - 3, TopRuler.ScaleHeight() / 2 - 1);
}

} // namespace pintalux
