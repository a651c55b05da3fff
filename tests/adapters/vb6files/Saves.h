// Saves of a project in memory, each of which can be stopped at every operation.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "adapters/vb6files/Undo.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/Test.h"

namespace formwizard::tests {

using namespace adapters::vb6files;
using generator::ide::ComponentType;
using Trouble = MemoryFileSystem::Trouble;
using Contents = MemoryFileSystem::Contents;

inline const std::string ProjectPath = "P/Lending.vbp";
inline const std::string EmptyForm =
    "VERSION 5.00\r\nBegin VB.Form Form1 \r\n   ClientHeight    =   3195\r\nEnd\r\nAttribute VB_Name = \"Form1\"\r\n"
    "Attribute VB_Exposed = False\r\n";

// A project whose empty Form1 stands in a folder below.
inline Contents OldProject() {
  return {{ProjectPath, "Type=Exe\r\nForm=Forms\\Form1.frm\r\nModule=modA; modA.bas\r\nStartup=\"Form1\"\r\n"},
          {"P/Forms/Form1.frm", EmptyForm},
          {"P/modA.bas", "Attribute VB_Name = \"modA\"\r\n"}};
}

// Reuses Form1 and adds a form that needs a companion file.
inline void Change(ProjectOnDisk& project, bool finishesForms, std::string_view text = "txtNotes") {
  generator::ide::VBComponents& components = project.ActiveVBProject().Components();
  const auto reused = components.Find("Form1");
  reused->SetName("frmPerson");
  reused->DesignerControls()->Add("VB.Label", nullptr);
  if (finishesForms) project.FinishForms();
  const auto added = components.Add(ComponentType::Form);
  added->SetName("frmHome");
  const auto notes = added->DesignerControls()->Add("VB.TextBox", nullptr);
  notes->SetProperty("MultiLine", std::string_view("-1"));
  notes->SetProperty("Text", text);
}

inline void Generate(system::FileSystem& files, std::string_view text = "txtNotes") {
  ProjectOnDisk project(files, ProjectPath, {});
  Change(project, true, text);
  project.Save();
}

inline Contents NewProject(std::string_view text = "txtNotes") {
  MemoryFileSystem files(OldProject());
  Generate(files, text);
  return files.Files;
}

// Files of the new project that the old one already refers to by nothing may lie beside it.
inline bool Holds(const Contents& found, const Contents& expected) {
  return std::ranges::all_of(expected, [&](const auto& file) {
    const auto at = found.find(file.first);
    return at != found.end() && at->second == file.second;
  });
}

// What follows its class: a form replaced with its companion file taken away, one kept text replaced, one new in a
// folder that is new, and a new form in the project file.
inline Contents KeptProject() {
  Contents files = OldProject();
  files["P/Forms/Form1.frx"] = "old companion";
  files["P/kept.json"] = "old";
  return files;
}

inline void Follow(system::FileSystem& files, bool addsForm, const std::string& text = "new") {
  ProjectOnDisk project(files, ProjectPath, {});
  const FormFiles old = project.TextsOf("Form1");
  project.PutTexts("Form1", {EmptyForm + "' " + text + "\r\n", ""}, old);
  project.Put("P/kept.json", text, *files.Read("P/kept.json"));
  project.Put("P/Lending.forms/Form1.frm", text, files.Read("P/Lending.forms/Form1.frm"));
  if (addsForm) project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName("frmNew");
  project.Save();
}

inline void UndoSave(system::FileSystem& files) {
  Undo(files, ProjectPath, false, [](const FileChange&) {});
}

inline Contents After(const Contents& before, void (*save)(system::FileSystem& files)) {
  MemoryFileSystem files(before);
  save(files);
  return files.Files;
}

// Without what saves keep beside it.
inline Contents Project(Contents files) {
  std::erase_if(files, [](const auto& file) {
    return file.first.starts_with("P/Lending.undo/") || file.first.find(".new/") != std::string::npos;
  });
  return files;
}

inline void AddForm(system::FileSystem& files, const std::string& name) {
  ProjectOnDisk project(files, ProjectPath, {});
  project.ActiveVBProject().Components().Add(ComponentType::Form)->SetName(name);
  project.Save();
}

struct SaveCase {
  using Action = void (*)(system::FileSystem& files);
  std::string Name;
  Contents Before;
  Action Save;
  Action Next;  // what is saved where a crash has left the old files
  Contents Saved = After(Before, Save), SavedNext = After(Before, Next);
};

inline std::vector<SaveCase> AllSaves() {
  const auto generate = [](system::FileSystem& files) { Generate(files); };
  const auto otherwise = [](system::FileSystem& files) { Generate(files, "other fields"); };
  const auto follow = [](system::FileSystem& files) { Follow(files, true); };
  const auto again = [](system::FileSystem& files) { Follow(files, false, "newer"); };
  const auto addForm = [](system::FileSystem& files) { AddForm(files, "frmOther"); };
  const Contents followed = After(KeptProject(), follow);
  return {{"generate", OldProject(), generate, otherwise},
          {"follow", KeptProject(), follow, follow},
          {"follow again", followed, again, again},
          {"undo", followed, UndoSave, UndoSave},
          {"undo of undo", After(followed, UndoSave), UndoSave, UndoSave},
          {"new forms", followed, addForm, addForm}};
}

}  // namespace formwizard::tests
