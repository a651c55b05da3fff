// Feeds bytes to the readers of form files: whatever they are, they are read or refused by name, and a form that was
// only looked at is written as it was read.
#include "adapters/vb6files/FormDocument.h"
#include "adapters/vb6files/FormTree.h"
#include "fuzz/Property.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "system/Text.h"

#include <algorithm>
#include <array>
#include <cmath>

using namespace formwizard;
using namespace formwizard::fuzz;
using namespace formwizard::adapters::vb6files;

namespace {

void CheckNode(const FormNode& node) {
  Require(system::IsUtf8(node.Class) && system::IsUtf8(node.Name), "a control's class and name are texts");
  for (const NodeProperty& property : node.Properties) {
    Require(system::IsUtf8(property.Name) && system::IsUtf8(property.Value), "a property is a text");
    Require(std::isfinite(node.Number(property.Name)), "a number is finite");
  }
  for (const FormNode& child : node.Children) CheckNode(child);
}

// What the wizard does to an empty form; false for one that refuses it.
bool Fill(FormDocument& form) {
  try {
    form.SetName("frmNew");
    form.SetProperty("Caption", std::string_view("New"));
    form.SetProperty("BorderStyle", runtime::Int16(1));
    form.SetProperty("ScaleMode", runtime::Int16(1));
    form.SetProperty("Width", runtime::Int32(5000));
    const auto text = form.Controls()->Add("VB.TextBox", nullptr);
    text->SetProperty("MultiLine", true);
    text->SetProperty("Text", std::string_view("one\r\ntwo"));
    text->SetProperty("Left", runtime::Int16(120));
    form.Code()->CreateEventProc("Load", "Form");
    return true;
  } catch (const runtime::RuntimeError&) {
    return false;
  }
}

// Everything that `before` has and nobody changed, besides what stands in the companion file and is no text.
void CheckKept(const FormNode& before, const FormNode& after) {
  constexpr std::array<std::string_view, 6> changed{"caption",   "borderstyle", "maxbutton",
                                                    "minbutton", "linktopic",   "showintaskbar"};
  for (const NodeProperty& property : before.Properties) {
    const std::string name = runtime::LowerCase(property.Name);
    const bool isPlace = name.starts_with("client") || name.starts_with("scale");
    const bool isRecord = before.Text(name).find(".frx\":") != std::string::npos;
    if (isPlace || isRecord || std::ranges::find(changed, name) != changed.end()) continue;
    Require(after.Text(name) == before.Text(name), "a filled form keeps its property " + name);
  }
}

void CheckFilled(FormDocument& form, const std::string& asRead, const std::string& companion,
                 const system::CodePage& codePage) {
  if (!Fill(form)) return;
  const FormFiles files = form.Render("frmNew");
  FormTree before, after;
  if (!IsAccepted("", [&] { before = ReadFormTree("fuzz.frm", asRead, companion, codePage); })) return;
  const bool isRead = IsAccepted("", [&] { after = ReadFormTree("frmNew.frm", files.Frm, files.Frx, codePage); });
  Require(isRead && after.Form.Name == "frmNew", "a filled form is read again");
  const bool hasText = after.Form.Children.size() == 1 && after.Form.Children[0].Text("Text") == "one\r\ntwo";
  Require(hasText, "a filled form has its new control");
  Require(after.Code.starts_with(before.Code), "a filled form keeps its code");
  CheckKept(before.Form, after.Form);
}

}  // namespace

// The form, and behind the last zero byte its companion file.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const system::CodePage codePage(1252);
  const ControlLibraries libraries;
  std::string form = TextOf(data, size);
  const std::string companion = TakeLast(form);
  IsAccepted("fuzz.frm:", [&] { CheckNode(ReadFormTree("fuzz.frm", form, companion, codePage).Form); });
  IsAccepted("fuzz.frm:", [&] {
    const auto document = FormDocument::Parse("fuzz.frm", form, companion, codePage, libraries);
    Require(document->Render("fuzz").Frm == form, "a form that was only looked at is written as it was read");
    CheckFilled(*document, form, companion, codePage);
  });
  return 0;
}
