// One of two codes that stand beside each other, with empty places where only the other one has lines.
#pragma once

#include "apps/desktop/code/PlainCode.h"
#include "apps/desktop/update/CodeRows.h"

#include <vector>

namespace formwizard::apps::desktop {

class CodeSide : public PlainCode {
 public:
  CodeSide();

  // `line` tells which of the row's lines is this side's.
  void Show(const QStringList& lines, const std::vector<CodeRow>& rows, int CodeRow::*line);
  // Brings a row to the upper part of the view, with the cursor at its start.
  void GoToRow(int row);
  int CurrentRow() const { return textCursor().blockNumber(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  std::vector<SeenLine> SeenLines() const override;

 private:
  template <typename Action>
  void ForEachSeen(Action&& action) const;

  std::vector<CodeRow> rows_;
  int CodeRow::*line_ = &CodeRow::Before;
};

}  // namespace formwizard::apps::desktop
