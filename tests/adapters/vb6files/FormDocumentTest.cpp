#include "adapters/vb6files/FormDocument.h"
#include "adapters/vb6files/PropertyText.h"
#include "tests/support/Test.h"

#include "support/Failures.h"

using namespace formwizard;
using namespace formwizard::adapters::vb6files;
using namespace formwizard::tests;
using runtime::Int16;
using runtime::Int32;

namespace {

struct Environment {
  system::CodePage Page{1252};
  ControlLibraries Libraries;

  std::shared_ptr<FormDocument> Parse(const std::string& frm, const std::string& frx = "") {
    return FormDocument::Parse("x.frm", frm, frx, Page, Libraries);
  }
  std::shared_ptr<FormDocument> New() { return FormDocument::New("Form2", Page, Libraries); }
};

// What stands behind the "=" of a property of the form.
std::string Value(const FormDocument& form, const std::string& name) {
  const std::string frm = form.Render("Form2").Frm;
  const std::size_t at = frm.find("\r\n   " + name + " ");
  if (at == std::string::npos) return "";
  const std::size_t start = frm.find('=', at) + 4;
  return frm.substr(start, frm.find("\r\n", start) - start);
}

}  // namespace

TEST_CASE("A form that nothing changes keeps its line ends") {
  const std::string frm =
      "VERSION 5.00\nBegin VB.Form A \nEnd\nAttribute VB_Name = \"A\"\nAttribute VB_Exposed = False\ncode";
  CHECK(Environment().Parse(frm)->Render("A").Frm == frm);
  for (const char* number : {"nan", "-1E999", "99", "1\n   $\"x.frx\":0000 = 1"}) {  // of a style that there is not
    std::string strange = frm;
    strange.insert(strange.find("End"), std::string("   BorderStyle = ") + number + "\n");
    CHECK(Environment().Parse(strange)->Render("A").Frm == strange);
  }
}

TEST_CASE("An empty form keeps what it has besides the changes, its pictures in a file of their own") {
  Environment environment;
  const std::string before =
      "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   BackColor       =   &H00FFFFFF&\r\n   ClientHeight    =   3195\r\n"
      "   ClientLeft      =   60\r\n   ClientTop       =   345\r\n   ClientWidth     =   4680\r\n"
      "   BeginProperty Font \r\n      Name            =   \"Arial\"\r\n   EndProperty\r\n"
      "   Icon            =   \"Form1.frx\":0004\r\n   LockControls    =   -1  'True\r\n"
      "   Picture         =   \"Form1.frx\":0008\r\n   ScaleHeight     =   3195\r\n"
      "   ScaleWidth      =   4680\r\nEnd\r\nattribute vb_Name  =  \"Form1\"\r\nAttribute VB_Exposed = False\r\n"
      "Attribute VB_Description = \"mine\"\r\n' a comment\r\n";
  CHECK_THROWS_AS(environment.Parse(before, "1234"), support::InputError);
  const auto form = environment.Parse(before, "1234ICONPICTURE");
  form->SetName("frmPerson");
  form->SetProperty("Caption", std::string_view("Person"));
  form->SetProperty("Width", Int32(5000));
  const FormFiles files = form->Render("frmPerson");
  CHECK(files.Frm ==
        "VERSION 5.00\r\nBegin VB.Form frmPerson \r\n   BackColor       =   &H00FFFFFF&\r\n"
        "   Caption         =   \"Person\"\r\n   ClientHeight    =   3195\r\n"
        "   ClientLeft      =   60\r\n   ClientTop       =   345\r\n   ClientWidth     =   4875\r\n"
        "   BeginProperty Font \r\n      Name            =   \"Arial\"\r\n   EndProperty\r\n"
        "   Icon            =   \"frmPerson.frx\":0000\r\n   LockControls    =   -1  'True\r\n"
        "   Picture         =   \"frmPerson.frx\":0004\r\n   ScaleHeight     =   3195\r\n"
        "   ScaleWidth      =   4875\r\nEnd\r\nAttribute VB_Name = \"frmPerson\"\r\n"
        "Attribute VB_Exposed = False\r\nAttribute VB_Description = \"mine\"\r\n' a comment\r\n");
  CHECK(files.Frx == "ICONPICTURE");
}

TEST_CASE("The outer size of a form turns into its client area, its scale follows until it is set") {
  struct Case {
    int BorderStyle;
    bool HasMenu;
    std::string Placed, Height, MinButton;
  };
  // The client area is whole pixels of 15 twips.
  for (const Case& c : {Case{1, false, "45 330", "2895", "0   'False"}, Case{2, false, "60 345", "2865", ""},
                        Case{1, true, "150 720", "2610", "0   'False"}, Case{2, true, "165 735", "2580", ""}}) {
    CAPTURE(c.Placed);
    Environment environment;
    const auto form = environment.New();
    if (c.HasMenu) form->Controls()->Add("VB.Menu", nullptr);
    form->SetProperty("BorderStyle", Int16(c.BorderStyle));
    form->SetProperty("Height", Int32(3275));
    form->SetProperty("Left", Int32(120));
    CHECK(Value(*form, "ClientLeft") + " " + Value(*form, "ClientTop") == c.Placed);
    CHECK(Value(*form, "ScaleHeight") == c.Height);
    CHECK(Value(*form, "ScaleMode").empty());
    CHECK(Value(*form, "MinButton") == c.MinButton);
    form->SetProperty("ScaleHeight", Int32(2975));
    CHECK(Value(*form, "ScaleMode") == "0  'User");
    CHECK(Value(*form, "ClientHeight") == c.Height);
    form->SetProperty("ScaleMode", Int16(3));
    CHECK(Value(*form, "ScaleMode") == "3  'Pixel");
  }
  FormText line;
  AppendNumber(line, 1e80);  // of a file that says more than a Single holds
  CHECK(std::move(line).Text() == "3.4028235e38");
}

TEST_CASE("Code is inserted by lines and event procedures are appended once") {
  Environment environment;
  const auto form = environment.New();
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
  const std::string frm = form->Render("Form2").Frm;
  CHECK(frm.substr(frm.find("A\r\n")) ==
        "A\r\ninserted\r\nB\r\n\r\nSub form_load()\r\n\r\n"
        "Private Sub Command1_mouseup(Button As Integer, Shift As Integer, X As Single, Y As Single)\r\n"
        "    body\r\n\r\nEnd Sub\r\n");
}
