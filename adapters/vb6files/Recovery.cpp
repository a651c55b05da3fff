#include "adapters/vb6files/Recovery.h"

#include "adapters/vb6files/FileSet.h"
#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string_view>

namespace formwizard::adapters::vb6files {
namespace {

using support::SaveError;

std::optional<SaveRecord> RecordOf(const SavePlace& place, const std::string& file) {
  return SaveRecord::Parse(place.Files.Read(file).value_or(""));
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
  return (!isOvertaken && !isNotDone) || RollBack(place, record);
}

}  // namespace

void Recover(const SavePlace& place, const std::string& folder) {
  const std::optional<SaveRecord> record = RecordOf(place, folder + RecordName);
  if (!record || TakeBack(place, folder, *record)) RemoveStaging(place, folder);  // else the next save tries again
}

void RecoverAll(const SavePlace& place) {
  for (const std::string& name : place.Files.NamesIn(place.Folder).value_or(std::vector<std::string>())) {
    const std::string path = place.PathOf(name);
    const bool isOurs = system::IsAsideName(name, place.Name) && place.Files.KindOf(path) == system::FileKind::Folder;
    if (isOurs) Recover(place, path);
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

void RemoveStaging(const SavePlace& place, const std::string& folder) {
  place.Files.Remove(folder + RecordName);
  for (const std::string& name : place.Files.NamesIn(folder).value_or(std::vector<std::string>())) {
    const std::string path = std::string(folder).append("/").append(name);
    const std::string_view number = std::string_view(name).substr(0, name.find(".old"));
    const bool isNumber = number.find_first_not_of("0123456789") == std::string::npos;
    const bool isOurs =
        isNumber || path == folder + NewProjectName || path == folder + CommittedName || system::IsAsideName(name);
    if (isOurs) place.Files.Remove(path);
  }
  place.Files.RemoveFolder(folder);
}

}  // namespace formwizard::adapters::vb6files
