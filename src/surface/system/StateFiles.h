// State files: BMP files written behind the edit by one writer thread, from snapshots.
//
// `SaveBehind` returns at once. Until the file is complete, and for good if its writing fails, the picture
// stays in memory, so that whoever asks gets the whole state. A file of another length than was written
// counts as disappeared. All calls come from the interface thread.
//
// The pictures of the states next to the one that a document shows stay in memory behind their files, as long
// as these are untouched and what they do not share takes no more than `kMostKept`, or a quarter of the free
// memory: an undo after a stroke then costs the stroke, not the picture.
//
// Whatever ends the process, the newest state on disk is at most one edit behind: `SaveBehind` and `Await`
// wait until the state before of the same document is written. A disk that hangs is waited for `kLongestWait`
// only; the writer then takes the newest state of each document first, and at most `kMostPending` wait, so
// that memory stays bounded. States that a disk refused are tried again with each later one. What is written
// is made durable behind, half a second later.
#pragma once

#include "surface/raster/Bitmap.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace pintalux {

class StateFiles {
  public:
    static constexpr int kMostPending = 8;
    static constexpr std::uint64_t kMostKept = std::uint64_t{256} << 20; ///< In bytes.
    static constexpr std::chrono::milliseconds kLongestWait{2000};

    StateFiles();
    ~StateFiles(); ///< Waits for the writer to finish what it was given.
    StateFiles(const StateFiles&) = delete;
    StateFiles& operator=(const StateFiles&) = delete;

    /// Takes the picture for `path`, whose file exists already (made by the temporary-name routine), and
    /// writes it behind. A file that vanished meanwhile is made again, for the user alone. `document` tells
    /// whose state it is; null for nobody's. Error 7 if memory runs out, 481 for the empty picture.
    void SaveBehind(const Picture& picture, const std::string& path, const void* document = nullptr);

    /// Takes a file that another run wrote as a state; false if it is no whole one.
    bool Adopt(const std::string& path);

    /// Replaces the file with the text, behind, before the states that still wait; of several texts for it
    /// the last one. It is made for the user alone, aside and renamed. What a disk refused is tried again, as
    /// states are, unless a newer text comes.
    void WriteBehind(const std::string& path, const std::string& text);

    /// Waits until the newest state of the document and all texts are written, for `kLongestWait` at most:
    /// what the user does next is then one step ahead of the disk, not several.
    void Await(const void* document);

    /// Gives up a text that a disk refused; waits if the writer is at it.
    void ForgetText(const std::string& path);

    /// True if `LoadState` would succeed: in memory, or on disk at the right length.
    bool Exists(const std::string& path) const;

    /// The state: from memory while it is there and its file is as it was written, else from the file. Error
    /// 53 if it disappeared or was never saved.
    Picture LoadState(const std::string& path) const;

    /// Drops the state and deletes its file if there is one; waits if the writer is at it. A file that
    /// resists raises the file layer's error; the state is dropped all the same.
    void Forget(const std::string& path);

    /// Waits until all writes so far are done; gives the paths of all kept states whose writing failed, in
    /// order. Those states are in memory only.
    std::vector<std::string> Settle();

    /// Whether there are states that the disk has refused so far, tried again just now or not; they are in
    /// memory only.
    bool Refused() const;

    /// For a signal that ends the process: waits until the writer has nothing left to do, or for that long.
    /// Takes no lock and no memory.
    void WaitInSignal(std::chrono::milliseconds longest) const;

  private:
    struct Shared;
    std::unique_ptr<Shared> shared_;
};

} // namespace pintalux
