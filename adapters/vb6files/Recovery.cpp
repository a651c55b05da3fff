#include "adapters/vb6files/Recovery.h"

#include "adapters/vb6files/FileSet.h"
#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"

#include <cstdint>
#include <memory>
#include <set>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {
namespace {

using support::SaveError;

std::optional<SaveRecord> RecordOf(const SavePlace& place, const std::string& file) {
  return SaveRecord::Parse(place.Files.Read(file).value_or(""));
}

std::vector<std::string> FoldersOfSaves(const SavePlace& place) {
  std::vector<std::string> folders;
  for (const std::string& name : place.Files.NamesIn(place.Folder).value_or(std::vector<std::string>())) {
    const std::string path = place.PathOf(name);
    const bool isOurs = system::IsAsideName(name, place.Name) && place.Files.KindOf(path) == system::FileKind::Folder;
    if (isOurs) folders.push_back(path);
  }
  return folders;
}

bool HoldsSet(const SavePlace& place, const std::string& folder) {
  const std::optional<SaveRecord> record = RecordOf(place, folder + RecordName);
  return record ? record->IsSet : place.Files.KindOf(folder + CommittedName) == system::FileKind::File;
}

// The last step of a save of new files is the project file's. Where it replaced one that somebody had just changed, it
// is undone first.
bool TakeBack(const SavePlace& place, const std::string& folder, const SaveRecord& record) {
  if (record.IsSet) return FileSet(place, folder, record).TakeBack();
  const std::string project = folder + NewProjectName;
  const std::uint64_t current = place.SumOf(place.ProjectFile, record), aside = place.SumOf(project, record);
  const bool isDone = current == record.NewProject;
  const bool isOvertaken = isDone && aside != 0 && aside != record.OldProject && aside != record.NewProject;
  if (isOvertaken) place.Files.Replace(project, place.ProjectFile);
  const bool isNotDone = !isDone && (current == record.OldProject || aside == record.NewProject);
  if (isDone && !isOvertaken) DropKept(place);
  return (!isOvertaken && !isNotDone) || RollBack(place, record);
}

// What cannot be taken back is left for the next time.
void Recover(const SavePlace& place, const std::string& folder) {
  const std::optional<SaveRecord> record = RecordOf(place, folder + RecordName);
  if (!record && RecordOf(place, folder + CommittedName)) {
    Keep(place, folder);
  } else if (!record || TakeBack(place, folder, *record)) {
    RemoveStaging(place, folder);
  }
}

}  // namespace

void RecoverAll(const SavePlace& place) {
  for (const std::string& folder : FoldersOfSaves(place)) Recover(place, folder);
}

void RecoverSaves(system::FileSystem& files, const std::string& projectFile, Saves which) {
  const SavePlace place(files, projectFile);
  for (const std::string& folder : FoldersOfSaves(place)) {
    if (which == Saves::Sets && !HoldsSet(place, folder)) continue;
    try {
      const std::unique_ptr<system::FileLock> lock = files.LockFolder(place.Folder);
      if (!lock) throw SaveError(projectFile + ": another program is saving it; try again when it is done");
      if (files.KindOf(folder) != system::FileKind::None) Recover(place, folder);
      if (files.KindOf(folder) == system::FileKind::None) continue;
      throw SaveError(folder +
                      ": a save was cut off, and what it has replaced cannot be brought back from here; "
                      "restore the project's files, then remove this folder");
    } catch (const SaveError& error) {
      // What is committed needs nothing taken back; that it cannot be kept for undo is nothing to whoever only reads.
      if (which == Saves::Sets && RecordOf(place, folder + CommittedName)) continue;
      throw support::InputError(error.what());
    }
  }
}

std::optional<SaveRecord> KeptRecord(const SavePlace& place) {
  const std::optional<SaveRecord> record = RecordOf(place, place.KeptFolder + CommittedName);
  return record && record->IsSet ? record : std::nullopt;
}

void Keep(const SavePlace& place, const std::string& folder) {
  DropKept(place);
  place.Files.Replace(folder, place.KeptFolder);
  place.Files.FlushFolder(place.Folder);
}

void CheckKeptFolder(const SavePlace& place) {
  const system::FileKind kind = place.Files.KindOf(place.KeptFolder);
  if (kind == system::FileKind::None || kind == system::FileKind::Folder) return;
  throw SaveError(place.KeptFolder +
                  ": this is no folder; move it away, what a save has replaced is kept in a folder of this name");
}

void DropKept(const SavePlace& place) {
  CheckKeptFolder(place);
  if (place.Files.KindOf(place.KeptFolder) == system::FileKind::None) return;
  place.Files.Remove(place.KeptFolder + CommittedName);
  place.Files.FlushFolder(place.KeptFolder);  // before the record of the save that ends it goes
  if (!RemoveStaging(place, place.KeptFolder)) {
    throw SaveError(place.KeptFolder + ": this folder has files that no save has put there; move them away");
  }
}

bool RollBack(const SavePlace& place, const SaveRecord& record) {
  bool isComplete = true;
  std::set<std::string> folders;
  for (const SaveRecord::File& file : record.Files) {
    const std::string path = place.PathOf(file);
    try {
      if (place.SumOf(path, record) != file.Sum) continue;
      place.Files.Remove(path);
      folders.insert(system::FolderOf(path));
    } catch (const support::InputError&) {
      isComplete = false;
    } catch (const SaveError&) {
      isComplete = false;
    }
  }
  for (const std::string& folder : folders) place.Files.FlushFolder(folder);
  return isComplete;
}

bool RemoveStaging(const SavePlace& place, const std::string& folder) {
  place.Files.Remove(folder + RecordName);
  place.Files.Remove(folder + CommittedName);
  for (const std::string& name : place.Files.NamesIn(folder).value_or(std::vector<std::string>())) {
    const std::string path = "/" + name;
    const std::string_view number = std::string_view(name).substr(0, name.find(".old"));
    const bool isNumber = number.find_first_not_of("0123456789") == std::string::npos;
    if (isNumber || path == NewProjectName || path == IgnoreName || system::IsAsideName(name)) {
      place.Files.Remove(folder + path);
    }
  }
  return place.Files.RemoveFolder(folder);
}

}  // namespace formwizard::adapters::vb6files
