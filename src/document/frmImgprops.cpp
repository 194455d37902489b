#include "document/frmImgprops.h"

#include "base/NumberText.h"
#include "document/frmImage.h"
#include "document/Workspace.h"
#include "files/FileNames.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"
#include "surface/window/Layout.h"

#include <array>
#include <optional>

namespace pintalux {

AutoForm<frmImgpropsForm> frmImgprops;

namespace {

constexpr double kThumbSide = 1215;  // twips
constexpr double kInfoWidth = 4200;  // twips
constexpr double kWidestInfo = 8400; // twips; longer texts go on in the next line
constexpr double kUnit = 1024;

enum Info { kName, kPath, kOriginalSize, kHeight, kWidth, kCurrentSize };

// Intended: a number without decimals has no point to be cut at and is left out, so that 2048 bytes read "
// Kb".
std::string CutBehindSecondDecimal(double value) {
    const std::string text = NumberText(value);
    const std::size_t point = text.find('.');
    return point == std::string::npos ? std::string{} : text.substr(0, point + 3);
}

void ShowThumbnail(const frmImage& image) {
    const double width = image.PicMerge.Width();
    const double height = image.PicMerge.Height();
    Display& thumbnail = frmImgprops->Image1;
    const bool upright = height >= width;
    thumbnail.Height(upright ? kThumbSide : height / width * kThumbSide);
    thumbnail.Width(upright ? width / height * kThumbSide : kThumbSide);
    thumbnail.Left((kThumbSide - thumbnail.Width()) / 2);
    thumbnail.Top((kThumbSide - thumbnail.Height()) / 2);
    thumbnail.Picture(image.PicMerge.Image());
}

void ShowFile(const std::string& path) {
    const ControlArray<Label>& info = frmImgprops->lblInfo;
    if (path.empty()) {
        info(kName).Caption("Untitled.bmp");
        info(kPath).Caption("Not saved");
        info(kOriginalSize).Caption("Not saved");
        return;
    }
    info(kName).Caption(FileNameOf(path));
    info(kPath).Caption(DirectoryOf(path));
    // A page from the scanner names a file that is gone, and any file may be deleted meanwhile.
    const std::optional<std::uint64_t> length = FileExists(path) ? FileLength(path) : std::nullopt;
    info(kOriginalSize).Caption(length ? SizeText(*length) : "Not saved");
}

} // namespace

std::string SizeText(std::uint64_t n) {
    auto value = static_cast<double>(n);
    if (value <= kUnit) return NumberText(value) + " Bytes";
    value /= kUnit;
    if (value <= kUnit) return CutBehindSecondDecimal(value) + " Kb";
    return CutBehindSecondDecimal(value / kUnit) + " Mb";
}

frmImgpropsForm::frmImgpropsForm() : Form("frmImgprops", Kind::Dialog) {
    Caption("Propriedades da Imagem");
    Image1.AccessibleName("Miniatura da imagem");
    Command1.Default(true);
    Command1.Cancel(true);
    Command1.Click = [this] { Unload(); };
    LayOut();
}

void frmImgpropsForm::LayOut() {
    ThumbArea.BackColor(kWorkspaceColour);
    ThumbArea.ScaleMode(kScaleTwips);
    ThumbArea.Width(kThumbSide);
    ThumbArea.Height(kThumbSide);
    const std::array<std::pair<Label*, Info>, 6> rows = {{{&lblName, kName},
                                                          {&lblPath, kPath},
                                                          {&lblOriginal, kOriginalSize},
                                                          {&lblCurrent, kCurrentSize},
                                                          {&lblHeight, kHeight},
                                                          {&lblWidth, kWidth}}};
    std::vector<GridItem> items;
    int row = 0;
    for (const auto& [label, info] : rows) {
        lblInfo(info).WordWrap(true);
        lblInfo(info).Width(kInfoWidth);
        lblInfo(info).WidestLine(kWidestInfo);
        lblInfo(info).AccessibleName(label->Caption());
        items.push_back({label, row, 0, 1, 1, Place::Left});
        items.push_back({&lblInfo(info), row, 1});
        ++row;
    }
    LayOutGrid(Frame1, items);
    LayOutGrid(
        *this,
        {{&ThumbArea, 0, 0, 1, 1, Place::Centre}, {&Frame1, 0, 1}, {&Command1, 1, 1, 1, 1, Place::Right}});
}

void mnuImageProperties_Click() {
    const frmImage& image = ActiveImage();
    ShowThumbnail(image);
    ShowFile(image.AFCurfile);
    const ControlArray<Label>& info = frmImgprops->lblInfo;
    // The current size is that of the image as an uncompressed BMP, whatever its file is.
    info(kCurrentSize)
        .Caption(SizeText(BmpFileLength(image.PicMerge.PixelWidth(), image.PicMerge.PixelHeight())));
    info(kHeight).Caption(NumberText(image.PicMerge.Height()) + " pixels");
    info(kWidth).Caption(NumberText(image.PicMerge.Width()) + " pixels");
    frmImgprops->ShowModal();
}

} // namespace pintalux
