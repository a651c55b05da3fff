#include "adapters/com/ComProject.h"

#include "adapters/com/ComCodeModule.h"
#include "adapters/com/ComControls.h"
#include "adapters/com/Properties.h"

#include <unordered_set>

namespace formwizard::adapters::com {
namespace {

namespace ide = generator::ide;
using ide::Int32;

// Shows the components in collection order until `visit` returns true for one.
template <typename Visit>
void ForEach(const Object& components, Visit visit) {
  const Int32 count = components.Get(L"Count").ToInt32();
  for (Int32 index(1); index <= count; index += Int32(1)) {
    if (visit(components.Item(index))) return;
  }
}

std::string NameOf(const Object& component) { return component.Get(L"Name").ToText(); }

}  // namespace

std::string ComComponent::Name() const { return NameOf(component_); }

void ComComponent::SetName(std::string_view name) { component_.Put(L"Name", name); }

void ComComponent::SetProperty(const ide::PropertyName& name, const ide::PropertyValue& value) {
  SetPropertyOf(component_, name.Text(), value);
}

std::shared_ptr<ide::VBControls> ComComponent::DesignerControls() {
  const Object designer = component_.Child(L"Designer");
  return designer ? std::make_shared<ComControls>(designer.Child(L"VBControls")) : nullptr;
}

std::shared_ptr<ide::CodeModule> ComComponent::Code() {
  return std::make_shared<ComCodeModule>(component_.Child(L"CodeModule"));
}

void ComComponent::Activate() { component_.Call(L"Activate"); }

std::shared_ptr<ide::VBComponent> ComComponents::Find(std::string_view name) {
  std::shared_ptr<ide::VBComponent> found;
  ForEach(components_, [&](Object component) {
    if (NameOf(component) != name) return false;
    found = std::make_shared<ComComponent>(std::move(component));
    return true;
  });
  return found;
}

Int32 ComComponents::FirstFreeNumber(std::string_view stem) const {
  std::unordered_set<std::string> names;
  ForEach(components_, [&](const Object& component) {
    names.insert(NameOf(component));
    return false;
  });
  Int32 number(2);
  while (names.contains(std::string(stem) + Text(number))) number += Int32(1);
  return number;
}

std::shared_ptr<ide::VBComponent> ComComponents::Add(ide::ComponentType type) {
  return std::make_shared<ComComponent>(components_.Child(L"Add", Int32(static_cast<int>(type))));
}

void ComProject::AddToolboxProgID(std::string_view progId) { project_.Call(L"AddToolboxProgID", progId); }

ide::VBComponents& ComProject::Components() {
  components_.Bind(project_.Child(L"VBComponents"));
  return components_;
}

}  // namespace formwizard::adapters::com
