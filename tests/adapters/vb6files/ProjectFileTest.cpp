#include "adapters/vb6files/ProjectFile.h"
#include "adapters/vb6files/Toolbox.h"

#include "support/Failures.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;

TEST_CASE("Only the lines that must change change") {
  const std::string before =
      "Type=Exe\r\nReference=*\\G{0}#2.0#0#a#b\r\nForm=Sub\\Form1.frm\r\nModule=M; m.bas\r\nResFile32=\"x.res\"\r\n"
      "IconForm=\"Form1\"\r\nStartup=\"Form1\"\r\nName=\"P\"\r\n\r\n[Tool]\r\nForm=kept\r\nStartup=\"Form1\"";
  ProjectFile project("p.vbp", before);
  CHECK(project.Text() == before);
  CHECK_FALSE(project.IsChanged());
  CHECK(project.Name() == "P");
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
}

TEST_CASE("Line ends and missing parts are kept as they are") {
  ProjectFile unix("p.vbp", "Type=Exe\nStartup=\"Sub Main\"");
  unix.AddForm("a.frm");
  CHECK(unix.Text() == "Type=Exe\nForm=a.frm\nStartup=\"Sub Main\"");
  ProjectFile bare("p.vbp", "Type=Exe");
  bare.AddForm("a.frm");
  CHECK(bare.Text() == "Type=Exe\r\nForm=a.frm\r\n");
}

TEST_CASE("What is no project is refused with its line") {
  for (const auto& [text, message] :
       {std::pair{std::string("VBGROUP 5.0\r\n"), "p.vbp:1: expected \"Type=Exe\""},
        std::pair{std::string(), "p.vbp:1: expected \"Type=Exe\""},
        std::pair{std::string("MZ\0\0", 4), "p.vbp: this is no project file"},
        std::pair{std::string("Type=Exe\r\nModule=M\r\n"), "p.vbp:2: expected \"Module=Name; file\""},
        std::pair{std::string("Type=Exe\r\n\r\nForm=\r\n"), "p.vbp:3: expected \"Form=file\""}}) {
    CAPTURE(message);
    std::string found;
    try {
      ProjectFile("p.vbp", text);
    } catch (const support::InputError& error) {
      found = error.what();
    }
    CHECK(found.starts_with(message));
  }
}

TEST_CASE("Control libraries are known, recognised by file or identifier, or come from the toolbox file") {
  TemporaryFolder folder;
  const Toolbox none(RealFileSystem(), "");
  CHECK(none.Find("MSCOMDLG.CommonDialog").Id == "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0");
  CHECK(none.Find("MSComctlLib.ListViewCtrl.2").File == "MSCOMCTL.OCX");
  CHECK(ErrorNumberOf([&] { none.Find("OSTRELQUERY.OstrelQueryCtrl.1"); }) == runtime::ControlNotFound);
  CHECK(Toolbox::Parse("{AB}#3.0#0; ostrelquery.ocx").Library == "OSTRELQUERYLib");
  CHECK(Toolbox::Parse("{831fdd16-0c5c-11d2-a9fc-0000f8754da1}#2.2#0; Other.ocx").Library == "MSComctlLib");
  CHECK(Toolbox::Parse("{AB}#3.0#0; other.ocx").Library.empty());

  const std::string file = folder / "toolbox.ini";
  WriteFile(file, ReadFile(FORMWIZARD_SOURCE_DIR "/samples/toolbox.ini"));
  const ObjectReference query = Toolbox(RealFileSystem(), file).Find("ostrelquery.OstrelQueryCtrl.1");
  CHECK(query.Library == "OSTRELQUERYLib");
  CHECK(query.File == "OSTRELQUERY.OCX");
  WriteFile(file, "; comment\n[Toolbox]\nX.Y=nonsense\n");
  CHECK_THROWS_WITH_AS(Toolbox(RealFileSystem(), file),
                       (file + ":3: expected \"ProgID={GUID}#version#0; FILE.OCX\", found \"X.Y=nonsense\"").c_str(),
                       support::InputError);
  CHECK_THROWS_AS(Toolbox(RealFileSystem(), folder / "missing.ini"), support::InputError);
}
