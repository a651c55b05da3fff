// What the environment is asked for; how its answers and failures are used is tried out on the whole add-in.
#include "adapters/com/ComEnvironment.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDispatch.h"

#include <doctest/doctest.h>

using namespace formwizard;
namespace com = adapters::com;
namespace ide = generator::ide;
using runtime::Int16;
using runtime::Int32;
using tests::Call;
using tests::ErrorNumberOf;
using tests::FakePtr;
using tests::NewCollection;
using tests::NewFake;

namespace {

struct Environment {
  Environment() {
    Root->On("ActiveVBProject", [this] { return Project; });
  }

  tests::NothingIsLeft AtTheEnd;
  FakePtr Root = NewFake("VBE"), Project = NewFake("VBProject");
  com::ComEnvironment Vbe{Root.Get()};
};

}  // namespace

TEST_CASE("Components are found by their exact name, in the order of the collection") {
  Environment environment;
  const std::vector<std::string> names{"frmPerson3", "FRMPERSON", "frmPerson", "frmPerson", "frmPerson2"};
  std::string renamed;
  const auto item = [&](const Call& index) {
    const auto place = static_cast<std::size_t>(index.Number(0).Value());
    auto component = NewFake("VBComponent");
    component->On("Name", [&, place](const Call& call) {
      if (call.IsPut()) renamed = std::to_string(place) + ": " + call.Text(0);
      return names.at(place - 1);
    });
    return component;
  };
  environment.Project->On("VBComponents", [&] {
    return NewCollection(
        "VBComponents", [&] { return Int32(names.size()); }, item);
  });
  ide::VBComponents& components = environment.Vbe.ActiveVBProject().Components();
  components.Find("frmPerson")->SetName("frmX");
  CHECK(renamed == "3: frmX");
  CHECK(components.Find("frmperson") == nullptr);
  CHECK(components.FirstFreeNumber("frmPerson") == Int32(4));
  CHECK(components.FirstFreeNumber("frmperson") == Int32(2));
}

TEST_CASE("The open project is asked for anew, and a reference to it stays valid") {
  Environment environment;
  std::string used;
  for (const std::string name : {"first", "second"}) {
    environment.Project = NewFake("VBProject");
    environment.Project->On("AddToolboxProgID", [&used, name](const Call& call) { used = name + " " + call.Text(0); });
    ide::VBProject& project = environment.Vbe.ActiveVBProject();
    environment.Vbe.ActiveVBProject();
    project.AddToolboxProgID("MSCOMDLG.CommonDialog");
    CHECK(used == name + " MSCOMDLG.CommonDialog");
  }
  environment.Project = {};
  CHECK(ErrorNumberOf([&] { environment.Vbe.ActiveVBProject(); }) == runtime::ObjectVariableNotSet);
}

TEST_CASE("Controls: properties keep the type they are given, and Nothing is no container") {
  Environment environment;
  VARTYPE given = VT_EMPTY;
  const auto property = NewFake("Property"), control = NewFake("VBControl"), holder = NewFake("holder of everything");
  property->On("Value", [&](const Call& call) { given = call.Arguments.at(0)->vt; });
  control->On("Properties", [&] {
    return NewCollection(
        "Properties", [] { return Int32(0); }, [&](const Call&) { return property; });
  });
  for (const char* member : {"VBComponents", "Designer", "VBControls"})
    holder->On(member, [&holder] { return holder; });
  environment.Project = holder;
  int added = 0;
  holder->On("Add", [&] { return ++added == 1 ? holder : control; });
  const auto form = environment.Vbe.ActiveVBProject().Components().Add(ide::ComponentType::Form);
  const auto label = form->DesignerControls()->Add("VB.Label", nullptr);
  const std::pair<ide::PropertyValue, VARTYPE> cases[] = {
      {"text", VT_BSTR}, {true, VT_BOOL}, {Int16(2), VT_I2}, {Int32(3275), VT_I4}};
  for (const auto& [value, type] : cases) {
    label->SetProperty("Height", value);
    CHECK(given == type);
  }
  CHECK(ErrorNumberOf([&] { label->SetContainer(nullptr); }) == runtime::ObjectVariableNotSet);
}

TEST_CASE("A place on a menu where Nothing is has no command") {
  Environment environment;
  const auto holder = NewFake("holder of everything");
  environment.Root->On("CommandBars", [&] { return holder; });
  holder->On("Controls", [&] { return holder; });
  holder->OnId(DISPID_VALUE, "Item", [&](const Call& call) { return call.Number(0) == Int32(1) ? holder : FakePtr(); });
  const auto menus = environment.Vbe.CommandBar(Int32(1));
  CHECK(menus->Item(Int32(1)));
  CHECK_FALSE(menus->Item(Int32(2)));
}
