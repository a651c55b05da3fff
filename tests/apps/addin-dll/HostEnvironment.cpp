#include "tests/apps/addin-dll/HostEnvironment.h"

#include "tests/apps/addin-dll/HostProject.h"

namespace formwizard::tests::host {

using com::Value;

com::ComPtr<HostObject> HostEnvironment::Root() {
  auto root = NewObject("VBE");
  root->On("Version", [this](const Call&) { return Value(std::string_view(Version)); });
  root->On("CommandBars", [this](const Call&) { return ValueOf(Menus.CommandBars()); });
  root->On("Events", [](const Call&) { return ValueOf(HostMenus::Events()); });
  root->On("ActiveVBProject", [this](const Call&) { return ValueOf(NewProject(project_)); });
  root->On("MainWindow", [this](const Call&) {
    auto window = NewObject("Window");
    window->On("HWnd", [this](const Call&) {
      return Value(runtime::Int32(static_cast<std::int32_t>(reinterpret_cast<LONG_PTR>(mainWindow_))));
    });
    return ValueOf(window);
  });
  return root;
}

}  // namespace formwizard::tests::host
