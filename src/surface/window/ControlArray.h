// Controls of one kind that differ by an index.
#pragma once

#include "base/NumberText.h"
#include "base/RuntimeError.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace pintalux {

template <class C>
class ControlArray {
  public:
    ControlArray() = default;
    /// `count` controls in one container, named by the array's name and their index.
    template <class Parent>
    ControlArray(Parent& parent, const std::string& name, int count) {
        for (int i = 0; i < count; ++i)
            Add(parent, name + NumberText(i));
    }
    /// Makes the next control of the array and gives it.
    template <class... Arguments>
    C& Add(Arguments&&... arguments) {
        controls_.push_back(std::make_unique<C>(std::forward<Arguments>(arguments)...));
        return *controls_.back();
    }
    /// Error 9 outside.
    C& operator()(int index) const {
        if (index < 0 || index >= Count()) throw RuntimeError(kSubscriptOutOfRange);
        return *controls_[static_cast<std::size_t>(index)];
    }
    int Count() const { return static_cast<int>(controls_.size()); }

  private:
    std::vector<std::unique_ptr<C>> controls_;
};

} // namespace pintalux
