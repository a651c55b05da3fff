// Visual Basic code to be read: in its colours, with the numbers of its lines beside it.
#pragma once

#include "apps/desktop/code/CodeHighlighter.h"
#include "apps/desktop/code/LineMargin.h"

#include <QPlainTextEdit>

#include <vector>

namespace formwizard::apps::desktop {

class PlainCode : public QPlainTextEdit {
 public:
  PlainCode();

  // One a paragraph, unless a paragraph holds several.
  virtual int LineCount() const { return blockCount(); }

 protected:
  // Those that are seen now.
  virtual std::vector<SeenLine> SeenLines() const = 0;

  LineMargin& Margin() const { return *margin_; }
  void PlaceMargin();
  // Colours a paragraph that is about to be painted.
  void Highlight(const QTextBlock& paragraph) { highlighter_.Highlight(*document(), paragraph); }

  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  CodeHighlighter highlighter_;
  LineMargin* margin_;
};

}  // namespace formwizard::apps::desktop
