#include "document/frmImage.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/FileCommands.h"
#include "document/Globals.h"
#include "document/Recovery.h"
#include "document/Selection.h"
#include "document/States.h"
#include "document/Workspace.h"
#include "document/Zoom.h"
#include "settings/frmPrefs.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Pictures.h"
#include "surface/window/MDIForm.h"
#include "surface/window/Screen.h"

#include <memory>

namespace pintalux {

namespace {

// Intended: a fitted window is 100 twips higher than its frame and its image, so that no upright scroll bar
// comes for want of a pixel.
constexpr int kFittedFrameHeight = kChildFrameHeight + 100;

// Whatever ends the save in the middle makes it a failed one.
SaveResult SaveForClose() {
    SaveResult result = SaveResult::Failed;
    ResumeNext([&] { result = MySaveAs(); });
    return result;
}

} // namespace

frmImage& ActiveImage() {
    Form* active = TheWorkspace.window->ActiveForm();
    if (active == nullptr) throw RuntimeError(kObjectNotSet);
    return static_cast<frmImage&>(*active);
}

bool ADocumentShows() {
    const Form* active = TheWorkspace.window->ActiveForm();
    return active != nullptr && active->WindowState() != kMinimised;
}

frmImage::frmImage()
    : Form("frmImage", Kind::Child), DocumentRulers(static_cast<Form&>(*this)),
      DocumentSurfaces(static_cast<Form&>(*this)) {
    IconResource(":/icons/document.svg");
    ConnectScrollBars();
    Timer2.Tick = [this] { Timer2_Timer(); };
}

// What the toolkit still tells of the focus meets no half of a document.
frmImage::~frmImage() {
    Image1.FocusMoved = nullptr;
}

void frmImage::Form_Load() {
    factorlevel = 15;
    factor = 1.0;
    Width(4620);
    Height(4980);
    // Intended: once a New was confirmed, later windows start with its size and colour, also before a file is
    // loaded over it; a small file leaves the colour as the image's background.
    if (NewImageMode) {
        PicMerge.Picture(LoadPicture());
        PicMerge.BackColor(NewBackColor);
        PicMerge.Width(NewWidth);
        PicMerge.Height(NewHeight);
        PicBG.Width(NewWidth);
        PicBG.Height(NewHeight);
        PicBG.Top(0);
    } else {
        PicBG.Picture(LoadPicture());
        PicMerge.Width(4500);
        PicMerge.Height(4500);
        PicBG.Top(0);
    }
    Pic1BU.Width(PicMerge.Width());
    Pic1BU.Height(PicMerge.Height());
    Pic1BU.Picture(LoadPicture());
    Form_Resize();
    Timer2.Enabled(true);
}

void frmImage::Form_QueryUnload(bool& Cancel) {
    if (EndKeys) EndKeys();
    if (SessionOver || frmPrefs->Check4.Value() != 0) return;
    // What floats belongs to what is asked about, also where nothing else changed since the last save.
    if (PieceIsPlaced(*this) || lbltext.Visible()) Show();
    MergeFloating(*this);
    if (alreadysaved) {
        alreadysaved = false;
        return;
    }
    CheckChanged();
    if (CloseCancelled) {
        CloseCancelled = false;
        Cancel = true;
    }
}

void frmImage::Form_Unload() {
    byKeys = false;
    NoteDocuments(this);
    // A file that will not go must not keep the document.
    for (int i = 0; i < ListBackup.ListCount(); ++i)
        ResumeNext([&] { ForgetState(ListBackup.List(i)); });
    ImageCount = SubtractInt16(ImageCount, 1);
    EndPiece(*this);
}

bool frmImage::Changed() const {
    return !alreadysaved && CurrentState() != 0;
}

// The number of the state that shows, 0 also where none was recorded.
int frmImage::CurrentState() const {
    int current = 0;
    ResumeNext([&] { current = ToInt32(Val(ListBUorder.List(ListBUorder.ListIndex()))); });
    return current;
}

void frmImage::CheckChanged() {
    BoxAnswer answer = BoxAnswer::No;
    if (CurrentState() == 0) return;
    // The user sees what the question is about, and the save works on the active document: another one may
    // have opened while the question stood.
    ResumeNext([&] { Show(); });
    ResumeNext([&] {
        answer = MsgBox("Pretende Salvar as alterações para " + Caption() + " ?", BoxButtons::YesNoCancel,
                        BoxIcon::Question, kMessageTitle);
    });
    if (answer == BoxAnswer::Yes) {
        ResumeNext([&] { Show(); });
        CloseCancelled = SaveForClose() == SaveResult::Failed;
    }
    if (answer == BoxAnswer::No) CloseCancelled = false;
    if (answer == BoxAnswer::Cancel) CloseCancelled = true;
}

void frmImage::Form_Activate() {
    TakePieceFlags(*this);
    ApplyZoomLevel();
}

void frmImage::Form_Resize() {
    const double left = RulersOn ? LeftRuler.Width() : 0;
    const double top = RulersOn ? TopRuler.Height() : 0;
    ResumeNext([&] { PicFrame.Top(top); }, [&] { PicFrame.Left(left); },
               [&] { PicFrame.Width(Width() - left - kChildFrameWidth); },
               [&] { PicFrame.Height(Height() - top - kChildFrameHeight); }, [&] { PicBG.Top(0); },
               [&] { Image1.Top(0); }, [&] { Picsize(); },
               [&] { TopRuler.Width(Width() - kChildFrameWidth); },
               [&] { LeftRuler.Height(Height() - top - kChildFrameHeight); }, [&] { drawrulers(); });
}

void NewImageWindow() {
    auto made = std::make_unique<frmImage>();
    frmImage& image = *made;
    if (TheWorkspace.ConnectTools) TheWorkspace.ConnectTools(image);
    TheWorkspace.window->Adopt(std::move(made));
    ImageCount = AddInt16(ImageCount, 1);
    image.Caption("Imagem " + NumberText(ImageCount));
    image.Show();
}

void FitImageWindow() {
    frmImage& image = ActiveImage();
    image.PicBG.Width(image.PicMerge.Width());
    image.PicBG.Height(image.PicMerge.Height());
    image.Image1.Width(image.PicMerge.Width());
    image.Image1.Height(image.PicMerge.Height());
    image.Image1.Picture(image.PicMerge.Image());
    // Where the window need not shrink, nothing else takes back the centring of what was shown before.
    if (image.PicBG.Top() > 0) image.PicBG.Top(0);
    // A maximised window is not resized, which would lay out the image again.
    if (image.WindowState() == kMaximised) return image.Picsize();
    const double width = image.PicBG.Width() * Screen.TwipsPerPixelX() + kChildFrameWidth;
    const double height = image.PicBG.Height() * Screen.TwipsPerPixelY() + kFittedFrameHeight;
    if (image.Width() > width) image.Width(width);
    if (image.Height() > height) image.Height(height);
}

} // namespace pintalux
