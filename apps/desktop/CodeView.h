// The code of a component, to be read; what is seen of it is coloured.
#pragma once

#include "apps/desktop/CodeHighlighter.h"

#include <QPlainTextEdit>

namespace formwizard::apps::desktop {

class CodeView : public QPlainTextEdit {
 public:
  CodeView();

  void ShowCode(const QString& code);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  CodeHighlighter highlighter_;
};

}  // namespace formwizard::apps::desktop
