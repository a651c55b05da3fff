// Feeds bytes to the reader of project files: what is not changed is written as it was read, and what is added is read
// again.
#include "adapters/vb6files/ProjectFile.h"
#include "fuzz/Property.h"

using namespace formwizard;
using namespace formwizard::fuzz;
using adapters::vb6files::ProjectFile;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text = TextOf(data, size);
  IsAccepted("fuzz.vbp:", [&] {
    ProjectFile project("fuzz.vbp", text);
    Require(project.Text() == text, "a project that was only looked at is written as it was read");
    project.AddForm("frmNew.frm");
    project.AddObject("{00000000-0000-0000-0000-000000000000}#1.0#0; NEW.OCX");
    const ProjectFile changed("fuzz.vbp", project.Text());
    Require(changed.Items().size() == project.Items().size() + 1, "a form that is added is one more item");
    Require(changed.Objects().size() == project.Objects().size(), "a library that is added is one more line");
    Require(changed.Text() == project.Text(), "a project that was changed is written as it was read");
  });
  return 0;
}
