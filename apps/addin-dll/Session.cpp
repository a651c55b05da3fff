#include "apps/addin-dll/Session.h"

#include "apps/addin-dll/Module.h"
#include "system/Text.h"

#include <utility>

namespace formwizard::apps::addin {

using namespace generator::ide;

Session::Session(IDispatch* root)
    : environment_(root, *this),
      desktop_(root),
      wizard_({.Desktop = desktop_,
               .Measure = measure_,
               .Profiles = profiles_,
               .Factories = factories_,
               .Libraries = libraries_,
               .ProfileFile = system::Utf8(ModuleFolder()).append(settings::ProfileName),
               .ProgramFolder = system::Utf8(ModuleFolder())},
              desktop_) {}

void Session::Connect(core::ConnectMode mode) {
  const auto kept = shared_from_this();
  wizard_.IDTExtensibility_OnConnection(environment_, mode);
  FinishDisconnecting();
}

void Session::Disconnect() {
  isDisconnected_ = true;
  if (!wizard_.FormDisplayed) FinishDisconnecting();
}

void Session::FinishDisconnecting() {
  if (isDisconnected_) wizard_.IDTExtensibility_OnDisconnection();
}

std::unique_ptr<CommandBarEvents> Session::Environment::ConnectEvents(const std::shared_ptr<CommandBarControl>& control,
                                                                      CommandBarEvents::Click onClick) {
  const std::weak_ptr<Session> session = session_.weak_from_this();
  return ComEnvironment::ConnectEvents(control, [session, onClick = std::move(onClick)](auto&... answers) {
    const std::shared_ptr<Session> kept = session.lock();
    if (!kept || kept->wizard_.FormDisplayed) return;  // a second click while the wizard is open
    onClick(answers...);
    kept->FinishDisconnecting();
  });
}

}  // namespace formwizard::apps::addin
