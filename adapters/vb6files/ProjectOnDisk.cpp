#include "adapters/vb6files/ProjectOnDisk.h"

#include "adapters/vb6files/Recovery.h"
#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

std::string ReadProject(system::FileSystem& files, const std::string& path) {
  RecoverSaves(files, path, Saves::Sets);
  std::optional<std::string> text = files.Read(path, system::LargestProject);
  if (!text) throw support::InputError(path + ": there is no such project file; check the path");
  return std::move(*text);
}

}  // namespace

ProjectOnDisk::ProjectOnDisk(system::FileSystem& files, const std::string& path, const ProjectOptions& options)
    : files_(files),
      path_(path),
      original_(options.Text ? *options.Text : ReadProject(files, path)),
      codePage_(options.CodePageNumber),
      projectFiles_(files, path, codePage_),
      toolbox_(files, options.ToolboxFile),
      project_(path, original_),
      bearsUnreadable_(options.BearsUnreadable),
      isOnDisk_(!options.Text) {
  for (const std::string_view value : project_.Objects()) libraries_.Add(toolbox_.Parse(value));
  const std::vector<ProjectFile::Item> items = project_.TakeItems();
  listedPaths_.reserve(items.size());
  for (const ProjectFile::Item& item : items) {
    const bool isForm = item.Kind == ProjectFile::ItemKind::Form;
    entries_.push_back({texts_.Kept(item.Name), texts_.Kept(item.Path), isForm, item.Group, nullptr});
    listedPaths_.insert(entries_.back().Path);
  }
}

void ProjectOnDisk::OnChange(ChangeListener listener, bool dryRun) {
  listener_ = std::move(listener);
  dryRun_ = dryRun;
}

void ProjectOnDisk::CheckToolboxKnows(std::string_view progId) const {
  const std::string_view library = Toolbox::LibraryOf(progId);
  if (!library.empty() && libraries_.Find(library)) return;
  try {
    static_cast<void>(toolbox_.Find(progId));
  } catch (const runtime::RuntimeError& unknown) {
    throw support::InputError(path_ + ": " + unknown.Description());
  }
}

void ProjectOnDisk::UseToolbox(const std::string& file) { toolbox_ = Toolbox(files_, file); }

std::string ProjectOnDisk::ProblemOfNewName(std::string_view name) const {
  std::string problem = ProblemOfObjectName(name);
  if (!problem.empty()) return problem;
  const std::string bytes = codePage_.Encode(name);
  if (runtime::EqualIgnoringCase(bytes, project_.Name())) return "which is the project's own name";
  const Entry* const other = FindEntry(bytes);
  if (!other) return "";
  return "and the project has \"" + codePage_.Decode(other->Name) + "\", in which only the case of letters is another";
}

std::optional<KeptCode> ProjectOnDisk::CodeKeptIn(std::string_view name) const {
  const Entry* entry = FindEntry(codePage_.Encode(name));
  return entry && entry->Document ? entry->Document->CodeKept() : std::nullopt;
}

bool ProjectOnDisk::IsWorthALook(std::string_view name) const {
  const Entry* entry = FindEntry(codePage_.Encode(name));
  return entry && entry->Document && entry->Document->IsChanged() && entry->Document->IsWorthALook();
}

bool ProjectOnDisk::IsReused(std::string_view name) const {
  const Entry* entry = FindEntry(codePage_.Encode(name));
  return entry && entry->Document && !entry->Path.empty();
}

std::optional<RefusedName> ProjectOnDisk::RefusedIn(std::string_view name) const {
  const Entry* entry = FindEntry(codePage_.Encode(name));
  return entry && entry->Document ? entry->Document->FirstRefusedName() : std::nullopt;
}

std::string ProjectOnDisk::ObjectLines() const {
  std::string lines;
  for (const std::string_view value : project_.Objects()) lines.append("Object=").append(value).append("\r\n");
  return lines;
}

bool ProjectOnDisk::IsChanged() const {
  return project_.IsChanged() || !put_.empty() ||
         std::ranges::any_of(open_, [](const Entry* entry) { return entry->Document->IsChanged(); });
}

std::vector<ComponentSummary> ProjectOnDisk::Summaries() const {
  ReadNames();
  std::vector<ComponentSummary> summaries;
  summaries.reserve(entries_.size());
  for (const Entry& entry : entries_) {
    const bool isChanged = entry.IsAdded || (entry.Document && (entry.Path.empty() || entry.Document->IsChanged()));
    summaries.push_back({codePage_.Decode(entry.Name), entry.Path.empty() ? "" : projectFiles_.PathOf(entry.Path),
                         entry.IsForm, entry.Group, isChanged});
    summaries.back().IsAdded = entry.IsAdded;
    const auto unread = unread_.find(&entry);
    if (unread == unread_.end()) continue;
    summaries.back().IsGone = unread->second.IsGone;
    summaries.back().Problem = unread->second.Problem;
  }
  return summaries;
}

std::vector<std::string> ProjectOnDisk::MissingFiles() const {
  ReadNames();
  std::vector<std::string> messages;
  for (const Entry& entry : entries_) {
    if (IsGone(entry)) messages.push_back(unread_.at(&entry).Problem);
  }
  return messages;
}

std::vector<std::string> ProjectOnDisk::RelatedDocuments() const {
  std::vector<std::string> documents;
  for (const std::string_view path : project_.RelatedDocuments()) documents.push_back(projectFiles_.PathOf(path));
  return documents;
}

const ProjectOnDisk::Entry& ProjectOnDisk::ComponentOf(std::string_view name) const {
  const Entry* entry = FindEntry(codePage_.Encode(name));
  if (!entry) throw support::InputError(path_ + ": the project has no component \"" + std::string(name) + "\"");
  return *entry;
}

std::string ProjectOnDisk::FileOf(std::string_view name) const {
  const Entry& entry = ComponentOf(name);
  return entry.Path.empty() ? "" : projectFiles_.Spelled(projectFiles_.PathOf(entry.Path));
}

FormFiles ProjectOnDisk::TextsOf(std::string_view name) {
  const Entry* const entry = &ComponentOf(name);
  if (entry->Document) return entry->Document->Render(entry->Path.empty() ? entry->Name : StemOf(entry->Path));
  std::string path = projectFiles_.PathOf(entry->Path);
  std::optional<std::string> text = projectFiles_.Read(path, ReadFor::Showing);
  if (!text) {
    throw support::InputError(path + ": the file is not there; restore it or take its line out of the project");
  }
  std::string frx = entry->IsForm ? projectFiles_.FrxBeside(path, *text, ReadFor::Showing) : "";
  return {std::move(*text), std::move(frx)};
}

}  // namespace formwizard::adapters::vb6files
