#include "apps/addin-dll/AddInDesktop.h"

#include "adapters/com/Automation.h"
#include "apps/addin-dll/Module.h"

namespace formwizard::apps::addin {
namespace {

constexpr int ManifestOfLibrary = 2;  // resource id

// Null when the environment does not tell it.
HWND MainWindowOf(IDispatch* root) {
  const adapters::com::Object environment{adapters::com::ComPtr<IDispatch>(root)};
  try {
    const auto handle = environment.Child(L"MainWindow").Get(L"HWnd").ToInt32().Value();
    const HWND window = reinterpret_cast<HWND>(static_cast<INT_PTR>(handle));
    return IsWindow(window) ? window : nullptr;
  } catch (const runtime::RuntimeError&) {
    return nullptr;
  }
}

HANDLE MakeContext() {
  ACTCTXW description{};
  description.cbSize = sizeof(description);
  description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  description.hModule = ThisModule();
  description.lpResourceName = MAKEINTRESOURCEW(ManifestOfLibrary);
  return CreateActCtxW(&description);
}

}  // namespace

CurrentControls::CurrentControls() : context_(MakeContext()) {
  isActive_ = context_ != INVALID_HANDLE_VALUE && ActivateActCtx(context_, &cookie_);
}

CurrentControls::~CurrentControls() {
  if (isActive_) DeactivateActCtx(0, cookie_);
  if (context_ != INVALID_HANDLE_VALUE) ReleaseActCtx(context_);
}

AddInDesktop::AddInDesktop(IDispatch* root) : Win32Desktop(MainWindowOf(root)) {}

ui::MessageAnswer AddInDesktop::ShowMessage(std::string_view text, int style, std::string_view title) {
  const CurrentControls controls;
  return Win32Desktop::ShowMessage(text, style, title);
}

void AddInDesktop::ShowModal(ui::Form& form, ui::Form* owner) {
  const CurrentControls controls;
  Win32Desktop::ShowModal(form, owner);
}

}  // namespace formwizard::apps::addin
