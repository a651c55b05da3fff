#include "adapters/win32/CurrentControls.h"

#include "adapters/win32/WindowClass.h"

#include <initializer_list>

namespace formwizard::adapters::win32 {
namespace {

HANDLE MakeContext(int manifest) {
  ACTCTXW description{};
  description.cbSize = sizeof(description);
  description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  description.hModule = ThisModule();
  description.lpResourceName = MAKEINTRESOURCEW(manifest);
  return CreateActCtxW(&description);
}

}  // namespace

ControlsContext::ControlsContext(int manifest) {
  GetCurrentActCtx(&program_);
  own_ = manifest == 0 ? INVALID_HANDLE_VALUE : MakeContext(manifest);
  if (own_ != INVALID_HANDLE_VALUE) return;
  own_ = program_;
  if (own_) AddRefActCtx(own_);
}

ControlsContext::~ControlsContext() {
  for (const HANDLE context : {own_, program_}) {
    if (context) ReleaseActCtx(context);
  }
}

}  // namespace formwizard::adapters::win32
