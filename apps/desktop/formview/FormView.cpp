#include "apps/desktop/formview/FormView.h"

#include "apps/desktop/formview/FormPicture.h"

#include <QPainter>

#include <utility>

namespace formwizard::apps::desktop {

void FormView::SetForm(std::optional<adapters::vb6files::FormNode> form) {
  form_ = std::move(form);
  setFixedSize(sizeHint());
  update();
}

void FormView::SetTabOrderShown(bool shown) {
  showTabOrder_ = shown;
  update();
}

QSize FormView::sizeHint() const { return form_ ? PictureSize(*form_, 1) : QSize(0, 0); }

void FormView::paintEvent(QPaintEvent*) {
  if (!form_) return;
  QPainter painter(this);
  DrawForm(painter, *form_, {.Scale = 1, .ShowTabOrder = showTabOrder_});
}

}  // namespace formwizard::apps::desktop
