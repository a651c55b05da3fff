#include "apps/desktop/kept/KeptStates.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "vbtext/Lines.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr int WhileUsed = 200;  // milliseconds until it is seen again whether a dialog is open

}  // namespace

KeptStates::KeptStates(std::function<Source()> source) : source_(std::move(source)) {
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Step(); });
}

void KeptStates::Start(const std::string& shown) {
  first_ = runtime::LowerCase(shown);
  hasBegun_ = false;
  timer_.start(0);
}

void KeptStates::Clear() {
  timer_.stop();
  waiting_.clear();
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
    for (const std::string& form : source.Forms->Meant({})) names.emplace(runtime::LowerCase(form), form);
  }
  for (const auto& [key, name] : std::exchange(names_, std::move(names))) {
    if (names_.contains(key)) continue;
    known_.erase(key);
    OnStanding(name, nullptr);
  }
  if (!source.HasDictionary) return;
  for (const auto& [key, name] : names_) waiting_.push_back(name);
  std::ranges::reverse(waiting_);
  const auto first =
      std::ranges::find(waiting_, first_, [](const std::string& form) { return runtime::LowerCase(form); });
  if (first != waiting_.end()) std::rotate(first, first + 1, waiting_.end());
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
    } else if (!waiting_.empty()) {
      const std::string form = std::move(waiting_.back());
      waiting_.pop_back();
      const Standing& known = known_[runtime::LowerCase(form)] = Look(source_(), form);
      OnStanding(form, &known);
    }
  } catch (const support::InputError& error) {
    Clear();
    return OnDone(error.what());
  }
  if (waiting_.empty()) return OnDone("");
  timer_.start(0);
}

}  // namespace formwizard::apps::desktop
