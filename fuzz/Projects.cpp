// Feeds bytes to the readers of project files and of what they list: what is not changed is written as it was read,
// what is added is read again.
#include "adapters/vb6files/FilePath.h"
#include "adapters/vb6files/ProjectFile.h"
#include "adapters/vb6files/ProjectOnDisk.h"
#include "fuzz/Property.h"
#include "tests/support/MemoryFileSystem.h"

using namespace formwizard;
using namespace formwizard::fuzz;
using namespace formwizard::adapters::vb6files;

namespace {

void CheckFile(const std::string& text) {
  IsAccepted("fuzz.vbp:", [&] {
    ProjectFile project("fuzz.vbp", text);
    Require(project.Text() == text, "a project that was only looked at is written as it was read");
    const std::size_t components = project.TakeItems().size(), libraries = project.Objects().size();
    project.AddForm("frmNew.frm");
    project.AddObject("{00000000-0000-0000-0000-000000000000}#1.0#0; NEW.OCX");
    ProjectFile changed("fuzz.vbp", project.Text());
    Require(changed.TakeItems().size() == components + 1, "a form that is added is one more item");
    Require(changed.Objects().size() == libraries + 1, "a library that is added is one more line");
    Require(changed.Text() == project.Text(), "a project that was changed is written as it was read");
  });
}

// The project with all its components, which have the same content.
tests::MemoryFileSystem FilesOf(const std::string& text, const std::string& content) {
  tests::MemoryFileSystem::Contents files;
  IsAccepted("", [&] {
    ProjectFile project("fuzz.vbp", text);
    for (const ProjectFile::Item& item : project.TakeItems()) files[FileIn("P/", item.Path)] = content;
  });
  files["P/fuzz.vbp"] = text;
  return tests::MemoryFileSystem(files);
}

void CheckEnvironment(const std::string& text, const std::string& content) {
  tests::MemoryFileSystem files = FilesOf(text, content);
  const ProjectOptions options{1252, ""};
  IsAccepted("", [&] {
    ProjectOnDisk project(files, "P/fuzz.vbp", options);
    const auto before = project.Summaries();
    for (const ComponentSummary& component : before) {
      IsAccepted("", [&] { project.TextsOf(component.Name); });
    }
    Require(!project.IsChanged() && files.Operations == 0, "looking changes nothing");
    const auto form = project.ActiveVBProject().Components().Add(generator::ide::ComponentType::Form);
    form->SetProperty("Caption", std::string_view("New"));
    project.Save();
    ProjectOnDisk saved(files, "P/fuzz.vbp", options);
    Require(saved.Summaries().size() == before.size() + 1, "a project has the form that was added");
    Require(saved.Summaries().back().IsForm, "what was added is a form");
  });
}

}  // namespace

// The project, and behind the last zero byte the content of all its components.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = TextOf(data, size);
  const std::string content = TakeLast(text);
  CheckFile(text);
  CheckEnvironment(text, content);
  return 0;
}
