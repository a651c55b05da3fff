#include "tests/support/MemoryProject.h"

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("Every changing call is one line of JSON, in call order, with its error, and reaches the environment") {
  MemoryProject ide;
  ide.Refuse = {{"Left", 380}, {"Toolbox", 363}};
  ide::VBProject& project = ide.ActiveVBProject();
  CHECK(ErrorNumberOf([&] { project.AddToolboxProgID("a plain beginning\b\x1F\x7F\\ \xE0\xA4 é"); }) == 363);
  CHECK(project.Components().Find("none") == nullptr);
  const auto form = project.Components().Add(ide::ComponentType::Form);
  form->SetProperty("ControlBox", true);
  form->SetProperty("Height", Int32(3275));
  form->SetProperty("Caption", std::string_view("Größe \"1\"\r\n\t\x01 and more"));
  const auto frame = form->DesignerControls()->Add("VB.Frame", nullptr);
  const auto label = form->DesignerControls()->Add("VB.Label", frame);
  label->SetProperty("Name", std::string_view("lblA"));
  label->SetProperty("Visible", Int16(0));
  CHECK(ErrorNumberOf([&] { label->SetProperty("Left", std::string_view("0")); }) == 380);
  label->SetContainer(frame);
  CHECK(form->Code()->CreateEventProc("Click", "lblA") == Int32(2));
  form->Code()->InsertLines(Int32(3), "    x\r\n    y");
  form->SetName("frmA");
  form->Activate();
  CHECK(ide.Journal() ==
        "{\"call\":\"AddToolboxProgID\",\"progId\":\"a plain beginning\\b\\u001f\x7F\\\\ \xEF\xBF\xBD é"
        R"(","error":{"number":363,"description":"refused"}}
{"call":"VBComponents.Add","type":5,"name":"Form1"}
{"call":"VBComponent.Properties","name":"ControlBox","type":"Boolean","value":true}
{"call":"VBComponent.Properties","name":"Height","type":"Long","value":3275}
{"call":"VBComponent.Properties","name":"Caption","type":"String","value":"Größe \"1\"\r\n\t\u0001 and more"}
{"call":"VBControls.Add","progId":"VB.Frame","container":null,"name":"Frame1"}
{"call":"VBControls.Add","progId":"VB.Label","container":"Frame1","name":"Label1"}
{"call":"VBControl.Properties","control":"Label1","name":"Name","value":"lblA"}
{"call":"VBControl.Properties","control":"lblA","name":"Visible","type":"Integer","value":0}
{"call":"VBControl.Properties","control":"lblA","name":"Left","value":"0","error":{"number":380,"description":"refused"}}
{"call":"VBControl.Container","control":"lblA","container":"Frame1"}
{"call":"CodeModule.CreateEventProc","event":"Click","object":"lblA","line":2}
{"call":"CodeModule.InsertLines","line":3,"text":"    x\r\n    y"}
{"call":"VBComponent.Name","value":"frmA"}
{"call":"VBComponent.Activate"}
)");
  CHECK(ide.Code() == "\nPrivate Sub lblA_Click()\n    x\n    y\n\nEnd Sub\n");
}
