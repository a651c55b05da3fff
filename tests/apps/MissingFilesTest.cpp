// Projects that list files which are not there.
#include "tests/apps/Workplace.h"

#include <nlohmann/json.hpp>

using namespace formwizard::tests;

TEST_CASE("A file that a project lists and is not there is told, its name is taken and its line stays") {
  struct Case {
    std::string Line, File, Component;  // empty: refused, with nothing written
  };
  for (const Case& c :
       {Case{"Form=none.frm", "none.frm", "frmPerson"}, Case{"Form=Form1.frm", "Form1.frm", "frmPerson"},
        Case{"Form=..\\gone\\frmPerson.frm", "../gone/frmPerson.frm", "frmPerson2"},
        Case{"Module=frmPerson; none.bas", "none.bas", "frmPerson2"},
        Case{"Class=clsNone; a.txt", "a.txt", "frmPerson"}, Case{"UserControl=FRMPERSON.ctl", "", ""}}) {
    CAPTURE(c.Line);
    const Workplace work;
    std::string project = ReadFile(work.Project);
    project.insert(project.find("Form="), c.Line + "\r\n");
    const bool isStartUp = c.File == "Form1.frm";
    if (isStartUp) {
      project.erase(project.find("Form=", project.find("Form=") + 1), c.Line.size() + 2);
      std::filesystem::remove(NativePath(work.Home + "/Form1.frm"));
    }
    WriteFile(work.Project, project);
    const auto before = work.Files();
    const Outcome checked = work.Generate(Typical + " --check --json"), made = work.Generate(Typical);
    if (c.Component.empty()) {
      CHECK(made.Status == 3);
      CHECK(Has(made.Error, "the project has \"FRMPERSON\", in which only the case of letters is another"));
      CHECK(work.Files() == before);
      continue;
    }
    const std::string message = work.Project + ":2: the file " + work.Home + "/" + c.File +
                                " is not there; restore it or take its line out of the project";
    CHECK(made.Status == 0);
    CHECK(made.Error == "ostrel-form-wizard: note: " + message + "\n");
    CHECK(checked.Status == 1);
    CHECK(nlohmann::json::parse(checked.Out)["notes"] == nlohmann::json{message});
    const std::string saved = work.Files().at("Project1.vbp");
    CHECK(Has(saved, "Type=Exe\r\n" + c.Line + "\r\n"));
    CHECK(Has(saved, "\r\nForm=" + c.Component + ".frm\r\n"));
    CHECK(Has(saved, "\r\nStartup=\"" + (isStartUp ? "Form1" : c.Component) + "\"\r\n"));
    CHECK(work.Generate(Typical + " --quiet").Error == "");
  }
}

TEST_CASE(
    "A form that another code page would find is not taken for missing, and so much for a module does not matter") {
  const Workplace work;
  const std::string project = ReadFile(work.Project), form = ReadFile(work.Home + "/Form1.frm");
  WriteFile(work.Home + "/формы/Личность1.FRM", form);
  const std::string file = "\xF4\xEE\xF0\xEC\xFB\\\xCB\xE8\xF7\xED\xEE\xF1\xF2\xFC" + std::string("1.frm");
  for (const auto& [line, status] : {std::pair{"Form=" + file, 3}, {"Module=a; " + file, 0}, {"Form=\xFC.frm", 0}}) {
    WriteFile(work.Project, "Type=Exe\r\n" + line + "\r\n" + project.substr(project.find("Name=")));
    const Outcome made = work.Generate(Typical + " --dry-run");
    CHECK_MESSAGE(made.Status == status, made.Error);
    CHECK(Has(made.Error, "give the code page in which the project is written") == (status == 3));
    CHECK(work.Generate(Typical + " --dry-run --code-page 1251").Status == 0);
  }
}
