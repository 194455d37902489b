// Objects of which the program has one at a time and which many of its parts reach: the tools, the colour
// panel, the main menu. Each has a global that is the way in.
#pragma once

#include "base/RuntimeError.h"

#include <utility>

namespace pintalux {

/// The way in to the one object of a kind. Owners enter theirs by an `Entry`.
template <class T>
class Registered {
  public:
    T* operator->() const { return &**this; } ///< Error 91 where none is entered.
    T& operator*() const {
        if (object_ == nullptr) throw RuntimeError(kObjectNotSet);
        return *object_;
    }
    explicit operator bool() const { return object_ != nullptr; }

    /// A member of the object's owner: the object is the entered one while it lives. The one before it, which
    /// a test may have, is back afterwards.
    class Entry {
      public:
        Entry(Registered& way, T& object) : way_(way), before_(std::exchange(way.object_, &object)) {}
        ~Entry() { way_.object_ = before_; }
        Entry(const Entry&) = delete;
        Entry& operator=(const Entry&) = delete;

      private:
        Registered& way_;
        T* before_;
    };

  private:
    T* object_ = nullptr;
};

} // namespace pintalux
