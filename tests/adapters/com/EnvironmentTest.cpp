#include "adapters/com/ComEnvironment.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeDispatch.h"

#include <doctest/doctest.h>

using namespace formwizard;
namespace com = adapters::com;
namespace ide = generator::ide;
using com::ComPtr;
using runtime::Int16;
using runtime::Int32;
using tests::CallLog;
using tests::ErrorNumberOf;
using tests::FakeDispatch;
using tests::Invocation;
using tests::NewCollection;
using tests::NewFake;

namespace {

ComPtr<FakeDispatch> NewControl(const std::string& name) {
  auto control = NewFake(name);
  auto property = NewFake("Name");
  property->With(L"Value", name);
  auto contained = NewFake(name + ".Contained");
  contained->With(L"Add", NewFake("inner"));
  control->With(L"Properties", NewCollection(name + ".Properties", {property, NewFake("Unreadable")}));
  control->With(L"Container", tests::NoValue).With(L"ContainedVBControls", contained);
  return control;
}

ComPtr<FakeDispatch> NewComponent(const std::string& label, const std::string& name) {
  auto component = NewFake(label);
  component->With(L"Name", name).With(L"Designer", ComPtr<FakeDispatch>());
  return component;
}

struct Environment {
  Environment() { Root->With(L"ActiveVBProject", Project).With(L"Version", "6.00"); }

  void SetComponents(const std::vector<ComPtr<FakeDispatch>>& components) {
    auto collection = NewCollection("Components", components);
    collection->With(L"Add", NewComponent("new", "Form9"));
    Project->With(L"VBComponents", collection).With(L"AddToolboxProgID", tests::NoValue);
  }

  ComPtr<FakeDispatch> Root = NewFake("VBE"), Project = NewFake("Project");
};

}  // namespace

TEST_CASE("Components are found by their exact name, in the order of the collection") {
  const tests::AutomationTest test;
  Environment environment;
  environment.SetComponents({NewComponent("a", "frmPerson3"), NewComponent("b", "FRMPERSON"),
                             NewComponent("c", "frmPerson"), NewComponent("d", "frmPerson"),
                             NewComponent("e", "frmPerson2")});
  com::ComEnvironment vbe(environment.Root.Get());
  ide::VBComponents& components = vbe.ActiveVBProject().Components();

  components.Find("frmPerson")->SetName("frmX");
  CHECK(CallLog.back() == R"(put c.Name "frmX")");
  CHECK(components.Find("frmperson") == nullptr);
  CHECK(components.FirstFreeNumber("frmPerson") == Int32(4));
  CHECK(components.FirstFreeNumber("frmperson") == Int32(2));
  CHECK(components.Add(ide::ComponentType::Form)->Name() == "Form9");
  CHECK(std::ranges::find(CallLog, "get Components.Add 5&") != CallLog.end());
}

TEST_CASE("The open project is asked for anew, and a reference to it stays valid") {
  const tests::AutomationTest test;
  const auto root = NewFake("VBE");
  ComPtr<FakeDispatch> open;
  root->On(L"ActiveVBProject",
           [&](const Invocation& call) { return call.Return(com::Value(ComPtr<IDispatch>(open.Get()))); });
  com::ComEnvironment vbe(root.Get());
  CHECK(ErrorNumberOf([&] { vbe.ActiveVBProject(); }) == runtime::ObjectVariableNotSet);

  for (const char* name : {"first", "second"}) {
    open = NewFake(name);
    open->With(L"AddToolboxProgID", tests::NoValue);
    ide::VBProject& project = vbe.ActiveVBProject();
    vbe.ActiveVBProject();
    project.AddToolboxProgID("MSCOMDLG.CommonDialog");
    CHECK(CallLog.back() == "call " + std::string(name) + R"(.AddToolboxProgID "MSCOMDLG.CommonDialog")");
  }
}

TEST_CASE("A form is written through its designer, its properties and its code") {
  const tests::AutomationTest test;
  Environment environment;
  const auto form = NewFake("form");
  const auto designer = NewFake("designer");
  const auto controls = NewFake("Controls");
  const auto code = NewFake("code");
  const auto property = NewFake("Height");
  property->With(L"Value", tests::NoValue);
  form->With(L"Name", "Form1").With(L"Designer", designer).With(L"CodeModule", code).With(L"Activate", tests::NoValue);
  form->With(L"Properties", NewCollection("Properties", {property}));
  designer->With(L"VBControls", controls);
  controls->With(L"Count", Int32(40000)).With(L"Add", NewControl("Label1"));
  code->With(L"CountOfLines", Int32(70000)).With(L"InsertLines", tests::NoValue).With(L"CreateEventProc", Int32(70010));
  environment.SetComponents({form, NewComponent("module", "Module1")});
  com::ComEnvironment vbe(environment.Root.Get());
  const auto component = vbe.ActiveVBProject().Components().Find("Form1");
  const auto designed = component->DesignerControls();
  const auto label = designed->Add("VB.Label", nullptr);
  CHECK(designed->Count() == Int32(40000));
  CHECK(label->Name() == "Label1");
  CallLog.clear();

  SUBCASE("properties keep the type they are given") {
    for (const ide::PropertyValue& value : {ide::PropertyValue("text"), ide::PropertyValue(true),
                                            ide::PropertyValue(Int16(2)), ide::PropertyValue(Int32(3275))}) {
      component->SetProperty("Height", value);
    }
    std::erase_if(CallLog, [](const std::string& line) { return !line.starts_with("put "); });
    CHECK(CallLog == std::vector<std::string>{R"(put Height.Value "text")", "put Height.Value True",
                                              "put Height.Value 2%", "put Height.Value 3275&"});
    CHECK(ErrorNumberOf([&] { component->SetProperty("Absent", true); }) == runtime::SubscriptOutOfRange);
    CHECK(ErrorNumberOf([&] { label->SetProperty("Unreadable", true); }) == 438);
  }
  SUBCASE("a control is moved by reference, and one in another is added to that one's list") {
    const auto frame = designed->Add("VB.Frame", nullptr);
    label->SetContainer(frame);
    CHECK(CallLog.back() == "putref Label1.Container Label1");
    designed->Add("VB.Menu", label);
    CHECK(CallLog.back() == R"(get Label1.Contained.Add "VB.Menu" Label1)");
    CHECK(ErrorNumberOf([&] { label->SetContainer(nullptr); }) == runtime::ObjectVariableNotSet);
  }
  SUBCASE("code has 32-bit line numbers") {
    const auto module = component->Code();
    CHECK(module->CountOfLines() == Int32(70000));
    CHECK(module->CreateEventProc("Click", "cmd__New") == Int32(70010));
    CHECK(CallLog.back() == R"(get code.CreateEventProc "Click" "cmd__New")");
    module->InsertLines(Int32(70001), "Sub A()\r\nEnd Sub\r\n");
    CHECK(CallLog.back() == "call code.InsertLines 70001& \"Sub A()\r\nEnd Sub\r\n\"");
    component->Activate();
    CHECK(CallLog.back() == "call form.Activate");
  }
  SUBCASE("a component without a designer") {
    const auto other = vbe.ActiveVBProject().Components().Find("Module1");
    CHECK(ErrorNumberOf([&] { other->DesignerControls(); }) == runtime::ObjectVariableNotSet);
  }
}

TEST_CASE("A command is placed on a menu though buttons and menus number their members alike") {
  const tests::AutomationTest test;
  constexpr GUID control{0x000C0308, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
  constexpr DISPID shared = 0x60050000;
  const auto root = NewFake("VBE");
  const auto menuBar = NewFake("MenuBar");
  const auto menu = NewFake("Menu");
  const auto bar = NewFake("Bar");
  const auto button = NewFake("Button");
  button->Type = menu->Type = control;
  button->With(L"PasteFace", tests::NoValue, shared)
      .With(L"BeginGroup", true)
      .With(L"Caption", tests::NoValue)
      .With(L"OnAction", tests::NoValue);
  button->With(L"Delete", tests::NoValue);
  menu->With(L"BeginGroup", false).With(L"CommandBar", bar, shared);
  const auto items = NewCollection("Items", {button});
  items->With(L"Add", button);
  bar->With(L"Controls", items);
  const auto nothing = NewFake("2nd");
  menuBar->With(L"Controls", NewCollection("Menus", {menu, ComPtr<FakeDispatch>()}));
  root->With(L"CommandBars", NewCollection("CommandBars", {menuBar})).With(L"Version", "6.00");
  com::ComEnvironment vbe(root.Get());

  CHECK(vbe.Version() == "6.00");
  const auto menus = vbe.CommandBar(Int32(1));
  const auto commands = menus->Item(Int32(1))->Controls();
  CHECK(commands->Count() == Int32(1));
  CHECK_FALSE(menus->Item(Int32(1))->BeginGroup());
  const auto command = commands->Add(ide::CommandBarControlType::Button);
  CHECK(command->BeginGroup());
  CallLog.clear();
  command->SetBeginGroup(true);
  command->SetCaption("Ostrel Form Wizard");
  command->SetOnAction("hello");
  command->PasteFace();
  command->Delete();
  CHECK(CallLog == std::vector<std::string>{"put Button.BeginGroup True", R"(put Button.Caption "Ostrel Form Wizard")",
                                            R"(put Button.OnAction "hello")", "call Button.PasteFace",
                                            "call Button.Delete"});
  CHECK(ErrorNumberOf([&] { command->Controls(); }) == 438);
  CHECK(menus->Item(Int32(2)) == nullptr);
  CHECK(ErrorNumberOf([&] { menus->Item(Int32(3)); }) == runtime::SubscriptOutOfRange);
}
