#pragma once
#include <string>
namespace pintalux {
struct ClipSlotStub { std::string Tag() const { return {}; } };
struct ClipTray { int SelectedClip = 0; ClipSlotStub PicClip(int) { return {}; } };
inline ClipTray StubTray;
inline ClipTray* TheClipTray = &StubTray;
}
