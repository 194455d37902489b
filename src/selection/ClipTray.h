// The clip tray: page 4 of the tool settings panel. It keeps the last six bitmaps that passed through the
// clipboard as thumbnails; a click on one puts its bitmap back on the clipboard.
#pragma once

#include "base/Registered.h"
#include "selection/ModClipHook.h"
#include "surface/window/ControlArray.h"
#include "surface/window/Display.h"
#include "surface/window/Inputs.h"
#include "surface/window/Surface.h"

#include <cstdint>

namespace pintalux {

struct ToolSettingsPanel;

struct ClipTray;

/// The tray of the running program.
inline Registered<ClipTray> TheClipTray;

struct ClipTray {
    explicit ClipTray(ToolSettingsPanel& panel);

  private:
    ToolSettingsPanel& panel_;
    Surface& page_;

  public:
    CheckBox ChClipLock{page_, "ChClipLock", "TRANSFERÊNCIA"}; ///< 1 locks the tray.
    CommandButton cmdClear{page_, "cmdClear", "LIMPAR"};       ///< Enabled while a slot is filled.
    ShapeControl ShClip{page_, "ShClip"}; ///< Marks the slot that was filled or clicked last.

    Surface ClipStore{page_, "ClipStore"}; ///< Never shown. It counts in pixels, so that the sides of the
                                           ///< largest fit 16 bits.
    ControlArray<Surface> PicClip{ClipStore, "PicClip", 6}; ///< Hidden; the bitmaps. `Tag` of a filled one is
                                                            ///< "free" or "standard".
    ControlArray<Surface> PicClipBG{page_, "PicClipBG", 6}; ///< The frames, seen while their slot is filled.
    ControlArray<Display> ImgClip{MakeThumbnails(PicClipBG)}; ///< At most 615 by 615 twips.

    std::int16_t NextClip = 0;     ///< The slot that the next capture fills.
    std::int16_t SelectedClip = 0; ///< The slot whose tag a paste reads.

    WindowProc Procedure; ///< Hears of the clipboard; without the hook it lets everything pass.
    Flag Hooked;          ///< For `ClipHookOn` and `ClipHookOff`.

    /// Fills the next slot from the clipboard if a bitmap is there, then sets the button and the page's
    /// height. Error 521 if the bitmap cannot be had; the slot keeps its bitmap then and stays the next one.
    void LoadClipboard();
    /// A click on a thumbnail or its frame: that bitmap goes to the clipboard.
    void ImgClip_Click(int Index);
    void PicClipBG_Click(int Index) { ImgClip_Click(Index); }
    void ChClipLock_Click();
    void cmdClear_Click();

  private:
    static ControlArray<Display> MakeThumbnails(const ControlArray<Surface>& frames);
    void LayOut();
    double lower_ = 0; ///< How much lower a large font moves the slots, in twips.
    void TakeBitmap();
    void FitThumbnail(int slot, std::int16_t width, std::int16_t height);
    void MarkSlot(int slot);
    void FollowFilledSlots();

    Registered<ClipTray>::Entry entry_{TheClipTray, *this};
};

} // namespace pintalux
