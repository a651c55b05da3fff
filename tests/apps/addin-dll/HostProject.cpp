#include "tests/apps/addin-dll/HostProject.h"

#include <memory>
#include <utility>

namespace formwizard::tests::host {
namespace {

namespace ide = generator::ide;
using adapters::vb6files::ProjectOnDisk;
using com::ComPtr;
using com::Value;
using runtime::Int32;

// Sets a property with the type that it was given.
template <typename Owner>
void Put(Owner& owner, const std::string& name, const Value& value) {
  switch (value.Raw().vt) {
    case VT_BOOL:
      return owner.SetProperty(name, value.ToBool());
    case VT_I2:
      return owner.SetProperty(name, value.ToInt16());
    case VT_I4:
      return owner.SetProperty(name, value.ToInt32());
    case VT_BSTR: {
      const std::string text = value.ToText();
      return owner.SetProperty(name, std::string_view(text));
    }
    default:
      runtime::Raise(runtime::TypeMismatch);
  }
}

// The properties of a control or component. Of those only the name can be read.
template <typename Owner>
ComPtr<HostObject> NewProperties(const std::shared_ptr<Owner>& owner) {
  return NewCollection(
      "Properties", [] { return Int32(0); },
      [owner](const Call& index) {
        auto property = NewObject("Property");
        property->On("Value", [owner, name = index.Text(0)](const Call& call) {
          if (!call.IsPut()) {
            if (name != "Name") runtime::Raise(runtime::PropertyNotFound);
            return Value(std::string_view(owner->Name()));
          }
          Put(*owner, name, call.Value(0));
          return Value();
        });
        return property;
      });
}

class HostControl : public HostObject {
 public:
  HostControl(const std::shared_ptr<ide::VBControls>& all, std::shared_ptr<ide::VBControl> control);
  const std::shared_ptr<ide::VBControl>& Control() const { return control_; }

 private:
  std::shared_ptr<ide::VBControl> control_;
};

// Error 13 for what is no control.
std::shared_ptr<ide::VBControl> ControlIn(const Value& value) {
  const auto* control = dynamic_cast<HostControl*>(value.ToDispatch().Get());
  if (!control) runtime::Raise(runtime::TypeMismatch);
  return control->Control();
}

Value NewControl(const std::shared_ptr<ide::VBControls>& all, std::shared_ptr<ide::VBControl> control) {
  return Value(ComPtr<IDispatch>(new HostControl(all, std::move(control))));
}

// The controls in a container. Adding takes the container as argument too.
ComPtr<HostObject> NewContained(const std::shared_ptr<ide::VBControls>& all,
                                const std::shared_ptr<ide::VBControl>& container) {
  auto contained = NewObject("ContainedVBControls");
  contained->On("Add", [all, container](const Call& call) {
    if (call.Count() > 1 && ControlIn(call.Value(1)) != container) runtime::Raise(runtime::InvalidProcedureCall);
    return NewControl(all, all->Add(call.Text(0), container));
  });
  return contained;
}

HostControl::HostControl(const std::shared_ptr<ide::VBControls>& all, std::shared_ptr<ide::VBControl> control)
    : HostObject("VBControl"), control_(std::move(control)) {
  On("Properties", [owner = control_](const Call&) { return ValueOf(NewProperties(owner)); });
  On("ContainedVBControls", [all, owner = control_](const Call&) { return ValueOf(NewContained(all, owner)); });
  On("Container", [owner = control_](const Call& call) {
    if ((call.Flags & DISPATCH_PROPERTYPUTREF) == 0) runtime::Raise(runtime::PropertyReadOnly);
    owner->SetContainer(ControlIn(call.Value(0)));
    return Value();
  });
}

ComPtr<HostObject> NewDesigner(const std::shared_ptr<ide::VBComponent>& component) {
  auto designer = NewObject("VBForm");
  designer->On("VBControls", [component](const Call&) {
    const std::shared_ptr<ide::VBControls> all = component->DesignerControls();
    auto controls = NewObject("VBControls");
    controls->On("Count", [all](const Call&) { return Value(all->Count()); });
    controls->On("Add", [all](const Call& call) {
      return NewControl(all, all->Add(call.Text(0), call.Count() > 1 ? ControlIn(call.Value(1)) : nullptr));
    });
    return ValueOf(controls);
  });
  return designer;
}

ComPtr<HostObject> NewCodeModule(const std::shared_ptr<ide::CodeModule>& code) {
  auto module = NewObject("CodeModule");
  module->On("CountOfLines", [code](const Call&) { return Value(code->CountOfLines()); });
  module->On("InsertLines", [code](const Call& call) {
    code->InsertLines(call.Number(0), call.Text(1));
    return Value();
  });
  module->On("CreateEventProc",
             [code](const Call& call) { return Value(code->CreateEventProc(call.Text(0), call.Text(1))); });
  return module;
}

ComPtr<HostObject> NewComponent(const std::shared_ptr<ide::VBComponent>& component) {
  if (!component) return {};
  auto object = NewObject("VBComponent");
  object->On("Name", [component](const Call& call) {
    if (!call.IsPut()) return Value(std::string_view(component->Name()));
    component->SetName(call.Text(0));
    return Value();
  });
  object->On("Properties", [component](const Call&) { return ValueOf(NewProperties(component)); });
  object->On("Designer", [component](const Call&) { return ValueOf(NewDesigner(component)); });
  object->On("CodeModule", [component](const Call&) { return ValueOf(NewCodeModule(component->Code())); });
  object->On("Activate", [component](const Call&) {
    component->Activate();
    return Value();
  });
  return object;
}

// By number or by name.
ComPtr<HostObject> ComponentAt(ProjectOnDisk& project, const Value& index) {
  ide::VBComponents& components = project.ActiveVBProject().Components();
  if (index.Raw().vt == VT_BSTR) return NewComponent(components.Find(index.ToText()));
  const auto summaries = project.Summaries();
  const auto place = static_cast<std::size_t>(index.ToInt32().Value());
  return place == 0 || place > summaries.size() ? ComPtr<HostObject>()
                                                : NewComponent(components.Find(summaries[place - 1].Name));
}

ComPtr<HostObject> NewComponents(ProjectOnDisk& project) {
  auto components = NewCollection(
      "VBComponents", [&project] { return Int32(project.Summaries().size()); },
      [&project](const Call& call) { return ComponentAt(project, call.Value(0)); });
  components->On("Add", [&project](const Call& call) {
    const auto type = static_cast<ide::ComponentType>(call.Number(0).Value());
    return ValueOf(NewComponent(project.ActiveVBProject().Components().Add(type)));
  });
  return components;
}

}  // namespace

ComPtr<HostObject> NewProject(ProjectOnDisk& project) {
  auto object = NewObject("VBProject");
  object->On("AddToolboxProgID", [&project](const Call& call) {
    project.ActiveVBProject().AddToolboxProgID(call.Text(0));
    return Value();
  });
  object->On("VBComponents", [&project](const Call&) { return ValueOf(NewComponents(project)); });
  return object;
}

}  // namespace formwizard::tests::host
