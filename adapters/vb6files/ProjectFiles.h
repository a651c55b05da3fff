// Where the files of a project stand, and what they hold.
#pragma once

#include "adapters/vb6files/FormDocument.h"
#include "adapters/vb6files/Spelling.h"
#include "support/Failures.h"
#include "system/CodePage.h"
#include "system/FileSystem.h"
#include "system/FilesRead.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace formwizard::adapters::vb6files {

// The name of a file in a project without folder and ending: "Form1" of "Forms\Form1.frm".
std::string_view StemOf(std::string_view projectPath);
// "Forms\" of "Forms\Form1.frm".
std::string ProjectFolderPart(std::string_view projectPath);

// The name that a form has in its file, in bytes; empty for a text that is no form.
std::string NameInForm(std::string_view frm);
// The name that the form had in the environment when it was new, such as "Form2", which its LinkTopic keeps; empty
// where it says none.
std::string_view FirstNameInForm(std::string_view frm);

// For a component's file that is not there.
class FileGone : public support::InputError {
 public:
  explicit FileGone(const std::string& path);
};

// What a save rests on is read for it; what is only shown may change before one.
enum class ReadFor { Saving, Showing };

// support::InputError for a path that this system does not reach and for what cannot be read.
class ProjectFiles {
 public:
  // `files` and `codePage` must outlive this object.
  ProjectFiles(system::FileSystem& files, const std::string& project, const system::CodePage& codePage);

  // The path on the disk of what the project file calls so, spelled as there; as the folder spells it where there is
  // nothing of the other spelling.
  std::string PathOf(std::string_view projectPath) const;
  std::string Spelled(const std::string& path) const;
  // The path of a new file, whose folder is spelled as it is.
  std::string NewPathOf(std::string_view projectPath) const;

  // Nothing for a file that is not there. `path` is spelled as the folder spells it afterwards.
  std::optional<std::string> Read(std::string& path, ReadFor use) const;
  // The .frx beside a form that was read, empty for none.
  std::string FrxBeside(const std::string& frmPath, std::string_view frm, ReadFor use) const;
  // The name of a component as its file has it, in bytes; a form whose name does not stand in its first bytes goes by
  // its file. FileGone when there is no such file, also not one that another code page would find.
  std::string NameIn(std::string_view projectPath) const;

  // FileGone for a file that is not there; what cannot be looked at passes.
  void CheckIsThere(std::string_view projectPath) const;

  // What a save rests on.
  system::FilesRead& ReadForSaving() { return read_; }

 private:
  auto Found(std::string& path, auto read) const;
  [[noreturn]] void RefuseAsGone(const std::string& path) const;

  system::FileSystem& files_;
  std::string folder_;
  const system::CodePage& codePage_;
  mutable Spelling spelling_;
  mutable system::FilesRead read_;
};

}  // namespace formwizard::adapters::vb6files
