// Colours Visual Basic code: keywords, comments, texts and numbers.
#pragma once

#include <QColor>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

namespace formwizard::apps::desktop {

struct CodeColors {
  QColor Keyword, Comment, Text, Number;

  // To be read on a white and on a dark background.
  static CodeColors Light();
  static CodeColors Dark();
};

// What is coloured in a paragraph, from its start to its end.
QList<QTextLayout::FormatRange> ColoursOf(const QTextBlock& paragraph, const CodeColors& colors);

// Colours the paragraphs of a document that it is asked for, because what is coloured takes far more memory than its
// text. A paragraph holds one line, or more with line separators between them.
class CodeHighlighter {
 public:
  // Holds for paragraphs that are coloured from now on, also for those that are coloured already.
  void SetColors(const CodeColors& colors);
  // Nothing happens to one that has these colours. The document must hold nothing that is coloured otherwise.
  void Highlight(QTextDocument& document, QTextBlock paragraph) const;

 private:
  CodeColors colors_;
  int round_ = -1;  // the state of a paragraph that has these colours; a new one has -1
};

}  // namespace formwizard::apps::desktop
