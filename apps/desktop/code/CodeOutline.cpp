#include "apps/desktop/code/CodeOutline.h"

#include <QHash>

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

constexpr auto Insensitive = Qt::CaseInsensitive;

bool IsOneOf(QStringView word, std::initializer_list<QStringView> words) {
  return std::ranges::any_of(words, [&](QStringView each) { return word.compare(each, Insensitive) == 0; });
}

// Takes the next word off the line; empty where none follows.
QStringView TakeWord(QStringView& line) {
  line = line.trimmed();
  const auto* end = std::ranges::find_if(line, [](QChar c) { return !c.isLetterOrNumber() && c != '_'; });
  const QStringView word = line.first(end - line.begin());
  line = line.sliced(word.size());
  return word;
}

class Reader {
 public:
  explicit Reader(const QStringList& objects) {
    for (const QString& object : objects) objects_.insert(object.toLower(), object);
  }

  void Read(QStringView line) {
    const bool isNote = line.trimmed().isEmpty() || line.trimmed().startsWith('\'');
    if (!isNote) ReadStatement(line);
    ++line_;
  }

  CodeOutline Outline() && { return std::move(outline_); }

 private:
  void ReadStatement(QStringView line) {
    QStringView rest = line;
    QStringView word = TakeWord(rest);
    if (isInside_) {
      if (IsOneOf(word, {u"End"}) && IsOneOf(TakeWord(rest), {u"Sub", u"Function", u"Property"})) End();
      return;
    }
    while (IsOneOf(word, {u"Private", u"Public", u"Friend", u"Static", u"Dim"})) word = TakeWord(rest);
    if (IsOneOf(word, {u"Property"})) TakeWord(rest);  // Get, Let or Set
    if (IsOneOf(word, {u"Sub", u"Function", u"Property"})) {
      Begin(TakeWord(rest).toString());
    } else if (IsOneOf(word, {u"WithEvents", u"Implements"})) {
      const QString object = TakeWord(rest).toString();
      objects_.insert(object.toLower(), object);
    }
    if (outline_.Procedures.empty()) declarationsEnd_ = line_;
  }

  void Begin(const QString& name) {
    if (outline_.Procedures.empty() && declarationsEnd_ >= 0) outline_.Ends.push_back(declarationsEnd_);
    isInside_ = true;
    const qsizetype mark = name.lastIndexOf('_');
    const auto object = mark > 0 ? objects_.constFind(name.first(mark).toLower()) : objects_.constEnd();
    const bool isHandler = object != objects_.constEnd();
    outline_.Procedures.push_back(
        {isHandler ? *object : QString(), isHandler ? name.sliced(mark + 1) : name, name, line_, line_});
  }

  void End() {
    isInside_ = false;
    outline_.Procedures.back().Last = line_;
    outline_.Ends.push_back(line_);
  }

  QHash<QString, QString> objects_;  // by the name in small letters
  CodeOutline outline_;
  int line_ = 0, declarationsEnd_ = -1;
  bool isInside_ = false;
};

}  // namespace

CodeOutline OutlineOf(QStringView code, const QStringList& objects) {
  Reader reader(objects);
  for (const QStringView line : code.tokenize(u'\n')) reader.Read(line);
  return std::move(reader).Outline();
}

}  // namespace formwizard::apps::desktop
