// Looks for a text in the names of classes and of their members, a slice at a time.
#pragma once

#include "apps/desktop/dictionary/DictionaryReader.h"

#include <QDeadlineTimer>
#include <QStringMatcher>

#include <cstdint>
#include <functional>
#include <unordered_map>
#include <vector>

namespace formwizard::apps::desktop {

// The names of members of many classes, each name kept once.
class MemberNames {
 public:
  void Clear();
  // All of a class, of which none were added before.
  void Add(Entry& to, const QString& name);
  // From now on it is about this text.
  void Seek(const QStringMatcher& text);
  // Whether a name of the class has the text.
  bool AnyFits(const Entry& of);

 private:
  enum class Answer : std::uint8_t { Unknown, No, Yes };

  std::unordered_map<QString, std::uint32_t> numbers_;
  std::vector<QString> names_;
  std::vector<Answer> fits_;
  std::vector<std::uint32_t> members_;  // of one class behind the other
  QStringMatcher text_;
};

class DictionarySearch {
 public:
  static constexpr std::size_t MostFound = 1000;

  // Another dictionary: what was read of its members is forgotten.
  void Clear();
  // Classes, in the order of the dictionary; when the text goes on where the last one ended, and that search came to
  // its end, only those that had it are looked through.
  void Begin(const QString& text, const std::vector<Entry*>& classes);
  void End() { text_.clear(); }
  bool IsOn() const { return !text_.isEmpty(); }
  const QString& Text() const { return text_; }

  // The names of classes first. `onFound` hears of each that fits by its full name, or else by a member. True when time
  // is up and more is left to do; fails with what the reader raises.
  bool GoOn(DictionaryReader& reader, const QDeadlineTimer& until,
            const std::function<void(Entry& found, bool byName)>& onFound);
  // Whether there may be more than were found: the first ones are enough to see that more letters are needed.
  bool IsCut() const { return found_.size() >= MostFound; }

  bool Fits(const QString& name) const { return matcher_.indexIn(name) >= 0; }

 private:
  bool IsMemberFound(Entry& entry, DictionaryReader& reader);

  QString text_;
  QStringMatcher matcher_;
  MemberNames names_;
  std::vector<Entry*> looked_, unnamed_, found_;  // through; those whose own names do not fit
  std::size_t nextClass_ = 0, nextUnnamed_ = 0;
};

}  // namespace formwizard::apps::desktop
