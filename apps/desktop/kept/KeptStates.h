// Works out how the kept forms of the open project stand, while nothing else is to be done.
#pragma once

#include "apps/desktop/kept/UnsavedUpdates.h"
#include "apps/forms/KeptForms.h"

#include <QString>
#include <QTimer>

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace formwizard::apps::desktop {

// A kept form, or why it cannot be compared.
struct Standing {
  kept::State State;
  std::string Problem;  // empty where it can

  bool IsOutdated() const { return Problem.empty() && State.IsOutdated(); }
};

class KeptStates {
 public:
  // What there is to look at; Forms is null without a project. Both must live until the next call.
  struct Source {
    forms::KeptForms* Forms = nullptr;
    const UnsavedUpdates* Updates = nullptr;
    bool HasDictionary = false;  // without one only the names are known, and what the project lacks
    std::function<bool(const std::string& form)> IsInProject = [](const auto&) { return true; };
  };

  // The source is asked before each step, and may throw support::InputError.
  explicit KeptStates(std::function<Source()> source);

  // Looks at all forms anew, a few each time that nothing else is to be done. What was known stays until it is known
  // better.
  void Start();
  // These are looked at before all others, the last one first.
  void Prefer(std::vector<std::string> forms);
  // Nothing is known any more, and nothing is worked out.
  void Clear();
  bool IsDone() const { return !timer_.isActive(); }

  // By the name of the form in any case of its letters; null for one that is not kept, or not known yet.
  const Standing* Find(const std::string& form) const;
  // Whether the folder has it, known or not.
  bool IsKept(const std::string& form) const;
  std::vector<std::string> Outdated() const;
  std::size_t Count() const { return known_.size(); }
  // Those that are kept, known or not.
  std::size_t KeptCount() const { return names_.size(); }

  // Which of them the project lacks, before any state is known.
  std::function<void(std::set<std::string> missing)> OnMissing = [](const auto&) {};
  // Something is known of a form; null for one that is kept no longer.
  std::function<void(const std::string& form, const Standing*)> OnStanding = [](const auto&, const Standing*) {};
  // All that is kept is known; what could not be read, if it was all of it.
  std::function<void(const std::string& problem)> OnDone = [](const std::string&) {};

 private:
  void Step();
  void Begin();
  std::string Next();
  void LookAtNext();
  static Standing Look(const Source& source, const std::string& form);

  std::function<Source()> source_;
  QTimer timer_;
  bool hasBegun_ = false;
  // All are by names in small letters.
  std::set<std::string> waiting_;
  std::vector<std::string> preferred_;  // the next one at the end; what does not wait is passed over
  std::map<std::string, Standing> known_;
  std::map<std::string, std::string> names_;
};

}  // namespace formwizard::apps::desktop
