#include "adapters/vb6files/FormDocument.h"

#include "support/Failures.h"
#include "tests/support/ErrorNumber.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;
using runtime::Int16;
using runtime::Int32;

namespace {

const std::string Samples = FORMWIZARD_SOURCE_DIR "/samples/";

struct Environment {
  CodePage Page{1252};
  ControlLibraries Libraries;

  std::shared_ptr<FormDocument> Parse(const std::string& frm, const std::string& frx = "") {
    return FormDocument::Parse("x.frm", frm, frx, Page, Libraries);
  }
};

std::string Line(const std::string& frm, const std::string& name) {
  const std::size_t at = frm.find("   " + name + " ");
  if (at == std::string::npos) return "";
  const std::string line = frm.substr(at + 3, frm.find("\r\n", at) - at - 3);
  return line.substr(line.find('=') + 4);
}

}  // namespace

TEST_CASE("Forms that nothing changes are written byte for byte as they were read") {
  Environment environment;
  for (const char* name : {"library/Forms/frmMain.frm", "library/Forms/frmBook.frm", "new-project/Form1.frm"}) {
    CAPTURE(name);
    const std::string frm = ReadFile(Samples + name);
    const auto form = environment.Parse(frm);
    CHECK(form->Render("frmOther").Frm == frm);
    CHECK_FALSE(form->IsChanged());
  }
  const std::string unix = "VERSION 5.00\nBegin VB.Form A \nEnd\nAttribute VB_Name = \"A\"\ncode";
  CHECK(environment.Parse(unix)->Render("A").Frm == unix);
}

TEST_CASE("A form with controls counts them and refuses to be changed") {
  Environment environment;
  const auto form = environment.Parse(ReadFile(Samples + "library/frmAbout.frm"));
  CHECK(form->Controls()->Count() == Int32(4));
  CHECK(ErrorNumberOf([&] { form->SetName("frmX"); }) == runtime::AutomationError);
  CHECK(ErrorNumberOf([&] { form->Controls()->Add("VB.Label", nullptr); }) == runtime::AutomationError);
}

TEST_CASE("An empty form keeps what it has besides the changes, its icon in a file of its own") {
  Environment environment;
  const std::string icon = std::string("\x10\0\0\0lt\0\0ICONBYTES", 17);
  const auto form = environment.Parse(
      "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   BackColor       =   &H00FFFFFF&\r\n   ClientHeight    =   3195\r\n"
      "   ClientLeft      =   60\r\n   ClientTop       =   345\r\n   ClientWidth     =   4680\r\n"
      "   BeginProperty Font \r\n      Name            =   \"Arial\"\r\n   EndProperty\r\n"
      "   Icon            =   \"Form1.frx\":0004\r\n   LockControls    =   -1  'True\r\n   ScaleHeight     =   3195\r\n"
      "   ScaleWidth      =   4680\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\nAttribute VB_Exposed = False\r\n"
      "Attribute VB_Description = \"mine\"\r\n' a comment\r\n",
      "1234" + icon);
  form->SetName("frmPerson");
  form->SetProperty("Caption", std::string_view("Person"));
  form->SetProperty("Width", Int32(5000));
  const FormFiles files = form->Render("frmPerson");
  CHECK(files.Frm ==
        "VERSION 5.00\r\nBegin VB.Form frmPerson \r\n   BackColor       =   &H00FFFFFF&\r\n"
        "   Caption         =   \"Person\"\r\n   ClientHeight    =   3195\r\n"
        "   ClientLeft      =   60\r\n   ClientTop       =   345\r\n   ClientWidth     =   4880\r\n"
        "   BeginProperty Font \r\n      Name            =   \"Arial\"\r\n   EndProperty\r\n"
        "   Icon            =   \"frmPerson.frx\":0000\r\n   LockControls    =   -1  'True\r\n"
        "   ScaleHeight     =   3195\r\n   ScaleWidth      =   4880\r\nEnd\r\nAttribute VB_Name = \"frmPerson\"\r\n"
        "Attribute VB_Exposed = False\r\nAttribute VB_Description = \"mine\"\r\n' a comment\r\n");
  CHECK(files.Frx == icon);
}

TEST_CASE("The outer size of a form turns into its client area, its scale follows until it is set") {
  struct Case {
    int borderStyle;
    bool menu;
    std::string left, top, height;
  };
  for (const Case& c : {Case{1, false, "45", "330", "2900"}, Case{2, false, "60", "345", "2870"},
                        Case{1, true, "150", "720", "2900"}, Case{2, true, "165", "735", "2870"}}) {
    CAPTURE(c.borderStyle);
    Environment environment;
    const auto form = FormDocument::New("Form2", environment.Page, environment.Libraries);
    form->SetProperty("BorderStyle", Int16(c.borderStyle));
    form->SetProperty("Height", Int32(3275));
    form->SetProperty("Left", Int32(120));
    if (c.menu) form->Controls()->Add("VB.Menu", nullptr);
    const std::string frm = form->Render("Form2").Frm;
    CHECK(Line(frm, "ClientLeft") == c.left);
    CHECK(Line(frm, "ClientTop") == c.top);
    CHECK(Line(frm, "ClientHeight") == c.height);
    CHECK(Line(frm, "ScaleHeight") == c.height);
    CHECK(Line(frm, "ScaleMode").empty());
    CHECK(Line(frm, "MinButton") == (c.borderStyle == 1 ? "0   'False" : ""));
    CHECK(Line(frm, "LinkTopic") == "\"Form2\"");
    form->SetProperty("ScaleHeight", Int32(2975));
    CHECK(Line(form->Render("Form2").Frm, "ScaleMode") == "0  'User");
    CHECK(Line(form->Render("Form2").Frm, "ClientHeight") == c.height);
    form->SetProperty("ScaleMode", Int16(3));
    CHECK(Line(form->Render("Form2").Frm, "ScaleMode") == "3  'Pixel");
  }
}

TEST_CASE("Code is inserted by lines and event procedures are appended once") {
  Environment environment;
  const auto form = FormDocument::New("Form1", environment.Page, environment.Libraries);
  const auto code = form->Code();
  const auto button = form->Controls()->Add("VB.CommandButton", nullptr);
  code->InsertLines(Int32(1), "A\r\nB\r\n");
  CHECK(code->CountOfLines() == Int32(3));
  code->InsertLines(Int32(2), "inserted");
  code->InsertLines(Int32(99), "Sub form_load()");
  CHECK(ErrorNumberOf([&] { code->InsertLines(Int32(0), "x"); }) == runtime::SubscriptOutOfRange);
  CHECK(code->CreateEventProc("mouseup", "Command1") == Int32(7));
  code->InsertLines(Int32(8), "    body");
  for (const auto& [event, object] : {std::pair{"MouseUp", "COMMAND1"}, std::pair{"Load", "Form"},
                                      std::pair{"LostFocus", "Nobody"}, std::pair{"DblClick", "Command1"}}) {
    CAPTURE(event);
    CHECK(ErrorNumberOf([&] { code->CreateEventProc(event, object); }) == runtime::EventHandlerInvalid);
  }
  const std::string frm = form->Render("Form1").Frm;
  CHECK(frm.substr(frm.find("A\r\n")) ==
        "A\r\ninserted\r\nB\r\n\r\nSub form_load()\r\n\r\n"
        "Private Sub Command1_mouseup(Button As Integer, Shift As Integer, X As Single, Y As Single)\r\n"
        "    body\r\n\r\nEnd Sub\r\n");
}

TEST_CASE("Damaged forms are refused with the file, the line and what was expected") {
  Environment environment;
  for (const auto& [frm, message] :
       {std::pair{"", "x.frm:1: expected \"VERSION 5.00\""}, std::pair{"MZ\x90", "x.frm:1: expected \"VERSION 5.00\""},
        std::pair{"VERSION 5.00\r\n", "x.frm:2: expected \"Begin\" of the form"},
        std::pair{"VERSION 5.00\r\nBegin VB.Form\r\n", "x.frm:2: expected a class and a name behind \"Begin\""},
        std::pair{"VERSION 5.00\r\nBegin VB.Form A \r\n   Begin VB.Label B \r\n   End\r\n",
                  "x.frm:5: expected \"End\" of the form"},
        std::pair{"VERSION 5.00\r\nBegin VB.Form A \r\n   rubbish\r\nEnd\r\n",
                  "x.frm:3: expected a property as \"Name = value\""}}) {
    CAPTURE(message);
    std::string found;
    try {
      environment.Parse(frm);
    } catch (const support::InputError& error) {
      found = error.what();
    }
    CHECK(found.starts_with(message));
  }
  CHECK_THROWS_AS(environment.Parse("VERSION 5.00\r\nBegin VB.Form A \r\n   Icon = \"A.frx\":0000\r\nEnd\r\n"),
                  support::InputError);
}
