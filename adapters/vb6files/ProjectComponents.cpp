// The components of a project on disk as the environment shows and changes them.
#include "adapters/vb6files/ProjectOnDisk.h"

#include "adapters/vb6files/FormReader.h"
#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

using namespace generator::ide;

constexpr std::string_view StartUpForm = "Form1";  // of a new project

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

// For messages: the line of the project file that lists a component.
std::string ProjectOnDisk::PlaceOf(const Entry& entry) const {
  ProjectFile file(path_, original_);
  const std::vector<ProjectFile::Item> items = file.TakeItems();
  const auto item = std::ranges::find(items, entry.Path, &ProjectFile::Item::Path);
  return path_ + ":" + (item == items.end() ? "" : std::to_string(item->Line) + ":") + " ";
}

std::string ProjectOnDisk::NameInFile(const Entry& entry) const {
  try {
    return projectFiles_.NameIn(entry.Path);
  } catch (const support::InputError& error) {
    throw support::InputError(PlaceOf(entry) + error.what());
  }
}

// A form that is not there goes by its file; of a module only its line is read, which in a project that no file holds
// need not stand for one.
std::string ProjectOnDisk::NameOf(const Entry& entry) const {
  try {
    if (entry.Name.empty()) return projectFiles_.NameIn(entry.Path);
    if (isOnDisk_) projectFiles_.CheckIsThere(entry.Path);
    return std::string(entry.Name);
  } catch (const FileGone& gone) {
    unread_.insert_or_assign(&entry, Unread{true, gone.what()});
  } catch (const support::InputError& error) {
    if (!bearsUnreadable_) throw support::InputError(PlaceOf(entry) + error.what());
    unread_.insert_or_assign(&entry, Unread{false, error.what()});
  }
  return std::string(StemOf(entry.Path));
}

// Of two that have one name the one that could be read is meant.
void ProjectOnDisk::ReadNames() const {
  if (namesRead_) return;
  byName_.reserve(entries_.size());
  for (Entry& entry : entries_) {
    const std::string name = NameOf(entry);
    if (entry.Name.empty()) entry.Name = texts_.Kept(name);
    if (!unread_.contains(&entry)) byName_.insert(&entry);
  }
  for (Entry& entry : entries_) byName_.insert(&entry);
  namesRead_ = true;
  if (!unread_.empty()) PlaceUnread();
}

// In one go, as there may be many. No form is new yet.
void ProjectOnDisk::PlaceUnread() const {
  auto entry = entries_.cbegin();
  for (const ProjectFile::Item& item : ProjectFile(path_, original_).TakeItems()) {
    const auto unread = unread_.find(&*entry++);
    if (unread == unread_.end()) continue;
    unread->second.Problem = path_ + ":" + std::to_string(item.Line) + ": " + unread->second.Problem;
  }
}

bool ProjectOnDisk::IsGone(const Entry& entry) const {
  const auto unread = unread_.find(&entry);
  return unread != unread_.end() && unread->second.IsGone;
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

void ProjectOnDisk::AddFormFile(std::string_view projectPath) {
  const std::string bytes = codePage_.Encode(projectPath);
  std::string path = projectFiles_.PathOf(bytes);
  const std::optional<std::string> text = projectFiles_.Read(path, ReadFor::Showing);
  if (!text) throw support::InputError(path + ": the file is not there");
  const FormParts form = ReadForm(path, *text);
  if (FindEntry(form.Name) || runtime::EqualIgnoringCase(form.Name, project_.Name())) {
    throw support::InputError(path + ": the form is called " + codePage_.Decode(form.Name) +
                              ", and the project has that name already; rename one of them");
  }
  for (const std::string& line : form.HeadLines) {
    if (line.starts_with("Object")) AddLibrary(line.substr(std::min(line.find('=') + 1, line.size())));
  }
  Entry& entry =
      entries_.emplace_back(Entry{texts_.Kept(form.Name), texts_.Kept(bytes), true, ComponentGroup::Form, nullptr});
  entry.IsAdded = true;
  byName_.insert(&entry);
  listedPaths_.insert(entry.Path);
  project_.AddForm(bytes);
}

// As a form names it: the same with quotes. A library is known by its GUID.
void ProjectOnDisk::AddLibrary(std::string_view value) {
  std::string object(value);
  std::erase(object, '"');
  object.erase(0, std::min(object.find('{'), object.size()));
  const auto isSame = [&](std::string_view other) {
    return runtime::EqualIgnoringCase(other.substr(0, other.find('#')), object.substr(0, object.find('#')));
  };
  if (object.empty() || std::ranges::any_of(project_.Objects(), isSame)) return;
  object.resize(object.find_last_not_of(" \r\n") + 1);
  project_.AddObject(object);
  libraries_.Add(toolbox_.Parse(object));
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
    std::string path = projectFiles_.PathOf(entry.Path);
    std::optional<std::string> frm = projectFiles_.Read(path, ReadFor::Saving);
    if (!frm) {
      throw support::InputError(path + ": the form is not there; restore it or take its line out of the project");
    }
    const std::string frx = projectFiles_.FrxBeside(path, *frm, ReadFor::Saving);
    entry.Document = FormDocument::Parse(path, *std::move(frm), frx, codePage_, libraries_);
    open_.push_back(&entry);
  }
  return *entry.Document;
}

std::shared_ptr<VBControls> ProjectOnDisk::ControlsOf(Entry& entry) {
  if (!entry.IsForm || IsGone(entry)) return nullptr;
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
  if (!entry || (!entry->IsAdded && (!entry->Document || !entry->Document->IsChanged()))) {
    throw support::InputError(path_ + ": nothing of \"" + std::string(name) + "\" can be taken back; it is as saved");
  }
  std::erase(open_, entry);
  entry->Document.reset();
  std::optional<std::string> before;
  if (entry->Path.empty() || entry->IsAdded) {
    project_.RemoveForm(entry->Path);
    listedPaths_.erase(entry->Path);
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

// When no form is changed or added any more, the project file is not either.
void ProjectOnDisk::RestoreProject() {
  if (std::ranges::any_of(entries_, &Entry::IsAdded)) return;
  if (std::ranges::any_of(open_, [](const Entry* entry) { return entry->Document->IsChanged(); })) return;
  project_.GoBackTo(ProjectFile(path_, original_).Current());
  libraries_ = {};
  for (const std::string_view value : project_.Objects()) libraries_.Add(toolbox_.Parse(value));
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

}  // namespace formwizard::adapters::vb6files
