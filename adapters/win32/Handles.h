// Owners of the system's drawing objects.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>

namespace formwizard::adapters::win32 {

struct DeleteGdiObject {
  void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
template <typename Handle>
using Owned = std::unique_ptr<std::remove_pointer_t<Handle>, DeleteGdiObject>;

// A device context in memory, with one object selected into it for as long as it lives.
class MemoryContext {
 public:
  explicit MemoryContext(HGDIOBJ selected) : context_(CreateCompatibleDC(nullptr)) {
    previous_ = SelectObject(context_, selected);
  }
  ~MemoryContext() {
    SelectObject(context_, previous_);
    DeleteDC(context_);
  }
  MemoryContext(const MemoryContext&) = delete;
  MemoryContext& operator=(const MemoryContext&) = delete;

  operator HDC() const { return context_; }  // NOLINT(google-explicit-constructor)

 private:
  HDC context_;
  HGDIOBJ previous_;
};

}  // namespace formwizard::adapters::win32
