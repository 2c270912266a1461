// Counted handle of an object that carries the count of its owners itself, in a member `owners`. One
// thread only. A type that is put aside instead of deleted gives its own Destroy(T*).
#pragma once

#include <utility>

namespace velm {

template <class T>
class CountedPtr {
  public:
    CountedPtr() noexcept = default;
    explicit CountedPtr(T* object) noexcept : object_(object) { Retain(); }
    CountedPtr(const CountedPtr& other) noexcept : object_(other.object_) { Retain(); }
    CountedPtr(CountedPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    CountedPtr& operator=(CountedPtr other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~CountedPtr() {
        if (object_ != nullptr && --object_->owners == 0) Destroy(object_);
    }

    T& operator*() const { return *object_; }
    T* operator->() const { return object_; }
    T* Get() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    bool IsShared() const { return object_->owners > 1; }

  private:
    void Retain() {
        if (object_ != nullptr) ++object_->owners;
    }

    T* object_ = nullptr;
};

}  // namespace velm
