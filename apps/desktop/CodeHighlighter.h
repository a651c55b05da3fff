// Colours Visual Basic code: keywords, comments, texts and numbers.
#pragma once

#include <QColor>
#include <QSyntaxHighlighter>

namespace formwizard::apps::desktop {

struct CodeColors {
  QColor Keyword, Comment, Text, Number;

  // To be read on a white and on a dark background.
  static CodeColors Light();
  static CodeColors Dark();
};

class CodeHighlighter : public QSyntaxHighlighter {
 public:
  CodeHighlighter(QTextDocument* document, const CodeColors& colors) : QSyntaxHighlighter(document), colors_(colors) {}

  void SetColors(const CodeColors& colors);

 protected:
  void highlightBlock(const QString& line) override;

 private:
  CodeColors colors_;
};

}  // namespace formwizard::apps::desktop
