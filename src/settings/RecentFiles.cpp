#include "settings/RecentFiles.h"

#include "base/NumberText.h"
#include "base/RuntimeError.h"
#include "files/FileNames.h"
#include "surface/system/App.h"
#include "surface/system/MsgBox.h"
#include "surface/system/Settings.h"

namespace pintalux {

namespace {

// Full paths, newest first; an empty entry is the end of the list.
std::vector<std::string> list;

// Intended: a raised limit runs past the end of the list and fails until the next start, when the list gets
// its new length; files already listed are kept.
std::string& Entry(int index) {
    if (index < 0 || index >= static_cast<int>(list.size())) throw RuntimeError(kSubscriptOutOfRange);
    return list[static_cast<std::size_t>(index)];
}

std::string StoreKey() {
    return R"(Software\Microsoft\Windows\CurrentVersion\App Paths\)" + App.Title();
}

std::string ValueName(int index) {
    return "MRU" + NumberText(index);
}

// File names may hold ampersands, which a menu would take for access keys.
std::string MenuText(const std::string& path) {
    std::string text;
    for (const char c : FileNameOf(path))
        text += c == '&' ? std::string("&&") : std::string(1, c);
    return text;
}

void ShowItem(RecentFilesMenu& menu, int index, const std::string& path) {
    if (index > 0) menu.Load(index);
    menu(index).Caption(MenuText(path));
    menu(index).Visible(true);
}

} // namespace

RecentFilesMenu::RecentFilesMenu(MenuItem& owner) : owner_(owner) {
    items_.push_back(MakeItem(0));
}

MenuItem& RecentFilesMenu::operator()(int index) {
    if (index < 0 || index >= static_cast<int>(items_.size())) throw RuntimeError(kSubscriptOutOfRange);
    return *items_[static_cast<std::size_t>(index)];
}

std::unique_ptr<MenuItem> RecentFilesMenu::MakeItem(int index) {
    auto item = std::make_unique<MenuItem>("mnuFileMRU" + NumberText(index), "");
    item->Visible(false);
    item->Click = [this, index] {
        if (Click) Click(index);
    };
    return item;
}

void RecentFilesMenu::Load(int index) {
    items_.push_back(MakeItem(index));
    owner_.InsertAfter(*items_[items_.size() - 2], *items_.back());
}

void RecentFilesMenu::UnloadAbove0() {
    retired_.clear();
    while (items_.size() > 1) {
        owner_.Remove(*items_.back());
        retired_.push_back(std::move(items_.back()));
        items_.pop_back();
    }
}

void AllocateMRUs() {
    list.assign(static_cast<std::size_t>(MRUlimit), {});
}

void LoadMRUs(RecentFilesMenu& menu, MenuItem& bar) {
    int n = 0;
    for (int i = 0; i < MRUlimit; ++i) {
        const std::string path = ReadMachineValue(StoreKey(), ValueName(i));
        if (!FileExists(path)) continue;
        if (n == 0) bar.Visible(true);
        Entry(n) = path;
        ShowItem(menu, n, path);
        ++n;
    }
}

void UpdateMRUs(RecentFilesMenu& menu, MenuItem& bar, const std::string& path) {
    // Intended: a file already in the list stays where it is, so that the list does not jump about under the
    // user.
    for (int i = 0; i < MRUlimit; ++i) {
        if (Entry(i) == path) return;
    }
    menu.UnloadAbove0();
    for (int i = MRUlimit - 1; i > 0; --i)
        Entry(i) = Entry(i - 1);
    Entry(0) = path;
    bar.Visible(true);
    ShowItem(menu, 0, path);
    std::vector<SettingText> values = {{ValueName(0), path}};
    for (int i = 1; i < MRUlimit && !Entry(i).empty(); ++i) {
        ShowItem(menu, i, Entry(i));
        values.push_back({ValueName(i), Entry(i)});
    }
    // All at once: a disk that gives way in between would leave one file twice and another not at all.
    WriteMachineValues(StoreKey(), values);
}

std::set<std::string> RecentFolders() {
    std::set<std::string> folders;
    for (const std::string& path : list)
        if (!path.empty()) folders.insert(DirectoryOf(path));
    return folders;
}

std::string MRUfile(int index) {
    std::string path = Entry(index);
    if (FileExists(path)) return path;
    MsgBox(FileNameOf(path) + " foi movida ou apagada.", BoxButtons::Ok, BoxIcon::Exclamation, kMessageTitle);
    return {};
}

void ForgetMRU(int index) {
    DeleteMachineValue(StoreKey(), ValueName(index));
}

} // namespace pintalux
