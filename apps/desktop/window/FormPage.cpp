#include "apps/desktop/window/FormPage.h"

#include <QVBoxLayout>

namespace formwizard::apps::desktop {

FormPage::FormPage(const Texts& texts, QWidget* view)
    : bar_(new MessageBar(texts)), stack_(new QStackedWidget), instead_(new EmptyState) {
  stack_->addWidget(view);
  stack_->addWidget(instead_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(bar_);
  column->addWidget(stack_, 1);
  setFocusProxy(view);
}

EmptyState& FormPage::ShowInstead() {
  stack_->setCurrentIndex(1);
  return *instead_;
}

}  // namespace formwizard::apps::desktop
