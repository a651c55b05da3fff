// Frames and signs over the picture of a form: what an update adds, changes and takes out.
#pragma once

#include "apps/desktop/formview/FormView.h"
#include "apps/desktop/update/FormChanges.h"

#include <QWidget>

#include <vector>

namespace formwizard::apps::desktop {

// The icon and the colour of a change.
struct ChangeLook {
  const char* Icon;
  QColor Colour;
};
ChangeLook LookOf(ChangeKind kind);

// Lies over the canvas of a view and hears nothing of the mouse.
class FormMarks : public QWidget {
 public:
  // A child of the view's canvas, which it follows.
  explicit FormMarks(FormView& view);

  // `before` is the form as it was, on which stands what goes. What only makes room for others is not marked.
  void Show(const std::vector<FormChange>& controls, const adapters::vb6files::FormNode* before);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Mark {
    ChangeKind Kind;
    QRect Place;  // in the picture, at 96 dots per inch
  };
  QRectF OnWidget(const QRect& place) const;

  FormView& view_;
  std::vector<Mark> marks_;
};

}  // namespace formwizard::apps::desktop
