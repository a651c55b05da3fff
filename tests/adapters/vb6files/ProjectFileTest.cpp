#include "adapters/vb6files/ProjectFile.h"
#include "tests/support/Test.h"

#include "support/Failures.h"

using formwizard::adapters::vb6files::ProjectFile;
using formwizard::support::InputError;

TEST_CASE("Only the lines that must change change") {
  const std::string before =
      "Type=Exe\r\nReference=*\\G{0}#2.0#0#a#b\r\nForm=Sub\\Form1.frm\r\nModule=M; m.bas\r\nResFile32=\"x.res\"\r\n"
      "IconForm=\"Form1\"\r\nStartup=\"Form1\"\r\nName=\"P\"\r\n\r\n[Tool]\r\nForm=kept\r\nStartup=\"Form1\"";
  ProjectFile project("p.vbp", before);
  CHECK(project.Text() == before);
  CHECK_FALSE(project.IsChanged());
  CHECK(project.Name() == "P");
  CHECK(project.TakeItems()[1].Line == 4);
  project.AddObject("{1}#1.0#0; A.OCX");
  project.AddObject("{2}#1.0#0; B.OCX");
  project.AddForm("frmA.frm");
  project.AddForm("frmB.frm");
  project.RenameForm("form1", "frmC");
  project.ReplaceFormPath("Sub\\Form1.frm", "Sub\\frmC.frm");
  CHECK(project.Text() ==
        "Type=Exe\r\nReference=*\\G{0}#2.0#0#a#b\r\nObject={1}#1.0#0; A.OCX\r\nObject={2}#1.0#0; B.OCX\r\n"
        "Form=Sub\\frmC.frm\r\nModule=M; m.bas\r\nForm=frmA.frm\r\nForm=frmB.frm\r\nResFile32=\"x.res\"\r\n"
        "IconForm=\"frmC\"\r\nStartup=\"frmC\"\r\nName=\"P\"\r\n\r\n[Tool]\r\nForm=kept\r\nStartup=\"Form1\"");
  project.MarkSaved();
  CHECK_FALSE(project.IsChanged());
  CHECK(ProjectFile("p.vbp", project.Text()).TakeItems()[1].Line == 6);
}

TEST_CASE("Line ends and missing parts are kept as they are") {
  for (const auto& [before, after] :
       {std::pair{"Type=Exe\nStartup=\"Sub Main\"", "Type=Exe\nForm=a.frm\nStartup=\"Sub Main\""},
        std::pair{"Type=Exe", "Type=Exe\r\nForm=a.frm\r\n"}}) {
    ProjectFile project("p.vbp", before);
    project.AddForm("a.frm");
    CHECK(project.Text() == after);
  }
}

TEST_CASE("What is no project is refused with its line") {
  for (const auto& [text, message] :
       {std::pair{std::string("VBGROUP 5.0\r\n"), "p.vbp:1: expected \"Type=Exe\""},
        std::pair{
            std::string("Form=a.frm\r\nProjWinSize=1,2,3,4\r\n"),
            "p.vbp:1: the \"Type=\" line is missing, as in projects of Visual Basic 4 and older; open the project in"},
        std::pair{std::string(), "p.vbp:1: expected \"Type=Exe\""},
        std::pair{std::string("MZ\0\0", 4), "p.vbp: this is not a project file"},
        std::pair{std::string("Type=Exe\r\nModule=M\r\n"), "p.vbp:2: expected \"Module=Name; file\""},
        std::pair{std::string("Type=Exe\r\n\r\nForm=\r\n"), "p.vbp:3: expected \"Form=file\""}}) {
    CAPTURE(text);
    CHECK_THROWS_WITH_AS(ProjectFile("p.vbp", text), doctest::Contains(message), InputError);
  }
}
