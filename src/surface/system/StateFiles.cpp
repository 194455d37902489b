#include "surface/system/StateFiles.h"

#include "base/RuntimeError.h"
#include "surface/system/BmpHeader.h"
#include "surface/system/BmpWriter.h"
#include "surface/system/FileLayer.h"
#include "surface/system/FreeMemory.h"
#include "surface/system/Pictures.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <list>
#include <map>
#include <mutex>
#include <optional>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>

namespace pintalux {

namespace {

struct State {
    Picture picture;                // once the file is complete, as long as there is room for it
    std::uint64_t length = 0;       // of the complete file
    std::int64_t sequence = 0;      // in which it came
    const void* document = nullptr; // whose it is
    std::optional<FileStamp> stamp; // of the complete file, for as long as the picture stays behind it
};

/// What the pictures behind complete files may take, in bytes, beyond what they share.
std::uint64_t RoomForPictures() {
    return std::min(StateFiles::kMostKept, FreeMemory() / 4);
}

/// What a picture takes beside another one, in bytes.
std::uint64_t OwnBytes(const Picture& picture, const Picture& other) {
    std::uint64_t bytes = 0;
    for (const Box& box : Bitmap::Difference(other, picture))
        bytes += PictureBytes(box.Width(), box.Height());
    return bytes;
}

/// Writes a state to its file; false on any failure, with the file emptied: a full disk needs the room.
bool WriteState(const Picture& picture, const std::string& path) {
    try {
        WritePrivateBmp(picture, path);
        return true;
    } catch (...) {
        ResumeNext([&] { File::OpenForWriting(path, true).Close(); });
        return false;
    }
}

void LowerPriorityOfThread() {
    constexpr int kBackground = 10;
    if (::getpriority(PRIO_PROCESS, 0) >= kBackground) return; // The whole program gives way already.
    // Without the right to it the writer merely competes with the interface.
    [[maybe_unused]] const int result =
        ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kBackground);
}

/// False on any failure, with the old file as it was.
bool WriteNote(const std::string& path, const std::string& text) {
    try {
        const std::string aside = path + ".new";
        File file = File::OpenForWriting(aside, true);
        file.Write(std::as_bytes(std::span(text)));
        file.Close();
        RenameFile(aside, path);
        return true;
    } catch (...) {
        return false;
    }
}

/// Brings what was written to the disk itself. What is gone meanwhile, or cannot be brought there, stays as
/// it is: there is nobody to tell.
void MakeDurable(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0) return;
    ::fdatasync(descriptor);
    ::close(descriptor);
}

/// The length of a BMP file as we write them; 0 if it is another one, or one that broke off.
std::uint64_t WholeLength(const std::string& path) {
    File file = File::OpenForReading(path);
    const BmpHeader header = ReadBmpHeader(file);
    const std::uint64_t length = BmpFileLength(header.width, header.height);
    return header.bits == 24 && file.Length() == length ? length : 0;
}

// A disk that was full is asked again after this time, and whenever it took another state.
constexpr std::chrono::seconds kRetryAfter{5};

struct Pending {
    std::string path;
    const void* document;
    bool superseded = false; // a newer state of the document waits, or was written
    bool refused = false;    // by the disk, at least once
};

} // namespace

/// What the interface thread and the writers have in common; `mutex` guards all of it but the threads and
/// `toDo`. The writers need no memory to move what is written from one list to another.
struct StateFiles::Shared {
    std::mutex mutex;
    std::condition_variable work;     // told to the writer
    std::condition_variable done;     // told by the writer
    std::condition_variable sleeping; // told to the one that makes durable
    std::map<std::string, State> states;
    std::map<const void*, std::int64_t> shown; // the sequence of the state that a document shows
    std::list<Pending> pending;                // what is at the writer stays until it is written
    const Pending* writing = nullptr;
    std::list<Pending> failed;
    std::map<std::string, std::string> notes; // without the one at the writer
    bool writingNote = false;
    std::map<std::string, std::string> refusedNotes;
    std::vector<std::string> toSync;
    std::atomic<std::size_t> toDo = 0; // states and notes that are not written
    std::int64_t sequence = 0;
    bool stopping = false;
    std::thread writer;
    std::thread syncer;

    void Start();
    void Run();
    void WriteNotes(std::unique_lock<std::mutex>& lock);
    void WriteNext(std::unique_lock<std::mutex>& lock);
    void RetryFailed();
    void RunSyncer();
    void Withdraw(std::unique_lock<std::mutex>& lock, const std::string& path);
    void MakeDurableLater(const std::string& path);
    std::vector<Picture> Surplus(std::uint64_t room);
    std::int64_t Rank(const State& state) const;
    std::int64_t ShownBy(const void* document) const;
    void Show(const std::string& path, const Picture& picture, const std::optional<FileStamp>& stamp);
    bool NotesWait() const { return writingNote || !notes.empty(); }
    void CountToDo() { toDo = pending.size() + notes.size() + (writingNote ? 1 : 0); }
    bool Waits(const void* document) const;
    void Await(std::unique_lock<std::mutex>& lock, const void* document);
    bool BeingWritten(const std::string& path) const { return writing != nullptr && writing->path == path; }
};

void StateFiles::Shared::Start() {
    if (!writer.joinable()) writer = std::thread([this] { Run(); });
    if (!syncer.joinable()) syncer = std::thread([this] { RunSyncer(); });
}

/// At the interface's own priority: the next edit waits for it.
void StateFiles::Shared::Run() {
    std::unique_lock lock(mutex);
    for (;;) {
        const auto called = [&] { return stopping || !pending.empty() || !notes.empty(); };
        if (failed.empty() && refusedNotes.empty()) {
            work.wait(lock, called);
        } else if (!work.wait_for(lock, kRetryAfter, called)) {
            RetryFailed();
        }
        if (!notes.empty()) {
            WriteNotes(lock);
        } else if (!pending.empty()) {
            WriteNext(lock);
        } else if (stopping) {
            return;
        }
    }
}

void StateFiles::Shared::WriteNotes(std::unique_lock<std::mutex>& lock) {
    auto note = notes.extract(notes.begin());
    writingNote = true;
    lock.unlock();
    const bool written = WriteNote(note.key(), note.mapped());
    lock.lock();
    writingNote = false;
    if (written) {
        MakeDurableLater(note.key());
    } else if (!notes.contains(note.key())) { // no newer text came meanwhile
        refusedNotes.insert(std::move(note));
    }
    CountToDo();
    done.notify_all();
    sleeping.notify_one();
}

void StateFiles::Shared::WriteNext(std::unique_lock<std::mutex>& lock) {
    auto next = std::find_if(pending.begin(), pending.end(), [](const Pending& p) { return !p.superseded; });
    if (next == pending.end()) next = pending.begin();
    writing = &*next; // stays put, whatever joins or leaves the list
    const std::string& path = next->path;
    Picture picture = states.at(path).picture;
    const bool ofADocument = states.at(path).document != nullptr;
    lock.unlock();
    const bool written = WriteState(picture, path);
    std::optional<FileStamp> stamp;
    std::uint64_t room = 0;
    if (written && ofADocument)
        ResumeNext([&] { stamp = StampOfFile(path); }, [&] { room = RoomForPictures(); });
    picture = {};
    lock.lock();
    std::vector<Picture> released;
    if (written) {
        State& state = states.at(path);
        if (stamp) {
            state.stamp = stamp;
        } else {
            std::swap(picture, state.picture);
        }
        ResumeNext([&] { released = Surplus(room); });
        MakeDurableLater(path);
        RetryFailed();
        pending.erase(next);
    } else {
        next->document = nullptr;
        next->superseded = true;
        next->refused = true;
        failed.splice(failed.end(), pending, next);
    }
    writing = nullptr;
    CountToDo();
    done.notify_all();
    sleeping.notify_one();
    lock.unlock();
    picture = {}; // Freeing many tiles takes a while: nobody waits for it.
    released = {};
    lock.lock();
}

/// How late a state would have come if those behind the one that its document shows had come before it, as
/// far away: undo and redo are as likely.
std::int64_t StateFiles::Shared::Rank(const State& state) const {
    const std::int64_t onScreen = ShownBy(state.document);
    return onScreen - std::abs(state.sequence - onScreen);
}

std::int64_t StateFiles::Shared::ShownBy(const void* document) const {
    const auto found = shown.find(document);
    return found != shown.end() ? found->second : sequence;
}

/// Takes the pictures out that complete files have no more room for, those that are farthest from what a
/// document shows. Neighbours share nearly all, and what is shown is on the screen as well.
std::vector<Picture> StateFiles::Shared::Surplus(std::uint64_t room) {
    std::vector<State*> kept;
    for (auto& [path, state] : states)
        if (state.stamp && !state.picture.Empty()) kept.push_back(&state);
    std::sort(kept.begin(), kept.end(),
              [this](const State* a, const State* b) { return Rank(*a) > Rank(*b); });
    std::vector<Picture> surplus;
    surplus.reserve(kept.size());
    struct Ends {
        Picture older, newer;
    };
    std::map<const void*, Ends> reached;
    std::uint64_t taken = 0;
    for (State* const state : kept) {
        const auto [ends, first] = reached.try_emplace(state->document, Ends{state->picture, state->picture});
        Picture& neighbour =
            state->sequence > ShownBy(state->document) ? ends->second.newer : ends->second.older;
        if (!first) taken += OwnBytes(state->picture, std::exchange(neighbour, state->picture));
        if (taken > room) surplus.push_back(std::move(state->picture));
    }
    return surplus;
}

/// A document shows another one of its states, just read from its file if there is a stamp: as long as there
/// is room it stays, in the place of what is farther away.
void StateFiles::Shared::Show(const std::string& path, const Picture& picture,
                              const std::optional<FileStamp>& stamp) {
    const std::uint64_t room = stamp ? RoomForPictures() : 0;
    std::vector<Picture> released; // goes when the lock has gone
    const std::lock_guard lock(mutex);
    const auto found = states.find(path);
    if (found == states.end() || found->second.document == nullptr) return;
    State& state = found->second;
    shown[state.document] = state.sequence;
    if (!stamp) return;
    state.picture = picture;
    state.stamp = stamp;
    released = Surplus(room);
}

/// The disk takes files again: those that it refused go behind what waits.
void StateFiles::Shared::RetryFailed() {
    pending.splice(pending.end(), failed);
    notes.merge(refusedNotes); // a newer text goes first
    refusedNotes.clear();
    CountToDo();
}

/// Where there is no memory to keep the path, it is left to the system.
void StateFiles::Shared::MakeDurableLater(const std::string& path) {
    ResumeNext([&] { toSync.push_back(path); });
}

void StateFiles::Shared::RunSyncer() {
    LowerPriorityOfThread();
    constexpr std::chrono::milliseconds kDelay{500}; // several that come close together go at once
    std::unique_lock lock(mutex);
    for (;;) {
        sleeping.wait(lock, [&] { return stopping || !toSync.empty(); });
        if (stopping) return;
        sleeping.wait_for(lock, kDelay, [&] { return stopping; });
        const std::vector<std::string> paths = std::exchange(toSync, {});
        lock.unlock();
        for (const std::string& path : paths)
            MakeDurable(path);
        lock.lock();
    }
}

/// Takes a state out of all lists; the writer has left it when this returns.
void StateFiles::Shared::Withdraw(std::unique_lock<std::mutex>& lock, const std::string& path) {
    done.wait(lock, [&] { return !BeingWritten(path); });
    for (std::list<Pending>* list : {&pending, &failed})
        std::erase_if(*list, [&](const Pending& p) { return p.path == path; });
    states.erase(path);
    CountToDo();
}

/// Whether the newest state of the document still waits for the writer.
bool StateFiles::Shared::Waits(const void* document) const {
    return std::any_of(pending.begin(), pending.end(),
                       [&](const Pending& p) { return p.document == document && !p.superseded; });
}

void StateFiles::Shared::Await(std::unique_lock<std::mutex>& lock, const void* document) {
    done.wait_for(lock, kLongestWait, [&] { return !Waits(document) && !NotesWait(); });
}

StateFiles::StateFiles() : shared_(std::make_unique<Shared>()) {}

StateFiles::~StateFiles() {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->stopping = true;
        shared_->work.notify_one();
        shared_->sleeping.notify_one();
    }
    if (shared_->writer.joinable()) shared_->writer.join();
    if (shared_->syncer.joinable()) shared_->syncer.join();
}

void StateFiles::SaveBehind(const Picture& picture, const std::string& path, const void* document) {
    if (picture.Empty()) throw RuntimeError(kInvalidPicture, path);
    std::unique_lock lock(shared_->mutex);
    shared_->Withdraw(lock, path);
    if (document != nullptr) shared_->Await(lock, document);
    shared_->done.wait(lock, [&] { return shared_->pending.size() < kMostPending; });
    try {
        shared_->states[path] = {
            picture, BmpFileLength(picture.Width(), picture.Height()), ++shared_->sequence, document, {}};
        shared_->shown[document] = shared_->sequence;
        for (Pending& older : shared_->pending)
            if (document != nullptr && older.document == document) older.superseded = true;
        shared_->pending.push_back({path, document});
        shared_->CountToDo();
        shared_->Start();
    } catch (const std::exception&) { // no memory, or no thread
        std::erase_if(shared_->pending, [&](const Pending& p) { return p.path == path; });
        shared_->CountToDo();
        shared_->states.erase(path);
        throw RuntimeError(kOutOfMemory);
    }
    shared_->work.notify_one();
}

bool StateFiles::Adopt(const std::string& path) try {
    const std::lock_guard lock(shared_->mutex);
    const std::uint64_t length = WholeLength(path);
    if (length == 0) return false;
    shared_->states[path] = {{}, length, ++shared_->sequence, nullptr, {}};
    return true;
} catch (const RuntimeError&) {
    return false;
}

void StateFiles::WriteBehind(const std::string& path, const std::string& text) {
    const std::lock_guard lock(shared_->mutex);
    shared_->notes[path] = text;
    shared_->refusedNotes.erase(path);
    shared_->CountToDo();
    shared_->Start();
    shared_->work.notify_one();
}

void StateFiles::Await(const void* document) {
    std::unique_lock lock(shared_->mutex);
    shared_->Await(lock, document);
}

bool StateFiles::Refused() const {
    const std::lock_guard lock(shared_->mutex);
    return !shared_->failed.empty() || std::any_of(shared_->pending.begin(), shared_->pending.end(),
                                                   [](const Pending& p) { return p.refused; });
}

void StateFiles::ForgetText(const std::string& path) {
    std::unique_lock lock(shared_->mutex);
    shared_->done.wait(lock, [&] { return !shared_->NotesWait(); });
    shared_->refusedNotes.erase(path);
}

void StateFiles::WaitInSignal(std::chrono::milliseconds longest) const {
    constexpr long kStep = 5; // milliseconds
    for (long waited = 0; shared_->toDo != 0 && waited < longest.count(); waited += kStep) {
        const timespec step = {0, kStep * 1000000};
        ::nanosleep(&step, nullptr);
    }
}

bool StateFiles::Exists(const std::string& path) const {
    std::uint64_t length = 0;
    {
        const std::lock_guard lock(shared_->mutex);
        const auto state = shared_->states.find(path);
        if (state == shared_->states.end()) return false;
        if (!state->second.picture.Empty() && !state->second.stamp) return true;
        length = state->second.length;
    }
    try {
        return FileLength(path) == length;
    } catch (const RuntimeError&) {
        return false;
    }
}

Picture StateFiles::LoadState(const std::string& path) const {
    State state;
    {
        const std::lock_guard lock(shared_->mutex);
        if (const auto found = shared_->states.find(path); found != shared_->states.end())
            state = found->second;
    }
    const auto show = [&](const Picture& picture, const std::optional<FileStamp>& stamp) {
        ResumeNext([&] { shared_->Show(path, picture, stamp); });
        return picture;
    };
    if (!state.picture.Empty() && !state.stamp) return show(state.picture, {});
    if (!Exists(path)) throw RuntimeError(kFileNotFound, path);
    const std::optional<FileStamp> stamp = StampOfFile(path);
    // The file rules: the picture stands in for it only as long as nobody has touched it.
    if (!state.picture.Empty() && stamp == state.stamp) return show(state.picture, {});
    state.picture = {};
    return show(LoadPicture(path), stamp);
}

void StateFiles::Forget(const std::string& path) {
    {
        std::unique_lock lock(shared_->mutex);
        shared_->Withdraw(lock, path);
    }
    if (FileLength(path)) DeleteFile(path);
}

std::vector<std::string> StateFiles::Settle() {
    std::unique_lock lock(shared_->mutex);
    shared_->done.wait(lock, [&] { return shared_->toDo == 0; });
    std::vector<std::string> paths;
    for (const Pending& refused : shared_->failed)
        paths.push_back(refused.path);
    std::sort(paths.begin(), paths.end(), [&](const std::string& a, const std::string& b) {
        return shared_->states.at(a).sequence < shared_->states.at(b).sequence;
    });
    return paths;
}

} // namespace pintalux
