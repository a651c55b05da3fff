#include "generator/VisualBasic.h"
#include "tests/support/GenerationFixture.h"
#include "tests/support/Golden.h"

using namespace formwizard;
using namespace formwizard::tests;

namespace {

// The lines from the one that begins with `first` up to the next "End Sub".
std::string ProcedureIn(GenerationFixture& run, const std::string& first) {
  const std::string code = run.Ide.Code();
  const std::size_t begin = code.find(first);
  if (begin == std::string::npos) return "";
  return code.substr(begin, code.find("End Sub", begin) - begin);
}

}  // namespace

TEST_CASE_FIXTURE(GenerationFixture, "The module holds every procedure, to the letter and in order") {
  AddEveryKind();
  Generate();
  CHECK(Desktop.Texts().empty());
  CHECK(Ide.Code() == Golden("modules/every-kind.txt"));
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

TEST_CASE("Only a text box whose type's second piece is exactly Date shows a date") {
  for (const auto& [kind, type, isDate] : {std::tuple{kind::TextBox, "%Library.Date", true},
                                           {kind::TextBox, "My.Date.Extra", true},
                                           {kind::TextBox, "Date", false},
                                           {kind::TextBox, "%Library.date", false},
                                           {kind::TextBox, "%Library.DateTime", false},
                                           {kind::TextBox, "A.B.Date", false},
                                           {kind::ReadOnlyLabel, "%Library.Date", false},
                                           {kind::MultiLine, "%Library.Date", false}}) {
    CAPTURE(std::string(type));
    GenerationFixture run;
    run.AddField(kind, "When").PropertyType = type;
    run.Generate();
    CHECK(run.Writes("    If m_object.When <> 0 Then \n") == isDate);
    if (kind == kind::ReadOnlyLabel) CHECK(run.Writes("    conWhen.Caption = m_object.When\n"));
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

TEST_CASE("A reference shown more than once has one menu and one pair of handlers, which refresh all its controls") {
  for (const bool comboFirst : {false, true}) {
    GenerationFixture run;
    std::string shown, erased;
    for (const char* column : {"Name", "Age"}) {
      const bool isCombo = comboFirst && column == std::string("Name");
      model::FieldRecord& field =
          run.AddField(isCombo ? kind::ReferenceCombo : kind::ReferenceLabel, std::string("Spouse.") + column);
      field.PropertyName = "Spouse";
      field.ReferenceColumn = column;
      const std::string control = (isCombo ? "    cmbSpouse" : "    refSpouse") + field.ReferenceColumn + ".Caption = ";
      shown += control + "obj." + column + "\n";
      erased += control + "\"\"\n";
    }
    run.Generate();
    CHECK(run.Desktop.Texts().empty());
    CHECK(ProcedureIn(run, "    Set m_object.Spouse = obj\n") ==
          "    Set m_object.Spouse = obj\n" + shown + "    obj.sys_Close\n\n");
    CHECK(ProcedureIn(run, "Private Sub mnuSpouseRemove_Click()\n") ==
          "Private Sub mnuSpouseRemove_Click()\n    Set m_object.Spouse = Nothing\n" + erased + "\n");
    CHECK(run.Ide.Count("Name mnuSpouse ") == 1);
    CHECK(run.Ide.Count("CreateEventProc Click mnuSpouseChange ") == 1);
    CHECK(run.Writes("If Button = 2 then PopupMenu mnuSpouse"));
  }
}

TEST_CASE_FIXTURE(GenerationFixture,
                  "A field of unknown kind and a read-only field that follows no other write nothing of their own") {
  AddField(kind::ReadOnlyLabel, "Age");
  AddField(kind::Last + Int16(1), "Strange");
  Generate();
  CHECK(ProcedureIn(*this, "Private Sub EraseScreen()") == "Private Sub EraseScreen()\n    conAge.Caption = \"\"\n");
  CHECK_FALSE(Writes("LostFocus"));
}

TEST_CASE("A template inserts texts as they are and refuses a gap that nothing fills") {
  generator::Lines lines;
  lines.Add(generator::Page("{a}{b}\nplain"), generator::Values().Set("a", "{b}").Set("b", "\"}"));
  CHECK(lines.Text() == "{b}\"}\r\nplain");
  CHECK_THROWS_AS(lines.Add("{c}", generator::Values().Set("a", "")), std::logic_error);
}

TEST_CASE_FIXTURE(GenerationFixture, "An event procedure beyond line 32767 overflows") {
  AddField(kind::TextBox, "Name");
  generator::Generation generation = WriteForm();
  std::string breaks;
  for (int i = 1; i < 32766; ++i) breaks += "\r\n";
  generation.NewCodeModule->InsertLines(Int32(1), breaks);
  CHECK(ErrorNumberOf([&] { generator::WriteEvent(generation, "txtName", "Change", "x"); }) == runtime::Overflow);
}
