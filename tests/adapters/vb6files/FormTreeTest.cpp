#include "adapters/vb6files/FormTree.h"

#include "adapters/vb6files/PropertyText.h"
#include "support/Failures.h"
#include "tests/support/TemporaryFolder.h"

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;

namespace {

const std::string Head = "VERSION 5.00\r\nBegin VB.Form F \r\n";
const std::string Foot = "End\r\nAttribute VB_Name = \"F\"\r\nAttribute VB_Exposed = False\r\n";

FormNode Read(const std::string& body, const std::string& frx = "", int codePage = 1252) {
  return ReadFormTree("x.frm", Head + body + Foot, frx, system::CodePage(codePage)).Form;
}

// Groups or controls in each other.
std::string Nested(const std::string& begin, const std::string& end, int count) {
  std::string begins, ends;
  for (int i = 0; i < count; ++i) {
    begins += begin + "\n";
    ends += end + "\n";
  }
  return begins + ends;
}

// One line a node, two blanks a level.
std::string Outline(const FormNode& node, const std::string& indent = "") {
  std::string text = indent + node.Class + " " + node.Name + "\n";
  for (const FormNode& child : node.Children) text += Outline(child, indent + "  ");
  return text;
}

}  // namespace

TEST_CASE("A form file becomes a tree in file order, with its code") {
  TemporaryFolder folder;
  CopySample("library", folder / "library");
  const FormTree tree =
      ReadFormFile(system::RealFileSystem(), folder / "library/Forms/frmBook.frm", system::CodePage(1252));
  CHECK(Outline(tree.Form).starts_with(
      "VB.Form frmBook\n  VB.CommandButton cmdZurück\n  VB.CommandButton cmdOK\n  VB.Frame fraBook\n"
      "    VB.TextBox txtPrice\n    VB.TextBox txtIsbn\n"));
  CHECK(tree.Form.Children[0].Text("Caption") == "&Zurück");
  CHECK(tree.Form.Children[2].Children[1].Text("ToolTipText").find("frx") == std::string::npos);
  CHECK(tree.Form.Number("BorderStyle") == 3);
  CHECK_FALSE(tree.Form.Flag("MaxButton", true));
  CHECK(tree.Form.Flag("Visible", true));
  CHECK(tree.Code.starts_with("Option Explicit\r\n"));
  CHECK_THROWS_WITH_AS(ReadFormFile(system::RealFileSystem(), folder / "none.frm", system::CodePage(1252)),
                       doctest::Contains((folder / "none.frm").c_str()), support::InputError);
}

TEST_CASE("Values lose quotes and comments, groups are flattened, texts come in UTF-8") {
  struct Case {
    std::string lines, property, value;
  };
  for (const Case& c :
       {Case{"Caption = \"it's \"\"so\"\"\"\n", "caption", "it's \"so\""}, Case{"Caption = \"\"\n", "Caption", ""},
        Case{"Caption = \"\"\"\"  'x\n", "Caption", "\""}, Case{"Caption = \"a = b:c\"\n", "Caption", "a = b:c"},
        Case{"Visible         =   0   'False\n", "Visible", "0"}, Case{"Shortcut = ^S\n", "Shortcut", "^S"},
        Case{"BeginProperty Font \n Name = \"Arial\"\n BeginProperty In {0}\n A=1\n EndProperty\n Size = "
             "9.75\nEndProperty\nTag=\"z\"\n",
             "font.size", "9.75"},
        Case{"BeginProperty G \n BeginProperty H(1) {0}\n A=1\n EndProperty\nEndProperty\n", "G.H(1).A", "1"}}) {
    CAPTURE(c.lines);
    const FormNode form = Read(c.lines);
    REQUIRE(form.Find(c.property));
    CHECK(form.Text(c.property) == c.value);
  }
  CHECK(Read("Caption = \"\x93\xFA\x96{\"\n", "", 932).Text("Caption") == "日本");

  const FormNode form = Read("A = &H8000000F&\nB = -2147483640\nC = 1e999\n");
  CHECK(form.Number("A") == 2147483663.0);
  CHECK(form.Number("B") == -2147483640.0);
  CHECK(form.Number("C", 7) == 7);
  CHECK(form.Number("E", 8) == 8);
}

TEST_CASE("Texts of the companion file stand in the tree, what is none keeps its reference") {
  FrxBuilder frx("F");
  const std::string shortText = frx.AddMultiLineText("one\r\ntwo");
  const std::string icon = frx.AddRecord(std::string("\x0B\0\0\0lt\0\0\x03\0\0\0ICO", 15));
  const std::string caption = frx.AddString("with a\ttab");
  const std::string longText = frx.AddMultiLineText(std::string(300, 'x'));
  const std::string list = frx.AddRecord(std::string("\x02\0\x05\0\x05\0first\x01\0z", 14));
  const std::string last = frx.AddString("cut off");
  const FormNode form =
      Read("Text = " + shortText + "\nIcon = " + icon + "\nCaption = " + caption + "\nBegin A B\nText = " + longText +
               "\nEnd\nBegin A C\nList = " + list + "\nTag = " + last + "\nEnd\n",
           frx.Bytes().substr(0, frx.Bytes().size() - 1));
  CHECK(form.Text("Text") == "one\r\ntwo");
  CHECK(form.Text("Icon") == icon);
  CHECK(form.Pictures.at(0).Bytes == "ICO");
  CHECK(form.Text("Caption") == "with a\ttab");
  CHECK(form.Children[0].Text("Text") == std::string(300, 'x'));
  CHECK(form.Children[1].Text("List") == "first\r\nz");
  CHECK(form.Children[1].Text("Tag") == last);

  // However often a record is referred to, it is read once.
  const FormNode again = Read("A = " + caption + "\nB = " + caption + "\n", frx.Bytes());
  CHECK(again.Text("A") == "with a\ttab");
  CHECK(again.Text("B") == caption);
}

TEST_CASE("A damaged form is refused by file and line, however it is damaged") {
  const std::string control = "Begin A B", group = "BeginProperty G", endGroup = "EndProperty";
  CHECK_NOTHROW(Read(Nested(control, "End", 63)));
  for (const auto& [frm, message] :
       {std::pair{std::string(), "x.frm:1: expected \"VERSION 5.00\""},
        std::pair{std::string("MZ\x90"), "x.frm:1: expected \"VERSION 5.00\""},
        std::pair{std::string("VERSION 5.00\r\n"), "x.frm:2: expected \"Begin\" of the form"},
        std::pair{std::string("VERSION 5.00\r\nBegin VB.Form\r\n"), "x.frm:2: expected a class and a name behind"},
        std::pair{Head + "Begin A B\nEnd\n", "x.frm:5: expected \"End\" of the form"},
        std::pair{Head + "rubbish\nEnd\n", "x.frm:3: expected a property as \"Name = value\""},
        std::pair{Head + "Begin VB.Label \nEnd\n" + Foot, "x.frm:3: expected a class and a name"},
        std::pair{Head + "Begin A B\nBeginProperty Font\nEnd\n" + Foot, "x.frm:5: expected a property"},
        std::pair{Head + Nested(control, "End", 64) + Foot, "x.frm:66: expected at most 64 levels"},
        std::pair{Head + Nested(control, "End", 200000) + Foot, "x.frm:66: expected at most 64 levels"},
        std::pair{Head + "Begin A B\n" + Nested(group, endGroup, 500) + "End\n" + Foot, "at most 64 levels"},
        std::pair{Head + "End\nAttribute VB_Name = True\n", "x.frm:4: expected a name in quotes"},
        std::pair{Head + "End\nSub A()\nEnd Sub\n", "x.frm:4: expected \"Attribute VB_Name\""}}) {
    CAPTURE(message);
    CHECK_THROWS_WITH_AS(ReadFormTree("x.frm", frm, "", system::CodePage(1252)), doctest::Contains(message),
                         support::InputError);
  }
  // Wherever the file breaks off before its code.
  const std::string whole = Head + "   Begin VB.Label A \r\n   End\r\n" + Foot;
  for (std::size_t size = 0; size + 2 < whole.size(); ++size) {
    CAPTURE(size);
    CHECK_THROWS_WITH_AS(ReadFormTree("x.frm", whole.substr(0, size), "", system::CodePage(1252)),
                         doctest::Contains("x.frm:"), support::InputError);
  }
}
