// One of two codes that stand beside each other, with empty places where only the other one has lines.
#pragma once

#include "apps/desktop/code/CodeHighlighter.h"
#include "apps/desktop/code/LineMargin.h"
#include "apps/desktop/update/CodeRows.h"

#include <QPlainTextEdit>

#include <vector>

namespace formwizard::apps::desktop {

class CodeSide : public QPlainTextEdit {
 public:
  CodeSide();

  // `line` tells which of the row's lines is this side's.
  void Show(const QStringList& lines, const std::vector<CodeRow>& rows, int CodeRow::*line);
  // Brings a row to the upper part of the view, with the cursor at its start.
  void GoToRow(int row);
  int CurrentRow() const { return textCursor().blockNumber(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  template <typename Action>
  void ForEachSeen(Action&& action) const;
  std::vector<SeenLine> SeenLines() const;
  void PlaceMargin();

  CodeHighlighter highlighter_;
  LineMargin* margin_;
  std::vector<CodeRow> rows_;
  int CodeRow::*line_ = &CodeRow::Before;
};

}  // namespace formwizard::apps::desktop
