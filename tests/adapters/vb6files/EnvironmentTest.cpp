#include "adapters/vb6files/ProjectOnDisk.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;
using generator::ide::ComponentType;
using generator::ide::Int32;

const std::string Samples = SourceFolder() + "/samples/";

std::string FormText(const std::string& name) {
  return "VERSION 5.00\r\nBegin VB.Form " + name + " \r\nEnd\r\nAttribute VB_Name = \"" + name +
         "\"\r\nAttribute VB_Exposed = False\r\n";
}

// An open project with these lines for its components and with these other files.
struct ProjectFixture {
  MemoryFileSystem Files;
  ProjectOnDisk Project;
  generator::ide::VBComponents& Components = Project.ActiveVBProject().Components();

  explicit ProjectFixture(const std::string& lines, MemoryFileSystem::Contents files = {})
      : Files(With(lines, std::move(files))), Project(Files, "P/P.vbp", {}) {}

  std::shared_ptr<generator::ide::VBComponent> AddForm() { return Components.Add(ComponentType::Form); }

 private:
  static MemoryFileSystem::Contents With(const std::string& lines, MemoryFileSystem::Contents files) {
    files["P/P.vbp"] = "Type=Exe\r\n" + lines + "Name=\"Lending\"\r\n";
    return files;
  }
};

TEST_CASE("Every form of the samples comes back byte for byte, and one with controls refuses to be changed") {
  std::string forms;
  for (const char* sample : {"new-project/Project1.vbp", "library/Lending.vbp"}) {
    ProjectOnDisk project(system::RealFileSystem(), Samples + sample, {});
    for (const ComponentSummary& summary : project.Summaries()) {
      CAPTURE(summary.Name);
      const auto component = project.ActiveVBProject().Components().Find(summary.Name);
      REQUIRE(component);
      if (!summary.IsForm) {
        CHECK_FALSE(component->DesignerControls());
        continue;
      }
      const auto controls = component->DesignerControls();
      forms += summary.Name + " " + Text(controls->Count()) + " ";
      CHECK(project.TextsOf(summary.Name).Frm == ReadFile(summary.File));
      if (controls->Count() == Int32(0)) continue;
      CHECK(ErrorNumberOf([&] { component->SetName("frmX"); }) == runtime::AutomationError);
      CHECK(ErrorNumberOf([&] { controls->Add("VB.Label", nullptr); }) == runtime::AutomationError);
    }
    CHECK_FALSE(project.IsChanged());
  }
  CHECK(forms == "Form1 0 frmMain 18 frmPerson 10 frmBook 12 frmLoan 10 frmSearch 4 frmAbout 4 ");
}

TEST_CASE("Components have names that are found exactly and are unique without regard to case") {
  ProjectFixture project("Form=a.frm\r\nModule=Form2; m.bas\r\nForm=b.frm\r\nDesigner=d.dsr\r\n",
                         {{"P/a.frm", FormText("Form1")},
                          {"P/b.frm", FormText("frmPerson2")},
                          {"P/d.dsr", "VERSION 5.00\r\nBegin {0} Report1 \r\nEnd\r\n"}});
  CHECK(project.Files.FilesRead == 1);           // components are not opened until somebody asks
  CHECK(project.Components.Find("frmPerson2"));  // by its name, not by its file
  CHECK_FALSE(project.Components.Find("frmperson2"));
  CHECK_FALSE(project.Components.Find("b"));

  const auto third = project.AddForm();
  for (const char* taken : {"form1", "FRMPERSON2", "report1", "lending"}) {
    CAPTURE(taken);
    CHECK(ErrorNumberOf([&] { third->SetName(taken); }) == runtime::NameConflict);
  }
  for (const char* illegal : {"..\\up", "a\r\nb"}) {
    CAPTURE(illegal);
    CHECK(ErrorNumberOf([&] { third->SetName(illegal); }) == runtime::NotALegalObjectName);
  }
  CHECK(third->Name() == "Form3");

  const auto next = [&](const char* stem) { return project.Components.FirstFreeNumber(stem).Value(); };
  CHECK(next("frmPerson") == 3);
  CHECK(next("FRMPERSON") == 2);
  third->SetName("frmPerson3");
  CHECK(next("frmPerson") == 4);
  third->SetName("FRMperson3");  // its own name in another case
  CHECK(project.Components.Find("FRMperson3"));
  CHECK(next("frmPerson") == 3);  // that one is free again
  CHECK(project.AddForm()->Name() == "Form3");
  CHECK(ErrorNumberOf([&] { project.Components.Add(static_cast<ComponentType>(1)); }) != 0);
}

TEST_CASE("A form that was looked at is saved when it is changed later, and a finished one still counts its controls") {
  ProjectFixture project("Form=Form1.frm\r\n", {{"P/Form1.frm", FormText("Form1")}});
  const auto form = project.Components.Find("Form1");
  CHECK(form->DesignerControls()->Count() == Int32(0));
  CHECK(project.Files.FoldersRead == 1);  // by opening: it names no companion file, whose spelling is looked for
  project.Project.FinishForms();
  form->DesignerControls()->Add("VB.Label", nullptr);
  form->SetName("frmA");
  project.Project.Save();
  CHECK(project.Files.Files.contains("P/frmA.frm"));
  CHECK(form->DesignerControls()->Count() == Int32(1));
}

TEST_CASE("The start-up form and the program's icon follow the form that is renamed, not a text that is the same") {
  for (const auto& [startup, after] : {std::pair{"Form1", "frmA"}, std::pair{"FORM1", "frmA"},
                                       std::pair{"Form3", "Form3"}, std::pair{"Sub Main", "Sub Main"}}) {
    CAPTURE(startup);
    const std::string value = std::string(startup) + "\"\r\n";
    ProjectFixture project(
        "Form=Form1.frm\r\nModule=Form2; m.bas\r\nIconForm=\"" + value + "Startup=\"" + value + "Title=\"" + value,
        {{"P/Form1.frm", FormText("Form1")}});
    const auto fresh = project.AddForm();
    CHECK(fresh->Name() == "Form3");  // which a project may have had and lost
    fresh->SetName("frmB");
    project.Components.Find("Form1")->SetName("frmA");
    project.Project.Save();
    CHECK(project.Files.Files.at("P/P.vbp") ==
          "Type=Exe\r\nForm=frmA.frm\r\nModule=Form2; m.bas\r\nForm=frmB.frm\r\n"
          "IconForm=\"" +
              std::string(after) + "\"\r\nStartup=\"" + after + "\"\r\nTitle=\"" + value + "Name=\"Lending\"\r\n");
  }
}

TEST_CASE("What was made and not saved is taken back, and with the last of it every trace") {
  ProjectFixture project(
      "Form=Form1.frm\r\nRelatedDoc=a\\b.txt\r\nStartup=\"Form1\"\r\n",
      {{"P/Form1.frm", FormText("Form1")},
       {"P/t.ini", "[Toolbox]\r\nOSTRELQUERY.OstrelQueryCtrl.1={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#1.0#0; q.ocx"}});
  const MemoryFileSystem::Contents before = project.Files.Files;
  CHECK(project.Project.RelatedDocuments() == std::vector<std::string>{"P/a/b.txt"});
  CHECK_THROWS_AS(project.Project.CheckToolboxKnows("OSTRELQUERY.OstrelQueryCtrl.1"), support::InputError);
  CHECK_THROWS_AS(project.Project.UseToolbox("P/none.ini"), support::InputError);
  project.Project.UseToolbox("P/t.ini");
  project.Project.ActiveVBProject().AddToolboxProgID("OSTRELQUERY.OstrelQueryCtrl.1");
  project.Components.Find("Form1")->SetName("frmA");
  project.AddForm()->SetName("frmB");
  project.AddForm()->SetName("frmB2");
  CHECK(project.Project.TakeBack("frmB") == std::nullopt);
  CHECK_THROWS_AS(project.Project.TakeBack("frmB"), support::InputError);
  CHECK(project.Project.TakeBack("frmA") == "Form1");
  CHECK_THROWS_AS(project.Project.TakeBack("Form1"), support::InputError);
  const auto summaries = project.Project.Summaries();
  REQUIRE(summaries.size() == 2);
  CHECK((summaries[0].Name == "Form1" && !summaries[0].IsChanged));
  CHECK((summaries[1].Name == "frmB2" && summaries[1].IsChanged && summaries[1].Group == ComponentGroup::Form));
  CHECK(project.AddForm()->Name() == "Form2");
  project.Project.TakeBack("Form2");
  project.Project.TakeBack("frmB2");
  CHECK_FALSE(project.Project.IsChanged());
  project.Project.Save();
  CHECK(project.Files.Files == before);
  project.Project.ActiveVBProject().AddToolboxProgID("OSTRELQUERY.OstrelQueryCtrl.1");
  CHECK(project.Project.IsChanged());  // the reference has gone with the rest, and comes again
}

TEST_CASE("A form whose file is there is added with the libraries that it names, and taken back") {
  const std::string object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0";
  std::string form = FormText("frmA");
  form.insert(form.find("Begin "), "Object = \"" + object + "\"; \"MSCOMCTL.OCX\"\r\n");
  ProjectFixture project("Form=Form1.frm\r\n",
                         {{"P/Form1.frm", FormText("Form1")}, {"P/Sub/a.frm", form}, {"P/b.frm", FormText("form1")}});
  const MemoryFileSystem::Contents before = project.Files.Files;
  for (const char* path : {"b.frm", "none.frm", "P.vbp"})
    CHECK_THROWS_AS(project.Project.AddFormFile(path), support::InputError);
  for (const bool isWanted : {false, true}) {
    project.Project.AddFormFile("Sub\\a.frm");
    CHECK_THROWS_AS(project.Project.AddFormFile("Sub\\a.frm"), support::InputError);
    CHECK(project.Project.Summaries().back().IsAdded);
    if (!isWanted) project.Project.TakeBack("frmA");
    CHECK(project.Project.IsChanged() == isWanted);
    project.Project.Save();
    if (!isWanted) CHECK(project.Files.Files == before);
  }
  const std::string& text = project.Files.Files.at("P/P.vbp");
  CHECK(Has(text, "Object=" + object + "; MSCOMCTL.OCX\r\n"));
  CHECK(Has(text, "Form=Form1.frm\r\nForm=Sub\\a.frm\r\n"));
  CHECK_FALSE(project.Project.Summaries().back().IsChanged);
}

TEST_CASE("A form without controls keeps its code, and what it has in common with the new code can be asked for") {
  struct Case {
    std::string code, note;
  };
  const std::string start = "frmA was the form Form1, which had no controls, but code of its own";
  for (const Case& c :
       {Case{"", ""}, Case{"Option Explicit\r\n\r\n  ' a comment\r\nRem Sub Form_Load()\r\n", ""},
        Case{"Dim id\r\n", start + ". That code stands in front of the new code"},
        Case{"Sub form_load()\r\nEnd Sub\r\nProperty Get A()\r\nEnd Property\r\nProperty Let A(v)\r\nEnd Property\r\n",
             start +
                 ": form_load, A. That code stands in front of the new code, whose declarations must come before any "
                 "procedure: move them to the top. Make one procedure of each that is there twice: form_load"}}) {
    CAPTURE(c.code);
    ProjectFixture project("Form=Form1.frm\r\n", {{"P/Form1.frm", FormText("Form1") + c.code}});
    const auto form = project.Components.Find("Form1");
    CHECK(form->DesignerControls()->Count() == Int32(0));
    CHECK_FALSE(project.Project.CodeKeptIn("Form1"));  // as long as nothing is done to it
    form->SetName("frmA");
    const auto code = form->Code();
    code->InsertLines(code->CountOfLines() + Int32(1), "Private Sub Form_Load()\r\nEnd Sub\r\nSub B()\r\nEnd Sub");
    const auto kept = project.Project.CodeKeptIn("frmA");
    CHECK((kept ? NoteOn("frmA", *kept) : "") == c.note);
  }
}

TEST_CASE("A new form never takes a path that the project lists already or that is a device") {
  ProjectFixture project("Form=FRMA.FRM\r\n", {{"P/FRMA.FRM", FormText("frmOther")}});
  project.AddForm()->SetName("frmA");
  project.Project.Save();
  const MemoryFileSystem::Contents saved = project.Files.Files;
  CHECK(saved.at("P/P.vbp") == "Type=Exe\r\nForm=FRMA.FRM\r\nForm=frmA_2.frm\r\nName=\"Lending\"\r\n");
  project.AddForm()->SetName("frmB");
  project.AddForm()->SetName("com1");
  CHECK_THROWS_AS(project.Project.Save(), support::SaveError);
  CHECK(project.Files.Files == saved);
}

TEST_CASE("Files are found in any letter case, and a folder is read only once for all of them") {
  MemoryFileSystem::Contents forms{{"P/FORMS/sub/Exact.frm", FormText("frmExact")},
                                   {"P/FORMS/sub/EXACT.FRM", FormText("frmOther")}};
  std::string lines = "Form=Forms\\Sub\\Exact.frm\r\nForm=FORMS\\sub\\EXACT.FRM\r\n";
  for (int i = 0; i < 50; ++i) {
    forms["P/FORMS/sub/screen" + std::to_string(i) + ".FRM"] = FormText("frmScreen" + std::to_string(i));
    lines += "Form=forms\\sub\\Screen" + std::to_string(i) + ".frm\r\n";
  }
  ProjectFixture project(lines, forms);
  for (const char* name : {"frmExact", "frmOther", "frmScreen0", "frmScreen49"}) {
    CAPTURE(name);
    REQUIRE(project.Components.Find(name));
    CHECK(project.Components.Find(name)->DesignerControls()->Count() == Int32(0));
  }
  CHECK(project.Files.FoldersRead < 20);
}

TEST_CASE(
    "A component whose file is not there has its name and no designer, unless another that is there is called so") {
  ProjectFixture project("Form=a\\frmX.frm\r\nForm=frmY.frm\r\nModule=modZ; other.bas\r\nUserControl=..\\none.ctl\r\n",
                         {{"P/frmY.frm", FormText("frmX")}});
  CHECK(project.Components.Find("frmX")->DesignerControls());
  CHECK_FALSE(project.Components.Find("none")->DesignerControls());
  CHECK(project.Components.Find("modZ"));
  std::string missing;
  for (const std::string& message : project.Project.MissingFiles())
    missing += message.substr(0, message.find(" is")) + "\n";
  CHECK(missing ==
        "P/P.vbp:2: the file P/a/frmX.frm\nP/P.vbp:4: the file P/other.bas\nP/P.vbp:5: the file P/../none.ctl\n");
  MemoryFileSystem none;
  CHECK_THROWS_AS(ProjectOnDisk(none, "P/P.vbp", {}), support::InputError);
}

}  // namespace
