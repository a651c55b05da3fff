// Two codes beside each other: which line stands beside which.
#pragma once

#include <QStringList>

#include <cstdint>
#include <vector>

namespace formwizard::apps::desktop {

enum class RowKind : std::uint8_t { Same, New, Changed, Gone };

// A line of each side, counted from 0; -1 where that side has none.
struct CodeRow {
  RowKind Kind;
  int Before, After;
};

std::vector<CodeRow> RowsOf(const QStringList& before, const QStringList& after);

// The lines of a code, without their ends.
QStringList LinesOfCode(const QString& code);

}  // namespace formwizard::apps::desktop
