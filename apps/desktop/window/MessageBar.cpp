#include "apps/desktop/window/MessageBar.h"

#include "apps/desktop/basics/Icons.h"
#include "apps/desktop/basics/Theme.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QPainter>
#include <QTextDocumentFragment>

namespace formwizard::apps::desktop {
namespace {

constexpr int IconSize = 16;

}  // namespace

MessageBar::MessageBar(const Texts& texts)
    : picture_(new QLabel), text_(new QLabel), button_(new QPushButton), close_(new QToolButton) {
  text_->setWordWrap(true);
  text_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  close_->setIcon(IconNamed("close"));
  close_->setAutoRaise(true);
  close_->setToolTip(texts(T::CloseMessage));
  close_->setAccessibleName(texts(T::CloseMessage));
  close_->setFocusPolicy(Qt::TabFocus);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(12, 4, 4, 4);
  row->setSpacing(8);
  row->addWidget(picture_);
  row->addWidget(text_, 1);
  row->addWidget(button_);
  row->addWidget(close_);
  connect(close_, &QToolButton::clicked, this, [this] { Clear(); });
  connect(button_, &QPushButton::clicked, this, [this] {
    if (onClick_) onClick_();
  });
  hide();
}

void MessageBar::Say(const QString& icon, const QString& text, const QString& button, std::function<void()> onClick) {
  picture_->setPixmap(IconNamed(icon).pixmap(IconSize, IconSize));
  text_->setText(text);
  button_->setText(button);
  button_->setVisible(!button.isEmpty());
  onClick_ = std::move(onClick);
  setAccessibleName(QTextDocumentFragment::fromHtml(text).toPlainText());
  show();
  QAccessibleEvent alert(this, QAccessible::Alert);
  QAccessible::updateAccessibility(&alert);
}

void MessageBar::Clear() { hide(); }

void MessageBar::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), ColourOf(Shade::MessageBar, palette())); }

}  // namespace formwizard::apps::desktop
