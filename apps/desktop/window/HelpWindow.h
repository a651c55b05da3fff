// The program's pages, and the licences of what it is made of, in a window of their own.
#pragma once

#include "apps/desktop/basics/Texts.h"

#include <QListWidget>
#include <QTextBrowser>
#include <QWidget>

namespace formwizard::apps::desktop {

class HelpWindow : public QWidget {
 public:
  HelpWindow(const Texts& texts, QWidget* owner);

  // A page by its path from the root, such as "docs/desktop.md"; the first one for an empty text.
  void Open(const QString& page = "");

 private:
  QListWidget* pages_;
  QTextBrowser* text_;
};

}  // namespace formwizard::apps::desktop
