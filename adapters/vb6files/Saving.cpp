#include "adapters/vb6files/Saving.h"

#include "adapters/vb6files/Caseless.h"
#include "adapters/vb6files/FileSet.h"
#include "adapters/vb6files/Recovery.h"
#include "support/Failures.h"
#include "system/Aside.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <map>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

using support::SaveError;

// Whatever goes wrong, also with looking, is a save that did not happen.
template <typename Action>
void Try(Action&& action) {
  constexpr const char* unchanged = "; the project is as it was before";
  try {
    action();
  } catch (const support::InputError& error) {
    throw SaveError(std::string(error.what()) + unchanged);
  } catch (const support::ChangedMeanwhile& error) {
    throw support::ChangedMeanwhile(std::string(error.what()) + unchanged);
  } catch (const SaveError& error) {
    throw SaveError(std::string(error.what()) + unchanged);
  }
}

}  // namespace

Saving::Saving(system::FileSystem& files, const std::string& projectFile, const std::string& original,
               const system::FilesRead& read)
    : files_(files), projectFile_(projectFile), original_(original), read_(read), place_(files, projectFile) {}

Saving::~Saving() { Discard(); }

void Saving::Open() {
  if (!stagingFolder_.empty()) return;
  if (!lock_) lock_ = files_.LockFolder(place_.Folder);  // kept when what follows failed the last time
  if (!lock_) throw SaveError(projectFile_ + ": another program is saving into this folder; try again when it is done");
  CheckKeptFolder(place_);
  RecoverAll(place_);
  const std::string folder = place_.PathOf(system::AsideName(place_.Name));
  try {
    files_.CreateFolder(folder);
  } catch (const SaveError& error) {
    throw SaveError(system::AboutTarget(error.what(), folder, projectFile_));
  }
  stagingFolder_ = folder;
}

void Saving::Stage(const std::string& path, std::string_view bytes) {
  Try([&] {
    Open();
    Prepare(Aside(targets_.size()), bytes, path);
    targets_.push_back({{place_.Recorded(path), system::ContentSum(bytes)}});
  });
}

void Saving::Put(const std::string& path, const std::optional<std::string_view>& bytes,
                 const std::optional<std::string_view>& old) {
  Try([&] {
    Open();
    isSet_ = true;
    Add(files_.BehindLinks(path), bytes, old);  // a link stays one
  });
}

void Saving::Add(const std::string& path, const std::optional<std::string_view>& bytes,
                 const std::optional<std::string_view>& old) {
  const auto sum = [](const auto& content) { return content ? system::ContentSum(*content) : 0; };
  const SaveRecord::File file{place_.Recorded(path), sum(bytes), sum(old)};
  if (!FileSet::IsWithinReach(file)) {
    throw SaveError(path + ": this file stands outside the project's folder; move it there, then try again");
  }
  if (bytes) Prepare(Aside(targets_.size()), *bytes, path, old ? path : "");
  targets_.push_back({file});
}

// Messages name the file that the user knows.
void Saving::Prepare(const std::string& aside, std::string_view bytes, const std::string& path,
                     const std::string& like) {
  try {
    system::WriteNewFile(files_, aside, bytes, like);
  } catch (const SaveError& error) {
    throw SaveError(system::AboutTarget(error.what(), aside, path));
  }
}

std::string Saving::Aside(std::size_t number) const { return stagingFolder_ + PreparedName(number); }

void Saving::CheckTarget(Target& target, std::size_t number, const std::vector<std::string>& sameNames) {
  const std::string path = place_.PathOf(target.File);
  const std::string_view name = NameIn(path);
  for (const std::string& other : sameNames) {
    if (other != name) {
      throw SaveError(place_.PathOf(target.File) + ": the folder has a file of this name in other letter cases, " +
                      other +
                      ", which does not belong to the project; move it away or add it to the project, then try again");
    }
    target.IsThere = files_.Read(path) == files_.Read(Aside(number));
    if (!target.IsThere) {
      throw SaveError(path +
                      ": this file exists and does not belong to the project; move it away or add it to the project, "
                      "then try again");
    }
  }
}

// Lists each folder of new files once. A file of another system may be the same file under a name in other letter
// cases. What changes places is compared when it has done so.
void Saving::CheckTargets() {
  std::map<std::string, std::vector<std::size_t>> byFolder;
  for (std::size_t number = 0; number < targets_.size(); ++number) {
    const SaveRecord::File& file = targets_[number].File;
    if (file.Old == 0) {
      byFolder[system::FolderOf(place_.PathOf(file))].push_back(number);
    } else if (file.Sum == file.Old && place_.SumOf(place_.PathOf(file)) != file.Old) {
      FailChanged(place_.PathOf(file));
    }
  }
  for (const auto& [folder, numbers] : byFolder) {
    std::unordered_map<std::string_view, std::size_t, CaselessHash, CaselessEqual> byName;
    byName.reserve(numbers.size());
    for (const std::size_t number : numbers) byName.emplace(NameIn(targets_[number].File.Path), number);
    std::map<std::size_t, std::vector<std::string>> inTheWay;
    for (std::string& name : files_.NamesIn(folder).value_or(std::vector<std::string>())) {
      const auto target = byName.find(name);
      if (target != byName.end()) inTheWay[target->second].push_back(std::move(name));
    }
    for (const auto& [number, names] : inTheWay) CheckTarget(targets_[number], number, names);
  }
}

// Before the first file is moved, the record of what will be is on the disk.
void Saving::PrepareProject(std::string_view text) {
  std::string record = SaveRecord::Begin(system::ContentSum(original_), system::ContentSum(text));
  for (const Target& target : targets_) {
    if (!target.IsThere) SaveRecord::Append(record, target.File);
  }
  SaveRecord::End(record);
  Prepare(stagingFolder_ + NewProjectName, text, projectFile_, projectFile_);
  Prepare(stagingFolder_ + RecordName, record, projectFile_);
  files_.FlushFolder(stagingFolder_);
  files_.FlushFolder(place_.Folder);
}

void Saving::MoveIntoPlace() {
  std::set<std::string> folders;  // what the new project lists must be on the disk before the project is
  for (std::size_t number = 0; number < targets_.size(); ++number) {
    Target& target = targets_[number];
    const std::string path = place_.PathOf(target.File);
    folders.insert(system::FolderOf(path));
    if (target.IsThere) continue;
    if (!files_.MoveNew(Aside(number), path)) {
      throw SaveError(path + ": another program has just made this file; move it away, then try again");
    }
    target.IsMoved = true;
  }
  for (const std::string& folder : folders) files_.FlushFolder(folder);
}

bool Saving::IsAsRead(const std::string& project, std::string& changed) const {
  changed = files_.Read(project) == original_ ? read_.Changed() : projectFile_;
  return changed.empty();
}

void Saving::RollBackMoved() {
  SaveRecord moved;
  for (Target& target : targets_) {
    if (std::exchange(target.IsMoved, false)) moved.Files.push_back(target.File);
  }
  if (!RollBack(place_, moved)) stagingFolder_.clear();  // its record stays for the next save
}

void Saving::CommitProject(std::string_view text) {
  try {
    PrepareProject(text);
    MoveIntoPlace();
    std::string changed;
    const auto isAsRead = [&](const std::string& project) { return IsAsRead(project, changed); };
    if (!system::ReplaceIf(files_, stagingFolder_ + NewProjectName, projectFile_, isAsRead)) FailChanged(changed);
  } catch (const std::exception&) {
    RollBackMoved();
    throw;
  }
}

// The files of the set by their numbers, the project file behind them, then the folders that are to be made.
SaveRecord Saving::PrepareSet(std::string_view text) {
  if (text != original_) Add(projectFile_, text, original_);
  SaveRecord record;
  record.IsSet = true;
  std::set<std::string> folders, missing;
  for (const Target& target : targets_) {
    record.Files.push_back(target.File);
    if (target.IsThere) record.Files.back().Old = target.File.Sum;
    const auto [folder, isNew] = folders.insert(system::FolderOf(place_.PathOf(target.File)));
    if (isNew && files_.KindOf(*folder) == system::FileKind::None) missing.insert(*folder);
  }
  for (const std::string& folder : missing) record.Files.push_back({place_.Recorded(folder)});
  Prepare(stagingFolder_ + IgnoreName, "*\n", projectFile_);
  Prepare(stagingFolder_ + RecordName, SaveRecord::OfSet(record.Files), projectFile_);
  files_.FlushFolder(stagingFolder_);
  files_.FlushFolder(place_.Folder);
  return record;
}

void Saving::CommitSet(std::string_view text) {
  const SaveRecord record = PrepareSet(text);
  const FileSet set(place_, stagingFolder_, record);
  const auto requireAsRead = [&](bool hasNewProject) {
    std::string changed;
    if (!hasNewProject && !IsAsRead(projectFile_, changed)) FailChanged(changed);
    if (hasNewProject && !(changed = read_.Changed()).empty()) FailChanged(changed);
  };
  requireAsRead(false);  // before anything has moved that could be missing when it is taken back
  try {
    set.MoveIntoPlace();
    requireAsRead(text != original_);
    files_.Replace(stagingFolder_ + RecordName, stagingFolder_ + CommittedName);
  } catch (const std::exception&) {
    if (!set.TakeBack()) stagingFolder_.clear();
    throw;
  }
}

void Saving::Commit(std::string_view text) {
  Try([&] {
    Open();
    CheckTargets();
    if (isSet_) {
      CommitSet(text);
    } else {
      CommitProject(text);
    }
  });
  Settle();
}

// The new project is in place; a crash of the machine before the next flush may still bring back the old one. What is
// not done here is done by the next save.
void Saving::Settle() {
  const std::string folder = std::exchange(stagingFolder_, "");
  try {
    files_.FlushFolder(isSet_ ? folder : place_.Folder);
    if (isSet_) return Keep(place_, folder);
    DropKept(place_);
    RemoveStaging(place_, folder);
  } catch (const support::InputError&) {
    return;
  } catch (const SaveError&) {
    return;
  }
}

// What stays behind is removed by the next save; nothing refers to it.
void Saving::Discard() noexcept {
  if (stagingFolder_.empty()) return;
  try {
    RemoveStaging(place_, stagingFolder_);
  } catch (const support::InputError&) {
    return;
  } catch (const SaveError&) {
    return;
  }
}

}  // namespace formwizard::adapters::vb6files
