#include "adapters/journal/Journal.h"

#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeIde.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("Every changing call is one line of JSON, in call order, with its error, and reaches the environment") {
  FakeIde ide;
  ide.Transcript.Refuse["Left"] = 380;
  ide.Transcript.Refuse["Toolbox X"] = 363;
  std::ostringstream out;
  const auto journalled = adapters::journal::Journalled(ide, out);
  ide::VBProject& project = journalled->ActiveVBProject();
  CHECK(ErrorNumberOf([&] { project.AddToolboxProgID("X"); }) == 363);
  CHECK(project.Components().Find("none") == nullptr);
  const auto form = project.Components().Add(ide::ComponentType::Form);
  form->SetProperty("ControlBox", true);
  form->SetProperty("Height", Int32(3275));
  form->SetProperty("Caption", std::string_view("Größe \"1\"\r\n"));
  const auto frame = form->DesignerControls()->Add("VB.Frame", nullptr);
  const auto menu = form->DesignerControls()->Add("VB.Menu", frame);
  menu->SetProperty("Name", std::string_view("mnuA"));
  menu->SetProperty("Visible", Int16(0));
  CHECK(ErrorNumberOf([&] { menu->SetProperty("Left", std::string_view("0")); }) == 380);
  menu->SetContainer(frame);
  CHECK(form->Code()->CreateEventProc("Click", "mnuA") == Int32(2));
  CHECK(out.str() ==
        R"({"call":"AddToolboxProgID","progId":"X","error":{"number":363,"description":"refused"}}
{"call":"VBComponents.Add","type":5,"name":"Form1"}
{"call":"VBComponent.Properties","name":"ControlBox","type":"Boolean","value":true}
{"call":"VBComponent.Properties","name":"Height","type":"Long","value":3275}
{"call":"VBComponent.Properties","name":"Caption","type":"String","value":"Größe \"1\"\r\n"}
{"call":"VBControls.Add","progId":"VB.Frame","container":null,"name":"New1"}
{"call":"VBControls.Add","progId":"VB.Menu","container":"New1","name":"New2"}
{"call":"VBControl.Properties","control":"New2","name":"Name","value":"mnuA"}
{"call":"VBControl.Properties","control":"mnuA","name":"Visible","type":"Integer","value":0}
{"call":"VBControl.Properties","control":"mnuA","name":"Left","value":"0","error":{"number":380,"description":"refused"}}
{"call":"VBControl.Container","control":"mnuA","container":"New1"}
{"call":"CodeModule.CreateEventProc","event":"Click","object":"mnuA","line":2}
)");
  CHECK(ide.Transcript.Has("mnuA.Container = New1"));
}
