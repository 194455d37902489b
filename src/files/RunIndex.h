// What a run keeps on disk of its open documents, so that the start after a run that died can bring them
// back.
//
// Each run has an index, a text of its own in $XDG_STATE_HOME/Pintalux64, and a lock beside it that dies with
// its process. An index whose lock nobody holds is left over.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace pintalux {

/// One open document.
struct RunDocument {
    std::string file; ///< Its file; empty if it has none.
    std::string caption;
    bool saved = false; ///< Nothing was changed since the last save.
    int cursor = 0;     ///< The place of the current state in `order`.
    int before = -1;    ///< The place in `states` of what was current before the last edit; -1 for nothing.
    std::vector<std::string> states; ///< Paths of the state files.
    std::vector<int> order;          ///< The undo order: places in `states`.
    bool operator==(const RunDocument&) const = default;
};

/// The text of an index, a line for each fact.
std::string IndexText(const std::vector<RunDocument>& documents);
/// The documents of an index; nothing if the text is none.
std::optional<std::vector<RunDocument>> ReadIndex(const std::string& text);
/// Those of a file; nothing if it cannot be read, or is no index.
std::optional<std::vector<RunDocument>> ReadIndexFile(const std::string& path);
/// Whether a document that was read has a current state, and its order names its own states.
bool MakesSense(const RunDocument& document);

/// An open file that is locked, until the object goes.
class RunLock {
  public:
    explicit RunLock(int descriptor) : descriptor_(descriptor) {}
    ~RunLock();
    RunLock(const RunLock&) = delete;
    RunLock& operator=(const RunLock&) = delete;

  private:
    int descriptor_;
};

/// A run's two files.
struct RunFiles {
    std::string index;
    std::string lock;
    std::shared_ptr<RunLock> held; ///< While it lives, no other run takes these for left over.
};

/// Makes the files of a new run, both the user's alone; empty paths where no folder takes them.
RunFiles MakeRunFiles();
/// Those of runs that died, the oldest first.
std::vector<RunFiles> LeftRuns();
/// The indices of all runs, the oldest first.
std::vector<std::string> RunIndices();

void DeleteRunFiles(const RunFiles& files);
/// Has the run count as one that died today.
void RenewRunFiles(const RunFiles& files);
/// Whether a path looks like a state file: an index is believed no further when it comes to deleting.
bool IsStateName(const std::string& path);

/// Deletes what runs that died left behind more than 30 days ago, unless somebody holds their lock: indices
/// and locks; state files, samples and parts of saves in the folders for temporary files and in `folders`;
/// parts of saves in `pictureFolders`. A state that an index still names stays.
void SweepOldFiles(const std::vector<std::string>& folders, const std::set<std::string>& pictureFolders);

} // namespace pintalux
