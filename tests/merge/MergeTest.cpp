#include "lint/Lint.h"
#include "merge/Merge.h"
#include "tests/support/BuildTree.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/vbtext/Developer.h"
#include "tests/vbtext/Environment.h"
#include "vbtext/Comparison.h"
#include "vbtext/Tokens.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <vector>

using namespace formwizard;
using namespace formwizard::tests;
using vbtext::Document;
using vbtext::Folded;
using vbtext::LineRange;

namespace {

// Forms without a companion file.
std::vector<std::string> Forms() {
  std::vector<std::string> forms;
  for (const char* folder : {"/samples", "/tests/golden"}) {
    for (const auto& [path, bytes] : FilesIn(SourceFolder() + folder)) {
      if (path.ends_with(".frm") && bytes.find(".frx\"") == std::string::npos) forms.push_back(bytes);
    }
  }
  CHECK(forms.size() > 3);
  return forms;
}

merge::Merged Merge(const std::string& base, const std::string& mine, const std::string& theirs,
                    const merge::Options& options = {}) {
  return merge::Merge(base, mine, theirs, vbtext::FileKind::Form, options);
}

// The rules of the linter that a form breaks.
std::set<std::string_view> RulesBrokenBy(const std::string& form) {
  struct : lint::Surroundings {
    std::optional<std::uintmax_t> SizeOf(std::string_view) const override { return std::nullopt; }
  } alone;
  std::set<std::string_view> rules;
  for (const lint::Finding& finding : lint::FindingsIn(lint::Subject({"f.frm", form, alone}), true)) {
    rules.insert(finding.Broken->Id);
  }
  return rules;
}

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  REQUIRE(at != std::string::npos);
  return text.replace(at, from.size(), to);
}

const std::string Base =
    "VERSION 5.00\nObject = \"{1}#1.0#0\"; \"A.OCX\"\n"
    "Begin VB.Form f \n   Caption         =   \"f\"\n   Icon            =   \"f.frx\":0000\n"
    "   Begin VB.TextBox a \n      Left            =   100\n      TabIndex        =   0\n   End\n"
    "   Begin VB.TextBox b \n      Left            =   200\n      TabIndex        =   1\n   End\n"
    "End\nAttribute VB_Name = \"f\"\nOption Explicit\n"
    "Private Type R\n  p As Long\n  q As Long\n  r As Long\n  s As Long\nEnd Type\nPrivate n As Long\n\n"
    "Private Sub One()\n  n = 1\n  n = 2\n  n = 3\nEnd Sub\n\n"
    "Private Sub Two()\n  n = 4\n  n = 5\nEnd Sub\n";

}  // namespace

TEST_CASE("Every edit of both sides is in the result or in a conflict, and nothing else is changed") {
  std::mt19937 random(3);
  const std::vector<std::string> forms = Forms();
  int clean = 0;
  for (int i = 0; i < 2 * Thousand; ++i) {
    const std::string& base = forms[random() % forms.size()];
    std::string mine = base, theirs = base;
    for (auto& [text, who] : {std::pair<std::string&, const char*>(mine, "m"), {theirs, "t"}}) {
      Developer developer(random, who);
      for (auto edits = random() % 6; edits > 0; --edits) text = developer.DoSomething(text);
      if (random() % 3 == 0) text = SavedAgain({text, ""}, random).File;
    }
    CAPTURE(i);
    const merge::Merged merged = Merge(base, mine, theirs);
    REQUIRE(MarksIn(merged.Text) == MarksIn(mine + theirs));
    merge::Options whole;
    whole.TakesPartsWhole = true;
    const merge::Merged inParts = Merge(base, mine, theirs, whole);
    REQUIRE(inParts.Conflicts.size() == merged.Conflicts.size());
    if (!merged.Conflicts.empty()) continue;
    REQUIRE(Changes(merged.Text, inParts.Text).empty());
    ++clean;
    std::set<std::string> wanted = Changes(base, mine);
    wanted.merge(Changes(base, theirs));
    REQUIRE(Changes(base, merged.Text) == wanted);
    std::set<std::string_view> known = RulesBrokenBy(mine);
    known.merge(RulesBrokenBy(theirs));
    REQUIRE(std::ranges::includes(known, RulesBrokenBy(merged.Text)));
    REQUIRE((Merge(base, merged.Text, theirs).Text == merged.Text));
  }
  CHECK(clean > 2 * Thousand * 3 / 4);
}

TEST_CASE("A side without news gives the other one, in the spelling of mine") {
  std::mt19937 random(4);
  const std::string saved = SavedAgain({Base, "icon"}, random).File;
  CHECK(Merge(Base, saved, Base).Text == saved);
  CHECK(Merge(Base, Base, saved).Text == Base);
  const std::string edited = Replaced(saved, "n ", "N ");
  const std::string news = Replaced(Base, "  n = 5\n", "  n = 5\n  n = 6\n");
  CHECK(Merge(Base, Replaced(news, "Private n", "private N"), Base).Text == Replaced(news, "Private n", "private N"));
  CHECK(Merge(Base, Base, Replaced(news, "Private n", "private N")).Text == news);
  std::string windows = Base;
  for (std::size_t at = 0; (at = windows.find('\n', at)) != std::string::npos; at += 2) windows.insert(at, "\r");
  CHECK(Merge(Base, windows, news).Text == Replaced(windows, "  n = 5\r\n", "  n = 5\r\n  n = 6\r\n"));
}

TEST_CASE("What both sides changed is merged by what it is, or is a conflict with its name") {
  struct Case {
    const char *MineFrom, *MineTo, *TheirsFrom, *TheirsTo;
    const char* Conflict;  // none: the result is the second change on top of the first
    const char* Note = "";
  };
  for (const Case& c : std::vector<Case>{
           {"  n = 1\n", "  n = 7\n", "  n = 3\n", "  n = 9\n", nullptr},
           {"  n = 2\n", "  n = 7\n", "  n = 2\n", "  n = 9\n", "procedure Sub One"},
           {"  n = 2\n", "  N=2\n", "  n = 2\n", "  n = 9\n", nullptr},  // mine only spelled it anew
           {"\"f\"\n   I", "\"g\"\n   I", "\"f\"\n   I", "\"h\"\n   I", "control f"},
           {"Left            =   100", "Left            =   150", "Left            =   100", "Left            =   180",
            "-", "a.Left: both changed it; it stays 150, theirs is 180"},
           {"TextBox a ", "TextBox c ", "Left            =   100", "Left            =   180", nullptr},
           {"TextBox a ", "TextBox c ", "TextBox a ", "TextBox d ", "control c"},
           {"   Begin VB.TextBox b \n      Left            =   200\n      TabIndex        =   1\n   End\n", "",
            "Left            =   200", "Left            =   280", "control b"},
           {"Private Sub Two()\n  n = 4\n  n = 5\nEnd Sub\n", "", "  n = 5\n", "  n = 9\n", "procedure Sub Two"},
           {"Sub Two()", "Sub Due()", "  n = 5\n", "  n = 9\n", nullptr},  // renamed here, edited there
           {"\n\nPrivate Sub One()", "\nPrivate p\n\nPrivate Sub One()", "\n\nPrivate Sub One()",
            "\nPrivate q\n\nPrivate Sub One()", "-"},
           {"\n\nPrivate Sub One()", "\nPrivate p\n\nPrivate Sub One()", "\n\nPrivate Sub One()",
            "\nPrivate p As Long\n\nPrivate Sub One()", "declarations"},
           {"\nPrivate Sub Two", "\nSub X()\n  n = 1\nEnd Sub\nPrivate Sub Two", "\nPrivate Sub Two",
            "\nSub X()\n  n = 2\nEnd Sub\nPrivate Sub Two", "procedure Sub X"},
           {"  p As Long\n", "  p As Byte\n", "  s As Long\n", "  s As Long\n  t As Long\n", nullptr},  // of one Type
           {"  p As Long\n", "  p As Byte\n", "  p As Long\n", "  p As Date\n", "declaration Type R"},
           {"Private Type R\n  p As Long\n  q As Long\n  r As Long\n  s As Long\nEnd Type\n", "", "  p As Long\n",
            "  p As Date\n", "declarations"},
           {"#1.0#0", "#1.1#0", "#1.0#0", "#1.2#0", "component {1"},
           {"f.frx\":0000", "f.frx\":0010", "  n = 3\n", "  n = 9\n", nullptr},
           {"f.frx\":0000", "f.frx\":0010", "f.frx\":0000", "f.frx\":0020", "control f"}}) {
    CAPTURE(c.MineTo);
    CAPTURE(c.TheirsTo);
    const std::string mine = Replaced(Base, c.MineFrom, c.MineTo), theirs = Replaced(Base, c.TheirsFrom, c.TheirsTo);
    const merge::Merged merged = Merge(Base, mine, theirs);
    CHECK((merged.Notes.empty() ? "" : merged.Notes.front()) == c.Note);
    if (c.Conflict && std::string(c.Conflict) != "-") {
      REQUIRE(merged.Conflicts.size() == 1);
      CHECK(merged.Conflicts[0].Name == c.Conflict);
      CHECK(merged.Text.find("<<<<<<< mine\n") != std::string::npos);
      CHECK(Merge(Base, mine, theirs, {.Conflicts = merge::Choice::Mine}).Conflicts.empty());
      CHECK(Changes(theirs, Merge(Base, mine, theirs, {.Conflicts = merge::Choice::Theirs}).Text) ==
            std::set<std::string>());
    } else {
      CHECK(merged.Conflicts.empty());
    }
    if (!c.Conflict)
      CHECK(merged.Text ==
            (mine.find(c.TheirsFrom) == std::string::npos ? theirs : Replaced(mine, c.TheirsFrom, c.TheirsTo)));
  }
}

TEST_CASE("The order of controls, the tab order and what is new on both sides come together") {
  const auto control = [](const std::string& name, int tab) {
    return "   Begin VB.TextBox " + name + " \n      TabIndex        =   " + std::to_string(tab) + "\n   End\n";
  };
  const auto form = [](const std::string& controls) {
    return "VERSION 5.00\nBegin VB.Form f \n" + controls + "End\nAttribute VB_Name = \"f\"\n";
  };
  const std::string base = form(control("a", 0) + control("b", 1));
  // Both add a control, and count what comes behind it anew.
  CHECK(Merge(base, form(control("m", 0) + control("a", 1) + control("b", 2)),
              form(control("a", 0) + control("t", 1) + control("b", 2)))
            .Text == form(control("m", 0) + control("a", 1) + control("t", 2) + control("b", 3)));
  CHECK(Merge(base, form(control("a", 1) + control("b", 0)), base).Conflicts.empty());
  CHECK(Merge(base, form(control("a", 0) + control("b", 1) + control("m", 2)), form(control("b", 0) + control("a", 1)))
            .Text == form(control("b", 0) + control("m", 1) + control("a", 2)));
}

TEST_CASE("The marks are git's, in the size and style that is asked for") {
  const auto marked = [](merge::Options options) {
    return merge::Merge("a\nb\nc\n", "a\nx\ny\nc\n", "a\nx\nz\nc", vbtext::FileKind::Unknown, options).Text;
  };
  CHECK(marked({}) == "a\nx\n<<<<<<< mine\ny\n=======\nz\n>>>>>>> theirs\nc\n");
  CHECK(marked({.MarkStyle = merge::Style::Zdiff3}) ==
        "a\nx\n<<<<<<< mine\ny\n||||||| base\nb\n=======\nz\n>>>>>>> theirs\nc\n");
  CHECK(marked({.MarkStyle = merge::Style::Diff3, .MarkerSize = 9}) ==
        "a\n<<<<<<<<< mine\nx\ny\n||||||||| base\nb\n=========\nx\nz\n>>>>>>>>> theirs\nc\n");
  // A text that is no Visual Basic counts byte for byte.
  CHECK(merge::Merge("a\nb\nc\n", "a\nB\nc\n", "a\nb \nc\n", vbtext::FileKind::Form, {}).Conflicts.size() == 1);
}

TEST_CASE("The items of a project are a set") {
  const auto project = [](const std::string& items, const std::string& settings) {
    return "Type=Exe\r\n" + items + "Startup=\"f\"\r\n" + settings + "\r\n[MS Transaction Server]\r\nAutoRefresh=1\r\n";
  };
  const auto merged = [](const std::string& base, const std::string& mine, const std::string& theirs) {
    return merge::Merge(base, mine, theirs, vbtext::FileKind::Project, {});
  };
  const std::string base = project("Form=a.frm\r\nModule=M; m.bas\r\n", "RevisionVer=1\r\n");
  CHECK(merged(base, project("Module=M; m.bas\r\nForm=x.frm\r\n", "RevisionVer=3\r\n"),
               project("Form=A.frm\r\nModule=M; m.bas\r\nForm=y.frm\r\n", "RevisionVer=2\r\nTitle=\"t\"\r\n"))
            .Text == project("Module=M; m.bas\r\nForm=y.frm\r\nForm=x.frm\r\n", "RevisionVer=3\r\nTitle=\"t\"\r\n"));
  CHECK(merged(base, project("Form=a.frm\r\nModule=M; m.bas\r\nForm=x.frm\r\n", ""),
               project("Module=M; m.bas\r\nForm=y.frm\r\nForm=a.frm\r\n", ""))
            .Text == project("Form=a.frm\r\nModule=M; m.bas\r\nForm=y.frm\r\nForm=x.frm\r\n", ""));
  const auto constants = [&](const std::string& list) { return project("", "CondComp=\"" + list + "\"\r\n"); };
  CHECK(merged(constants("A = 1 : B = 1 : C = 1"), constants("a=1 : B = 2"), constants("A = 0 : B = 1 : C = 1 : D = 1"))
            .Text == constants("A = 0 : B = 2 : D = 1"));
  CHECK(merged(constants("A = 1"), constants("A = 2"), constants("A = 3")).Conflicts.size() == 1);
  const merge::Merged moved = merged(base, project("Form=a.frm\r\nModule=M; 1\\m.bas\r\n", ""),
                                     project("Form=a.frm\r\nModule=M; 2\\m.bas\r\n", ""));
  REQUIRE(moved.Conflicts.size() == 1);
  CHECK(moved.Conflicts[0].Name == "Module 1\\m.bas");
}
