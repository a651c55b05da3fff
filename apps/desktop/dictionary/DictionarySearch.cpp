#include "apps/desktop/dictionary/DictionarySearch.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {

void MemberNames::Clear() { *this = MemberNames(); }

void MemberNames::Add(Entry& to, const QString& name) {
  const auto next = static_cast<std::uint32_t>(names_.size());
  const auto [known, isNew] = numbers_.emplace(name, next);
  if (isNew) {
    names_.push_back(name);
    fits_.push_back(Answer::Unknown);
  }
  if (to.MemberCount++ == 0) to.FirstMember = members_.size();
  members_.push_back(known->second);
}

void MemberNames::Seek(const QStringMatcher& text) {
  text_ = text;
  std::ranges::fill(fits_, Answer::Unknown);
}

bool MemberNames::AnyFits(const Entry& of) {
  for (std::size_t i = of.FirstMember; i < of.FirstMember + of.MemberCount; ++i) {
    Answer& answer = fits_[members_[i]];
    if (answer == Answer::Unknown) answer = text_.indexIn(names_[members_[i]]) < 0 ? Answer::No : Answer::Yes;
    if (answer == Answer::Yes) return true;
  }
  return false;
}

void DictionarySearch::Clear() { *this = DictionarySearch(); }

void DictionarySearch::Begin(const QString& text, const std::vector<Entry*>& classes) {
  const bool hasEnded = IsOn() && nextClass_ == looked_.size() && nextUnnamed_ == unnamed_.size() && !IsCut();
  const bool goesOn = hasEnded && text.contains(text_, Qt::CaseInsensitive);
  if (goesOn) {
    looked_ = std::move(found_);
    std::ranges::sort(looked_, {}, &Entry::Order);
  } else {
    looked_ = classes;
  }
  text_ = text;
  matcher_ = QStringMatcher(text, Qt::CaseInsensitive);
  names_.Seek(matcher_);
  unnamed_.clear();
  found_.clear();
  nextClass_ = nextUnnamed_ = 0;
}

bool DictionarySearch::IsMemberFound(Entry& entry, DictionaryReader& reader) {
  if (!entry.AreMembersKnown) {
    const QString connect = entry.Above->Above->Type;
    entry.MemberCount = 0;  // also of a reading that has failed
    reader.ForEachMember(connect, entry.Name,
                         [&](EntryKind, const QString& name, const QString&) { names_.Add(entry, name); });
    entry.AreMembersKnown = true;
  }
  return names_.AnyFits(entry);
}

bool DictionarySearch::GoOn(DictionaryReader& reader, const QDeadlineTimer& until,
                            const std::function<void(Entry& found, bool byName)>& onFound) {
  for (; nextClass_ < looked_.size() && !IsCut(); ++nextClass_) {
    if (until.hasExpired()) return true;
    Entry& entry = *looked_[nextClass_];
    if (!Fits(entry.Name)) {
      unnamed_.push_back(&entry);
      continue;
    }
    found_.push_back(&entry);
    onFound(entry, true);
  }
  for (; nextUnnamed_ < unnamed_.size() && !IsCut(); ++nextUnnamed_) {
    if (until.hasExpired()) return true;
    Entry& entry = *unnamed_[nextUnnamed_];
    if (!IsMemberFound(entry, reader)) continue;
    found_.push_back(&entry);
    onFound(entry, false);
  }
  return false;
}

}  // namespace formwizard::apps::desktop
