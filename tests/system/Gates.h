// Gates before the system calls of other threads: what they do on a file can be held up, and seen.
#pragma once

#include <memory>
#include <string>

namespace pintalux {

/// Holds up whoever writes to a file of this name ("fdatasync": brings one to the disk), until it is opened
/// or goes.
class Gate {
  public:
    enum class Call { Write, Sync };
    Gate(Call call, std::string path);
    ~Gate();
    Gate(const Gate&) = delete;
    Gate& operator=(const Gate&) = delete;

    void
    AwaitSomebody(); ///< Waits until somebody stands before it, or has passed; fails the test in the end.
    void Open();

    struct State;

  private:
    std::shared_ptr<State> state_;
};

/// While it lives, the n-th piece of memory that other threads take is refused, once; 0 for none.
class Starvation {
  public:
    explicit Starvation(int n);
    ~Starvation();
    Starvation(const Starvation&) = delete;
    Starvation& operator=(const Starvation&) = delete;

    bool Met() const; ///< Whether a piece was refused.
};

/// While it lives no thread begins.
class NoThreads {
  public:
    NoThreads();
    ~NoThreads();
    NoThreads(const NoThreads&) = delete;
    NoThreads& operator=(const NoThreads&) = delete;
};

} // namespace pintalux
