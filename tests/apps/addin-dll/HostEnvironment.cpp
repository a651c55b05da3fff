#include "tests/apps/addin-dll/HostEnvironment.h"

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
        return NewFake("Property")->On("Value", [owner, name = index.Text(0)](const Call& call) {
          if (!call.IsPut() && name != "Name") runtime::Raise(runtime::PropertyNotFound);
          if (call.IsPut()) Put(*owner, name, call.Value(0));
          return owner->Name();
        });
      });
}

using Control = std::shared_ptr<ide::VBControl>;

FakePtr NewControl(const std::shared_ptr<ide::VBControls>& all, const Control& control) {
  return NewFake("VBControl", control)
      ->On("Properties", [control] { return NewProperties(control); })
      ->On("ContainedVBControls",
           [all, control] {
             return NewFake("ContainedVBControls")->On("Add", [all, control](const Call& call) {
               // The container is an argument too.
               if (PlayedBy<Control>(call.Value(1)) != control) runtime::Raise(runtime::InvalidProcedureCall);
               return NewControl(all, all->Add(call.Text(0), control));
             });
           })
      ->On("Container", [control](const Call& call) {
        if ((call.Flags & DISPATCH_PROPERTYPUTREF) == 0) runtime::Raise(runtime::PropertyReadOnly);
        control->SetContainer(PlayedBy<Control>(call.Value(0)));
      });
}

FakePtr NewDesigner(const std::shared_ptr<ide::VBControls>& all) {
  if (!all) return {};
  return NewFake("VBForm")->On("VBControls", [all] {
    return NewFake("VBControls")->On("Count", [all] { return all->Count(); })->On("Add", [all](const Call& call) {
      return NewControl(all, all->Add(call.Text(0), nullptr));
    });
  });
}

FakePtr NewCodeModule(const std::shared_ptr<ide::CodeModule>& code) {
  return NewFake("CodeModule")
      ->On("CountOfLines", [code] { return code->CountOfLines(); })
      ->On("InsertLines", [code](const Call& call) { code->InsertLines(call.Number(0), call.Text(1)); })
      ->On("CreateEventProc", [code](const Call& call) { return code->CreateEventProc(call.Text(0), call.Text(1)); });
}

FakePtr NewComponent(const std::shared_ptr<ide::VBComponent>& component) {
  if (!component) return {};
  return NewFake("VBComponent")
      ->On("Name",
           [component](const Call& call) {
             if (call.IsPut()) component->SetName(call.Text(0));
             return component->Name();
           })
      ->On("Properties", [component] { return NewProperties(component); })
      ->On("Designer", [component] { return NewDesigner(component->DesignerControls()); })
      ->On("CodeModule", [component] { return NewCodeModule(component->Code()); })
      ->On("Activate", [component] { component->Activate(); });
}

// By its number, as the wizard asks for it.
FakePtr ComponentAt(MemoryProject& project, Int32 index) {
  const auto summaries = project.OnDisk().Summaries();
  const auto place = static_cast<std::size_t>(index.Value());
  if (place == 0 || place > summaries.size()) return {};
  return NewComponent(project.ActiveVBProject().Components().Find(summaries[place - 1].Name));
}

FakePtr NewProject(MemoryProject& project) {
  return NewFake("VBProject")
      ->On("AddToolboxProgID",
           [&project](const Call& call) { project.ActiveVBProject().AddToolboxProgID(call.Text(0)); })
      ->On("VBComponents", [&project] {
        return NewCollection(
                   "VBComponents", [&project] { return Int32(project.OnDisk().Summaries().size()); },
                   [&project](const Call& call) { return ComponentAt(project, call.Number(0)); })
            ->On("Add", [&project](const Call& call) {
              const auto type = static_cast<ide::ComponentType>(call.Number(0).Value());
              return NewComponent(project.ActiveVBProject().Components().Add(type));
            });
      });
}

}  // namespace

FakePtr HostEnvironment::Root() {
  return NewFake("VBE")
      ->On("Version", [this] { return Version; })
      ->On("CommandBars", [this] { return Menus.CommandBars(); })
      ->On("Events", HostMenus::Events)
      ->On("ActiveVBProject", [this] { return NewProject(project_); })
      ->On("MainWindow", [this] {
        const Int32 handle(static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(mainWindow_)));
        return NewFake("Window")->On("HWnd", [handle] { return handle; });
      });
}

}  // namespace formwizard::tests::host
