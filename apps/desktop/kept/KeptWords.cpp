#include "apps/desktop/kept/KeptWords.h"

#include "adapters/qt/Text.h"

#include <algorithm>
#include <array>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;

constexpr qsizetype MostReasons = 4;

struct Attribute {
  std::string_view Name;  // as kept::PropertyChange calls it
  T Word;
};
constexpr std::array Attributes{Attribute{"kind", T::KeptKind},         Attribute{"type", T::KeptType},
                                Attribute{"required", T::KeptRequired}, Attribute{"read-only", T::KeptReadOnly},
                                Attribute{"width", T::KeptWidth},       Attribute{"caption", T::KeptCaption}};

}  // namespace

QString WordsOf(const Standing& standing, const Texts& texts) {
  const kept::State& state = standing.State;
  if (!standing.Problem.empty()) return texts(T::KeptUnreadable);
  if (state.IsMissing) return texts(T::StateMissing);
  if (state.IsForeign) return texts(T::KeptForeign);
  if (state.IsOutdated()) return texts(state.IsEdited() ? T::KeptBoth : T::KeptOutdated);
  return texts(state.IsEdited() ? T::KeptEdited : T::KeptUnchanged);
}

QStringList IconsOf(const Standing& standing) {
  if (!standing.Problem.empty() || standing.State.IsMissing || standing.State.IsForeign) return {"missing"};
  QStringList icons;
  if (standing.State.IsEdited()) icons << "edited";
  if (standing.State.IsOutdated()) icons << "outdated";
  return icons.isEmpty() ? QStringList{"kept"} : icons;
}

QString Listed(const QStringList& names, qsizetype most, const Texts& texts) {
  const qsizetype more = names.size() - most;
  return more <= 1 ? names.join(", ") : texts(T::AndMore, names.mid(0, most).join(", "), QString::number(more));
}

QString WordsOf(const kept::ClassChanges& changes, const Texts& texts) {
  QStringList reasons;
  const auto add = [&](const std::string& property, T word) { reasons << Text(property) + " (" + texts(word) + ")"; };
  for (const std::string& property : changes.Lost) add(property, T::UpdateGone);
  for (const kept::PropertyChange& change : changes.Changed) {
    add(change.Property, std::ranges::find(Attributes, change.What, &Attribute::Name)->Word);
  }
  for (const kept::Property& property : changes.New) add(property.Path, T::UpdateNew);
  return Listed(reasons, MostReasons, texts);
}

std::vector<LineRange> EditedLines(const kept::State& state, int codeBegins) {
  std::vector<LineRange> lines;
  for (const vbtext::Difference& edit : state.Edits) {
    if (!edit.B || static_cast<int>(edit.B->First) < codeBegins || edit.B->Count() == 0) continue;
    lines.push_back({static_cast<int>(edit.B->First) - codeBegins, static_cast<int>(edit.B->Behind) - codeBegins - 1});
  }
  std::ranges::sort(lines, {}, &LineRange::First);
  return lines;
}

}  // namespace formwizard::apps::desktop
