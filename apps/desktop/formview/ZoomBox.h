// A list of scales for a form: the usual ones, the one in force, and one that fits.
#pragma once

#include "apps/desktop/formview/FormView.h"

#include <QComboBox>

namespace formwizard::apps::desktop {

class ZoomBox : public QComboBox {
 public:
  // Takes the view's OnZoom. The view must live as long.
  ZoomBox(FormView& view, const QString& name = "Zoom", const QString& fit = "Fit");

 private:
  void ShowScale();

  FormView& view_;
};

}  // namespace formwizard::apps::desktop
