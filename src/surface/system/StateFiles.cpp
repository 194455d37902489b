#include "surface/system/StateFiles.h"

#include "base/RuntimeError.h"
#include "surface/system/BmpWriter.h"
#include "surface/system/FileLayer.h"
#include "surface/system/Pictures.h"

#include <algorithm>
#include <condition_variable>
#include <list>
#include <map>
#include <mutex>
#include <sys/resource.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace pintalux {

namespace {

struct State {
    Picture picture;          // empty once the file is complete
    std::uint64_t length = 0; // of the complete file
};

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
    // Without the right to it the writer merely competes with the interface.
    [[maybe_unused]] const int result =
        ::setpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()), kBackground);
}

} // namespace

/// What the interface thread and the writer have in common; `mutex` guards all of it but `writer`.
struct StateFiles::Shared {
    std::mutex mutex;
    std::condition_variable work; // told to the writer
    std::condition_variable done; // told by the writer
    std::map<std::string, State> states;
    std::list<std::string> pending; // the first one stays until it is written
    bool writing = false;           // the first one is at the writer
    std::vector<std::string> failed;
    bool stopping = false;
    std::thread writer;

    void Run();
    void WriteFirst(std::unique_lock<std::mutex>& lock);
    void Withdraw(std::unique_lock<std::mutex>& lock, const std::string& path);
    bool BeingWritten(const std::string& path) const { return writing && pending.front() == path; }
};

void StateFiles::Shared::Run() {
    LowerPriorityOfThread();
    std::unique_lock lock(mutex);
    for (;;) {
        work.wait(lock, [&] { return stopping || !pending.empty(); });
        if (pending.empty()) return;
        WriteFirst(lock);
    }
}

void StateFiles::Shared::WriteFirst(std::unique_lock<std::mutex>& lock) {
    const std::string& path = pending.front(); // stays put, whatever joins or leaves the list
    Picture picture = states.at(path).picture;
    writing = true;
    lock.unlock();
    const bool written = WriteState(picture, path);
    picture = {};
    lock.lock();
    Picture released;
    if (written)
        std::swap(released, states.at(path).picture);
    else
        failed.push_back(path);
    writing = false;
    pending.pop_front();
    done.notify_all();
    lock.unlock();
    released = {}; // Freeing many tiles takes a while: nobody waits for it.
    lock.lock();
}

/// Takes a state out of all lists; the writer has left it when this returns.
void StateFiles::Shared::Withdraw(std::unique_lock<std::mutex>& lock, const std::string& path) {
    done.wait(lock, [&] { return !BeingWritten(path); });
    std::erase(pending, path);
    std::erase(failed, path);
    states.erase(path);
}

StateFiles::StateFiles() : shared_(std::make_unique<Shared>()) {}

StateFiles::~StateFiles() {
    {
        const std::lock_guard lock(shared_->mutex);
        shared_->stopping = true;
        shared_->work.notify_one();
    }
    if (shared_->writer.joinable()) shared_->writer.join();
}

void StateFiles::SaveBehind(const Picture& picture, const std::string& path) {
    if (picture.Empty()) throw RuntimeError(kInvalidPicture, path);
    std::unique_lock lock(shared_->mutex);
    shared_->Withdraw(lock, path);
    shared_->done.wait(lock, [&] { return shared_->pending.size() < kMostPending; });
    try {
        // The writer must not need memory to say that it failed.
        shared_->failed.reserve(shared_->failed.size() + kMostPending + 1);
        shared_->states[path] = {picture, BmpFileLength(picture.Width(), picture.Height())};
        shared_->pending.push_back(path);
        if (!shared_->writer.joinable())
            shared_->writer = std::thread([shared = shared_.get()] { shared->Run(); });
    } catch (const std::exception&) { // no memory, or no thread
        std::erase(shared_->pending, path);
        shared_->states.erase(path);
        throw RuntimeError(kOutOfMemory);
    }
    shared_->work.notify_one();
}

bool StateFiles::Exists(const std::string& path) const {
    std::uint64_t length = 0;
    {
        const std::lock_guard lock(shared_->mutex);
        const auto state = shared_->states.find(path);
        if (state == shared_->states.end()) return false;
        if (!state->second.picture.Empty()) return true;
        length = state->second.length;
    }
    try {
        return FileLength(path) == length;
    } catch (const RuntimeError&) {
        return false;
    }
}

Picture StateFiles::LoadState(const std::string& path) const {
    {
        const std::lock_guard lock(shared_->mutex);
        const auto state = shared_->states.find(path);
        if (state != shared_->states.end() && !state->second.picture.Empty()) return state->second.picture;
    }
    if (!Exists(path)) throw RuntimeError(kFileNotFound, path);
    return LoadPicture(path);
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
    shared_->done.wait(lock, [&] { return shared_->pending.empty(); });
    return shared_->failed;
}

} // namespace pintalux
