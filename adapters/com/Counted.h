// A COM object that lives as long as somebody holds a reference to it.
#pragma once

#include <unknwn.h>

#include <atomic>

namespace formwizard::adapters::com {

// Begins without a reference. A class derived from it is made with "new" and handed to a ComPtr at once.
template <typename... Interfaces>
class Counted : public Interfaces... {
 public:
  Counted() = default;
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Counted() = default;

 private:
  std::atomic<ULONG> references_ = 0;
};

}  // namespace formwizard::adapters::com
