#include "apps/desktop/update/CodeComparison.h"

#include "apps/desktop/basics/Icons.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr int HeadingHeight = 36, Space = 12;

void ScrollTogether(QScrollBar& one, QScrollBar& other) {
  QObject::connect(&one, &QScrollBar::valueChanged, &other, &QScrollBar::setValue);
  QObject::connect(&other, &QScrollBar::valueChanged, &one, &QScrollBar::setValue);
}

}  // namespace

CodeComparison::CodeComparison(const Texts& texts) : before_(new CodeSide), after_(new CodeSide) {
  before_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  ScrollTogether(*before_->verticalScrollBar(), *after_->verticalScrollBar());
  ScrollTogether(*before_->horizontalScrollBar(), *after_->horizontalScrollBar());
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(Headed(texts(T::UpdateInProject), before_, {}), 1);
  row->addWidget(Headed(texts(T::UpdateAfter), after_,
                        {MadeButton("previous", texts(T::UpdatePreviousDifference), "Shift+F8", true),
                         MadeButton("next", texts(T::UpdateNextDifference), "F8", false)}),
                 1);
}

QWidget* CodeComparison::Headed(const QString& title, CodeSide* side, const std::vector<QWidget*>& buttons) {
  auto* label = new QLabel(title);
  QFont bold = label->font();
  bold.setBold(true);
  label->setFont(bold);
  side->setAccessibleName(title);
  auto* heading = new QHBoxLayout;
  heading->setContentsMargins(Space, 0, Space / 3, 0);
  heading->addWidget(label, 1);
  label->setMinimumHeight(HeadingHeight);
  for (QWidget* button : buttons) heading->addWidget(button);
  auto* pane = new QWidget;
  auto* column = new QVBoxLayout(pane);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addLayout(heading);
  column->addWidget(side, 1);
  return pane;
}

QWidget* CodeComparison::MadeButton(const QString& icon, const QString& name, const char* key, bool backwards) {
  auto* button = new QToolButton;
  button->setIcon(IconNamed(icon));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setAccessibleName(name);
  button->setToolTip(name + " (" + QKeySequence(key).toString(QKeySequence::NativeText) + ")");
  connect(button, &QToolButton::clicked, this, [this, backwards] { GoToDifference(backwards); });
  auto* shortcut = new QShortcut(QKeySequence(key), this);
  connect(shortcut, &QShortcut::activated, this, [this, backwards] { GoToDifference(backwards); });
  return button;
}

void CodeComparison::Show(const QString& before, const QString& after) {
  const QStringList mine = LinesOfCode(before), next = LinesOfCode(after);
  const int scroll = after_->verticalScrollBar()->value(), row = after_->CurrentRow();
  const bool isFirst = rows_.empty();
  rows_ = RowsOf(mine, next);
  before_->Show(mine, rows_, &CodeRow::Before);
  after_->Show(next, rows_, &CodeRow::After);
  if (isFirst) {
    if (!rows_.empty() && rows_.front().Kind == RowKind::Same) GoToDifference(false);
    return;
  }
  GoToRow(std::min(row, static_cast<int>(rows_.size()) - 1));
  after_->verticalScrollBar()->setValue(scroll);
}

void CodeComparison::GoTo(int before, int after) {
  const auto row = std::ranges::find_if(rows_, [&](const CodeRow& each) {
    return (after >= 0 && each.After == after) || (before >= 0 && each.Before == before);
  });
  if (row != rows_.end()) GoToRow(static_cast<int>(row - rows_.begin()));
}

void CodeComparison::GoToRow(int row) {
  before_->GoToRow(row);
  after_->GoToRow(row);
}

void CodeComparison::GoToDifference(bool backwards) {
  std::vector<int> starts;  // of runs of rows that differ
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    if (rows_[i].Kind != RowKind::Same && (i == 0 || rows_[i - 1].Kind == RowKind::Same))
      starts.push_back(static_cast<int>(i));
  }
  if (starts.empty()) return;
  const int current = after_->CurrentRow();
  if (backwards) {
    const auto behind = std::ranges::lower_bound(starts, current);
    GoToRow(behind == starts.begin() ? starts.back() : *std::prev(behind));
  } else {
    const auto next = std::ranges::upper_bound(starts, current);
    GoToRow(next == starts.end() ? starts.front() : *next);
  }
}

}  // namespace formwizard::apps::desktop
