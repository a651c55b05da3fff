#include "adapters/vb6files/ProjectOnDisk.h"
#include "adapters/vb6files/Toolbox.h"
#include "tests/adapters/vb6files/MemoryFileSystem.h"

#include <doctest/doctest.h>

#include <string>

namespace {

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using formwizard::tests::MemoryFileSystem;

constexpr const char* Query = "OSTRELQUERY.OstrelQueryCtrl.1";
constexpr const char* Dialog = "MSCOMDLG.CommonDialog";
constexpr const char* List = "MSComctlLib.ListViewCtrl";

TEST_CASE("A project keeps its own line of a library, a missing one comes from the built-in rows or the toolbox file") {
  const std::string toolbox =
      "; comment\r\n[Other]\r\nx\r\n[toolbox]\r\nostrelquery.ostrelqueryctrl.1 = "
      "{5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}#1.0#0; Q.OCX\r\n";
  const std::string query = "Object={5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}#1.0#0; Q.OCX\r\n";
  const std::string dialog = "Object={F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0; COMDLG32.OCX\r\n";
  const std::string list = "Object={831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0; MSCOMCTL.OCX\r\n";
  const std::string ownQuery = "Object={00000000-0000-0000-0000-000000000001}#3.0#0; ostrelquery.ocx\r\n";
  const std::string ownList = "Object={831fdd16-0C5C-11D2-A9FC-0000F8754DA1}#2.2#0; renamed.ocx\r\n";
  struct Case {
    std::string Before, After;
  };
  for (const Case& c :
       {Case{"", query + dialog + list}, Case{ownQuery, ownQuery + dialog + list},
        Case{ownList + ownQuery, ownList + ownQuery + dialog},
        Case{"Object=*\\AOther.vbp\r\n" + dialog, "Object=*\\AOther.vbp\r\n" + dialog + query + list}}) {
    CAPTURE(c.Before);
    MemoryFileSystem files({{"P/P.vbp", "Type=Exe\r\n" + c.Before}, {"toolbox.ini", toolbox}});
    ProjectOnDisk project(files, "P/P.vbp", {1252, "toolbox.ini"});
    for (int twice = 0; twice < 2; ++twice) {
      for (const char* progId : {Query, Dialog, List}) project.ActiveVBProject().AddToolboxProgID(progId);
    }
    project.Save();
    CHECK(files.Files.at("P/P.vbp") == "Type=Exe\r\n" + c.After);
  }
}

TEST_CASE("A class that nothing knows is refused with what to supply and where") {
  const MemoryFileSystem files(MemoryFileSystem::Contents{{"empty.ini", "[Toolbox]\r\n"}});
  for (const char* file : {"", "empty.ini"}) {
    const Toolbox toolbox(files, file);
    for (const char* progId : {Query, "Other.Control"}) {
      CAPTURE(progId);
      try {
        toolbox.Find(progId);
        FAIL("found");
      } catch (const runtime::RuntimeError& error) {
        CHECK(error.Number() == runtime::ControlNotFound);
        for (const std::string& part :
             {"ActiveX control '" + std::string(progId) + "' not found", std::string("Object="), std::string(file)}) {
          CHECK(error.Description().find(part) != std::string::npos);
        }
      }
    }
  }
}

TEST_CASE("A damaged toolbox file is refused with the line") {
  constexpr const char* Guid = "{5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B648}";
  for (const std::string& line : {std::string("Query"), std::string("Query="), "Query=" + std::string(Guid),
                                  "Query=" + std::string(Guid) + "; A.OCX", "Query=" + std::string(Guid) + "#1.0#0",
                                  "Query=" + std::string(Guid) + "#1.0#0; ", "=" + std::string(Guid) + "#1.0#0; A.OCX",
                                  std::string("Query={5E1F0C3A-7B42-4D96-8A0E-2C91D7F3B64Z}#1.0#0; A.OCX"),
                                  "Query=Object=" + std::string(Guid) + "#1.0#0; A.OCX"}) {
    CAPTURE(line);
    const MemoryFileSystem files(MemoryFileSystem::Contents{{"t.ini", "[Toolbox]\r\n\r\n" + line + "\r\n"}});
    std::string message;
    try {
      Toolbox(files, "t.ini");
    } catch (const support::InputError& error) {
      message = error.what();
    }
    CHECK(message.find("t.ini:3:") == 0);
  }
  CHECK_THROWS_AS(Toolbox(MemoryFileSystem(), "none.ini"), support::InputError);
}

}  // namespace
