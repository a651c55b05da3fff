#include "adapters/vb6files/ProjectOnDisk.h"

#include "adapters/vb6files/FilePath.h"
#include "adapters/vb6files/FormReader.h"
#include "adapters/vb6files/Recovery.h"
#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

using namespace generator::ide;

constexpr std::string_view StartUpForm = "Form1";  // of a new project
constexpr std::size_t NameIsWithin = 4096;         // bytes at the start of a form file

std::string ReadProject(system::FileSystem& files, const std::string& path) {
  RecoverSaves(files, path, Saves::Sets);
  std::optional<std::string> text = files.Read(path, system::LargestProject);
  if (!text) throw support::InputError(path + ": there is no such project file; check the path");
  return std::move(*text);
}

// For a component's file that is not there.
class FileGone : public support::InputError {
 public:
  using InputError::InputError;
};

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

std::string_view StemOf(std::string_view projectPath) {
  projectPath.remove_prefix(projectPath.find_last_of('\\') + 1);
  return projectPath.substr(0, projectPath.rfind('.'));
}

// "Forms\" of "Forms\Form1.frm".
std::string ProjectFolderPart(std::string_view projectPath) {
  return std::string(projectPath.substr(0, projectPath.find_last_of('\\') + 1));
}

}  // namespace

// The controls of a form whose content is on the disk already.
class ProjectOnDisk::FinishedControls : public VBControls {
 public:
  explicit FinishedControls(Int32 count) : count_(count) {}

  Int32 Count() const override { return count_; }
  std::shared_ptr<VBControl> Add(std::string_view, const std::shared_ptr<VBControl>&) override {
    runtime::Raise(runtime::AutomationError, "The form is finished: no more controls can be added");
  }

 private:
  Int32 count_;
};

// A handle to an entry. Names and properties of a module or class cannot be changed here.
class ProjectOnDisk::Component : public VBComponent {
 public:
  Component(ProjectOnDisk& project, Entry& entry) : project_(project), entry_(entry) {}

  std::string Name() const override { return project_.codePage_.Decode(entry_.Name); }
  void SetName(std::string_view name) override { project_.Rename(entry_, name); }
  void SetProperty(const PropertyName& name, const PropertyValue& value) override {
    project_.DocumentOf(entry_).SetProperty(name, value);
  }
  std::shared_ptr<VBControls> DesignerControls() override { return project_.ControlsOf(entry_); }
  std::shared_ptr<CodeModule> Code() override { return project_.DocumentOf(entry_).Code(); }
  void Activate() override { project_.DocumentOf(entry_); }

 private:
  ProjectOnDisk& project_;
  Entry& entry_;
};

ProjectOnDisk::ProjectOnDisk(system::FileSystem& files, const std::string& path, const ProjectOptions& options)
    : files_(files),
      path_(path),
      folder_(system::FolderPart(path)),
      original_(options.Text ? *options.Text : ReadProject(files, path)),
      codePage_(options.CodePageNumber),
      spelling_(files),
      read_(files),
      toolbox_(files, options.ToolboxFile),
      project_(path, original_),
      bearsUnreadable_(options.BearsUnreadable) {
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

std::string ProjectOnDisk::FilePath(std::string_view projectPath) const {
  return FileIn(folder_, codePage_.Decode(projectPath));
}

// `path` is spelled as the folder spells it afterwards.
template <typename Reader>
std::optional<std::string> ProjectOnDisk::Found(std::string& path, Reader&& read) const {
  if (IsForeign(path)) {
    throw support::InputError(
        path +
        ": this is on a drive or a server of Windows, which this system does not reach; copy it into "
        "the project's folder and change its line");
  }
  std::optional<std::string> bytes = read(path);
  if (bytes) return bytes;
  path = spelling_.Of(path);
  return read(path);
}

// Empty for a form that has none. What is only shown may change before a save. A form that refers to none is no reason
// to look for its spelling.
std::string ProjectOnDisk::FrxOf(const std::string& frmPath, std::string_view frm, bool isShown) const {
  std::string path = frmPath.substr(0, frmPath.rfind('.')) + ".frx";
  const auto read = [&](const std::string& file) { return isShown ? files_.Read(file) : read_.Read(file); };
  return (HoldsReference(frm) ? Found(path, read) : read(path)).value_or("");
}

// The path of a new file, whose folder is spelled as it is.
std::string ProjectOnDisk::NewFile(const std::string& projectPath) const {
  std::string path = FilePath(projectPath);
  const std::string_view part = system::FolderPart(path);
  const std::string folder = system::FolderOf(path);
  if (part.empty() || files_.KindOf(folder) != system::FileKind::None) return path;
  return spelling_.Of(folder) + path.substr(part.size() - 1);
}

// For messages: the line of the project file that lists a component.
std::string ProjectOnDisk::PlaceOf(const Entry& entry) const {
  ProjectFile file(path_, original_);
  const std::vector<ProjectFile::Item> items = file.TakeItems();
  const auto item = std::ranges::find(items, entry.Path, &ProjectFile::Item::Path);
  return path_ + ":" + (item == items.end() ? "" : std::to_string(item->Line) + ":") + " ";
}

std::string ProjectOnDisk::NameInFile(const Entry& entry) const {
  std::string path = FilePath(entry.Path);
  std::optional<std::string> head;
  try {
    head = Found(path, [&](const std::string& file) { return read_.ReadHead(file, NameIsWithin); });
  } catch (const support::InputError& error) {
    throw support::InputError(PlaceOf(entry) + error.what());
  }
  if (!head) {
    throw FileGone(PlaceOf(entry) + "the file " + path +
                   " is not there; restore it or take its line out of the project");
  }
  const std::string_view name = ReadComponentName(*head);
  // A form whose name does not stand in its first bytes goes by its file.
  return std::string(name.empty() ? StemOf(entry.Path) : name);
}

std::string ProjectOnDisk::NameOf(const Entry& entry) const {
  const auto byFile = [&](bool isGone, const support::InputError& error) {
    if (!bearsUnreadable_) throw;
    unread_.insert_or_assign(&entry, Unread{isGone, error.what()});
    return std::string(StemOf(entry.Path));
  };
  try {
    return NameInFile(entry);
  } catch (const FileGone& gone) {
    return byFile(true, gone);
  } catch (const support::InputError& error) {
    return byFile(false, error);
  }
}

// Of two that have one name the one that could be read is meant.
void ProjectOnDisk::ReadNames() const {
  if (namesRead_) return;
  byName_.reserve(entries_.size());
  for (Entry& entry : entries_) {
    if (entry.Name.empty()) entry.Name = texts_.Kept(NameOf(entry));
    if (!unread_.contains(&entry)) byName_.insert(&entry);
  }
  for (Entry& entry : entries_) byName_.insert(&entry);
  namesRead_ = true;
}

ProjectOnDisk::Entry* ProjectOnDisk::FindEntry(std::string_view bytes) const {
  ReadNames();
  const auto found = byName_.find(bytes);
  return found == byName_.end() ? nullptr : *found;
}

std::shared_ptr<VBComponent> ProjectOnDisk::Find(std::string_view name) {
  Entry* entry = FindEntry(codePage_.Encode(name));
  // What is compared stands for the empty start-up form of a new project, and has no name yet.
  if (compared_ && name == StartUpForm) entry = compared_->Of;
  if (compared_ && entry == compared_->Of)
    return name == StartUpForm ? std::make_shared<Component>(*this, *entry) : nullptr;
  if (!entry || codePage_.Decode(entry->Name) != name) return nullptr;
  return std::make_shared<Component>(*this, *entry);
}

// The search for a stem goes on where the last one ended.
Int32 ProjectOnDisk::FirstFreeNumber(std::string_view stem) const {
  if (compared_) return compared_->Number;
  const std::string bytes = codePage_.Encode(stem);
  int& number = firstFree_.try_emplace(bytes, 2).first->second;
  for (;; ++number) {
    const std::string name = bytes + std::to_string(number);
    const Entry* entry = FindEntry(name);
    if (!entry || entry->Name != name) return Int32(number);
  }
}

std::shared_ptr<VBComponent> ProjectOnDisk::Add(ComponentType type) {
  if (type != ComponentType::Form) runtime::Raise(runtime::InvalidProcedureCall);
  while (FindEntry("Form" + std::to_string(firstFreeForm_))) ++firstFreeForm_;
  const std::string name = "Form" + std::to_string(firstFreeForm_);
  Entry& entry = entries_.emplace_back(
      Entry{texts_.Kept(name), "", true, ComponentGroup::Form, FormDocument::New(name, codePage_, libraries_)});
  byName_.insert(&entry);
  open_.push_back(&entry);
  return std::make_shared<Component>(*this, entry);
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

void ProjectOnDisk::AddToolboxProgID(std::string_view progId) {
  const std::string_view library = Toolbox::LibraryOf(progId);
  if (!library.empty() && libraries_.Find(library)) return;
  ObjectReference reference = toolbox_.Find(progId);
  project_.AddObject(reference.Id + "; " + reference.File);
  libraries_.Add(std::move(reference));
}

FormDocument& ProjectOnDisk::DocumentOf(Entry& entry) {
  if (!entry.IsForm) runtime::Raise(runtime::ObjectVariableNotSet);
  if (entry.IsFinished) {
    runtime::Raise(runtime::AutomationError, "The form '" + codePage_.Decode(entry.Name) + "' is finished");
  }
  if (!entry.Document) {
    std::string path = FilePath(entry.Path);
    std::optional<std::string> frm = Found(path, [&](const std::string& file) { return read_.Read(file); });
    if (!frm) {
      throw support::InputError(path + ": the form is not there; restore it or take its line out of the project");
    }
    const std::string frx = FrxOf(path, *frm, false);
    entry.Document = FormDocument::Parse(path, *std::move(frm), frx, codePage_, libraries_);
    open_.push_back(&entry);
  }
  return *entry.Document;
}

std::shared_ptr<VBControls> ProjectOnDisk::ControlsOf(Entry& entry) {
  if (!entry.IsForm) return nullptr;
  if (entry.IsFinished) return std::make_shared<FinishedControls>(entry.ControlCount);
  return DocumentOf(entry).Controls();
}

void ProjectOnDisk::Rename(Entry& entry, std::string_view name) {
  const std::string bytes = codePage_.Encode(name);
  const Entry* other = FindEntry(bytes);
  if ((other && other != &entry) || runtime::EqualIgnoringCase(bytes, project_.Name())) {
    runtime::Raise(runtime::NameConflict,
                   "Name conflicts with existing module, project, or object library: '" + std::string(name) + "'");
  }
  DocumentOf(entry).SetName(name);
  if (bytes != entry.Name) ChangeName(entry, bytes);
}

void ProjectOnDisk::ChangeName(Entry& entry, std::string_view bytes) {
  // A new form is never what the project file means, even where a form that is gone had its name.
  if (!entry.Path.empty()) project_.RenameForm(entry.Name, bytes);
  byName_.erase(&entry);
  Release(entry.Name);
  entry.Name = texts_.Kept(bytes);
  byName_.insert(&entry);
}

std::optional<std::string> ProjectOnDisk::TakeBack(std::string_view name) {
  Entry* entry = FindEntry(codePage_.Encode(name));
  if (!entry || !entry->Document || !entry->Document->IsChanged()) {
    throw support::InputError(path_ + ": nothing of \"" + std::string(name) + "\" can be taken back; it is as saved");
  }
  std::erase(open_, entry);
  entry->Document.reset();
  std::optional<std::string> before;
  if (entry->Path.empty()) {
    byName_.erase(entry);
    Release(entry->Name);
    entries_.remove_if([&](const Entry& each) { return &each == entry; });
  } else {
    const std::string bytes = NameInFile(*entry);
    if (bytes != entry->Name) ChangeName(*entry, bytes);
    before = codePage_.Decode(bytes);
  }
  RestoreProject();
  return before;
}

// When no form is changed any more, neither is the project file.
void ProjectOnDisk::RestoreProject() {
  if (std::ranges::any_of(open_, [](const Entry* entry) { return entry->Document->IsChanged(); })) return;
  project_.GoBackTo(ProjectFile(path_, original_).Current());
  libraries_ = {};
  for (const std::string_view value : project_.Objects()) libraries_.Add(toolbox_.Parse(value));
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

// A name that is free again may have the lowest free number.
void ProjectOnDisk::Release(std::string_view name) {
  const std::string_view stem = name.substr(0, name.find_last_not_of("0123456789") + 1);
  const std::string_view digits = name.substr(stem.size());
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (number < 1) return;
  if (runtime::EqualIgnoringCase(stem, "Form")) firstFreeForm_ = std::min(firstFreeForm_, number);
  const auto next = firstFree_.find(std::string(stem));
  if (next != firstFree_.end()) next->second = std::clamp(number, 2, next->second);
}

void ProjectOnDisk::Announce(const std::string& path, std::optional<std::string> old, std::optional<std::string> text) {
  if (listener_) listener_({path, std::move(old), std::move(text)});
}

Saving& ProjectOnDisk::CurrentSaving() {
  if (!saving_) saving_ = std::make_unique<Saving>(files_, path_, original_, read_);
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

void ProjectOnDisk::CompareNext(std::string_view stem, std::string_view codeBegins) {
  const std::string name = codePage_.Encode(stem), begins = codePage_.Encode(codeBegins);
  int& number = nextToCompare_.try_emplace(name + '\n' + begins, 1).first->second;
  for (;; ++number) {
    Entry* entry = FindEntry(number == 1 ? name : name + std::to_string(number));
    if (!entry) return;
    if (entry->IsForm && !entry->IsFinished && !entry->Document && TakeForComparison(*entry, Int32(number), begins)) {
      ++number;
      return;
    }
  }
}

bool ProjectOnDisk::CompareForm(std::string_view name, int number, std::string_view codeBegins) {
  Entry* const entry = FindEntry(codePage_.Encode(name));
  if (!entry || !entry->IsForm || entry->Document) return false;
  return TakeForComparison(*entry, Int32(number), codePage_.Encode(codeBegins));
}

void ProjectOnDisk::CountFrom(std::string_view stem, int number) { firstFree_[codePage_.Encode(stem)] = number; }

bool ProjectOnDisk::TakeForComparison(Entry& entry, Int32 number, std::string_view codeBegins) {
  std::string path = FilePath(entry.Path);
  std::optional<std::string> frm = Found(path, [&](const std::string& file) { return read_.Read(file); });
  if (!frm || FindLine(*frm, codeBegins) == std::string::npos) return false;
  std::string frx = FrxOf(path, *frm, false);
  entry.Document = FormDocument::Emptied(path, *frm, frx, codeBegins, codePage_, libraries_);
  open_.push_back(&entry);
  compared_ = {&entry, number, std::move(path), {*std::move(frm), std::move(frx)}};
  return true;
}

void ProjectOnDisk::FinishCompared(Entry& entry) {
  Compared old = *std::exchange(compared_, std::nullopt);
  FormFiles content = entry.Document->Render(StemOf(entry.Path));
  entry.ControlCount = entry.Document->Controls()->Count();
  entry.IsFinished = true;
  entry.Document.reset();
  const std::string frxPath = old.Path.substr(0, old.Path.rfind('.')) + ".frx";
  const auto announce = [&](const std::string& path, std::string& was, std::string& is) {
    if (was != is) Announce(path, std::move(was), std::move(is));
  };
  announce(old.Path, old.Files.Frm, content.Frm);
  announce(frxPath, old.Files.Frx, content.Frx);
}

// A form that was reused gets a new file beside its old one, which stays where it is.
void ProjectOnDisk::Finish(Entry& entry) {
  if (compared_ && compared_->Of == &entry) return FinishCompared(entry);
  const std::string stem = NewStem(entry);
  const std::string newPath = ProjectFolderPart(entry.Path) + stem + ".frm";
  const std::string file = NewFile(newPath);
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

void ProjectOnDisk::Put(const std::string& path, const std::optional<std::string>& bytes,
                        const std::optional<std::string>& old) {
  if (bytes == old) return;
  if (!dryRun_) CurrentSaving().Put(path, bytes, old);
  put_.push_back(path);
  Announce(path, old, bytes);
}

void ProjectOnDisk::PutTexts(std::string_view name, const FormFiles& texts, const FormFiles& old) {
  const auto given = [](const std::string& bytes) { return bytes.empty() ? std::nullopt : std::optional(bytes); };
  const std::string file = FileOf(name);
  const std::string frx = SpelledPath(file.substr(0, file.rfind('.')) + ".frx");
  Put(frx, given(texts.Frx), given(old.Frx));
  Put(file, texts.Frm, old.Frm);
}

void ProjectOnDisk::FinishAndCommit() {
  FinishForms();
  if (prepare_) prepare_();
  if (!project_.IsChanged() && put_.empty()) return;
  for (const std::string& path : put_) read_.Forget(path);  // each is compared with what it is to hold
  if (!dryRun_) CurrentSaving().Commit(project_.Text());
  put_.clear();
  if (!project_.IsChanged()) return;
  project_.MarkSaved();
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

std::string NameInForm(std::string_view frm) { return std::string(ReadComponentName(frm.substr(0, NameIsWithin))); }

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
    const bool isChanged = entry.Document && (entry.Path.empty() || entry.Document->IsChanged());
    summaries.push_back({codePage_.Decode(entry.Name), entry.Path.empty() ? "" : FilePath(entry.Path), entry.IsForm,
                         entry.Group, isChanged});
    const auto unread = unread_.find(&entry);
    if (unread == unread_.end()) continue;
    summaries.back().IsGone = unread->second.IsGone;
    summaries.back().Problem = unread->second.Problem;
  }
  return summaries;
}

std::vector<std::string> ProjectOnDisk::RelatedDocuments() const {
  std::vector<std::string> documents;
  for (const std::string_view path : project_.RelatedDocuments()) documents.push_back(FilePath(path));
  return documents;
}

const ProjectOnDisk::Entry& ProjectOnDisk::ComponentOf(std::string_view name) const {
  const Entry* entry = FindEntry(codePage_.Encode(name));
  if (!entry) throw support::InputError(path_ + ": the project has no component \"" + std::string(name) + "\"");
  return *entry;
}

std::string ProjectOnDisk::SpelledPath(const std::string& path) const {
  return files_.KindOf(path) == system::FileKind::None ? spelling_.Of(path) : path;
}

std::string ProjectOnDisk::FileOf(std::string_view name) const {
  const Entry& entry = ComponentOf(name);
  return entry.Path.empty() ? "" : SpelledPath(FilePath(entry.Path));
}

FormFiles ProjectOnDisk::TextsOf(std::string_view name) {
  const Entry* const entry = &ComponentOf(name);
  if (entry->Document) return entry->Document->Render(entry->Path.empty() ? entry->Name : StemOf(entry->Path));
  std::string path = FilePath(entry->Path);
  std::optional<std::string> text = Found(path, [&](const std::string& file) { return files_.Read(file); });
  if (!text) {
    throw support::InputError(path + ": the file is not there; restore it or take its line out of the project");
  }
  std::string frx = entry->IsForm ? FrxOf(path, *text, true) : "";
  return {std::move(*text), std::move(frx)};
}

}  // namespace formwizard::adapters::vb6files
