#include "adapters/vb6files/Designer.h"

#include "tests/support/ErrorNumber.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using formwizard::tests::ErrorNumberOf;

namespace {

struct DesignerFixture {
  CodePage Page{1252};
  ControlLibraries Libraries;
  Designer Form{Page, Libraries};

  Control& Add(const char* progId, const char* name) {
    Control& control = Form.Add(progId, nullptr);
    control.SetProperty("Name", std::string_view(name));
    return control;
  }
  std::string Text() {
    std::string out;
    FrxBuilder frx("frmX");
    Form.AppendTo(out, frx);
    return out;
  }
  // The lines of the text that hold one of the words, without blanks at their start.
  std::string LinesWith(const std::string& word) {
    std::string found;
    const std::string text = Text();
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = text.find("\r\n", at);
      const std::string line = text.substr(at, end - at);
      if (line.find(word) != std::string::npos) found += line.substr(line.find_first_not_of(' ')) + "\n";
      at = end + 2;
    }
    return found;
  }
};

int PutError(Control& control, const char* name, const char* value) {
  return ErrorNumberOf([&] { control.SetProperty(name, std::string_view(value)); });
}

}  // namespace

TEST_CASE("What the environment refuses is refused with its error") {
  DesignerFixture form;
  Control& box = form.Add("VB.TextBox", "txtName");
  Control& combo = form.Add("VB.ComboBox", "cmbName");
  for (const char* name : {"", "1st", "_a", "a.b", "a%b", "a b", "a\r\nb", "../x"}) {
    CAPTURE(name);
    CHECK(PutError(box, "Name", name) == runtime::NotALegalObjectName);
  }
  CHECK(PutError(box, "Name", std::string(256, 'x').c_str()) == runtime::NotALegalObjectName);
  CHECK(PutError(box, "Name", std::string(255, 'x').c_str()) == 0);
  CHECK(PutError(box, "Name", "txtGröße_1") == 0);
  CHECK(PutError(box, "Name", "TXTGRÖßE_1") == 0);  // its own name in other letters
  CHECK(PutError(box, "Name", "CMBNAME") == runtime::NameConflict);
  CHECK(PutError(box, "Height", "-1") == runtime::InvalidPropertyValue);
  CHECK(PutError(box, "Height", "tall") == runtime::TypeMismatch);
  CHECK(PutError(box, "TabIndex", "-1") == runtime::InvalidPropertyValue);
  CHECK(PutError(box, "TabIndex", "40000") == runtime::Overflow);
  CHECK(PutError(box, "ScrollBars", "4") == runtime::InvalidPropertyValue);
  CHECK(PutError(box, "Strech", "0") == runtime::PropertyNotFound);
  CHECK(PutError(box, "Font", "Arial") == runtime::PropertyReadOnly);
  CHECK(PutError(combo, "Height", "400") == runtime::PropertyReadOnly);
  CHECK(PutError(form.Add("VB.Image", "imgA"), "TabIndex", "0") == runtime::PropertyNotFound);
  CHECK(ErrorNumberOf([&] { form.Form.Add("VB.Grid", nullptr); }) == runtime::ControlNotFound);
  CHECK(ErrorNumberOf([&] { form.Form.Add("MSComctlLib.ListView", nullptr); }) == runtime::ControlNotFound);
  CHECK(ErrorNumberOf([&] { form.Form.Add("VB.Menu", &box); }) == runtime::InvalidPropertyValue);
  CHECK(ErrorNumberOf([&] { form.Form.Add("VB.Label", &combo); }) == runtime::InvalidPropertyValue);
}

TEST_CASE("Values are written as the environment writes them") {
  DesignerFixture form;
  form.Libraries.Add({"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0", "MSCOMCTL.OCX", "MSComctlLib"});
  Control& list = form.Add("mscomctllib.listview", "lvwA");
  for (const auto& [name, value] : {std::pair{"View", "3"}, std::pair{"FullRowSelect", "True"},
                                    std::pair{"LabelEdit", "1"}, std::pair{"Height", "1035"}}) {
    list.SetProperty(name, std::string_view(value));
  }
  CHECK(form.Text() ==
        "   Begin MSComctlLib.ListView lvwA \r\n"
        "      Height          =   1035\r\n"
        "      Left            =   0\r\n"
        "      TabIndex        =   0\r\n"
        "      Top             =   0\r\n"
        "      Width           =   1215\r\n"
        "      _ExtentX        =   2143\r\n"
        "      _ExtentY        =   1826\r\n"
        "      View            =   3\r\n"
        "      LabelEdit       =   1\r\n"
        "      LabelWrap       =   -1  'True\r\n"
        "      HideSelection   =   -1  'True\r\n"
        "      FullRowSelect   =   -1  'True\r\n"
        "      _Version        =   393217\r\n"
        "      ForeColor       =   -2147483640\r\n"
        "      BackColor       =   -2147483643\r\n"
        "      BorderStyle     =   1\r\n"
        "      Appearance      =   1\r\n"
        "      NumItems        =   0\r\n"
        "   End\r\n");
}

TEST_CASE("Texts, colours, enumerations and sizes have their own forms") {
  DesignerFixture form;
  Control& label = form.Add("VB.Label", "lblA");
  const auto written = [&](const char* name, const std::string& value) {
    label.SetProperty(name, std::string_view(value));
    const std::string line = form.LinesWith(std::string(name) + " ");
    return line.substr(std::min(line.find('=') + 4, line.size()));
  };
  CHECK(written("Caption", "say \"hi\" ") == "\"say \"\"hi\"\" \"\n");
  CHECK(written("Caption", std::string(130, 'x')) == "\"" + std::string(130, 'x') + "\"\n");
  CHECK(written("Caption", std::string(131, 'x')) == "$\"frmX.frx\":0000\n");
  CHECK(written("Caption", "two\r\nlines") == "$\"frmX.frx\":0000\n");
  CHECK(written("Alignment", "1") == "1  'Right Justify\n");
  CHECK(written("Alignment", "0").empty());  // the default is not written
  CHECK(written("Visible", "0") == "0   'False\n");
  CHECK(written("BackColor", "255") == "&H000000FF&\n");
  CHECK(written("Top", "-450") == "-450\n");
  CHECK(written("Top", "0.25") == ".25\n");
  CHECK(written("Top", "100000") == "1e5\n");
  CHECK(written("Top", "999999") == "2.45745e5\n");  // the largest there is
  CHECK(written("MousePointer", "99") == "99  '\n");
}

TEST_CASE("Controls stand by layer, the youngest first, the tab order is a permutation") {
  DesignerFixture form;
  Control& frame = form.Add("VB.Frame", "fraA");
  for (const auto& [progId, name] :
       {std::pair{"VB.TextBox", "txt1"}, std::pair{"VB.Label", "lbl1"}, std::pair{"VB.Image", "img1"},
        std::pair{"VB.TextBox", "txt2"}, std::pair{"VB.Menu", "mnu1"}, std::pair{"VB.Menu", "mnu2"}}) {
    form.Add(progId, name);
  }
  const auto indexes = [&] { return form.LinesWith("Begin") + form.LinesWith("TabIndex"); };
  CHECK(indexes() ==
        "Begin VB.TextBox txt2 \nBegin VB.TextBox txt1 \nBegin VB.Frame fraA \nBegin VB.Image img1 \nBegin VB.Label "
        "lbl1 \nBegin VB.Menu mnu1 \nBegin VB.Menu mnu2 \n"
        "TabIndex        =   3\nTabIndex        =   1\nTabIndex        =   0\nTabIndex        =   2\n");

  Control& last = form.Add("VB.CommandButton", "cmdA");
  last.SetProperty("TabIndex", std::string_view("1"));
  frame.SetProperty("TabIndex", std::string_view("99"));  // clamped to the last
  CHECK(form.LinesWith("TabIndex") ==
        "TabIndex        =   0\nTabIndex        =   3\nTabIndex        =   1\nTabIndex        =   4\n"
        "TabIndex        =   2\n");
}

TEST_CASE("A control moves into a container and not into itself or what it holds") {
  DesignerFixture form;
  const auto owner = std::make_shared<int>(0);
  const auto handle = [&](Control& control) { return std::shared_ptr<generator::ide::VBControl>(owner, &control); };
  Control& outer = form.Add("VB.Frame", "fraOuter");
  Control& inner = form.Add("VB.Frame", "fraInner");
  Control& box = form.Add("VB.TextBox", "txtA");
  inner.SetContainer(handle(outer));
  box.SetContainer(handle(inner));
  CHECK(form.LinesWith("Begin") == "Begin VB.Frame fraOuter \nBegin VB.Frame fraInner \nBegin VB.TextBox txtA \n");
  CHECK(ErrorNumberOf([&] { outer.SetContainer(handle(inner)); }) == runtime::InvalidPropertyValue);
  CHECK(ErrorNumberOf([&] { outer.SetContainer(handle(outer)); }) == runtime::InvalidPropertyValue);
  CHECK(ErrorNumberOf([&] { inner.SetContainer(handle(box)); }) == runtime::InvalidPropertyValue);
  CHECK(ErrorNumberOf([&] { box.SetContainer(nullptr); }) == runtime::ObjectVariableNotSet);
}

TEST_CASE("Combo boxes, multi-line texts and picture boxes write what only they have") {
  DesignerFixture form;
  Control& combo = form.Add("VB.ComboBox", "cmbA");
  CHECK(form.LinesWith("Text ") == "Text            =   \"Combo1\"\n");  // its name when it was new
  combo.SetProperty("Style", std::string_view("2"));
  CHECK(form.LinesWith("Text ").empty());
  Control& box = form.Add("VB.TextBox", "txtA");
  box.SetProperty("Text", std::string_view("txtA"));
  box.SetProperty("MultiLine", std::string_view("-1"));
  CHECK(form.LinesWith("Text ") == "Text            =   \"frmX.frx\":0000\n");
  Control& picture = form.Add("VB.PictureBox", "picA");
  CHECK(form.LinesWith("ScaleHeight") == "ScaleHeight     =   435\n");
  picture.SetProperty("BorderStyle", std::string_view("0"));
  CHECK(form.LinesWith("ScaleHeight") == "ScaleHeight     =   495\n");
}
