// SPDX-License-Identifier: MIT
//
// ComPointer: a counted reference to a component object, released at the end of the block.
//
//     ComPointer<ITypeLib> library;
//     if (FAILED(LoadTypeLibEx(path, REGKIND_NONE, library.Receive()))) ...
//     library->GetTypeInfoCount();
#pragma once

#include <utility>

namespace vellumark::automation::server {

template <class T>
class ComPointer {
 public:
  ComPointer() = default;
  ComPointer(const ComPointer&) = delete;
  ComPointer& operator=(const ComPointer&) = delete;
  ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
  ComPointer& operator=(ComPointer&& other) noexcept {
    std::swap(pointer_, other.pointer_);
    return *this;
  }
  ~ComPointer() { Reset(); }

  /// The place for a reference that a function hands out.
  T** Receive() noexcept {
    Reset();
    return &pointer_;
  }
  void** ReceiveAny() noexcept { return reinterpret_cast<void**>(Receive()); }

  void Reset() noexcept {
    if (T* const released = std::exchange(pointer_, nullptr)) released->Release();
  }

  [[nodiscard]] T* Get() const noexcept { return pointer_; }
  T* operator->() const noexcept { return pointer_; }

 private:
  T* pointer_ = nullptr;
};

}  // namespace vellumark::automation::server
