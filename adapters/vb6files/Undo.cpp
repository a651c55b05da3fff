#include "adapters/vb6files/Undo.h"

#include "adapters/vb6files/FileSet.h"
#include "adapters/vb6files/Recovery.h"
#include "adapters/vb6files/SavePlace.h"
#include "adapters/vb6files/Saving.h"
#include "support/Failures.h"
#include "system/FilesRead.h"
#include "system/Limits.h"

#include <cstdint>
#include <optional>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

using support::InputError;
using support::SaveError;

std::uint64_t SumOf(const std::optional<std::string>& bytes) { return bytes ? system::ContentSum(*bytes) : 0; }

// Why a file cannot be taken back that is not as the save left it, and what to do. `before` is where its old content
// stands; empty for none.
std::string ProblemOf(const FileChange& change, const SaveRecord::File& file, const std::string& before) {
  const std::string what = !change.Old ? "this file, which the save that is to be undone had written, is gone"
                           : file.Sum == 0
                               ? "this file, which the save that is to be undone had removed, is there again"
                               : "this file has changed since the save that is to be undone";
  const std::string remedy = before.empty() ? "there was none before that save" : "before that save it was " + before;
  return change.Path + ": " + what + "; nothing was changed. To go back by hand: " + remedy;
}

// A file as it is now and as it was before the save.
FileChange ChangeBack(const SavePlace& place, const FileSet& kept, const SaveRecord& record, std::size_t number) {
  const SaveRecord::File& file = record.Files[number];
  const std::string before = file.Old == 0 ? "" : kept.OldContentOf(number);
  FileChange change{place.PathOf(file), place.Files.Read(place.PathOf(file)), std::nullopt};
  if (SumOf(change.Old) != file.Sum) {
    throw SaveError(ProblemOf(change, file, before));
  }
  if (!FileSet::IsWithinReach(file))
    throw SaveError(change.Path + ": this is no file of the project; nothing was changed");
  if (!before.empty()) change.New = place.Files.Read(before);
  if (SumOf(change.New) != file.Old) {
    throw SaveError(place.KeptFolder + ": what " + change.Path +
                    " was before is not there any more; nothing was changed. Bring the file back from version control");
  }
  return change;
}

// Folders that the save had made go again when nothing is in them; one that stays does no harm.
void RemoveMade(const SavePlace& place, const SaveRecord& record) {
  for (const SaveRecord::File& file : record.Files) {
    try {
      if (file.IsFolder()) place.Files.RemoveFolder(place.PathOf(file));
    } catch (const SaveError&) {
      continue;
    }
  }
}

}  // namespace

void Undo(system::FileSystem& files, const std::string& projectFile, bool dryRun, const ChangeListener& listener) {
  RecoverSaves(files, projectFile, Saves::All);
  const std::optional<std::string> original = files.Read(projectFile, system::LargestProject);
  if (!original) throw InputError(projectFile + ": there is no such project file; check the path");
  const SavePlace place(files, projectFile);
  const std::optional<SaveRecord> record = KeptRecord(place);
  if (!record) {
    throw InputError(
        projectFile +
        ": there is nothing to undo; only a run that wrote kept forms, and was the last one that saved, can be "
        "taken back; older states are a matter of version control");
  }
  const FileSet kept(place, place.KeptFolder, *record);
  const system::FilesRead read(files);
  Saving saving(files, projectFile, *original, read);
  std::string project = *original;
  for (std::size_t number = 0; number < record->Files.size(); ++number) {
    const SaveRecord::File& file = record->Files[number];
    if (file.Sum == file.Old) continue;
    FileChange change = ChangeBack(place, kept, *record, number);
    if (file.Path == place.Name) {
      project = change.New.value_or("");
    } else if (!dryRun) {
      saving.Put(change.Path, change.New, change.Old);
    }
    listener(std::move(change));
  }
  if (dryRun) return;
  saving.Commit(project);
  RemoveMade(place, *record);
}

}  // namespace formwizard::adapters::vb6files
