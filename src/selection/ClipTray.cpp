#include "selection/ClipTray.h"

#include "base/Arithmetic.h"
#include "base/NumberText.h"
#include "document/Globals.h"
#include "surface/system/Clipboard.h"
#include "surface/system/MsgBox.h"
#include "surface/window/SystemColours.h"
#include "surface/window/TextSize.h"
#include "tools/ToolSettings.h"

#include <algorithm>

namespace pintalux {

namespace {

constexpr int kSlots = 6;

// Twips, as all measures here.
constexpr double kFrameSide = 675;
constexpr double kThumbnailSide = 615;
constexpr double kMarkDistance = 90; // from the frame's corner
constexpr double kColumns[] = {210, 1080};
constexpr double kRows[] = {720, 1560, 2400};

constexpr std::int16_t kEmptyHeight = 580;

} // namespace

ClipTray::ClipTray(ToolSettingsPanel& panel) : panel_(panel), page_(panel.PicTools(kClipPage)) {
    Procedure = [](ClipTray&, std::uint32_t, std::intptr_t, std::intptr_t) { return std::intptr_t{0}; };
    LayOut();
    ChClipLock.Click = [this] { ChClipLock_Click(); };
    cmdClear.Click = [this] { cmdClear_Click(); };
    for (int i = 0; i < kSlots; ++i) {
        ImgClip(i).Click = [this, i] { ImgClip_Click(i); };
        PicClipBG(i).Click = [this, i] { PicClipBG_Click(i); };
    }
}

ControlArray<Display> ClipTray::MakeThumbnails(const ControlArray<Surface>& frames) {
    ControlArray<Display> thumbnails;
    for (int i = 0; i < frames.Count(); ++i)
        thumbnails.Add(frames(i), "ImgClip" + NumberText(i));
    return thumbnails;
}

// The box and the button stand in one row under the head; what that takes more than told moves the slots
// down.
void ClipTray::LayOut() {
    constexpr double kTop = 15;
    constexpr double kSide = 45;
    constexpr double kRowHeight = 255;
    constexpr double kLeastButton = 750;
    const auto twips = [](int pixels) { return pixels * double{kTwipsPerPixel}; };
    const double row = std::max(kRowHeight, twips(TextHeight() + 1));
    const double box = twips(WantedWidth(ChClipLock));
    const double button = std::max(kLeastButton, twips(TextWidth(cmdClear.Caption()) + 10));
    const double top = ClosedPageHeight() + kTop;
    lower_ = std::max(0.0, top + row + kMarkDistance + kTop - kRows[0]);
    // The page of an empty tray is just as high as this row.
    panel_.RoomForTray(box + button + 2 * kSide, std::max(lower_, top + row + 10 - kEmptyHeight));
    ChClipLock.Move(kSide, top, box, row);
    cmdClear.Move(page_.Width() - button - kSide, top, button, row);
    ChClipLock.ToolTipText("Ligada, conserva as imagens guardadas e não recebe outras");
    cmdClear.ToolTipText("Limpar a área de transferência");
    cmdClear.Enabled(false);
    ClipStore.Visible(false);
    for (int i = 0; i < kSlots; ++i) {
        PicClip(i).Visible(false);
        PicClip(i).AutoSize(true);
        Surface& frame = PicClipBG(i);
        frame.Visible(false);
        frame.ScaleMode(kScaleTwips);
        frame.BorderStyle(1);
        frame.Move(kColumns[i % 2], kRows[i / 2] + lower_, kFrameSide, kFrameSide);
        constexpr double kInset = (kFrameSide - kThumbnailSide) / 2;
        ImgClip(i).Move(kInset, kInset, kThumbnailSide, kThumbnailSide);
        const std::string name = "Imagem " + NumberText(i + 1) + " da área de transferência";
        frame.AccessibleName(name);
        frame.ToolTipText("Colocar esta imagem na área de transferência");
        frame.PressedByKeys([this, i] { PicClipBG_Click(i); });
        ImgClip(i).AccessibleName(name);
        ImgClip(i).ToolTipText("Colocar esta imagem na área de transferência");
    }
    constexpr double kMarkSide = kFrameSide + 2 * kMarkDistance;
    ShClip.Visible(false);
    ShClip.BorderWidth(2);
    ShClip.BorderColor(kSystemHighlight);
    ShClip.Move(0, 0, kMarkSide, kMarkSide);
    MarkSlot(0);
}

void ClipTray::LoadClipboard() {
    if (IsClipboardFormatAvailable(CF_BITMAP)) TakeBitmap();
    FollowFilledSlots();
}

void ClipTray::TakeBitmap() {
    Surface& stored = PicClip(NextClip);
    stored.Picture(Clipboard.GetData(CF_BITMAP));
    stored.Tag(FreeSelActive ? "free" : "standard");
    PicClipBG(NextClip).Visible(true);
    FitThumbnail(NextClip, ToInt16(stored.Width()), ToInt16(stored.Height()));
    ImgClip(NextClip).Picture(stored.Image());
    MarkSlot(NextClip);
    ShClip.Visible(true);
    NextClip = AddInt16(NextClip, 1);
    if (NextClip >= kSlots) NextClip = 0;
    // Intended: the selected slot is the one after the new entry, so that a paste after a capture takes the
    // shape that the next slot remembers, none on a fresh tray; a click on a thumbnail chooses another.
    SelectedClip = NextClip;
}

// Intended: a thumbnail is centred along its short side only; the other offset stays as the slot's last
// picture left it, so that a slot filled with another shape is told by its shifted thumbnail.
void ClipTray::FitThumbnail(int slot, std::int16_t width, std::int16_t height) {
    const Surface& frame = PicClipBG(slot);
    Display& thumbnail = ImgClip(slot);
    if (width <= height) {
        thumbnail.Width(static_cast<double>(width) / height * kThumbnailSide);
        thumbnail.Height(kThumbnailSide);
        thumbnail.Left((frame.Width() - thumbnail.Width()) / 2);
    } else {
        thumbnail.Height(static_cast<double>(height) / width * kThumbnailSide);
        thumbnail.Width(kThumbnailSide);
        thumbnail.Top((frame.Height() - thumbnail.Height()) / 2);
    }
}

void ClipTray::MarkSlot(int slot) {
    ShClip.Left(PicClipBG(slot).Left() - kMarkDistance);
    ShClip.Top(PicClipBG(slot).Top() - kMarkDistance);
}

void ClipTray::FollowFilledSlots() {
    int filled = 0;
    for (int i = 0; i < kSlots; ++i)
        filled += PicClipBG(i).Visible() ? 1 : 0;
    cmdClear.Enabled(filled > 0);
    if (filled == 0) panel_.ClipPanelHeight = kEmptyHeight;
    if (filled > 0) panel_.ClipPanelHeight = 1500;
    if (filled > 2) panel_.ClipPanelHeight = 2400;
    if (filled > 4) panel_.ClipPanelHeight = 3300;
    Surface& page = panel_.PicTools(kClipPage);
    if (page.Height() > ClosedPageHeight()) page.Height(panel_.FullHeight(kClipPage));
}

void ClipTray::ImgClip_Click(int Index) {
    SelectedClip = static_cast<std::int16_t>(Index);
    MarkSlot(Index);
    // The tray hears of its own write nested in it.
    ClipCaptureOff = true;
    Clipboard.Clear();
    Clipboard.SetData(PicClip(Index).Image());
    FreeSelActive = PicClip(Index).Tag() == "free";
    ShClip.Visible(true);
    if (ChClipLock.Value() == 0) ClipCaptureOff = false;
}

void ClipTray::ChClipLock_Click() {
    ClipCaptureOff = ChClipLock.Value() == 1;
}

void ClipTray::cmdClear_Click() {
    if (MsgBox("Tem certeza que deseja limpar a area de transferência ?", BoxButtons::YesNo,
               BoxIcon::Question, kMessageTitle, BoxDefault::Last) != BoxAnswer::Yes)
        return;
    Clipboard.Clear();
    for (int i = 0; i < kSlots; ++i) {
        PicClip(i).Picture(Picture());
        ImgClip(i).Picture(PicClip(i).Image());
        PicClipBG(i).Visible(false);
    }
    ShClip.Visible(false);
    // Intended: clearing takes the bitmaps alone; the page keeps its height until the next capture, the slots
    // keep their tags and the selected one stays, so that the next paste lands as it would have before.
    panel_.ClipPanelHeight = kEmptyHeight;
    NextClip = 0;
    cmdClear.Enabled(false);
}

} // namespace pintalux
