// One connection to the environment: everything that the wizard is given there, from connection to disconnection.
#pragma once

#include "adapters/com/ComEnvironment.h"
#include "adapters/com/ComFactory.h"
#include "adapters/native/NativeLibraries.h"
#include "adapters/native/NativeProfile.h"
#include "adapters/satellite/StringResources.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "addin/Wizard.h"
#include "apps/addin-dll/AddInDesktop.h"
#include "apps/addin-dll/Module.h"

#include <memory>

namespace formwizard::apps::addin {

namespace core = formwizard::addin;

// The environment may disconnect the add-in while the wizard is open: the session then ends when the wizard does, and
// keeps itself alive until then.
class Session : public std::enable_shared_from_this<Session> {
 public:
  // `root` is the environment's root object.
  explicit Session(IDispatch* root);

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

  void FinishDisconnecting();

  ModuleHold hold_;  // the wizard may be open when nobody holds the add-in any more
  Environment environment_;
  AddInDesktop desktop_;
  adapters::textmeasure::BuiltInTextMeasure measure_;
  adapters::native::NativeProfile profiles_;
  adapters::native::NativeLibraries libraries_{adapters::satellite::IsSatellite};
  adapters::com::ComFactoryCreator factories_;
  core::Wizard wizard_;
  bool isDisconnected_ = false;
};

}  // namespace formwizard::apps::addin
