// The running environment, reached through the root object that it hands to an add-in.
//
// COM must be initialized on the thread; the environment is used on the thread that it connects the add-in on, and not
// after it disconnected it.
#pragma once

#include "adapters/com/Automation.h"
#include "adapters/com/ComProject.h"
#include "generator/ide/CommandBars.h"

#include <memory>
#include <string>

namespace formwizard::adapters::com {

class ComEnvironment : public generator::ide::Application {
 public:
  explicit ComEnvironment(IDispatch* root)
      : connection_(std::make_shared<Connection>()), root_(ComPtr<IDispatch>(root), connection_) {}

  generator::ide::VBProject& ActiveVBProject() override;
  std::string Version() const override;
  std::shared_ptr<generator::ide::CommandBarControls> CommandBar(generator::ide::Int32 index) override;
  std::unique_ptr<generator::ide::CommandBarEvents> ConnectEvents(
      const std::shared_ptr<generator::ide::CommandBarControl>& control,
      generator::ide::CommandBarEvents::Click onClick) override;

  // Lets go of everything of the environment, which may be in the middle of a call. Using any of it, by whomever,
  // raises Disconnected from now on.
  void Disconnect() { connection_->End(); }

 private:
  const std::shared_ptr<Connection> connection_;
  Object root_;
  ComProject project_;
};

}  // namespace formwizard::adapters::com
