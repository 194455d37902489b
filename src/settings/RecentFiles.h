// The list of recently opened files at the end of the file menu. It is kept by position in the machine-wide
// store.
#pragma once

#include "surface/window/Menu.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace pintalux {

/// Length of the list as the Preferences want it.
inline std::int16_t MRUlimit = 0;

/// The menu items of the list: item 0 exists from the start and is hidden, further ones are loaded at run
/// time.
class RecentFilesMenu {
  public:
    /// Item 0 is made here; the owner puts it where the list begins.
    explicit RecentFilesMenu(MenuItem& owner);
    MenuItem& operator()(int index); ///< Error 9 if it is not loaded.
    void Load(int index);            ///< Loads the next item, `index`, hidden.
    void UnloadAbove0();
    std::function<void(int Index)> Click;

  private:
    std::unique_ptr<MenuItem> MakeItem(int index);

    MenuItem& owner_;
    std::vector<std::unique_ptr<MenuItem>> items_;
    std::vector<std::unique_ptr<MenuItem>>
        retired_; ///< The item clicked unloads itself: it lives until the next time.
};

/// Gives the list in memory its length, `MRUlimit` entries from 0; once, at the start.
void AllocateMRUs();

/// Fills list and menu from the store; a file that is gone is skipped, so that the list closes up. Error 9
/// once `MRUlimit` exceeds the length in memory.
void LoadMRUs(RecentFilesMenu& menu, MenuItem& bar);

/// Puts a path at the top, unless it is in the list already, and writes the list. Error 9 as above.
void UpdateMRUs(RecentFilesMenu& menu, MenuItem& bar, const std::string& path);

/// The entry's path if its file exists; otherwise tells that it is gone and gives the empty text.
std::string MRUfile(int index);

/// The folders of the listed files.
std::set<std::string> RecentFolders();

/// Takes the value of position `index` out of the store.
void ForgetMRU(int index);

} // namespace pintalux
