// Feeds bytes to the reader of project files: what is not changed is written as it was read.
#include "adapters/vb6files/ProjectFile.h"
#include "support/Failures.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

using namespace formwizard;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  try {
    adapters::vb6files::ProjectFile project("fuzz.vbp", text);
    if (project.Text() != text) std::abort();
    project.AddForm("frmNew.frm");
    if (project.Text().size() <= text.size()) std::abort();
  } catch (const support::InputError&) {
    return 0;
  }
  return 0;
}
