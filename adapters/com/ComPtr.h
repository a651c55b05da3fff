// Holds one reference to a COM object and releases it on every path.
#pragma once

#include <unknwn.h>

#include <utility>

namespace formwizard::adapters::com {

template <typename T>
class ComPtr {
 public:
  ComPtr() = default;
  // Takes a reference of its own.
  explicit ComPtr(T* object) : object_(object) {
    if (object_) object_->AddRef();
  }
  ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
  ComPtr(ComPtr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  ComPtr& operator=(ComPtr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ComPtr() {
    if (object_) object_->Release();
  }

  // Takes over the reference that its maker holds.
  static ComPtr Adopt(T* object) {
    ComPtr adopted;
    adopted.object_ = object;
    return adopted;
  }

  T* Get() const { return object_; }
  T* operator->() const { return object_; }
  T& operator*() const { return *object_; }
  explicit operator bool() const { return object_ != nullptr; }

  // For a call that hands out a reference; what was held before is released.
  T** Receive() {
    *this = ComPtr();
    return &object_;
  }
  // Leaves the reference to the caller.
  T* Detach() { return std::exchange(object_, nullptr); }
  void** ReceiveVoid() { return reinterpret_cast<void**>(Receive()); }

 private:
  T* object_ = nullptr;
};

}  // namespace formwizard::adapters::com
