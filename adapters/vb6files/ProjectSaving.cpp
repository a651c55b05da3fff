// What becomes of a project on disk when forms of it are finished and it is saved.
#include "adapters/vb6files/ProjectOnDisk.h"

#include "adapters/vb6files/FormReader.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

// Windows takes these for devices, whatever extension follows.
bool IsDeviceName(std::string_view stem) {
  constexpr std::array fixed{std::string_view("CON"), std::string_view("PRN"), std::string_view("AUX"),
                             std::string_view("NUL")};
  if (std::ranges::any_of(fixed, [&](std::string_view name) { return runtime::EqualIgnoringCase(stem, name); })) {
    return true;
  }
  const std::string_view port = stem.substr(0, 3);
  return stem.size() == 4 && stem[3] >= '1' && stem[3] <= '9' &&
         (runtime::EqualIgnoringCase(port, "COM") || runtime::EqualIgnoringCase(port, "LPT"));
}

}  // namespace

void ProjectOnDisk::Announce(const std::string& path, std::optional<std::string> old, std::optional<std::string> text) {
  if (listener_) listener_({path, std::move(old), std::move(text)});
}

Saving& ProjectOnDisk::CurrentSaving() {
  if (!saving_) saving_ = std::make_unique<Saving>(files_, path_, original_, projectFiles_.ReadForSaving());
  return *saving_;
}

// The component's name, with a number behind it when a file of the project is called so.
std::string ProjectOnDisk::NewStem(const Entry& entry) {
  if (IsDeviceName(entry.Name)) {
    throw support::SaveError(path_ + ": the form " + codePage_.Decode(entry.Name) +
                             " cannot be saved, because Windows keeps its name for a device; rename it");
  }
  const std::string folder = ProjectFolderPart(entry.Path);
  std::string stem(entry.Name);
  for (int number = 2; listedPaths_.contains(folder + stem + ".frm"); ++number) {
    stem = std::string(entry.Name) + "_" + std::to_string(number);
  }
  return stem;
}

// A form that was reused gets a new file beside its old one, which stays where it is.
void ProjectOnDisk::Finish(Entry& entry) {
  if (compared_ && compared_->Of == &entry) return FinishCompared(entry);
  const std::string stem = NewStem(entry);
  const std::string newPath = ProjectFolderPart(entry.Path) + stem + ".frm";
  const std::string file = projectFiles_.NewPathOf(newPath);
  const std::string frxFile = file.substr(0, file.size() - 1) + "x";
  FormFiles content = entry.Document->Render(stem);
  if (entry.Path.empty()) {
    project_.AddForm(newPath);
  } else {
    project_.ReplaceFormPath(entry.Path, newPath);
  }
  entry.Path = texts_.Kept(newPath);
  if (stem != entry.Name) listedPaths_.insert(entry.Path);
  entry.ControlCount = entry.Document->Controls()->Count();
  entry.IsFinished = true;
  entry.Document.reset();
  if (!dryRun_) {
    if (!content.Frx.empty()) CurrentSaving().Stage(frxFile, content.Frx);
    CurrentSaving().Stage(file, content.Frm);
  }
  Announce(file, std::nullopt, std::move(content.Frm));
  if (!content.Frx.empty()) Announce(frxFile, std::nullopt, std::move(content.Frx));
}

void ProjectOnDisk::FinishForms() {
  for (Entry* entry : std::exchange(open_, {})) {
    if (entry->Document->IsChanged()) {
      Finish(*entry);
    } else {
      open_.push_back(entry);  // it may still be changed
    }
  }
}

void ProjectOnDisk::Put(const std::string& path, const std::optional<std::string_view>& bytes,
                        const std::optional<std::string_view>& old) {
  if (bytes == old) return;
  if (!dryRun_) CurrentSaving().Put(path, bytes, old);
  put_.push_back(path);
  if (listener_) Announce(path, std::optional<std::string>(old), std::optional<std::string>(bytes));
}

void ProjectOnDisk::PutTexts(std::string_view name, const FormBytes& texts, const FormBytes& old) {
  const auto given = [](std::string_view bytes) { return bytes.empty() ? std::nullopt : std::optional(bytes); };
  const std::string file = FileOf(name);
  const std::string frx = projectFiles_.Spelled(file.substr(0, file.rfind('.')) + ".frx");
  Put(frx, given(texts.Frx), given(old.Frx));
  Put(file, texts.Frm, old.Frm);
}

void ProjectOnDisk::FinishAndCommit() {
  FinishForms();
  if (prepare_) prepare_();
  if (!project_.IsChanged() && put_.empty()) return;
  for (const std::string& path : put_)
    projectFiles_.ReadForSaving().Forget(path);  // each is compared with what it is to hold
  if (!dryRun_) CurrentSaving().Commit(project_.Text());
  put_.clear();
  if (!project_.IsChanged()) return;
  project_.MarkSaved();
  for (Entry& entry : entries_) entry.IsAdded = false;
  std::string old = std::exchange(original_, project_.Text());
  Announce(path_, std::move(old), project_.Text());
}

void ProjectOnDisk::Save() {
  const bool hasOpenForms = std::ranges::any_of(open_, [](const Entry* entry) { return entry->Document->IsChanged(); });
  std::optional<ProjectFile::State> projectBefore;
  if (hasOpenForms) projectBefore = project_.Current();  // which a batch has not: what it has made is finished
  const std::vector<Entry*> openBefore = open_;
  std::vector<Entry> entriesBefore;
  for (const Entry* entry : open_) entriesBefore.push_back(*entry);
  try {
    FinishAndCommit();
  } catch (const support::SaveError&) {
    saving_.reset();
    put_.clear();
    if (projectBefore) project_.GoBackTo(*std::move(projectBefore));
    open_ = openBefore;
    for (std::size_t i = 0; i < open_.size(); ++i) {
      if (open_[i]->IsFinished) listedPaths_.erase(open_[i]->Path);
      *open_[i] = std::move(entriesBefore[i]);
    }
    throw;
  }
  saving_.reset();
}

}  // namespace formwizard::adapters::vb6files
