#include "generator/VisualBasic.h"
#include "tests/support/GenerationFixture.h"
#include "tests/support/Golden.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// The lines from the one that begins with `first` up to the next "End Sub".
std::string ProcedureIn(const GenerationFixture& run, const std::string& first) {
  const std::string code = run.Code();
  const std::size_t begin = code.find(first);
  if (begin == std::string::npos) return "";
  return code.substr(begin, code.find("End Sub", begin) - begin);
}

GenerationFixture EveryKind() {
  GenerationFixture run;
  run.AddField(kind::TextBox, "Name").RequiredMark = "*";
  run.AddField(kind::TextBox, "DOB").PropertyType = "%Library.Date";
  run.AddField(kind::TextBox, "Home.City");
  run.AddField(kind::ReadOnlyLabel, "Age").UpdateAfter = Int16(2);
  model::FieldRecord& spouse = run.AddField(kind::ReferenceLabel, "Spouse.Name");
  spouse.PropertyName = "Spouse";
  spouse.ReferenceClass = "Sample.Person";
  spouse.ReferenceColumn = "Name";
  model::FieldRecord& company = run.AddField(kind::ReferenceCombo, "Company.Name");
  company.PropertyName = "Company";
  company.ReferenceClass = "Sample.Company";
  company.ReferenceColumn = "Name";
  company.QueryName = "ByName";
  company.QueryColumn = "CompanyName";
  company.QueryParamCount = Int16(3);
  company.QueryContainId = Int16(1);
  run.AddField(kind::ListBox, "Colors", 3);
  run.AddField(kind::ListView, "Phones", 3);
  run.AddField(kind::Picture, "Photo", 5);
  run.AddField(kind::MultiLine, "Notes", 5);
  return run;
}

}  // namespace

TEST_CASE("The module holds every procedure, to the letter and in order") {
  GenerationFixture run = EveryKind();
  run.Generate();
  CHECK(run.Desktop.Texts().empty());
  CHECK(run.Code() == Golden("modules/every-kind.txt"));
}

TEST_CASE("Menu and Button decide about commands and their handlers") {
  struct Case {
    bool menu, button;
    std::string enable, actionNew;
  };
  const std::string menuEnable =
      "    mnu__Save.Enabled = Enabled\n    mnu__Close.Enabled = Enabled\n    mnu__Delete.Enabled = Enabled\n";
  const std::string buttonEnable =
      "    cmd__Save.Enabled = Enabled\n    cmd__Close.Enabled = Enabled\n    cmd__Delete.Enabled = Enabled\n";
  for (const Case& c :
       {Case{false, false, "", ""}, Case{true, false, menuEnable, "         mnu__Delete.Enabled = False\n"},
        Case{false, true, buttonEnable, "         cmd__Delete.Enabled = False\n"}}) {
    CAPTURE(c.enable);
    GenerationFixture run;
    run.Settings.Menu = c.menu;
    run.Settings.Button = c.button;
    run.Generate();
    CHECK(ProcedureIn(run, "Private Sub EnableScreen") == "Private Sub EnableScreen(Enabled as Boolean)\n" + c.enable);
    CHECK(ProcedureIn(run, "         m_modified = True\n") ==
          "         m_modified = True\n" + c.actionNew + "    End If\n");
    CHECK(run.Writes("mnu__Exit_Click") == c.menu);
    CHECK(run.Writes("cmd__Exit_Click") == c.button);
  }
}

TEST_CASE("Only a second piece that is exactly Date makes a date field") {
  for (const auto& [type, isDate] :
       {std::pair{"%Library.Date", true}, std::pair{"My.Date.Extra", true}, std::pair{"Date", false},
        std::pair{"%Library.date", false}, std::pair{"%Library.DateTime", false}, std::pair{"A.B.Date", false}}) {
    CAPTURE(std::string(type));
    GenerationFixture run;
    run.AddField(kind::TextBox, "When").PropertyType = type;
    run.Generate();
    CHECK(run.Writes("    If m_object.When <> 0 Then \n") == isDate);
  }
}

TEST_CASE("A query's parameters are empty texts, and without any the blank after Execute stays") {
  for (const auto& [count, line] : {std::pair{0, "    rs.Execute \n"}, std::pair{1, "    rs.Execute \"\"\n"}}) {
    CAPTURE(count);
    GenerationFixture run;
    run.AddField(kind::ReferenceCombo, "Spouse").QueryParamCount = Int16(count);
    run.Generate();
    CHECK(run.Writes(line));
  }
}

TEST_CASE_FIXTURE(GenerationFixture, "A reference shown twice has one pair of handlers that refresh both controls") {
  for (const char* column : {"Name", "Age"}) {
    model::FieldRecord& field = AddField(kind::ReferenceLabel, std::string("Spouse.") + column);
    field.PropertyName = "Spouse";
    field.ReferenceColumn = column;
  }
  Generate();
  CHECK(Desktop.Texts().empty());
  CHECK(ProcedureIn(*this, "    Set m_object.Spouse = obj\n") ==
        "    Set m_object.Spouse = obj\n    refSpouseName.Caption = obj.Name\n    refSpouseAge.Caption = obj.Age\n"
        "    obj.sys_Close\n\n");
  CHECK(ProcedureIn(*this, "Private Sub mnuSpouseRemove_Click()\n") ==
        "Private Sub mnuSpouseRemove_Click()\n    Set m_object.Spouse = Nothing\n    refSpouseName.Caption = \"\"\n"
        "    refSpouseAge.Caption = \"\"\n\n");
  CHECK(std::ranges::count(Ide.Transcript.Calls, "CreateEventProc mnuSpouseChange_Click") == 1);
}

TEST_CASE_FIXTURE(GenerationFixture, "A reference label has its menu also behind a combo box of the same reference") {
  for (const auto& [kind, path] :
       {std::pair{kind::ReferenceCombo, "Spouse.Name"}, {kind::ReferenceLabel, "Spouse.Age"}}) {
    AddField(kind, path).PropertyName = "Spouse";
  }
  Generate();
  CHECK(Desktop.Texts().empty());
  CHECK(Writes("If Button = 2 then PopupMenu mnuSpouse"));
  CHECK(Ide.Transcript.Has("mnuSpouse.Visible = 0%"));
  CHECK(std::ranges::count(Ide.Transcript.Calls, "CreateEventProc mnuSpouseChange_Click") == 1);
}

TEST_CASE_FIXTURE(GenerationFixture,
                  "A field of unknown kind and a read-only field that follows no other write nothing of their own") {
  AddField(kind::ReadOnlyLabel, "Age");
  AddField(Int16(9), "Strange");
  Generate();
  CHECK(ProcedureIn(*this, "Private Sub EraseScreen()") == "Private Sub EraseScreen()\n    conAge.Caption = \"\"\n");
  CHECK_FALSE(Writes("LostFocus"));
}

TEST_CASE("A template inserts texts as they are and refuses a gap that nothing fills") {
  generator::Lines lines;
  lines.Add("{a}{b}\nplain", generator::Values().Set("a", "{b}").Set("b", "\"}"));
  CHECK(lines.Text() == "{b}\"}\r\nplain");
  CHECK_THROWS_AS(lines.Add("{c}", generator::Values().Set("a", "")), std::logic_error);
}

TEST_CASE_FIXTURE(GenerationFixture, "An event procedure beyond line 32767 overflows") {
  AddField(kind::TextBox, "Name");
  generator::Generation generation = WriteForm();
  Ide.Forms.back()->Module->Lines.assign(32766, "");
  CHECK_THROWS_AS(generator::WriteEvent(generation, "txtName", "Change", "x"), runtime::RuntimeError);
}
