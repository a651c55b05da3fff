// Feeds bytes to the readers of form files: whatever they are, they are read or refused by name, and a form that was
// only looked at is written as it was read.
#include "adapters/vb6files/FormDocument.h"
#include "adapters/vb6files/FormTree.h"
#include "fuzz/Property.h"
#include "system/Text.h"

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
  });
  return 0;
}
