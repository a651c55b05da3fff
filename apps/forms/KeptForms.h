// The kept forms of a project: what has become of each, and bringing it up to its class.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/forms/KeptFolder.h"
#include "apps/forms/Remake.h"
#include "kept/State.h"
#include "kept/Update.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::apps::forms {

// A form with all that is known of it.
struct KeptForm {
  std::string Name;  // as its kept texts are called
  std::string File;  // in the project; empty for one that is missing
  kept::State State;
  kept::Sides Sides;  // Theirs is as Base where the form cannot be made any longer
  KeptTexts Texts;
  std::optional<FormDescription> Next;  // of the form as it would be made now
  std::vector<std::string> Messages;    // of what the environment would refuse
};

// A form that was taken up.
struct Taken {
  std::string Name;  // as the project calls it
  kept::State State;
  std::vector<std::string> Messages;  // of what the environment refused
};

class KeptForms {
 public:
  // `project` must outlive this object; nothing in it changes before Put.
  KeptForms(system::FileSystem& files, adapters::vb6files::ProjectOnDisk& project, const std::string& dictionary,
            const std::string& program);

  const KeptFolder& Folder() const { return folder_; }
  // Those that are meant by names in any case of their letters, or all. support::InputError for one that is not kept.
  std::vector<std::string> Meant(const std::vector<std::string>& names) const;

  // support::InputError for what cannot be read. Without `lists` the differences in its state are only what is needed
  // to tell whether it is outdated. With `choices` as if its description had their class, system, settings and fields.
  KeptForm Look(const std::string& name, bool lists = true, const FormDescription* choices = nullptr);
  // What becomes of it; see kept::UpdateOf.
  kept::Update UpdateOf(const KeptForm& form, const kept::Decision& decide) const;
  // Has the project write the form as updated and its kept texts when it is saved.
  void Put(const KeptForm& form, const kept::Update& update);

  // Has the project take the files of a form out of the folder when it is saved: it is kept no longer.
  void Release(const std::string& name);

  // Takes up a form of the project as one that the description has given: the project writes its kept texts when it is
  // saved.
  Taken Keep(const FormDescription& description, const std::string& form);

 private:
  const std::string* NameInProject(const std::string& form) const;
  void LookForFile(KeptForm& form) const;
  void Examine(KeptForm& form, FormDescription description, bool lists);
  void CompareWithProject(KeptForm& form, bool lists) const;

  system::FileSystem& files_;
  adapters::vb6files::ProjectOnDisk& project_;
  KeptFolder folder_;
  Remake remake_;
  std::string objectLines_;
  std::map<std::string, std::string> components_;             // forms of the project by their names in small letters
  std::map<std::string, std::string> calledOtherwise_;        // those whose files have other names, by these
  std::vector<adapters::vb6files::ComponentSummary> unread_;  // that cannot be read
};

// Has the project write the kept texts of a form that was made, in place of the old ones, when it is saved.
void PutKeptTexts(adapters::vb6files::ProjectOnDisk& project, const KeptFolder& folder, const std::string& form,
                  const FormDescription& description, const kept::FormTexts& made, const KeptTexts& old);

}  // namespace formwizard::apps::forms
