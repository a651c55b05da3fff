#include "apps/desktop/basics/EmptyState.h"

#include <QVBoxLayout>

namespace formwizard::apps::desktop {

EmptyState::EmptyState(const QString& text, const QString& button, std::function<void()> onClick)
    : text_(new QLabel), button_(new QPushButton) {
  text_->setWordWrap(true);
  text_->setTextFormat(Qt::PlainText);
  text_->setAlignment(Qt::AlignCenter);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(12, 24, 12, 24);
  column->setSpacing(12);
  column->addWidget(text_);
  column->addWidget(button_, 0, Qt::AlignHCenter);
  column->addStretch();
  connect(button_, &QPushButton::clicked, this, [this] {
    if (onClick_) onClick_();
  });
  Say(text, button, std::move(onClick));
}

void EmptyState::Say(const QString& text, const QString& button, std::function<void()> onClick) {
  text_->setText(text);
  button_->setText(button);
  button_->setVisible(!button.isEmpty());
  onClick_ = std::move(onClick);
}

}  // namespace formwizard::apps::desktop
