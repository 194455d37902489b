#include "support/Documents.h"

#include "app/frmMain.h"
#include "document/States.h"
#include "surface/system/App.h"
#include "surface/system/Settings.h"
#include "surface/window/Events.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace pintalux {

void StopPoll() {
    if (frmMain.Loaded()) frmMain->Timer1.Enabled(false);
}

void Choose(const MenuItem& item) {
    RunEvent(EventKind::Ordinary, item.Click);
}

void SetSetting(const std::string& key, const std::string& text) {
    SaveSetting(App.Title(), "Settings", key, text);
}

std::string StoredSetting(const std::string& key) {
    return GetSetting(App.Title(), "Settings", key, "(none)");
}

Picture Solid(int width, int height, Colour colour) {
    return Picture(width, height, PixelOf(colour));
}

void Edit(frmImage& image, Colour colour) {
    image.PicMerge.LineBF(0, 0, image.PicMerge.Width(), image.PicMerge.Height(), colour);
    image.Image1.Picture(image.PicMerge.Image());
    image.Backup();
}

Colour CornerOf(const frmImage& image) {
    return image.PicMerge.Point(0, 0);
}

std::vector<std::string> EntriesOf(const ListStore& list) {
    std::vector<std::string> entries;
    for (int i = 0; i < list.ListCount(); ++i)
        entries.push_back(list.List(i));
    return entries;
}

void SettleStates() {
    States().Settle();
}

bool ScreenLocked() {
    // The strip of the tool bar is never locked by a command.
    if (!LockWindowUpdate(&frmMain->ToolsTB)) return true;
    LockWindowUpdate(nullptr);
    return false;
}

std::string BytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void PutBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace pintalux
