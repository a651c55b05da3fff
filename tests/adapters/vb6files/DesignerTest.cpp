#include "adapters/vb6files/Designer.h"
#include "tests/support/Test.h"

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using formwizard::tests::ErrorNumberOf;

namespace {

struct DesignerFixture {
  system::CodePage Page{1252};
  ControlLibraries Libraries;
  Scale FormScale;
  Designer Form{Page, Libraries, FormScale};

  Control& Add(const char* progId, const char* name) {
    Control& control = Form.Add(progId, nullptr);
    control.SetProperty("Name", std::string_view(name));
    return control;
  }
  std::string Text() {
    FormText out;
    FrxBuilder frx("frmX");
    Form.AppendTo(out, frx);
    return std::move(out).Text();
  }
  // What stands behind each occurrence of a text, to the end of its line.
  std::string Behind(const std::string& start) {
    std::string found;
    const std::string text = Text();
    for (std::size_t at = text.find(start); at != std::string::npos; at = text.find(start, at)) {
      at += start.size();
      found += text.substr(at, text.find("\r\n", at) - at) + "|";
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
  CHECK(PutError(box, "Name", (std::string(40, 'x') + "ö").c_str()) == runtime::NotALegalObjectName);
  CHECK(PutError(box, "Name", (std::string(39, 'x') + "ö").c_str()) == 0);
  CHECK(PutError(box, "Name", "txtGröße_1") == 0);
  CHECK(PutError(box, "Name", "TXTGRÖßE_1") == 0);  // its own name in other letters
  CHECK(PutError(box, "Name", "CMBNAME") == runtime::NameConflict);
  CHECK(PutError(box, "Height", "-1") == runtime::InvalidPropertyValue);
  CHECK(PutError(box, "Height", "tall") == runtime::TypeMismatch);
  CHECK(PutError(box, "TabIndex", "-1") == runtime::InvalidPropertyValue);
  CHECK(PutError(box, "TabIndex", "40000") == runtime::Overflow);
  CHECK(PutError(form.Add("VB.PictureBox", "picA"), "ScaleWidth", "0") == runtime::InvalidPropertyValue);
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

TEST_CASE("Properties stand in the order of their class, with what it always writes") {
  DesignerFixture form;
  form.Libraries.Add({"{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0", "MSCOMCTL.OCX", "MSComctlLib"});
  Control& list = form.Add("mscomctllib.listview", "lvwA");
  for (const auto& [name, value] : {std::pair{"View", "3"}, std::pair{"FullRowSelect", "True"},
                                    std::pair{"LabelEdit", "1"}, std::pair{"Height", "1035"}}) {
    list.SetProperty(name, std::string_view(value));
  }
  CHECK(form.Text() ==
        "   Begin MSComctlLib.ListView lvwA \r\n      Height          =   1035\r\n      Left            =   0\r\n"
        "      TabIndex        =   0\r\n      Top             =   0\r\n      Width           =   1215\r\n"
        "      _ExtentX        =   2143\r\n      _ExtentY        =   1826\r\n      View            =   3\r\n"
        "      LabelEdit       =   1\r\n      LabelWrap       =   -1  'True\r\n"
        "      HideSelection   =   -1  'True\r\n      FullRowSelect   =   -1  'True\r\n"
        "      _Version        =   393217\r\n      ForeColor       =   -2147483640\r\n"
        "      BackColor       =   -2147483643\r\n      BorderStyle     =   1\r\n"
        "      Appearance      =   1\r\n      NumItems        =   0\r\n   End\r\n");
}

TEST_CASE("Texts, colours, enumerations and sizes have their own forms") {
  DesignerFixture form;
  Control& label = form.Add("VB.Label", "lblA");
  const auto written = [&](const std::string& name, const std::string& value) {
    label.SetProperty(name, std::string_view(value));
    return form.Behind(name + std::string(16 - name.size(), ' ') + "=   ");
  };
  CHECK(written("Caption", "say \"hi\" ") == "\"say \"\"hi\"\" \"|");
  CHECK(written("Caption", std::string(130, 'x')) == "\"" + std::string(130, 'x') + "\"|");
  CHECK(written("Caption", std::string(131, 'x')) == "$\"frmX.frx\":0000|");
  CHECK(written("Caption", "two\r\nlines") == "$\"frmX.frx\":0000|");
  CHECK(written("Alignment", "1") == "1  'Right Justify|");
  CHECK(written("Alignment", "0").empty());  // the default is not written
  CHECK(written("Visible", "0") == "0   'False|");
  CHECK(written("BackColor", "255") == "&H000000FF&|");
  CHECK(written("Top", "-450") == "-450|");
  CHECK(written("Top", "100000") == "1e5|");
  CHECK(written("Top", "999999") == "2.45745e5|");  // the largest there is
  CHECK(written("MousePointer", "99") == "99  '|");
}

TEST_CASE("Controls stand by layer, the youngest first, the tab order is a permutation") {
  DesignerFixture form;
  Control& frame = form.Add("VB.Frame", "fraA");
  for (const auto& [progId, name] :
       {std::pair{"VB.TextBox", "txt1"}, std::pair{"VB.Label", "lbl1"}, std::pair{"VB.Image", "img1"},
        std::pair{"VB.TextBox", "txt2"}, std::pair{"VB.Menu", "mnu1"}, std::pair{"VB.Menu", "mnu2"}}) {
    form.Add(progId, name);
  }
  CHECK(form.Behind("Begin VB.") ==
        "TextBox txt2 |TextBox txt1 |Frame fraA |Image img1 |Label lbl1 |Menu mnu1 |Menu mnu2 |");
  CHECK(form.Behind("TabIndex        =   ") == "3|1|0|2|");

  form.Add("VB.CommandButton", "cmdA").SetProperty("TabIndex", std::string_view("1"));
  frame.SetProperty("TabIndex", std::string_view("99"));  // clamped to the last
  CHECK(form.Behind("TabIndex        =   ") == "0|3|1|4|2|");
}

TEST_CASE("A control moves into a container and not into itself or what it holds") {
  DesignerFixture form;
  Control& outer = form.Add("VB.Frame", "fraOuter");
  Control& inner = form.Add("VB.Frame", "fraInner");
  Control& box = form.Add("VB.TextBox", "txtA");
  const auto moveError = [owner = std::make_shared<int>(0)](Control& control, Control* into) {
    return ErrorNumberOf([&] { control.SetContainer(std::shared_ptr<Control>(owner, into)); });
  };
  CHECK(moveError(inner, &outer) == 0);
  CHECK(moveError(box, &inner) == 0);
  CHECK(form.Behind("Begin VB.") == "Frame fraOuter |Frame fraInner |TextBox txtA |");
  CHECK(moveError(outer, &inner) == runtime::InvalidPropertyValue);
  CHECK(moveError(outer, &outer) == runtime::InvalidPropertyValue);
  CHECK(moveError(inner, &box) == runtime::InvalidPropertyValue);
  CHECK(moveError(box, nullptr) == runtime::ObjectVariableNotSet);
}

TEST_CASE("Places and sizes are given in the units of the container, kept in whole twips and carried along") {
  constexpr std::array names{"Left", "Width", "Top", "Height"};
  struct Case {
    Scale form;
    std::vector<std::pair<const char*, const char*>> picture;  // its properties; it measures 600 x 300 inside
    std::array<const char*, 4> given;
    std::string onForm, onPicture;
  };
  // 2895 twips are 2975 units; a unit is 20 twips from -10 on, its axis downwards runs up.
  const Scale fitted = UsersScale(0, 0, 7195, 2975, 7230, 2895), moved = UsersScale(-10, 100, 50, -100, 1000, 2000);
  const std::string farthest = "2.45745e5 2.45745e5 -2.45745e5 1 ";
  for (const Case& c :
       {Case{{}, {}, {"12.5", "13.5", "-450", "0.25"}, "12 14 -450 0 ", "12 14 -450 0 "},
        Case{fitted, {}, {"5980", "7195", "-450", "2975"}, "6009 7230 -438 2895 ", "5980 7195 -450 2975 "},
        Case{moved, {}, {"-9", "3", "95", "4"}, "20 60 100 80 ", "-9 3 95 4 "},
        Case{FixedScale(3), {{"ScaleMode", "3"}}, {"7", "2", "1", "3"}, "105 30 15 45 ", "105 30 15 45 "},
        Case{FixedScale(4), {{"ScaleMode", "2"}}, {"1", "2", "1", "2"}, "120 240 240 480 ", "20 40 20 40 "},
        Case{{}, {{"ScaleLeft", "5"}, {"ScaleWidth", "60"}}, {"6", "3", "1", "2"}, "6 3 1 2 ", "10 30 1 2 "},
        Case{{}, {{"ScaleHeight", "9"}, {"ScaleMode", "1"}}, {"6", "3", "1", "2"}, "6 3 1 2 ", "6 3 1 2 "},
        Case{{}, {}, {"999999", "999999", "-999999", "1"}, farthest, farthest}}) {
    CAPTURE(c.onForm);
    DesignerFixture form;
    Control& frame = form.Add("VB.Frame", "fraA");
    Control& picture = form.Add("VB.PictureBox", "picA");
    picture.SetProperty("Width", std::string_view("660"));
    picture.SetProperty("Height", std::string_view("360"));
    for (const auto& [name, value] : c.picture) picture.SetProperty(name, std::string_view(value));
    form.FormScale = c.form;
    const auto writtenOn = [&](Control* container) {
      Control& button = form.Form.Add("VB.CommandButton", container);
      for (std::size_t i = 0; i < names.size(); ++i) button.SetProperty(names[i], std::string_view(c.given[i]));
      // Into the frame it goes with the place and size that it has.
      if (container != &frame) button.SetContainer({std::make_shared<int>(0), &frame});
      const std::string text = form.Text();
      std::string written;
      for (const char* name : names) {
        const std::size_t at = text.find("=   ", text.find(name, text.find(button.Name()))) + 4;
        written += text.substr(at, text.find("\r\n", at) - at) + " ";
      }
      return written;
    };
    CHECK(writtenOn(nullptr) == c.onForm);
    CHECK(writtenOn(&picture) == c.onPicture);
    if (c.picture.empty()) CHECK(writtenOn(&frame) == c.onPicture);  // twips in both
  }
}

TEST_CASE("Combo boxes, multi-line texts and picture boxes write what only they have") {
  DesignerFixture form;
  Control& combo = form.Add("VB.ComboBox", "cmbA");
  CHECK(form.Behind(" Text            =   ") == "\"Combo1\"|");  // its name when it was new
  combo.SetProperty("Style", std::string_view("2"));
  CHECK(form.Behind(" Text            =   ").empty());
  form.Add("VB.TextBox", "txtA").SetProperty("MultiLine", std::string_view("-1"));
  CHECK(form.Behind(" Text            =   ") == "\"frmX.frx\":0000|");
  Control& picture = form.Add("VB.PictureBox", "picA");
  CHECK(form.Behind("ScaleHeight     =   ") == "435|");
  picture.SetProperty("BorderStyle", std::string_view("0"));
  CHECK(form.Behind("ScaleHeight     =   ") == "495|");
}
