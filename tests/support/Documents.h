// Short words for what tests do with documents, files and settings.
#pragma once

#include "document/frmImage.h"
#include "surface/window/Menu.h"

#include <csignal>
#include <string>
#include <sys/resource.h>
#include <vector>

namespace pintalux {

/// A menu command as the user runs it: an error that it does not catch goes to the top.
void Choose(const MenuItem& item);

/// Writes and reads one of the program's settings.
void SetSetting(const std::string& key, const std::string& text);
std::string StoredSetting(const std::string& key);

Picture Solid(int width, int height, Colour colour);

/// One finished edit: the whole image in one colour, recorded.
void Edit(frmImage& image, Colour colour);
/// The colour at the top left corner of the image.
Colour CornerOf(const frmImage& image);

/// The entries of a store.
std::vector<std::string> EntriesOf(const ListStore& list);

/// Waits until every state recorded so far lies on disk.
void SettleStates();

/// Whether some window is locked against repainting.
bool ScreenLocked();

std::string BytesOf(const std::string& path);
void PutBytes(const std::string& path, const std::string& bytes);
/// Names in a folder, sorted, hidden files too.
std::vector<std::string> NamesIn(const std::string& folder);

/// The main window, if there is one, polls no more.
void StopPoll();

/// No file grows beyond `bytes` while the object lives, as on a full disk. The poll, which tells of it,
/// stops.
class FullDisk {
  public:
    explicit FullDisk(rlim_t bytes) {
        StopPoll();
        std::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit now = {bytes, before_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &now);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &before_); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

  private:
    rlimit before_ = {};
};

} // namespace pintalux
