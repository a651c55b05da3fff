// A form of the project, drawn to scale.
#pragma once

#include "adapters/vb6files/FormTree.h"

#include <QWidget>

#include <optional>

namespace formwizard::apps::desktop {

class FormView : public QWidget {
 public:
  using QWidget::QWidget;

  // Nothing shows an empty view.
  void SetForm(std::optional<adapters::vb6files::FormNode> form);
  void SetTabOrderShown(bool shown);
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::optional<adapters::vb6files::FormNode> form_;
  bool showTabOrder_ = false;
};

}  // namespace formwizard::apps::desktop
