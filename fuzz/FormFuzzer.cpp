// Feeds bytes to the readers of form files: whatever they are, they are read or refused by name, and a form that was
// only looked at is written as it was read.
#include "adapters/vb6files/FormDocument.h"
#include "adapters/vb6files/FormTree.h"
#include "support/Failures.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace formwizard;
using namespace formwizard::adapters::vb6files;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const system::CodePage codePage(1252);
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  // The form, and behind the last zero byte its companion file.
  const std::size_t zero = bytes.rfind('\0');
  const std::string form = bytes.substr(0, zero);
  const std::string companion = zero == std::string::npos ? "" : bytes.substr(zero + 1);
  try {
    ReadFormTree("fuzz.frm", form, companion, codePage);
  } catch (const support::InputError&) {
    return 0;
  }
  try {
    const ControlLibraries libraries;
    const auto document = FormDocument::Parse("fuzz.frm", form, companion, codePage, libraries);
    if (document->Render("fuzz").Frm != form) std::abort();
  } catch (const support::InputError&) {
    return 0;
  }
  return 0;
}
