// State files: BMP files written behind the edit by one writer thread, from snapshots.
//
// `SaveBehind` returns at once. Until the file is complete, and for good if its writing fails, the picture
// stays in memory, so that whoever asks gets the whole state. A file of another length than was written
// counts as disappeared. All calls come from the interface thread.
//
// At most `kMostPending` states wait for the writer: where edits come faster than the disk takes them,
// `SaveBehind` waits for the oldest, so that memory stays bounded.
#pragma once

#include "surface/raster/Bitmap.h"

#include <memory>
#include <string>
#include <vector>

namespace pintalux {

class StateFiles {
  public:
    static constexpr int kMostPending = 8;

    StateFiles();
    ~StateFiles(); ///< Waits for the writer to finish what it was given.
    StateFiles(const StateFiles&) = delete;
    StateFiles& operator=(const StateFiles&) = delete;

    /// Takes the picture for `path`, whose file exists already (made by the temporary-name routine), and
    /// writes it behind. A file that vanished meanwhile is made again, for the user alone. Error 7 if memory
    /// runs out, 481 for the empty picture.
    void SaveBehind(const Picture& picture, const std::string& path);

    /// True if `LoadState` would succeed: in memory, or on disk at the right length.
    bool Exists(const std::string& path) const;

    /// The state: from memory while it is there, else from the file. Error 53 if it disappeared or was never
    /// saved.
    Picture LoadState(const std::string& path) const;

    /// Drops the state and deletes its file if there is one; waits if the writer is at it. A file that
    /// resists raises the file layer's error; the state is dropped all the same.
    void Forget(const std::string& path);

    /// Waits until all writes so far are done; gives the paths of all kept states whose writing failed, in
    /// order. Those states are in memory only.
    std::vector<std::string> Settle();

  private:
    struct Shared;
    std::unique_ptr<Shared> shared_;
};

} // namespace pintalux
