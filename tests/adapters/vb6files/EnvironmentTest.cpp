#include "adapters/vb6files/ProjectOnDisk.h"
#include "tests/adapters/vb6files/MemoryFileSystem.h"

#include <doctest/doctest.h>

#include <string>

namespace {

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using formwizard::tests::MemoryFileSystem;
using generator::ide::ComponentType;
using generator::ide::Int32;
using generator::ide::VBComponents;

const std::string Samples = FORMWIZARD_SOURCE_DIR "/samples/";

std::string FormText(const std::string& name) {
  return "VERSION 5.00\r\nBegin VB.Form " + name + " \r\nEnd\r\nAttribute VB_Name = \"" + name + "\"\r\n";
}

MemoryFileSystem ProjectWith(const std::string& lines, const MemoryFileSystem::Contents& others = {}) {
  MemoryFileSystem files(others);
  files.Files["P/P.vbp"] = "Type=Exe\r\n" + lines + "Name=\"Lending\"\r\n";
  return files;
}

// The number of the run-time error that a call ends in; 0 for none.
template <typename Call>
int ErrorOf(Call call) {
  try {
    call();
  } catch (const runtime::RuntimeError& error) {
    return error.Number();
  }
  return 0;
}

TEST_CASE("The sample projects open, and every form in them can be looked at") {
  ProjectOnDisk fresh(RealFileSystem(), Samples + "new-project/Project1.vbp", {});
  CHECK(fresh.ActiveVBProject().Components().Find("Form1")->DesignerControls()->Count() == Int32(0));

  ProjectOnDisk library(RealFileSystem(), Samples + "library/Lending.vbp", {});
  VBComponents& components = library.ActiveVBProject().Components();
  struct Case {
    std::string Name;
    int Controls;
  };
  for (const Case& c : {Case{"frmMain", 18}, Case{"frmPerson", 10}, Case{"frmBook", 12}, Case{"frmLoan", 10},
                        Case{"frmSearch", 4}, Case{"frmAbout", 4}}) {
    CAPTURE(c.Name);
    REQUIRE(components.Find(c.Name));
    CHECK(components.Find(c.Name)->DesignerControls()->Count() == Int32(c.Controls));
  }
  REQUIRE(components.Find("Gebühr"));
  CHECK(ErrorOf([&] { components.Find("Gebühr")->DesignerControls(); }) == runtime::ObjectVariableNotSet);
}

TEST_CASE("Components have names that are found exactly and are unique without regard to case") {
  MemoryFileSystem files = ProjectWith("Form=a.frm\r\nModule=Form2; m.bas\r\nForm=b.frm\r\nDesigner=d.dsr\r\n",
                                       {{"P/a.frm", FormText("Form1")},
                                        {"P/b.frm", FormText("frmPerson2")},
                                        {"P/d.dsr", "VERSION 5.00\r\nBegin {0} Report1 \r\nEnd\r\n"}});
  ProjectOnDisk project(files, "P/P.vbp", {});
  CHECK(files.FilesRead == 1);  // components are not opened until somebody asks
  VBComponents& components = project.ActiveVBProject().Components();
  CHECK(components.Find("frmPerson2"));  // by its name, not by its file
  CHECK_FALSE(components.Find("frmperson2"));
  CHECK_FALSE(components.Find("b"));

  CHECK(components.FirstFreeNumber("frmPerson") == Int32(3));
  CHECK(components.FirstFreeNumber("FRMPERSON") == Int32(2));
  const auto third = components.Add(ComponentType::Form);
  CHECK(third->Name() == "Form3");
  for (const char* taken : {"form1", "FRMPERSON2", "report1", "lending"}) {
    CAPTURE(taken);
    CHECK(ErrorOf([&] { third->SetName(taken); }) == runtime::NameConflict);
  }
  for (const char* illegal : {"", "2nd", "a.b", "..\\up", "a/b", "a\r\nb"}) {
    CAPTURE(illegal);
    CHECK(ErrorOf([&] { third->SetName(illegal); }) == runtime::NotALegalObjectName);
  }
  CHECK(third->Name() == "Form3");

  third->SetName("frmPerson3");
  CHECK(components.FirstFreeNumber("frmPerson") == Int32(4));
  third->SetName("FRMperson3");  // its own name in another case
  CHECK(components.Find("FRMperson3"));
  CHECK(components.FirstFreeNumber("frmPerson") == Int32(3));  // that one is free again
  CHECK(components.Add(ComponentType::Form)->Name() == "Form3");
  CHECK(ErrorOf([&] { components.Add(static_cast<ComponentType>(1)); }) != 0);
}

TEST_CASE("A form that was looked at is saved when it is changed later, and a finished one still counts its controls") {
  MemoryFileSystem files = ProjectWith("Form=Form1.frm\r\n", {{"P/Form1.frm", FormText("Form1")}});
  ProjectOnDisk project(files, "P/P.vbp", {});
  VBComponents& components = project.ActiveVBProject().Components();
  const auto form = components.Find("Form1");
  CHECK(form->DesignerControls()->Count() == Int32(0));
  project.FinishForms();
  form->DesignerControls()->Add("VB.Label", nullptr);
  form->SetName("frmA");
  project.Save();
  CHECK(files.Files.contains("P/frmA.frm"));

  const auto unnamed = components.Add(ComponentType::Form);
  unnamed->DesignerControls()->Add("VB.Label", nullptr);
  project.FinishForms();
  CHECK(components.Find("Form1")->DesignerControls()->Count() == Int32(1));
}

TEST_CASE("A new form never takes a path that the project lists already or that is a device") {
  MemoryFileSystem files = ProjectWith("Form=FRMA.FRM\r\n", {{"P/FRMA.FRM", FormText("frmOther")}});
  {
    ProjectOnDisk project(files, "P/P.vbp", {});
    project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmA");
    project.Save();
  }
  CHECK(files.Files.at("P/P.vbp") == "Type=Exe\r\nForm=FRMA.FRM\r\nForm=frmA_2.frm\r\nName=\"Lending\"\r\n");
  const MemoryFileSystem::Contents before = files.Files;
  {
    ProjectOnDisk project(files, "P/P.vbp", {});
    project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmB");
    project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("com1");
    CHECK_THROWS_AS(project.Save(), support::SaveError);
  }
  CHECK(files.Files == before);
}

TEST_CASE("Files are found in any letter case, and a folder is read only once for all of them") {
  MemoryFileSystem::Contents forms{{"P/FORMS/sub/Exact.frm", FormText("frmExact")},
                                   {"P/FORMS/sub/EXACT.FRM", FormText("frmOther")}};
  std::string lines = "Form=Forms\\Sub\\Exact.frm\r\nForm=FORMS\\sub\\EXACT.FRM\r\n";
  for (int i = 0; i < 50; ++i) {
    forms["P/FORMS/sub/screen" + std::to_string(i) + ".FRM"] = FormText("frmScreen" + std::to_string(i));
    lines += "Form=forms\\sub\\Screen" + std::to_string(i) + ".frm\r\n";
  }
  MemoryFileSystem files = ProjectWith(lines, forms);
  ProjectOnDisk project(files, "P/P.vbp", {});
  VBComponents& components = project.ActiveVBProject().Components();
  for (const char* name : {"frmExact", "frmOther", "frmScreen0", "frmScreen49"}) {
    CAPTURE(name);
    REQUIRE(components.Find(name));
    CHECK(components.Find(name)->DesignerControls()->Count() == Int32(0));
  }
  CHECK(files.FoldersRead < 20);
}

TEST_CASE("What a component's line names must be there") {
  for (const char* line : {"Form=none.frm\r\n", "Form=..\\none.frm\r\n", "UserControl=none.ctl\r\n"}) {
    CAPTURE(line);
    MemoryFileSystem files = ProjectWith(line);
    ProjectOnDisk project(files, "P/P.vbp", {});
    std::string message;
    try {
      project.ActiveVBProject().Components().Find("Form1");
    } catch (const support::InputError& error) {
      message = error.what();
    }
    CHECK(message.find("P/P.vbp:2:") == 0);
    CHECK(message.find("none.") != std::string::npos);
  }
  MemoryFileSystem none;
  CHECK_THROWS_AS(ProjectOnDisk(none, "P/P.vbp", {}), support::InputError);
}

}  // namespace
