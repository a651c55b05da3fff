#include "tests/support/BuildTree.h"
#include "tests/support/Golden.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/vbtext/Environment.h"
#include "vbtext/Companion.h"
#include "vbtext/Comparison.h"
#include "vbtext/Tokens.h"
#include "vbtext/Values.h"

#include <doctest/doctest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

using namespace formwizard::tests;
using namespace formwizard::vbtext;

namespace {

// "changed property txtName.Caption", a line each.
std::string Listed(const std::vector<Difference>& differences) {
  std::string text;
  for (const Difference& difference : differences) {
    text += std::string(Word(difference.Kind)) + " " + std::string(difference.What) + " " + difference.Name + "\n";
  }
  return text;
}

std::string Found(const SavedForm& a, const SavedForm& b) {
  const Document fileA = DocumentOf(a.File), fileB = DocumentOf(b.File);
  return Listed(Compare({fileA, a.Records}, {fileB, b.Records}));
}

// Every form of the samples and of the expected projects.
std::vector<SavedForm> Forms() {
  std::vector<SavedForm> forms;
  for (const char* folder : {"/samples", "/tests/golden"}) {
    for (const auto& [path, bytes] : FilesIn(SourceFolder() + folder)) {
      if (!path.ends_with(".frm")) continue;
      const std::string records = SourceFolder() + folder + "/" + path.substr(0, path.size() - 4) + ".frx";
      forms.push_back({bytes, std::filesystem::exists(records) ? ReadFile(records) : ""});
    }
  }
  CHECK(forms.size() > 5);
  return forms;
}

// A token of a line made another one, or a line that is not there any more.
std::string EditedCode(const std::string& line, std::mt19937& random) {
  Tokenizer tokenizer;
  const std::vector<Token>& tokens = tokenizer.Read(line);
  const Token& token = tokens[random() % tokens.size()];
  const std::size_t at = static_cast<std::size_t>(token.Text.data() - line.data());
  if (token.Kind == TokenKind::Operator || token.Kind == TokenKind::Continuation || random() % 4 == 0) return "";
  return std::string(line).insert(at + (token.Kind == TokenKind::Number ? 0 : 1), "1");
}

std::string EditedProperty(const std::string& line) {
  const std::size_t at = line.find_first_not_of(' ', line.find('=') + 1);
  if (line[at] == '"') return std::string(line).insert(at + 1, "x");
  return line.substr(0, at) + "9" + line.substr(at + (line[at] == '-' ? 1 : 0));
}

// One edit somewhere in the form; empty where there is nothing to edit.
std::string Edited(const SavedForm& form, std::mt19937& random) {
  const Document file = DocumentOf(form.File);
  const std::size_t at = random() % file.Lines.size();
  const std::string line(file.Lines[at].Text);
  std::string edited;
  if (file.CodeLines.Holds(at)) {
    if (line.find_first_not_of(" \t") == std::string::npos) return "";
    edited = EditedCode(line, random);
  } else if (file.Root->Lines.Holds(at) && line.find(" =  ") != std::string::npos && !ReferenceIn(WordOf(line, 2))) {
    if (IsTabIndex(WordOf(line, 0)) || WordOf(line, 0).starts_with("_Extent")) return "";
    edited = EditedProperty(line);
  } else {
    return "";
  }
  const std::size_t from = static_cast<std::size_t>(file.Lines[at].Text.data() - form.File.data());
  return std::string(form.File).replace(from, line.size(), edited);
}

const std::string Form =
    "VERSION 5.00\r\n"
    "Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\r\n"
    "Begin VB.Form frmA \r\n"
    "   Caption         =   \"A\"\r\n"
    "   ClientHeight    =   3000\r\n"
    "   Begin VB.Frame fra \r\n"
    "      Height          =   1000\r\n"
    "      TabIndex        =   0\r\n"
    "      Begin VB.TextBox txt \r\n"
    "         Index           =   0\r\n"
    "         Left            =   100\r\n"
    "         TabIndex        =   1\r\n"
    "         Text            =   $\"frmA.frx\":0000\r\n"
    "      End\r\n"
    "   End\r\n"
    "   Begin VB.CommandButton cmd \r\n"
    "      BeginProperty Font \r\n"
    "         Size            =   8.25\r\n"
    "      EndProperty\r\n"
    "      TabIndex        =   2\r\n"
    "   End\r\n"
    "End\r\n"
    "Attribute VB_Name = \"frmA\"\r\n"
    "Option Explicit\r\n"
    "Private m As Long ' how many\r\n"
    "\r\n"
    "' Opens it.\r\n"
    "Private Sub Form_Load()\r\n"
    "    m = 1\r\n"
    "    cmd.Caption = \"Go\"\r\n"
    "End Sub\r\n"
    "Private Sub cmd_Click()\r\n"
    "    Unload Me\r\n"
    "    m = 0\r\n"
    "End Sub\r\n";
const std::string Records("\x03\0\0\0abc", 7);

std::string Replaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  REQUIRE(at != std::string::npos);
  return text.replace(at, from.size(), to);
}

}  // namespace

TEST_CASE("A form that the environment only saved is equal to itself, whatever it did to its text") {
  std::mt19937 random(1);
  const std::vector<SavedForm> forms = Forms();
  for (int i = 0; i < Thousand; ++i) {
    const SavedForm& form = forms[random() % forms.size()];
    const SavedForm saved = SavedAgain(form, random);
    CAPTURE(i);
    REQUIRE(saved.File != form.File);
    REQUIRE(Found(form, saved) == "");
    REQUIRE(Found(saved, form) == "");
  }
}

TEST_CASE("No edit is missed, also when the environment saved the form after it") {
  std::mt19937 random(2);
  const std::vector<SavedForm> forms = Forms();
  for (int edits = 0; edits < Thousand;) {
    const SavedForm& form = forms[random() % forms.size()];
    const SavedForm edited{Edited(form, random), form.Records};
    if (edited.File.empty()) continue;
    ++edits;
    std::string found;
    try {
      found = Found(form, SavedAgain(edited, random));
    } catch (const Fault&) {
      found = "what cannot be read is not equal";
    }
    REQUIRE(found != "");
  }
}

TEST_CASE("What somebody changed is named") {
  struct Case {
    const char* From;
    const char* To;
    const char* Differences;
  };
  for (const Case& c : std::vector<Case>{
           {"\"A\"\r\n   Client", "\"a\"\r\n   Client", "changed property frmA.Caption\n"},
           {"Left            =   100", "Left            =   112", "changed property txt(0).Left\n"},
           {"Left            =   100", "Left            =   94", ""},
           {"Size            =   8.25", "Size            =   8.5", "changed property cmd.Font\n"},
           {"      Height          =   1000\r\n", "", "removed property fra.Height\n"},
           {"      Height          =   1000\r\n", "      Height          =   1000\r\n      Enabled = 0\r\n",
            "added property fra.Enabled\n"},
           {"CommandButton cmd ", "CommandButton cmdGo ", "renamed control cmd to cmdGo\n"},
           {"CommandButton cmd ", "PictureBox cmd ", "changed class of control cmd\n"},
           {"Index           =   0", "Index           =   1", "changed property txt(1).Index\n"},
           {"TabIndex        =   2", "TabIndex        =   0\r\n      Tag = \"\"",
            "added property cmd.Tag\nchanged tab order cmd\n"},
           {"#2.0#0\"; ", "#2.1#0\"; ",
            "removed component Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0\"; \"MSCOMCTL.OCX\"\n"
            "added component Object = \"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.1#0\"; \"MSCOMCTL.OCX\"\n"},
           {"Option Explicit\r\n", "", "removed declaration Option Explicit\n"},
           {"m As Long", "m As Single", "changed declaration Private m\n"},
           {"' how many", "' How many", "changed declaration Private m\n"},
           {"' Opens it.", "' Opens it", "changed procedure Sub Form_Load\n"},
           {"\"Go\"", "\"go\"", "changed procedure Sub Form_Load\n"},
           {"    m = 1\r\n", "", "changed procedure Sub Form_Load\n"},
           {"Sub cmd_Click", "Sub cmd_Clicked", "renamed procedure Sub cmd_Click to Sub cmd_Clicked\n"},
           {"Private Sub cmd_Click()", "Private Sub New_One()\r\nEnd Sub\r\nPrivate Sub cmd_Click()",
            "added procedure Sub New_One\n"},
           {"VB_Name = \"frmA\"", "VB_Name = \"frmB\"", "removed attribute VB_Name\nadded attribute VB_Name\n"}}) {
    CAPTURE(c.From);
    CHECK(Found({Form, Records}, {Replaced(Form, c.From, c.To), Records}) == c.Differences);
  }
  const std::string twice = Replaced(Form, "CommandButton cmd ", "TextBox txt ");
  CHECK(Found({Replaced(twice, "TabIndex        =   2", "Index = 0"), Records},
              {Replaced(twice, "TabIndex        =   2", "Index = 0"), Records}) == "");
  std::string other = Records;
  other.back() = 'd';
  CHECK(Found({Form, Records}, {Form, other}) == "changed property txt(0).Text\n");
  CHECK(Found({Form, Records}, {Replaced(Form, "frx\":0000", "frx\":0002"), "\1\1" + Records}) == "");
}
