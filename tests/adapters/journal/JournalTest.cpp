#include "adapters/journal/Journal.h"

#include "tests/support/ErrorNumber.h"
#include "tests/support/FakeIde.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("Every changing call is one line of JSON, in call order, and reaches the environment") {
  FakeIde ide;
  ide.AddExisting("frmOld");
  ide.Transcript.Refuse["Left"] = 380;
  ide.Transcript.Refuse["Toolbox X"] = 363;
  std::ostringstream out;
  const auto journalled = adapters::journal::Journalled(ide, out);
  ide::VBProject& project = journalled->ActiveVBProject();
  project.AddToolboxProgID("MSCOMDLG.CommonDialog");
  CHECK(ErrorNumberOf([&] { project.AddToolboxProgID("X"); }) == 363);
  CHECK(project.Components().Find("none") == nullptr);
  const auto form = project.Components().Add(ide::ComponentType::Form);
  form->SetName("frmNew");
  form->SetProperty("ControlBox", true);
  form->SetProperty("ScaleMode", Int16(1));
  form->SetProperty("Height", Int32(3275));
  form->SetProperty("Caption", std::string_view("Größe \"1\"\r\n"));
  const auto controls = form->DesignerControls();
  const auto frame = controls->Add("VB.Frame", nullptr);
  const auto label = controls->Add("VB.Menu", frame);
  label->SetProperty("Name", std::string_view("lblA"));
  label->SetProperty("Visible", Int16(0));
  CHECK(ErrorNumberOf([&] { label->SetProperty("Left", std::string_view("0")); }) == 380);
  label->SetContainer(frame);
  form->Code()->InsertLines(Int32(1), "A\r\n");
  CHECK(form->Code()->CreateEventProc("Click", "lblA") == Int32(4));
  form->Activate();
  CHECK(out.str() ==
        R"({"call":"AddToolboxProgID","progId":"MSCOMDLG.CommonDialog"}
{"call":"AddToolboxProgID","progId":"X","error":{"number":363,"description":"refused"}}
{"call":"VBComponents.Add","type":5,"name":"Form2"}
{"call":"VBComponent.Name","value":"frmNew"}
{"call":"VBComponent.Properties","name":"ControlBox","type":"Boolean","value":true}
{"call":"VBComponent.Properties","name":"ScaleMode","type":"Integer","value":1}
{"call":"VBComponent.Properties","name":"Height","type":"Long","value":3275}
{"call":"VBComponent.Properties","name":"Caption","type":"String","value":"Größe \"1\"\r\n"}
{"call":"VBControls.Add","progId":"VB.Frame","container":null,"name":"New1"}
{"call":"VBControls.Add","progId":"VB.Menu","container":"New1","name":"New2"}
{"call":"VBControl.Properties","control":"New2","name":"Name","value":"lblA"}
{"call":"VBControl.Properties","control":"lblA","name":"Visible","type":"Integer","value":0}
{"call":"VBControl.Properties","control":"lblA","name":"Left","value":"0","error":{"number":380,"description":"refused"}}
{"call":"VBControl.Container","control":"lblA","container":"New1"}
{"call":"CodeModule.InsertLines","line":1,"text":"A\r\n"}
{"call":"CodeModule.CreateEventProc","event":"Click","object":"lblA","line":4}
{"call":"VBComponent.Activate"}
)");
  CHECK(ide.Transcript.Has("lblA.Container = New1"));
  CHECK(ide.Forms.back()->Module->Lines.size() == 6);
}
