#include "adapters/vb6files/Saving.h"

#include "support/Failures.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <utility>

namespace formwizard::adapters::vb6files {

Saving::Saving(system::FileSystem& files, const std::string& projectFile, const std::string& original)
    : files_(files),
      projectFile_(projectFile),
      original_(original),
      folder_(system::FolderOf(projectFile)),
      stagingFolder_(projectFile + ".saving") {}

Saving::~Saving() { Discard(); }

void Saving::Open() {
  if (lock_) return;
  lock_ = files_.LockFolder(folder_);
  if (!lock_) {
    throw support::SaveError(projectFile_ + ": another program is saving into this folder; try again when it is done");
  }
  RemoveStaging();  // what a crash has left behind
  files_.CreateFolder(stagingFolder_);
}

void Saving::Stage(const std::string& path, std::string_view bytes) {
  Open();
  system::WriteNewFile(files_, Aside(targets_.size()), bytes);
  targets_.push_back(path);
}

std::string Saving::Aside(std::size_t number) const { return stagingFolder_ + "/" + std::to_string(number); }

bool Saving::MoveIntoPlace(std::size_t number) {
  const std::string& target = targets_[number];
  if (files_.MoveNew(Aside(number), target)) return true;
  // An interrupted save may have left the very same file.
  if (files_.Read(target) != files_.Read(Aside(number))) {
    throw support::SaveError(target +
                             ": this file exists and does not belong to the project; move it away or add it to the "
                             "project, then try again. The project is as it was before");
  }
  return false;
}

// What the new project lists must be on the disk before the project is.
std::set<std::string> Saving::TargetFolders() const {
  std::set<std::string> folders;
  for (const std::string& target : targets_) folders.insert(system::FolderOf(target));
  return folders;
}

// A file that cannot be taken back stays without anything that refers to it.
void Saving::TakeBack(const std::vector<bool>& moved) {
  for (std::size_t number = 0; number < moved.size(); ++number) {
    try {
      if (moved[number]) files_.Remove(targets_[number]);
    } catch (const support::SaveError&) {
      continue;
    }
  }
}

void Saving::Commit(std::string_view text) {
  Open();
  std::vector<bool> moved;  // by number of the prepared file
  try {
    if (files_.Read(projectFile_) != original_) {
      throw support::SaveError(projectFile_ +
                               ": another program has changed the project since it was read; nothing was saved, run "
                               "the command again");
    }
    const std::string newProject = stagingFolder_ + "/project";
    system::WriteNewFile(files_, newProject, text, projectFile_);
    for (std::size_t number = 0; number < targets_.size(); ++number) moved.push_back(MoveIntoPlace(number));
    for (const std::string& folder : TargetFolders()) files_.FlushFolder(folder);
    files_.Replace(newProject, projectFile_);
  } catch (const support::SaveError&) {
    TakeBack(moved);
    throw;
  }
  // The new project is in place; a crash of the machine before the next flush may still bring back the old one.
  try {
    files_.FlushFolder(folder_);
  } catch (const support::SaveError&) {
    return;
  }
}

void Saving::RemoveStaging() {
  for (const std::string& name : files_.NamesIn(stagingFolder_).value_or(std::vector<std::string>())) {
    files_.Remove(stagingFolder_ + "/" + name);
  }
  files_.RemoveFolder(stagingFolder_);
}

void Saving::Discard() noexcept {
  if (!lock_) return;
  try {
    RemoveStaging();
  } catch (const support::SaveError&) {
    // What stays behind is removed by the next save; nothing refers to it.
    return;
  }
}

}  // namespace formwizard::adapters::vb6files
