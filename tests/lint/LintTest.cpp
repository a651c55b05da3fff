#include "lint/Lint.h"

#include "tests/support/RunProgram.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace formwizard;

namespace {

class Beside : public lint::Surroundings {
 public:
  std::optional<std::uintmax_t> SizeOf(std::string_view file) const override {
    return file.starts_with("there") ? std::optional<std::uintmax_t>(16) : std::nullopt;
  }
};

struct Case {
  std::string Text;   // "\n" stands for CRLF, "\r" for a lone LF
  std::string Found;  // "line rule" of each finding
};

std::string Found(const std::string& name, const std::string& text, std::optional<std::string_view> project = {}) {
  std::string bytes, found;
  for (const char c : text) bytes += c == '\n' ? "\r\n" : std::string(1, c == '\r' ? '\n' : c);
  const Beside beside;
  for (const lint::Finding& finding : lint::FindingsIn(lint::Subject({name, bytes, beside, project}), true)) {
    found += (found.empty() ? "" : ", ") + std::to_string(finding.Line) + " " + std::string(finding.Broken->Id);
  }
  return found;
}

std::string Form(const std::string& inside, const std::string& code = "", const std::string& objects = "") {
  return "VERSION 5.00\n" + objects + "Begin VB.Form f\n" + inside + "End\nAttribute VB_Name = \"f\"\n" + code;
}

std::string Repeated(int count, const auto& textOf) {
  std::string text;
  for (int i = 0; i < count; ++i) text += textOf(i);
  return text;
}

std::string Label(const std::string& name, const std::string& properties = "") {
  return "Begin VB.Label " + name + "\n" + properties + "End\n";
}

}  // namespace

TEST_CASE("A file is in a code page, its lines end in CRLF and are no longer and no more than the environment takes") {
  const std::string start = "Attribute VB_Name = \"m\"\n", longest(1023, 'x');
  const auto lines = [](int count) { return Repeated(count, [](int) { return "x = 1\n"; }); };
  const auto continued = [](int count) { return "x = 1" + Repeated(count, [](int) { return " + _\n1"; }) + "\n"; };
  for (const auto& [text, found] : std::vector<Case>{
           {"\xFF\xFE"
            "A\r",
            "1 utf-16"},
           {std::string("A\0\r\0", 4), "1 utf-16"},
           {"\xEF\xBB\xBF" + start, "1 utf-8-mark"},
           {start + "'\xC3\xA9\n'\xC3\xA8\n'\xC3\xB1\xE2\x82\xAC", "2 utf-8"},
           {start + "'\xC3\xA9\xC3\xA9\xC3\xA9\xC3\xA9", ""},  // one pair could be anything
           {start + "'\xC3\xA9\xC3\xA8\xC3\xB1\xE2\x82\xAC \xE9t\xE9", ""},
           {start + "x = 1\rx = 2\r", "2 line-ends"},
           {start + "'" + longest.substr(1) + "\n" + longest + "x\n", "3 line-length"},
           {start + continued(24), ""},
           {start + continued(25), "26 continuations"},
           {start + lines(65534), ""},
           {start + lines(65535), "65536 module-length"},
           {start + "<<<<<<< a\nIf x Then\n=======\n>>>>>>> b\n>>>>>>> c\n", "2 conflict-marker, 6 conflict-marker"},
           {start + "'<<<<<<< a\nx = \"\n<<<<<<<< a\n>>>>>>>b\n", ""}}) {
    CAPTURE(text.substr(0, 60));
    CHECK(Found("m.bas", text) == found);
  }
}

TEST_CASE("Controls have names of their own, a library and what they refer to") {
  const std::string flex = "Begin MSFlexGridLib.MSFlexGrid g\nEnd\n", unknown = "Begin Their.Thing t\nEnd\n",
                    flexLine = "Object = \"{5e9e78a0-531b-11cf-91f6-c2863c385e30}#1.0#0\"; \"MSFLXGRD.OCX\"\n";
  const auto names = [](int count) { return Repeated(count, [](int i) { return Label("l" + std::to_string(i)); }); };
  for (const auto& [text, found] :
       std::vector<Case>{{Form(Label("a") + "Begin VB.Frame b\n" + Label("A") + "End\n"), "6 duplicate-control"},
                         {Form(Label("a", "Index = 0\n") + Label("a", "Index = 1\n")), ""},
                         {Form(Label("a", "Index = 0\n") + Label("a", "Index = 0\n")), "6 duplicate-control"},
                         {Form(Label("a", "Index = 0\n") + Label("a")), "6 duplicate-control"},
                         {Form(names(254) + Label("l9x", "Index = 0\n")), "511 control-count"},
                         {Form(names(253) + Label("x", "Index = 0\n") + Label("x", "Index = 1\n")), ""},
                         {Form(Label(std::string(40, 'n')) + Label(std::string(41, 'n'))), "5 name-length"},
                         {Form(flex + flex), "3 control-library, 5 duplicate-control"},
                         {Form(flex, "", flexLine), ""},
                         {Form(flex, "", "Object = \"*\\AOther.vbp\"\n"), "4 control-library"},
                         {Form(unknown + "Begin P.Own o\nEnd\n"), "3 control-library"},
                         {Form(unknown, "", "Object = \"*\\AOther.vbp\"\n"), ""},
                         {Form("Icon = \"there.frx\":000F\nCaption = $\"there.frx\":0010\nTag = \"no.frx\":\n"),
                          "4 companion-reference"},
                         {Form("BeginProperty P\nPicture = \"none.frx\":0000\nEndProperty\n"), "4 companion-reference"},
                         {"VERSION 5.00\nBegin VB.Form f\nCaption\nEnd\n", "3 broken-form"},
                         {"VERSION 5.00\nBegin VB.Form f\n", "3 broken-form"},
                         {Form(Label("a_b"),
                               "Sub a_b_Click()\nEnd Sub\nSub c_Click()\nEnd Sub\nSub c_d()\nEnd Sub\n"
                               "Sub Form_Resize()\nEnd Sub\nSub w_Change()\nEnd Sub\nSub i_Change()\nEnd Sub\n"
                               "Private WithEvents w As X\nImplements L.i\n"),
                          "9 handler"}}) {
    CAPTURE(text.substr(0, 90));
    CHECK(Found("f.frm", text, "P") == found);
  }
  CHECK(Found("f.frm", Form(unknown)).empty());  // the project, and so what is its own, is not known
}

TEST_CASE("Procedures and their blocks end, and where it is not certain nothing is said") {
  for (const auto& [text, found] : std::vector<Case>{
           {"If a Then\nIf b Then c Else d\nElseIf e Then x: y\nElse: z\nEnd If", ""},
           {"If a Then ' b _\ngoes on\nElse\nEndIf", ""},
           {"If a Then For i = 1 To 2: b: Next: Else Do: c: Loop Until d", ""},
           {"If a Then If b Then 10 Else _\nEnd", ""},
           {"For i = 1 To 2\nFor j = 1 To 2\nNext j, i", ""},
           {"10 For Each x In y: Do While z: Loop: Next", ""},
           {"Select Case a: Case 1: While b: Wend: Case Else\nWith c\n.Next: .Loop !If: x = .End\nEnd With\nEnd Select",
            ""},
           {"Do: x = \"If a Then\": y a:=1, b:=#1:00:00 AM#: Loop", ""},
           {"label: If a Then\nloop_: End If: End", ""},
           {"Open f For Input As #1: Exit For: On x GoTo a, b", ""},
           {"#If a Then\nFor i = 1 To 2\n#Else\nFor i = 2 To 3\n#End If\nNext", ""},
           {"#If a Then\nIf b Then\n#End If\nx\n#If a Then\nEnd If\n#End If", ""},
           {"#If a Then\nx\n#ElseIf b Then\nNext\n#End If", "6 unbalanced-block"},
           {"If a Then\nx", "3 unbalanced-block"},
           {"Do\nIf a Then\nLoop\nEnd If", "5 unbalanced-block"},
           {"x\nEnd If\nNext", "4 unbalanced-block"},
           {"For i = 1 To 2\nNext j, i", "4 unbalanced-block"},
           {"Case 1", "3 unbalanced-block"},
           {"With a\nElse\nEnd With", "4 unbalanced-block"},
           {"Select Case a\nEnd With\nEnd Select", "4 unbalanced-block"},
           {"While a\nLoop", "4 unbalanced-block"},
           {"End Function", "3 unbalanced-block, 4 unbalanced-procedure"},
           {"End Sub\nSub t()\nEnd Sub\nProperty Get t()\nEnd Property\n#If a Then\nSub s()\nEnd Sub\n#End If\nSub S()",
            "6 duplicate-procedure, 12 duplicate-procedure"},
           {"End Sub\n#If 0 Then\nSub t()\nFor\nEnd Sub\nSub t()\nEnd Sub\n#End If\nSub u()", ""},
           {"End Sub\nProperty Get t()\nEnd Property\nProperty Let t(x)\nEnd Property\nSub u()", ""},
           {"End Sub\nType T\nNext As Long\nEnd Type\nEnum E\nx\nSub t()", "7 unbalanced-procedure"},
           {"Sub t()\nIf a Then\nEnd Sub\nSub u()", "3 unbalanced-procedure"}}) {
    CAPTURE(text);
    CHECK(Found("m.bas", "Attribute VB_Name = \"m\"\nSub s()\n" + text + "\nEnd Sub\n") == found);
  }
}

TEST_CASE("What a project lists is there, and each of its lines is one") {
  const std::string listed =
      "Type=Exe\nForm=there.frm\nForm=a.frm\nModule=M; b.bas\nResFile32=\"c.res\"\nTitle=\"x\"\n";
  CHECK(Found("p.vbp", listed) == "3 missing-file, 4 missing-file, 5 missing-file");
  CHECK(Found("p.vbp", "Type=Exe\nForm a.frm\n") == "2 broken-project");
}

TEST_CASE("The page on the linter has the rules") {
  std::string table;
  for (const lint::Rule& rule : lint::Rules()) {
    table += "| `" + std::string(rule.Id) + "` | " + std::string(lint::WordOf(rule.HowBad)) + " | " +
             std::string(rule.Finds) + (rule.OnRequest ? " Only with `--all`." : "") + " | " +
             std::string(rule.Remedy) + " |\n";
  }
  CHECK_MESSAGE(tests::ReadFile(tests::SourceFolder() + "/docs/lint.md").find(table) != std::string::npos, table);
}
