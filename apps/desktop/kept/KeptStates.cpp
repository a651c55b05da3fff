#include "apps/desktop/kept/KeptStates.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "vbtext/Lines.h"

#include <QApplication>
#include <QDeadlineTimer>

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

// Milliseconds: until it is seen again whether a dialog is open, and of looking at one form after the other.
constexpr int WhileUsed = 200, Slice = 10;

}  // namespace

KeptStates::KeptStates(std::function<Source()> source) : source_(std::move(source)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Step(); });
}

void KeptStates::Start() {
  hasBegun_ = false;
  timer_.start(0);
}

void KeptStates::Prefer(std::vector<std::string> forms) {
  for (std::string& form : forms) form = runtime::LowerCase(form);
  preferred_ = std::move(forms);
}

void KeptStates::Clear() {
  timer_.stop();
  waiting_.clear();
  preferred_.clear();
  known_.clear();
  names_.clear();
}

const Standing* KeptStates::Find(const std::string& form) const {
  const auto found = known_.find(runtime::LowerCase(form));
  return found == known_.end() ? nullptr : &found->second;
}

bool KeptStates::IsKept(const std::string& form) const { return names_.contains(runtime::LowerCase(form)); }

std::vector<std::string> KeptStates::Outdated() const {
  std::vector<std::string> forms;
  for (const auto& [key, standing] : known_) {
    if (standing.IsOutdated()) forms.push_back(names_.at(key));
  }
  return forms;
}

void KeptStates::Begin() {
  hasBegun_ = true;
  waiting_.clear();
  const Source source = source_();
  std::map<std::string, std::string> names;
  if (source.Forms) {
    for (const std::string& form : source.Forms->Meant({})) {
      if (!source.Updates->IsReleased(form)) names.emplace(runtime::LowerCase(form), form);
    }
  }
  for (const auto& [key, name] : std::exchange(names_, std::move(names))) {
    if (names_.contains(key)) continue;
    known_.erase(key);
    OnStanding(name, nullptr);
  }
  std::set<std::string> missing;
  for (const auto& [key, name] : names_) {
    const bool isMissing = !source.IsInProject(name);
    if (isMissing) missing.insert(name);
    const auto known = known_.find(key);
    if (!isMissing && !source.HasDictionary && known != known_.end() && known->second.State.IsMissing) {
      known_.erase(known);
      OnStanding(name, nullptr);
    }
    if (source.HasDictionary || isMissing) waiting_.insert(key);
  }
  OnMissing(std::move(missing));
}

std::string KeptStates::Next() {
  for (; !preferred_.empty(); preferred_.pop_back()) {
    if (const auto found = waiting_.find(preferred_.back()); found != waiting_.end())
      return names_.at(waiting_.extract(found).value());
  }
  return names_.at(waiting_.extract(waiting_.begin()).value());
}

void KeptStates::LookAtNext() {
  const std::string form = Next();
  const Standing& known = known_[runtime::LowerCase(form)] = Look(source_(), form);
  OnStanding(form, &known);
}

Standing KeptStates::Look(const Source& source, const std::string& form) {
  Standing standing;
  try {
    forms::KeptForm kept = source.Updates->Look(*source.Forms, form, false);
    standing.State = std::move(kept.State);
    if (const auto* updated = source.Updates->Find(form); updated && updated->Form.Sides.Theirs == kept.Sides.Theirs) {
      standing.State = updated->State();
    } else if (!standing.State.IsMissing && !standing.State.IsForeign) {
      standing.State.Edits = kept::DifferencesOf(kept.Sides.Base, kept.Sides.Mine);
    }
  } catch (const support::InputError& error) {
    standing.Problem = error.what();
  } catch (const vbtext::Fault& fault) {
    standing.Problem = form + ": expected " + fault.Expected;
  }
  return standing;
}

// What the user does in a dialog goes first.
void KeptStates::Step() {
  if (QApplication::activeModalWidget()) return timer_.start(WhileUsed);
  try {
    if (!hasBegun_) {
      Begin();
    } else {
      for (const QDeadlineTimer end(Slice); !waiting_.empty() && !end.hasExpired();) LookAtNext();
    }
  } catch (const support::InputError& error) {
    Clear();
    return OnDone(error.what());
  }
  if (waiting_.empty()) return OnDone("");
  timer_.start(0);
}

}  // namespace formwizard::apps::desktop
