#include "base/Parallel.h"

#include <algorithm>
#include <condition_variable>
#include <cstdint>
#include <exception>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>
#include <vector>

namespace pintalux {

namespace {

thread_local bool insideWork = false;

template <class Act>
std::exception_ptr ErrorOf(const Act& act) {
    try {
        act();
    } catch (...) {
        return std::current_exception();
    }
    return nullptr;
}

// Threads that wait for parts: making one for each repaint would cost more than a small repaint itself.
class Workers {
  public:
    Workers() {
        for (int i = 1; i < CoreCount(); ++i)
            threads_.emplace_back([this](const std::stop_token& stop) { Serve(stop); });
    }

    void Run(int parts, const std::function<void(int part)>& work,
             const std::function<void(int doneParts)>& tell) {
        const std::lock_guard oneAtATime(running_);
        {
            const std::lock_guard hold(lock_);
            work_ = &work;
            next_ = 0;
            parts_ = parts;
            open_ = parts;
            error_ = nullptr;
        }
        wake_.notify_all();
        TakeParts(tell);
        std::unique_lock hold(lock_);
        done_.wait(hold, [this] { return open_ == 0; });
        parts_ = 0;
        if (error_) std::rethrow_exception(std::exchange(error_, nullptr));
    }

  private:
    void Serve(const std::stop_token& stop) {
        while (true) {
            {
                std::unique_lock hold(lock_);
                if (!wake_.wait(hold, stop, [this] { return next_ < parts_; })) return;
            }
            TakeParts(nullptr);
        }
    }

    void TakeParts(const std::function<void(int doneParts)>& tell) {
        insideWork = true;
        std::unique_lock hold(lock_);
        while (next_ < parts_) {
            const int part = next_++;
            hold.unlock();
            std::exception_ptr error = ErrorOf([&] { (*work_)(part); });
            hold.lock();
            if (--open_ == 0) done_.notify_all();
            if (tell) {
                const int doneParts = parts_ - open_;
                hold.unlock();
                if (!error) error = ErrorOf([&] { tell(doneParts); });
                hold.lock();
            }
            if (error && !error_) error_ = error;
        }
        insideWork = false;
    }

    std::mutex running_;
    std::mutex lock_;
    std::condition_variable_any wake_;
    std::condition_variable done_;
    const std::function<void(int)>* work_ = nullptr;
    int next_ = 0;
    int parts_ = 0;
    int open_ = 0;
    std::exception_ptr error_;
    std::vector<std::jthread> threads_; // Last: stopped and joined before the rest goes.
};

Workers& AllWorkers() {
    static Workers workers;
    return workers;
}

} // namespace

int CoreCount() {
    static const int cores = std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return cores;
}

void SplitOverCores(int count, const std::function<void(int begin, int end)>& work) {
    const int parts = std::min(count, CoreCount());
    if (parts <= 1 || insideWork) {
        if (count > 0) work(0, count);
        return;
    }
    AllWorkers().Run(
        parts,
        [&](int part) {
            const auto border = [&](int i) { return static_cast<int>(std::int64_t{count} * i / parts); };
            work(border(part), border(part + 1));
        },
        nullptr);
}

void ShareOverCores(int count, int size, const std::function<void(int begin, int end)>& work,
                    const std::function<void(int done)>& tell) {
    if (count <= 0) return;
    const int parts = (count - 1) / size + 1;
    const auto border = [&](int i) { return i < parts ? i * size : count; };
    const auto part = [&](int i) { work(border(i), border(i + 1)); };
    const auto told = [&](int doneParts) { tell(border(doneParts)); };
    if (parts == 1 || CoreCount() == 1 || insideWork) {
        for (int i = 0; i < parts; ++i) {
            part(i);
            told(i + 1);
        }
        return;
    }
    AllWorkers().Run(parts, part, told);
}

} // namespace pintalux
