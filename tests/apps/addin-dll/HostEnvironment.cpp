#include "tests/apps/addin-dll/HostEnvironment.h"

#include <memory>
#include <utility>

namespace formwizard::tests::host {
namespace {

namespace ide = generator::ide;
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
FakePtr NewProperties(const std::shared_ptr<Owner>& owner) {
  return NewCollection(
      "Properties", [] { return Int32(0); },
      [owner](const Call& index) {
        auto property = NewFake("Property");
        property->On("Value", [owner, name = index.Text(0)](const Call& call) {
          if (!call.IsPut() && name != "Name") runtime::Raise(runtime::PropertyNotFound);
          if (call.IsPut()) Put(*owner, name, call.Value(0));
          return owner->Name();
        });
        return property;
      });
}

class HostControl : public FakeDispatch {
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

FakePtr NewControl(const std::shared_ptr<ide::VBControls>& all, std::shared_ptr<ide::VBControl> control) {
  return FakePtr(new HostControl(all, std::move(control)));
}

// The controls in a container. Adding takes the container as argument too.
FakePtr NewContained(const std::shared_ptr<ide::VBControls>& all, const std::shared_ptr<ide::VBControl>& container) {
  auto contained = NewFake("ContainedVBControls");
  contained->On("Add", [all, container](const Call& call) {
    if (ControlIn(call.Value(1)) != container) runtime::Raise(runtime::InvalidProcedureCall);
    return NewControl(all, all->Add(call.Text(0), container));
  });
  return contained;
}

HostControl::HostControl(const std::shared_ptr<ide::VBControls>& all, std::shared_ptr<ide::VBControl> control)
    : FakeDispatch("VBControl"), control_(std::move(control)) {
  On("Properties", [owner = control_] { return NewProperties(owner); });
  On("ContainedVBControls", [all, owner = control_] { return NewContained(all, owner); });
  On("Container", [owner = control_](const Call& call) {
    if ((call.Flags & DISPATCH_PROPERTYPUTREF) == 0) runtime::Raise(runtime::PropertyReadOnly);
    owner->SetContainer(ControlIn(call.Value(0)));
  });
}

FakePtr NewDesigner(const std::shared_ptr<ide::VBComponent>& component) {
  auto designer = NewFake("VBForm");
  designer->On("VBControls", [component] {
    const std::shared_ptr<ide::VBControls> all = component->DesignerControls();
    auto controls = NewFake("VBControls");
    controls->On("Count", [all] { return all->Count(); });
    controls->On("Add", [all](const Call& call) { return NewControl(all, all->Add(call.Text(0), nullptr)); });
    return controls;
  });
  return designer;
}

FakePtr NewCodeModule(const std::shared_ptr<ide::CodeModule>& code) {
  auto module = NewFake("CodeModule");
  module->On("CountOfLines", [code] { return code->CountOfLines(); });
  module->On("InsertLines", [code](const Call& call) { code->InsertLines(call.Number(0), call.Text(1)); });
  module->On("CreateEventProc", [code](const Call& call) { return code->CreateEventProc(call.Text(0), call.Text(1)); });
  return module;
}

FakePtr NewComponent(const std::shared_ptr<ide::VBComponent>& component) {
  if (!component) return {};
  auto object = NewFake("VBComponent");
  object->On("Name", [component](const Call& call) {
    if (call.IsPut()) component->SetName(call.Text(0));
    return component->Name();
  });
  object->On("Properties", [component] { return NewProperties(component); });
  object->On("Designer", [component] { return component->DesignerControls() ? NewDesigner(component) : FakePtr(); });
  object->On("CodeModule", [component] { return NewCodeModule(component->Code()); });
  object->On("Activate", [component] { component->Activate(); });
  return object;
}

// By its number, as the wizard asks for it.
FakePtr ComponentAt(MemoryProject& project, Int32 index) {
  const auto summaries = project.OnDisk().Summaries();
  const auto place = static_cast<std::size_t>(index.Value());
  if (place == 0 || place > summaries.size()) return {};
  return NewComponent(project.ActiveVBProject().Components().Find(summaries[place - 1].Name));
}

FakePtr NewComponents(MemoryProject& project) {
  auto components = NewCollection(
      "VBComponents", [&project] { return Int32(project.OnDisk().Summaries().size()); },
      [&project](const Call& call) { return ComponentAt(project, call.Number(0)); });
  components->On("Add", [&project](const Call& call) {
    const auto type = static_cast<ide::ComponentType>(call.Number(0).Value());
    return NewComponent(project.ActiveVBProject().Components().Add(type));
  });
  return components;
}

FakePtr NewProject(MemoryProject& project) {
  auto object = NewFake("VBProject");
  object->On("AddToolboxProgID",
             [&project](const Call& call) { project.ActiveVBProject().AddToolboxProgID(call.Text(0)); });
  object->On("VBComponents", [&project] { return NewComponents(project); });
  return object;
}

}  // namespace

FakePtr HostEnvironment::Root() {
  auto root = NewFake("VBE");
  root->On("Version", [this] { return Version; });
  root->On("CommandBars", [this] { return Menus.CommandBars(); });
  root->On("Events", HostMenus::Events);
  root->On("ActiveVBProject", [this] { return NewProject(project_); });
  root->On("MainWindow", [this] {
    auto window = NewFake("Window");
    window->On("HWnd",
               [this] { return runtime::Int32(static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(mainWindow_))); });
    return window;
  });
  return root;
}

}  // namespace formwizard::tests::host
