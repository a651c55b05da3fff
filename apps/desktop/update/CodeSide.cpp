#include "apps/desktop/update/CodeSide.h"

#include "apps/desktop/basics/Theme.h"

#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

#include <array>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

constexpr int RowsAbove = 4;  // of a row that is gone to

Shade ShadeOf(RowKind kind) {
  return kind == RowKind::New ? Shade::New : kind == RowKind::Changed ? Shade::Changed : Shade::Gone;
}

}  // namespace

CodeSide::CodeSide() { setTabChangesFocus(true); }

void CodeSide::Show(const QStringList& lines, const std::vector<CodeRow>& rows, int CodeRow::*line) {
  QStringList shown;
  for (const CodeRow& row : rows) shown << (row.*line < 0 ? "" : lines.at(row.*line));
  rows_ = rows;
  line_ = line;
  setPlainText(shown.join('\n'));
  PlaceMargin();
}

void CodeSide::GoToRow(int row) {
  setTextCursor(QTextCursor(document()->findBlockByNumber(row)));
  verticalScrollBar()->setValue(row - RowsAbove);
}

template <typename Action>
void CodeSide::ForEachSeen(Action&& action) const {
  QTextBlock block = firstVisibleBlock();
  for (double top = contentOffset().y(); block.isValid() && top < viewport()->height(); block = block.next()) {
    const double height = blockBoundingRect(block).height();
    if (const auto row = static_cast<std::size_t>(block.blockNumber()); row < rows_.size())
      action(block, rows_[row], QRectF(0, top, viewport()->width(), height));
    top += height;
  }
}

std::vector<SeenLine> CodeSide::SeenLines() const {
  std::vector<SeenLine> seen;
  ForEachSeen([&](const QTextBlock&, const CodeRow& row, const QRectF& place) {
    if (row.*line_ >= 0) seen.push_back({row.*line_, place.top(), place.height()});
  });
  return seen;
}

void CodeSide::paintEvent(QPaintEvent* event) {
  QPainter painter(viewport());
  ForEachSeen([&](const QTextBlock& block, const CodeRow& row, const QRectF& place) {
    Highlight(block);
    if (row.Kind == RowKind::Same) return;
    if (row.*line_ >= 0) {
      painter.fillRect(place, ColourOf(ShadeOf(row.Kind), palette()));
    } else {
      painter.fillRect(place, palette().color(QPalette::Window));
      painter.fillRect(place, QBrush(ColourOf(Shade::Lines, palette()), Qt::BDiagPattern));
    }
  });
  painter.end();
  QPlainTextEdit::paintEvent(event);
}

}  // namespace formwizard::apps::desktop
