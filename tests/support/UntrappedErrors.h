// Errors of handlers that reached the top.
#pragma once

#include "surface/window/Events.h"

#include <functional>
#include <vector>

namespace pintalux {

/// Listens to errors that nobody caught, as long as it lives.
class UntrappedErrors {
  public:
    UntrappedErrors() : before_(OnUntrappedError) {
        OnUntrappedError = [this](const RuntimeError& error) { numbers.push_back(error.Number()); };
    }
    ~UntrappedErrors() { OnUntrappedError = before_; }
    UntrappedErrors(const UntrappedErrors&) = delete;
    UntrappedErrors& operator=(const UntrappedErrors&) = delete;

    std::vector<int> numbers;

  private:
    std::function<void(const RuntimeError&)> before_;
};

} // namespace pintalux
