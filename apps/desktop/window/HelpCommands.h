// The commands of the Help menu.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/window/Actions.h"
#include "apps/desktop/window/HelpWindow.h"

#include <QWidget>

namespace formwizard::apps::desktop {

class HelpCommands {
 public:
  // All must outlive this object.
  HelpCommands(QWidget& window, const Texts& texts, Actions& actions);

  // A page of the help; the first one for an empty text.
  void Show(const QString& page = "");

 private:
  void ShowAbout();

  QWidget& window_;
  const Texts& texts_;
  HelpWindow* help_ = nullptr;  // the window's; made when it is first asked for
};

}  // namespace formwizard::apps::desktop
