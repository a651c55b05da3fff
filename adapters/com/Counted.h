// A COM object that lives as long as somebody holds a reference to it.
#pragma once

#include <unknwn.h>

#include <atomic>

namespace formwizard::adapters::com {

// The objects of this module that live. The system asks a library, not an object of it, whether it can be unloaded: one
// count for the whole module.
inline std::atomic<long> LivingObjects = 0;

// Begins without a reference. A class derived from it is made with "new" and handed to a ComPtr at once.
template <typename... Interfaces>
class Counted : public Interfaces... {
 public:
  Counted() { ++LivingObjects; }
  Counted(const Counted&) = delete;
  Counted& operator=(const Counted&) = delete;

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

 protected:
  virtual ~Counted() { --LivingObjects; }

 private:
  std::atomic<ULONG> references_ = 0;
};

}  // namespace formwizard::adapters::com
