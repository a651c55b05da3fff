// A project on disk that behaves as the one that is open in the environment.
#pragma once

#include "adapters/vb6files/Caseless.h"
#include "adapters/vb6files/ControlLibraries.h"
#include "adapters/vb6files/FileChange.h"
#include "adapters/vb6files/FormDocument.h"
#include "adapters/vb6files/ProjectFile.h"
#include "adapters/vb6files/ProjectFiles.h"
#include "adapters/vb6files/Saving.h"
#include "adapters/vb6files/Texts.h"
#include "adapters/vb6files/Toolbox.h"
#include "generator/ide/Ide.h"
#include "system/CodePage.h"
#include "system/FileSystem.h"

#include <functional>
#include <list>
#include <memory>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace formwizard::adapters::vb6files {

struct ProjectOptions {
  int CodePageNumber = 1252;
  std::string ToolboxFile = "";                    // empty: none
  std::optional<std::string> Text = std::nullopt;  // of a project that no file holds, which cannot be saved
  bool BearsUnreadable = false;                    // a component whose file cannot be read goes by the name of its file
};

// One component of the project, for showing. Texts are UTF-8.
struct ComponentSummary {
  std::string Name;
  std::string File;  // its path; empty for a form that was never saved
  bool IsForm;
  ComponentGroup Group;
  bool IsChanged;            // since it was read or saved; a new form always is
  bool IsGone = false;       // its file is not there
  std::string Problem = {};  // why it cannot be read, with the remedy; a form then goes by the name of its file
  bool IsAdded = false;      // its file was there before, and the project has it since it was read or saved
};

class ProjectOnDisk : public generator::ide::Vbe,
                      private generator::ide::VBProject,
                      private generator::ide::VBComponents {
 public:
  // Reads the project file; components are read when they are asked for. support::InputError names what is damaged or
  // cannot be read. A component whose file is not there has no designer, its name is taken, and its line stays. `files`
  // must outlive the project. A save that has replaced files and was cut off is taken back first.
  ProjectOnDisk(system::FileSystem& files, const std::string& path, const ProjectOptions& options);

  generator::ide::VBProject& ActiveVBProject() override { return *this; }

  // The listener hears of every file of a finished form, every file that is put and the project file, with what will
  // stand in it. With `dryRun` nothing is written.
  void OnChange(ChangeListener listener, bool dryRun);

  // For a dry run that tells whether the project has what would be made: the next form is made as if the one that has
  // its place were not filled yet, and the listener hears of it only where the two differ. That one is the first form
  // called `stem`, or so with a number behind it, whose code has the line `codeBegins` and which no call before has
  // named; without one a form is made as ever.
  void CompareNext(std::string_view stem, std::string_view codeBegins);

  // The same for the form of exactly this name; false, with nothing to be compared, when its code has no such line. It
  // is called by its stem when that is free, else by this number behind it.
  bool CompareForm(std::string_view name, int number, std::string_view codeBegins);
  // The next new form of this stem that needs a number gets this one, if it is free.
  void CountFrom(std::string_view stem, int number);
  // The next new form is called "Form" with this number until it gets its name.
  void CountNewFormsFrom(int number);

  // Renders every new or changed form, prepares its files and forgets its content: call it when a form is complete, so
  // that memory stays flat in a batch. support::SaveError when a file cannot be prepared.
  void FinishForms();

  // Adds a file to the next save, which writes it as one with the new forms and the project file: there are the files
  // of before or the new ones, also after a crash once the project has been opened again. `path` is its path on the
  // disk, whose folder is made where there is none; `bytes` shall stand there in place of `old`, which it holds;
  // without bytes the file goes, without old ones it is new. Nothing is to be done when they are the same. Prepared at
  // once, so that memory stays flat; in a dry run only announced. What is put is forgotten when saving fails, and
  // saving fails when the file does not hold `old` at its last moment. support::SaveError when it cannot be prepared.
  void Put(const std::string& path, const std::optional<std::string_view>& bytes,
           const std::optional<std::string_view>& old);
  // The same for the files of a component that is on the disk, `old` being its texts as TextsOf gave them. An empty Frx
  // is none.
  void PutTexts(std::string_view name, const FormBytes& texts, const FormBytes& old);

  // Called by Save when all forms are finished and nothing is on the disk yet: what it puts belongs to that save, which
  // its support::SaveError ends like any other.
  void OnSave(std::function<void()> prepare) { prepare_ = std::move(prepare); }

  // Finishes what is open and saves. A project in which nothing changed is not touched. support::SaveError with every
  // file as it was before; what was not finished before is still open then, so that saving can be tried again.
  void Save();

  // Adds a form whose file is on the disk, with the control libraries that it names and the project lacks. The path is
  // one of the project file, "Forms\\frmPerson.frm". support::InputError for a file that is not there or no form, and
  // where the project has a component of that name.
  void AddFormFile(std::string_view projectPath);

  // Takes back what was made of a component and not saved: a new form leaves the project, a form that was filled
  // becomes what its file holds again. What was called so, or nothing for a new form; InputError for a name that the
  // project does not have or that has nothing to take back.
  std::optional<std::string> TakeBack(std::string_view name);

  // From now on the control libraries that the project lacks come from this file (see Toolbox). support::InputError
  // leaves the one before.
  void UseToolbox(const std::string& file);

  // Of a form that has code from before the wizard filled it; nothing for any other, and once the form is finished.
  std::optional<KeptCode> CodeKeptIn(std::string_view name) const;

  // Of a form that the wizard filled; false for any other, and once the form is finished.
  bool IsWorthALook(std::string_view name) const;

  // Whether a form that is made has been one of the project before; false once it is finished.
  bool IsReused(std::string_view name) const;

  // The first name that a control of a form was to have and could not; nothing once the form is finished.
  std::optional<RefusedName> RefusedIn(std::string_view name) const;

  // support::InputError, with the remedy, when neither the project nor the toolbox knows the library of the control.
  void CheckToolboxKnows(std::string_view progId) const;

  // Why no new component can have this name, for a message: "which is the project's own name". Empty when one can.
  std::string ProblemOfNewName(std::string_view name) const;

  // The lines of the project file that name libraries of controls, as they stand there.
  std::string ObjectLines() const;
  const std::string& Path() const { return path_; }
  const system::CodePage& ProjectCodePage() const { return codePage_; }
  // Whether saving would write something.
  bool IsChanged() const;
  // In the order of the project file, new forms last.
  std::vector<ComponentSummary> Summaries() const;
  // A message, with place and remedy, for each component whose file was not there.
  std::vector<std::string> MissingFiles() const;
  // Whether a component is listed with this path, as in its line; a new one need not be.
  bool Lists(std::string_view projectPath) const { return listedPaths_.contains(projectPath); }
  // The paths of the files that the project lists beside its components.
  std::vector<std::string> RelatedDocuments() const;
  // The text of a component as saving would write it, with a form's companion file; a module's stands in Frm.
  // support::InputError for a name that the project does not have or a file that cannot be read.
  FormFiles TextsOf(std::string_view name);
  // The path of a component's file, spelled as its folder spells it; empty for a form that was never saved.
  // support::InputError for a name that the project does not have.
  std::string FileOf(std::string_view name) const;

 private:
  class Component;
  class FinishedControls;
  struct Entry {
    std::string_view Name;  // bytes; empty until it is asked for
    std::string_view Path;  // as in the project file; empty for a new form
    bool IsForm;
    ComponentGroup Group;
    std::shared_ptr<FormDocument> Document;  // null until it is asked for, and again when it is finished
    bool IsFinished = false;
    bool IsAdded = false;                     // by its file, which was there
    generator::ide::Int32 ControlCount = {};  // of a finished form
  };
  struct NameHash : CaselessHash {
    using CaselessHash::operator();
    std::size_t operator()(const Entry* entry) const { return (*this)(entry->Name); }
  };
  struct NameEqual {
    using is_transparent = void;
    static std::string_view Of(const Entry* entry) { return entry->Name; }
    static std::string_view Of(std::string_view name) { return name; }
    template <typename A, typename B>
    bool operator()(const A& a, const B& b) const {
      return CaselessEqual()(Of(a), Of(b));
    }
  };

  // A form that is made once more, and its files as they are.
  struct Compared {
    Entry* Of;
    generator::ide::Int32 Number;  // behind its stem; 1 for none
    std::string Path;
    FormFiles Files;
  };

  // A component whose file could not be read.
  struct Unread {
    bool IsGone;
    std::string Problem;
  };

  bool TakeForComparison(Entry& entry, generator::ide::Int32 number, std::string_view codeBegins);
  void FinishCompared(Entry& entry);

  void AddToolboxProgID(std::string_view progId) override;
  generator::ide::VBComponents& Components() override { return *this; }
  std::shared_ptr<generator::ide::VBComponent> Find(std::string_view name) override;
  generator::ide::Int32 FirstFreeNumber(std::string_view stem) const override;
  std::shared_ptr<generator::ide::VBComponent> Add(generator::ide::ComponentType type) override;

  void ReadNames() const;
  void PlaceUnread() const;
  bool IsGone(const Entry& entry) const;
  std::string PlaceOf(const Entry& entry) const;
  std::string NameInFile(const Entry& entry) const;
  std::string NameOf(const Entry& entry) const;
  Entry* FindEntry(std::string_view bytes) const;
  FormDocument& DocumentOf(Entry& entry);
  std::shared_ptr<generator::ide::VBControls> ControlsOf(Entry& entry);
  void AddLibrary(std::string_view value);
  void Rename(Entry& entry, std::string_view name);
  void ChangeName(Entry& entry, std::string_view bytes);
  void RestoreProject();
  void Release(std::string_view name);
  std::string NewStem(const Entry& entry);
  void Finish(Entry& entry);
  void FinishAndCommit();
  const Entry& ComponentOf(std::string_view name) const;
  void Announce(const std::string& path, std::optional<std::string> old, std::optional<std::string> text);
  Saving& CurrentSaving();

  system::FileSystem& files_;
  std::string path_, original_;
  system::CodePage codePage_;
  ProjectFiles projectFiles_;
  Toolbox toolbox_;
  ProjectFile project_;
  ControlLibraries libraries_;
  ChangeListener listener_;
  std::function<void()> prepare_;
  bool dryRun_ = false;
  mutable Texts texts_;               // names and paths of components
  mutable std::list<Entry> entries_;  // items first, then new forms
  mutable std::unordered_set<Entry*, NameHash, NameEqual> byName_;
  // Of component files as read, and of new ones that are not called by the names of their forms.
  std::pmr::unordered_set<std::string_view, CaselessHash, CaselessEqual> listedPaths_{&texts_};
  mutable bool namesRead_ = false;
  bool bearsUnreadable_;
  bool isOnDisk_;
  mutable std::unordered_map<const Entry*, Unread> unread_;
  mutable std::unordered_map<std::string, int> firstFree_;  // by stem
  int firstFreeForm_ = 1;                                   // no smaller number is free for a new "FormN"
  std::vector<Entry*> open_;                                // with a document that may have changed
  std::vector<std::string> put_;                            // paths that the next save writes as they are
  std::unique_ptr<Saving> saving_;
  std::optional<Compared> compared_;                    // while it is made
  std::unordered_map<std::string, int> nextToCompare_;  // by stem and line of code
};

}  // namespace formwizard::adapters::vb6files
