#include "apps/desktop/update/CodeRows.h"

#include "vbtext/Alignment.h"

#include <QHash>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

std::vector<std::uint32_t> NumbersOf(const QStringList& lines, QHash<QString, std::uint32_t>& known) {
  std::vector<std::uint32_t> numbers;
  numbers.reserve(static_cast<std::size_t>(lines.size()));
  for (const QString& line : lines) {
    const auto next = static_cast<std::uint32_t>(known.size());
    const auto found = known.constFind(line);
    numbers.push_back(found == known.cend() ? *known.insert(line, next) : *found);
  }
  return numbers;
}

// What stands between two places that are the same: as far as both have lines these have changed.
void AddBetween(std::vector<CodeRow>& rows, CodeRow from, int before, int after) {
  while (from.Before < before && from.After < after) rows.push_back({RowKind::Changed, from.Before++, from.After++});
  while (from.Before < before) rows.push_back({RowKind::Gone, from.Before++, -1});
  while (from.After < after) rows.push_back({RowKind::New, -1, from.After++});
}

}  // namespace

std::vector<CodeRow> RowsOf(const QStringList& before, const QStringList& after) {
  QHash<QString, std::uint32_t> known;
  const std::vector<std::uint32_t> a = NumbersOf(before, known), b = NumbersOf(after, known);
  std::vector<CodeRow> rows;
  CodeRow next{RowKind::Same, 0, 0};
  for (const vbtext::Pair& pair : vbtext::Align(a, b)) {
    AddBetween(rows, next, static_cast<int>(pair.A), static_cast<int>(pair.B));
    rows.push_back({RowKind::Same, static_cast<int>(pair.A), static_cast<int>(pair.B)});
    next = {RowKind::Same, static_cast<int>(pair.A) + 1, static_cast<int>(pair.B) + 1};
  }
  AddBetween(rows, next, static_cast<int>(before.size()), static_cast<int>(after.size()));
  return rows;
}

QStringList LinesOfCode(const QString& code) {
  QStringList lines = code.split('\n');
  for (QString& line : lines) {
    if (line.endsWith('\r')) line.chop(1);
  }
  return lines;
}

}  // namespace formwizard::apps::desktop
