// Feeds bytes to the reader of toolbox files, and of projects in their place: what it gives for a control can stand in
// a project, and is read from there as the same library.
#include "adapters/vb6files/ProjectFile.h"
#include "adapters/vb6files/Toolbox.h"
#include "fuzz/Property.h"
#include "runtime/RuntimeError.h"
#include "tests/support/MemoryFileSystem.h"

#include <array>

using namespace formwizard;
using namespace formwizard::fuzz;
using namespace formwizard::adapters::vb6files;

namespace {

constexpr std::array<std::string_view, 4> ProgIds{"OSTRELQUERY.OstrelQueryCtrl.1", "MSComDlg.CommonDialog",
                                                  "MSComctlLib.ListViewCtrl", "Unknown.Control"};

void CheckReference(const Toolbox& toolbox, const ObjectReference& reference) {
  ProjectFile project("fuzz.vbp", "Type=Exe\r\n");
  project.AddObject(reference.Id + "; " + reference.File);
  const ProjectFile saved("fuzz.vbp", project.Text());
  Require(saved.Objects().size() == 1, "a control adds one line to a project");
  Require(!HasControlCharacter(saved.Objects().front()), "the line has no control character");
  const ObjectReference read = toolbox.Parse(saved.Objects().front());
  Require(read.Id == reference.Id && read.File == reference.File, "the project refers to the library of the toolbox");
  Require(!read.File.empty() && read.Id.starts_with('{'), "the library has an identifier and a file");
}

void CheckToolbox(const Toolbox& toolbox) {
  for (const std::string_view progId : ProgIds) {
    try {
      CheckReference(toolbox, toolbox.Find(progId));
    } catch (const runtime::RuntimeError& error) {
      Require(error.Number() == runtime::ControlNotFound, "what is missing is a control");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const std::string file : {"fuzz.ini", "fuzz.vbp"}) {
    const tests::MemoryFileSystem files(tests::MemoryFileSystem::Contents{{file, TextOf(data, size)}});
    IsAccepted(file + ":", [&] { CheckToolbox(Toolbox(files, file)); });
  }
  return 0;
}
