// A counted pointer whose question "am I the only holder?" is safe between threads.
#pragma once

#include <atomic>
#include <utility>

namespace pintalux {

/// What a `Shared` pointer counts; a copied object starts with no holder.
struct Counted {
    Counted() = default;
    Counted(const Counted&) {}
    Counted& operator=(const Counted&) = delete;

    std::atomic<int> holders{0};
};

/// Holds a `T` derived from `Counted`; the last holder deletes it. One pointer belongs to one thread, the
/// counted objects may be held by several.
template <class T>
class Shared {
  public:
    Shared() = default;
    explicit Shared(T* object) : object_(object) { Hold(); }
    Shared(const Shared& other) : object_(other.object_) { Hold(); }
    Shared(Shared&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ~Shared() { Drop(); }

    Shared& operator=(Shared other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }

    T* operator->() const { return object_; }
    T& operator*() const { return *object_; }
    explicit operator bool() const { return object_ != nullptr; }
    bool operator==(const Shared&) const = default;

    /// True if nobody else holds the object. The acquire pairs with the release of whoever dropped it last,
    /// so that the reads of that thread lie before the writes that follow.
    bool Unique() const { return object_->holders.load(std::memory_order_acquire) == 1; }

  private:
    void Hold() {
        if (object_) object_->holders.fetch_add(1, std::memory_order_relaxed);
    }
    void Drop() {
        if (object_ && object_->holders.fetch_sub(1, std::memory_order_acq_rel) == 1) delete object_;
    }

    T* object_ = nullptr;
};

} // namespace pintalux
