// What the add-in has in one environment, from the first connection to the last disconnection: everything that the
// wizard is given there.
#pragma once

#include "adapters/com/ComEnvironment.h"
#include "adapters/com/ComFactory.h"
#include "adapters/native/NativeLibraries.h"
#include "adapters/native/NativeProfile.h"
#include "adapters/satellite/StringResources.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/win32/Win32Desktop.h"
#include "addin/Wizard.h"
#include "apps/addin-dll/Module.h"

#include <memory>

namespace formwizard::apps::addin {

namespace core = formwizard::addin;

// By which the same environment is known again: its root object or its main window, which may be null, and the thread
// on which it works.
struct EnvironmentIdentity {
  const void* Root;
  HWND MainWindow;
  DWORD Thread;

  bool IsSame(const EnvironmentIdentity& other) const {
    return Thread == other.Thread && (Root == other.Root || (MainWindow && MainWindow == other.MainWindow));
  }
};

// The environment may disconnect the add-in while the wizard is open or makes a form: then the windows are closed and
// nothing of the environment is called any more. The session keeps itself alive until its own work has ended.
class Session : public std::enable_shared_from_this<Session> {
 public:
  Session(IDispatch* root, const EnvironmentIdentity& environment);

  // Not over, and in this environment.
  bool LastsIn(const EnvironmentIdentity& environment) const;

  // Counted: the command stays until each connection has ended.
  void Connect(core::ConnectMode mode);
  void Disconnect();

 private:
  // The environment, whose clicks keep the session alive while they are handled.
  class Environment : public adapters::com::ComEnvironment {
   public:
    Environment(IDispatch* root, Session& session) : ComEnvironment(root), session_(session) {}
    std::unique_ptr<generator::ide::CommandBarEvents> ConnectEvents(
        const std::shared_ptr<generator::ide::CommandBarControl>& control,
        generator::ide::CommandBarEvents::Click onClick) override;

   private:
    Session& session_;
  };

  ModuleHold hold_;  // the wizard may be open when nobody holds the add-in any more
  const EnvironmentIdentity identity_;
  Environment environment_;
  adapters::win32::Win32Desktop desktop_;
  adapters::textmeasure::BuiltInTextMeasure measure_;
  adapters::native::NativeProfile profiles_;
  adapters::native::NativeLibraries libraries_{adapters::satellite::IsSatellite};
  adapters::com::ComFactoryCreator factories_;
  core::Wizard wizard_;
  int connections_ = 0;
  bool isOver_ = false;
};

}  // namespace formwizard::apps::addin
