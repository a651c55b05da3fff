#include "adapters/vb6files/ProjectOnDisk.h"
#include "adapters/vb6files/Toolbox.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/Test.h"

namespace {

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using formwizard::tests::MemoryFileSystem;
using namespace std::string_literals;

constexpr const char* Query = "OSTRELQUERY.OstrelQueryCtrl.1";

TEST_CASE("A project keeps its own line of a library, a missing one comes from the built-in rows or the toolbox file") {
  const std::string toolbox =
      "; comment\r\n[Other]\r\nx\r\n[toolbox]\r\nostrelquery.ostrelqueryctrl.1 = "
      "{5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}#1.0#0; Q.OCX\r\n";
  const std::string query = "Object={5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}#1.0#0; Q.OCX\r\n";
  const std::string dialog = "Object={F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0; COMDLG32.OCX\r\n";
  const std::string list = "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\r\n";
  const std::string ownQuery = "Object={00000000-0000-0000-0000-000000000001}#3.0#0; ostrelquery.ocx\r\n";
  const std::string ownList = "Object={831fdd16-0C5C-11D2-A9FC-0000F8754DA1}#2.2#0; renamed.ocx\r\n";
  // Of the same family and with the same file, but another library; the query control's under another name.
  const std::string sibling = "Object={6B7E6392-850A-101B-AFC0-4210102A8DA7}#1.3#0; MSCOMCTL.OCX\r\n";
  const std::string renamedQuery = "Object={5e1f0c3a-7b42-4d96-8a0e-2c91d7f3b648}#1.0#0; OldQuery.ocx\r\n";
  const std::string foreign = "Object=*\\AOther.vbp\r\nObject={00000000-0000-0000-0000-000000000002}#1.0#0; o.ocx\r\n";
  for (const auto& [before, added] :
       {std::pair{std::string(), query + dialog + list}, std::pair{ownQuery, dialog + list},
        std::pair{ownList + ownQuery, dialog}, std::pair{sibling + renamedQuery, dialog + list},
        std::pair{foreign + dialog, query + list}}) {
    CAPTURE(before);
    MemoryFileSystem files({{"P/P.vbp", "Type=Exe\r\n" + before}, {"toolbox.ini", toolbox}});
    ProjectOnDisk project(files, "P/P.vbp", {1252, "toolbox.ini"});
    for (const char* progId : {Query, "MSCOMDLG.CommonDialog", "MSComctlLib.ListViewCtrl.2", Query}) {
      project.ActiveVBProject().AddToolboxProgID(progId);
    }
    project.Save();
    CHECK(files.Files.at("P/P.vbp") == "Type=Exe\r\n" + before + added);
  }
}

TEST_CASE("A project that uses the query control is a toolbox file, any other is refused") {
  const std::string before =
      "Type=Exe\r\nForm=A.frm\r\nObject={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.2#0; MSCOMCTL.OCX\r\n";
  const std::string id = "{5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}#1.0#0";
  const auto fileFound = [&](const std::string& text) {
    const MemoryFileSystem files(MemoryFileSystem::Contents{{"Other.VBP", text}});
    const ObjectReference found = Toolbox(files, "Other.VBP").Find(Query);
    CHECK(found.Id == id);
    return found.File;
  };
  CHECK(fileFound(before + "Object=" + id + "; OSTRELQUERY.OCX\r\nName=\"O\"\r\n") == "OSTRELQUERY.OCX");
  CHECK(fileFound("Type=Exe\nobject=" + id + "; ..\\lib\\OstrelQuery.ocx\n") == "OstrelQuery.ocx");
  for (const std::string& text :
       {before, before + "Object=" + id + "\r\n", before + "Object={5}#1.0#0; OSTRELQUERY.OCX\r\n",
        before + "[Toolbox]\r\nObject=" + id + "; Q.OCX\r\n"}) {
    CAPTURE(text);
    CHECK_THROWS_WITH_AS(fileFound(text), doctest::Contains("Other.VBP: this project does not use the query control: "),
                         support::InputError);
  }
}

TEST_CASE("A class that nothing knows is refused with what to supply and where") {
  const MemoryFileSystem files(MemoryFileSystem::Contents{{"empty.ini", "[Toolbox]\r\n"}});
  for (const auto& [file, progId, where] :
       {std::tuple{"", std::string(Query), std::string("none was given")},
        std::tuple{"empty.ini", std::string("Other.Control"), std::string("empty.ini has no such line")}}) {
    const auto find = [&, path = file, id = progId] { Toolbox(files, path).Find(id); };
    const std::string message = "ActiveX control '" + progId +
                                "' not found: name with --toolbox a project (.vbp) that uses it, or a toolbox file "
                                "with the line \"" +
                                progId + "={GUID}#version#0; FILE.OCX\" in its section [Toolbox] (" + where + ")";
    CHECK_THROWS_WITH_AS(find(), message.c_str(), runtime::RuntimeError);
    CHECK(formwizard::tests::ErrorNumberOf(find) == runtime::ControlNotFound);
  }
}

TEST_CASE("A damaged toolbox file is refused with the line and column") {
  const std::string guid = "{5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}";
  for (const std::string& line :
       {std::string("Query"), std::string("Query="), "Query=" + guid, "Query=" + guid + "; A.OCX",
        "Query=" + guid + "#1.0#0", "Query=" + guid + "#1.0#0; ", "Query=" + guid + "#1.0; A.OCX",
        "=" + guid + "#1.0#0; A.OCX", std::string("Query={5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B64Z}#1.0#0; A.OCX"),
        "Query=Object=" + guid + "#1.0#0; A.OCX", "Query=" + guid + "#1.0#0; A\rObject=B.OCX"}) {
    CAPTURE(line);
    const MemoryFileSystem files(MemoryFileSystem::Contents{{"t.ini", "[Toolbox]\r\n\r\n " + line + "\r\n"}});
    CHECK_THROWS_WITH_AS(Toolbox(files, "t.ini"),
                         doctest::Contains(("t.ini:3:"s + (line.starts_with("Query=") ? "8" : "2") +
                                            ": expected \"ProgID={GUID}#version#0; FILE.OCX\", found \"")
                                               .c_str()),
                         support::InputError);
  }
  CHECK_THROWS_AS(Toolbox(MemoryFileSystem(), "none.ini"), support::InputError);
}

}  // namespace
