// The calls of the system library stand here once more, and so come first.
#include "system/Gates.h"

#include <atomic>
#include <cerrno>
#include <climits>
#include <condition_variable>
#include <cstdlib>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <list>
#include <mutex>
#include <new>
#include <pthread.h>
#include <sys/syscall.h>
#include <thread>
#include <unistd.h>

namespace pintalux {

struct Gate::State {
    Call call;
    std::string path;
    bool seen = false;
    bool open = false;
};

namespace {

std::mutex mutex;
std::condition_variable changed;
std::list<std::shared_ptr<Gate::State>> gates;
std::atomic<bool> anyGate{false};

const std::thread::id tests = std::this_thread::get_id();
std::atomic<int> untilRefused{0};
std::atomic<bool> noThreads{false};

void Pass(Gate::Call call, int descriptor) {
    if (!anyGate) return;
    char path[PATH_MAX] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
    if (::readlink(link.c_str(), path, sizeof path - 1) < 0) return;
    std::unique_lock lock(mutex);
    for (const std::shared_ptr<Gate::State>& gate : gates) {
        if (gate->call != call || gate->path != path) continue;
        const std::shared_ptr<Gate::State> held = gate;
        held->seen = true;
        changed.notify_all();
        changed.wait(lock, [&] { return held->open; });
        return;
    }
}

void* Taken(std::size_t bytes) {
    if (untilRefused != 0 && std::this_thread::get_id() != tests && --untilRefused == 0) return nullptr;
    return std::malloc(bytes == 0 ? 1 : bytes);
}

} // namespace

Gate::Gate(Call call, std::string path) : state_(std::make_shared<State>(State{call, std::move(path)})) {
    const std::lock_guard lock(mutex);
    gates.push_back(state_);
    anyGate = true;
}

Gate::~Gate() {
    Open();
    const std::lock_guard lock(mutex);
    gates.remove(state_);
    anyGate = !gates.empty();
}

void Gate::AwaitSomebody() {
    std::unique_lock lock(mutex);
    EXPECT_TRUE(changed.wait_for(lock, std::chrono::seconds(60), [&] { return state_->seen; }));
}

void Gate::Open() {
    const std::lock_guard lock(mutex);
    state_->open = true;
    changed.notify_all();
}

Starvation::Starvation(int n) {
    untilRefused = n;
}

Starvation::~Starvation() {
    untilRefused = 0;
}

bool Starvation::Met() const {
    return untilRefused <= 0;
}

NoThreads::NoThreads() {
    noThreads = true;
}

NoThreads::~NoThreads() {
    noThreads = false;
}

} // namespace pintalux

extern "C" ssize_t write(int descriptor, const void* bytes, std::size_t length) {
    pintalux::Pass(pintalux::Gate::Call::Write, descriptor);
    return ::syscall(SYS_write, descriptor, bytes, length);
}

extern "C" int fdatasync(int descriptor) {
    pintalux::Pass(pintalux::Gate::Call::Sync, descriptor);
    return static_cast<int>(::syscall(SYS_fdatasync, descriptor));
}

extern "C" int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*work)(void*),
                              void* argument) noexcept {
    if (pintalux::noThreads) return EAGAIN;
    static const auto next =
        reinterpret_cast<decltype(&pthread_create)>(::dlsym(RTLD_NEXT, "pthread_create"));
    return next(thread, attributes, work, argument);
}

void* operator new(std::size_t bytes) {
    void* const memory = pintalux::Taken(bytes);
    if (memory == nullptr) throw std::bad_alloc();
    return memory;
}
void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
    return pintalux::Taken(bytes);
}
void* operator new[](std::size_t bytes) {
    return ::operator new(bytes);
}
void* operator new[](std::size_t bytes, const std::nothrow_t&) noexcept {
    return pintalux::Taken(bytes);
}
void operator delete(void* memory) noexcept {
    std::free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    std::free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
