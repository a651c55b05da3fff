#include "apps/desktop/code/LineMargin.h"

#include "apps/desktop/basics/Theme.h"

#include <QPainter>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr int Space = 8, BarWidth = 3, FewestDigits = 3;
constexpr QRgb BarColour = 0xFFC47A0B;

}  // namespace

LineMargin::LineMargin(QWidget* view, std::function<std::vector<SeenLine>()> seen)
    : QWidget(view), seen_(std::move(seen)) {}

int LineMargin::WidthFor(int lines) const {
  const int digits = std::max(FewestDigits, static_cast<int>(QString::number(lines).size()));
  return 2 * Space + digits * fontMetrics().horizontalAdvance('9');
}

void LineMargin::Mark(std::vector<LineRange> ranges) {
  marked_ = std::move(ranges);
  update();
}

bool LineMargin::IsMarked(int line) const {
  const auto range = std::ranges::lower_bound(marked_, line, {}, &LineRange::Last);
  return range != marked_.end() && range->First <= line;
}

void LineMargin::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().color(QPalette::Window));
  painter.setPen(SecondaryText(palette()));
  for (const SeenLine& line : seen_()) {
    const QRectF row(0, line.Top, width() - Space, line.Height);
    painter.drawText(row, Qt::AlignRight | Qt::AlignVCenter, QString::number(line.Number + 1));
    if (IsMarked(line.Number)) painter.fillRect(QRectF(width() - BarWidth, line.Top, BarWidth, line.Height), BarColour);
  }
}

}  // namespace formwizard::apps::desktop
