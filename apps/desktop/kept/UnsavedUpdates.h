// What the user has done to kept forms and not saved: updates that were taken, and forms that are kept no longer.
#pragma once

#include "apps/desktop/kept/UpdateChoices.h"

#include <QDateTime>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

class UnsavedUpdates {
 public:
  struct Updated {
    forms::KeptForm Form;
    kept::Update Update;

    // How it will stand once it is saved.
    kept::State State() const;
  };

  // Takes those that one command has updated. One of a form that has an update already takes its place: both start from
  // what stands on the disk.
  void Take(const std::vector<UpdateChoices>& decided, const QDateTime& now = QDateTime::currentDateTime());

  // The form is kept no longer: its kept texts go. It has no update.
  void Release(const std::string& form, const QDateTime& now = QDateTime::currentDateTime());
  bool IsReleased(const std::string& form) const;

  bool IsEmpty() const { return updated_.empty(); }
  // By the name of the form; null for none, also where the form is only kept no longer.
  const Updated* Find(const std::string& form) const;
  // As KeptForms::Look, by the choices of its update where the form has one. What it was updated to shows nowhere.
  forms::KeptForm Look(forms::KeptForms& forms, const std::string& form, bool lists = true) const;
  // What the last command has updated, and when.
  std::vector<std::string> LastForms() const;
  QDateTime LastTime() const { return IsEmpty() ? QDateTime() : updated_.back().Time; }

  // What the form was before is what it is again; false where it has none.
  bool TakeBack(const std::string& form);
  void TakeBackLast();
  void Clear();

  // What was decided on forms is chosen again when they are looked at again, taken or not, as long as the same stands
  // in the project.
  void RememberDecisions(const std::vector<UpdateChoices>& forms);
  UpdateChoices::Decisions DecisionsOn(const forms::KeptForm& form) const;
  void ForgetDecisions() { decided_.clear(); }

  // Has the project write all of them when it is saved; see KeptForms::Put.
  void PutInto(forms::KeptForms& forms) const;

 private:
  struct Entry {
    std::string Name;
    std::optional<Updated> Form;  // nothing where it is kept no longer
    int Command;                  // counted, so that one command's are told from the next one's
    QDateTime Time;
  };

  struct Decided {
    std::uint64_t Mine;  // the sum of the form that was decided on
    UpdateChoices::Decisions Choices;
  };

  const Entry* EntryOf(const std::string& form) const;

  std::vector<Entry> updated_;              // the last command's at the end
  std::map<std::string, Decided> decided_;  // by the names of forms
  int commands_ = 0;
};

}  // namespace formwizard::apps::desktop
