// The figures of an image: a thumbnail, the name, folder and length of its file, its sides.
#pragma once

#include "surface/window/ControlArray.h"
#include "surface/window/Display.h"
#include "surface/window/Form.h"
#include "surface/window/Inputs.h"
#include "surface/window/Surface.h"

#include <cstdint>
#include <string>

namespace pintalux {

/// A length in bytes as text: up to 1024 " Bytes", then " Kb" and " Mb" behind a number that is cut after its
/// second decimal: 1500 gives "1.46 Kb".
std::string SizeText(std::uint64_t n);

class frmImgpropsForm : public Form {
  public:
    frmImgpropsForm();

    Surface ThumbArea{*this, "ThumbArea"}; ///< In twips, as the thumbnail's sides are.
    Display Image1{ThumbArea, "Image1"};   ///< The longer side is 1215 twips.
    Frame Frame1{*this, "Frame1", ""};
    Label lblName{Frame1, "lblName", "Nome :"};
    Label lblPath{Frame1, "lblPath", "Caminho :"};
    Label lblOriginal{Frame1, "lblOriginal", "Tamnho Original :"};
    Label lblCurrent{Frame1, "lblCurrent", "Tamnho Actual :"};
    Label lblHeight{Frame1, "lblHeight", "Altura da Imagem :"};
    Label lblWidth{Frame1, "lblWidth", "Largura da Imagem :"};
    /// 0 name, 1 path, 2 original size, 3 height, 4 width, 5 current size.
    ControlArray<Label> lblInfo{Frame1, "lblInfo", 6};
    CommandButton Command1{*this, "Command1", "OK"};

  private:
    void LayOut();
};

extern AutoForm<frmImgpropsForm> frmImgprops;

/// Shows the figures of the active document.
void mnuImageProperties_Click();

} // namespace pintalux
