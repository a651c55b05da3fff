#include "apps/addin-dll/Sessions.h"

#include "adapters/com/Automation.h"

#include <algorithm>
#include <vector>

namespace formwizard::apps::addin {
namespace {

// Of the whole library, because the objects that the environment creates know nothing of each other.
std::vector<std::weak_ptr<Session>> sessions;
SRWLOCK lock = SRWLOCK_INIT;

class Locked {
 public:
  Locked() { AcquireSRWLockExclusive(&lock); }
  ~Locked() { ReleaseSRWLockExclusive(&lock); }
  Locked(const Locked&) = delete;
  Locked& operator=(const Locked&) = delete;
};

// The window is null when the environment does not tell it.
EnvironmentIdentity IdentityOf(IDispatch* root) {
  const adapters::com::ComPtr<IDispatch> kept(root);
  adapters::com::ComPtr<IUnknown> unknown;
  root->QueryInterface(IID_IUnknown, unknown.ReceiveVoid());
  HWND window = nullptr;
  try {
    const auto handle = adapters::com::Object(kept).Child(L"MainWindow").Get(L"HWnd").ToInt32().Value();
    window = reinterpret_cast<HWND>(static_cast<INT_PTR>(handle));
  } catch (const runtime::RuntimeError&) {
    window = nullptr;
  }
  return {unknown.Get(), IsWindow(window) ? window : nullptr, GetCurrentThreadId()};
}

std::shared_ptr<Session> FindLasting(const EnvironmentIdentity& environment) {
  const Locked whileSearching;
  std::erase_if(sessions, [](const std::weak_ptr<Session>& session) { return session.expired(); });
  for (const std::weak_ptr<Session>& known : sessions) {
    std::shared_ptr<Session> session = known.lock();
    if (session && session->LastsIn(environment)) return session;
  }
  return nullptr;
}

}  // namespace

std::shared_ptr<Session> SessionOf(IDispatch* root) {
  const EnvironmentIdentity environment = IdentityOf(root);
  if (auto session = FindLasting(environment)) return session;
  auto session = std::make_shared<Session>(root, environment);
  const Locked whileAdding;
  sessions.push_back(session);
  return session;
}

}  // namespace formwizard::apps::addin
