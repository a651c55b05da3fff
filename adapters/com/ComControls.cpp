#include "adapters/com/ComControls.h"

#include "adapters/com/Failures.h"
#include "adapters/com/Properties.h"

namespace formwizard::adapters::com {
namespace {

namespace ide = generator::ide;

// Error 91 for no control.
const Object& AutomationOf(const std::shared_ptr<ide::VBControl>& control) {
  if (!control) runtime::Raise(runtime::ObjectVariableNotSet);
  return dynamic_cast<const ComControl&>(*control).Automation();
}

// The collection to which a control of `parent` is added; in an environment whose containers have none, the form's.
Object ControlsIn(const Object& parent, const Object& all) {
  try {
    return parent.Child(L"ContainedVBControls");
  } catch (const runtime::RuntimeError& error) {
    if (error.Number() != MemberNotSupported) throw;
    return all;
  }
}

}  // namespace

std::string ComControl::Name() const { return PropertyOf(control_, "Name").ToText(); }

void ComControl::SetProperty(const ide::PropertyName& name, const ide::PropertyValue& value) {
  SetPropertyOf(control_, name.Text(), value);
}

void ComControl::SetContainer(const std::shared_ptr<ide::VBControl>& container) {
  control_.PutRef(L"Container", AutomationOf(container));
}

ide::Int32 ComControls::Count() const { return controls_.Get(L"Count").ToInt32(); }

std::shared_ptr<ide::VBControl> ComControls::Add(std::string_view progId,
                                                 const std::shared_ptr<ide::VBControl>& container) {
  if (!container) return std::make_shared<ComControl>(controls_.Child(L"Add", progId));
  const Object& parent = AutomationOf(container);
  return std::make_shared<ComControl>(ControlsIn(parent, controls_).Child(L"Add", progId, parent.Dispatch()));
}

}  // namespace formwizard::adapters::com
