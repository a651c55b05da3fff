#include "apps/desktop/code/FindBar.h"

#include "apps/desktop/basics/Icons.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>

namespace formwizard::apps::desktop {
namespace {

constexpr int MostWidth = 260, LongestText = 1000;

}  // namespace

FindBar::FindBar(const Texts& texts, CodeView& view)
    : texts_(texts),
      view_(view),
      text_(new QLineEdit),
      result_(new QLabel),
      matchCase_(new QCheckBox(texts(T::FindMatchCase))) {
  auto* label = new QLabel(texts(T::FindLabel));
  label->setBuddy(text_);
  text_->setMaximumWidth(MostWidth);
  text_->setMaxLength(LongestText);
  const auto name = [&](T text) { return texts(text).remove('&'); };
  text_->setAccessibleName(name(T::Find).remove("..."));
  auto* previous = Button("previous", name(T::FindPrevious));
  auto* next = Button("next", name(T::FindNext));
  auto* close = Button("close", texts(T::FindClose));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(8, 4, 8, 4);
  row->setSpacing(4);
  row->addWidget(label);
  row->addWidget(text_, 1);
  row->addWidget(previous);
  row->addWidget(next);
  row->addWidget(result_);
  row->addSpacing(8);
  row->addWidget(matchCase_);
  row->addStretch(1);
  row->addWidget(close);
  setFocusProxy(text_);
  connect(text_, &QLineEdit::textEdited, this, [this] { Search(); });
  connect(matchCase_, &QCheckBox::toggled, this, [this] { Search(); });
  connect(previous, &QToolButton::clicked, this, [this] { FindNext(true); });
  connect(next, &QToolButton::clicked, this, [this] { FindNext(false); });
  connect(close, &QToolButton::clicked, this, [this] { Close(); });
  hide();
}

QToolButton* FindBar::Button(const QString& icon, const QString& name) {
  auto* button = new QToolButton;
  button->setIcon(IconNamed(icon));
  button->setAutoRaise(true);
  button->setFocusPolicy(Qt::TabFocus);
  button->setToolTip(name);
  button->setAccessibleName(name);
  return button;
}

void FindBar::Open() {
  const QTextCursor cursor = view_.textCursor();
  const QString selected = cursor.selectedText();
  const bool isInLine = !selected.contains(QChar::ParagraphSeparator) && !selected.contains(QChar::LineSeparator);
  if (isInLine && !selected.isEmpty() && selected.size() <= LongestText) text_->setText(selected);
  show();
  text_->setFocus(Qt::ShortcutFocusReason);
  text_->selectAll();
  from_ = cursor.selectionStart();
  if (!text_->text().isEmpty()) Search();
}

void FindBar::Close() {
  view_.MarkFound("", false);
  hide();
  view_.setFocus(Qt::OtherFocusReason);
}

void FindBar::CodeChanged() {
  from_ = count_ = 0;
  result_->clear();
  if (isVisibleTo(parentWidget())) count_ = view_.MarkFound(text_->text(), matchCase_->isChecked());
}

void FindBar::FindNext(bool backwards) {
  if (text_->text().isEmpty()) return Open();
  if (!isVisibleTo(parentWidget())) show();
  count_ = view_.MarkFound(text_->text(), matchCase_->isChecked());
  const QTextCursor cursor = view_.textCursor();
  Select(backwards || !cursor.hasSelection() ? cursor.selectionStart() : cursor.selectionEnd(), backwards);
}

// While somebody types, the first place stays where the search began.
void FindBar::Search() {
  count_ = view_.MarkFound(text_->text(), matchCase_->isChecked());
  Select(from_, false);
}

void FindBar::Select(int position, bool backwards) {
  const int number = view_.SelectFound(position, backwards);
  if (text_->text().isEmpty()) return result_->clear();
  result_->setText(number < 0 ? texts_(T::FindNothing)
                              : texts_(T::FindCount, QString::number(number + 1), QString::number(count_)));
  QAccessibleEvent alert(result_, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void FindBar::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QWidget::keyPressEvent(event);
  FindNext(event->modifiers().testFlag(Qt::ShiftModifier));
}

}  // namespace formwizard::apps::desktop
