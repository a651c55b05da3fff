#include "apps/addin-dll/Session.h"

#include "apps/addin-dll/Module.h"
#include "system/Text.h"

#include <utility>

namespace formwizard::apps::addin {

using namespace generator::ide;

namespace {

constexpr int ManifestOfLibrary = 2;  // resource id

}  // namespace

Session::Session(IDispatch* root, const EnvironmentIdentity& environment)
    : identity_(environment),
      environment_(root, *this),
      desktop_(environment.MainWindow, ManifestOfLibrary),
      wizard_({.Desktop = desktop_,
               .Measure = measure_,
               .Profiles = profiles_,
               .Factories = factories_,
               .Libraries = libraries_,
               .ProfileFile = system::Utf8(ModuleFolder()).append(settings::ProfileName),
               .ProgramFolder = system::Utf8(ModuleFolder())},
              desktop_) {}

bool Session::LastsIn(const EnvironmentIdentity& environment) const {
  return identity_.IsSame(environment) && !isOver_;
}

void Session::Connect(core::ConnectMode mode) {
  const auto kept = shared_from_this();
  ++connections_;
  if (wizard_.FormDisplayed) return;
  wizard_.IDTExtensibility_OnConnection(environment_, mode);
  if (isOver_) wizard_.IDTExtensibility_OnDisconnection();  // disconnected by the last thing that was done
}

void Session::Disconnect() {
  if (--connections_ != 0) return;
  const auto kept = shared_from_this();
  isOver_ = true;
  wizard_.IDTExtensibility_OnDisconnection();
  desktop_.Close();
  environment_.Disconnect();
}

std::unique_ptr<CommandBarEvents> Session::Environment::ConnectEvents(const std::shared_ptr<CommandBarControl>& control,
                                                                      CommandBarEvents::Click onClick) {
  const std::weak_ptr<Session> session = session_.weak_from_this();
  return ComEnvironment::ConnectEvents(control, [session, onClick = std::move(onClick)](auto&... answers) {
    const std::shared_ptr<Session> kept = session.lock();
    if (!kept || kept->wizard_.FormDisplayed) return;  // a second click while the wizard is open
    onClick(answers...);
  });
}

}  // namespace formwizard::apps::addin
