#include "adapters/com/ComEnvironment.h"

#include "adapters/com/ComCommandBars.h"

#include <utility>

namespace formwizard::adapters::com {

namespace ide = generator::ide;

ide::VBProject& ComEnvironment::ActiveVBProject() {
  Object project = root_.Child(L"ActiveVBProject");
  if (!project) runtime::Raise(runtime::ObjectVariableNotSet);
  project_.Bind(std::move(project));
  return project_;
}

std::string ComEnvironment::Version() const { return root_.Get(L"Version").ToText(); }

std::shared_ptr<ide::CommandBarControls> ComEnvironment::CommandBar(ide::Int32 index) {
  // One number stands for different members of a button and of a menu, whatever type both say they have.
  const Object bars = root_.Child(L"CommandBars").WithOwnIds();
  return std::make_shared<ComCommandBarControls>(bars.Item(index).Child(L"Controls"));
}

std::unique_ptr<ide::CommandBarEvents> ComEnvironment::ConnectEvents(
    const std::shared_ptr<ide::CommandBarControl>& control, ide::CommandBarEvents::Click onClick) {
  if (!control) runtime::Raise(runtime::ObjectVariableNotSet);
  const Object& automation = dynamic_cast<const ComCommandBarControl&>(*control).Automation();
  const Value source = root_.Child(L"Events").Get(L"CommandBarEvents", automation.Dispatch());
  return ListenToClicks(source.ToUnknown(), std::move(onClick));
}

}  // namespace formwizard::adapters::com
