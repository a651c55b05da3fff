// The code of a component, to be read; what is seen of it is coloured, with the numbers of its lines beside it.
#pragma once

#include "apps/desktop/code/PlainCode.h"

#include <functional>
#include <vector>

namespace formwizard::apps::desktop {

class CodeView : public PlainCode {
 public:
  CodeView();

  void ShowCode(const QString& code);
  // A line is drawn below each of these, counted from 0 and in order.
  void SetSeparators(std::vector<int> lines);
  // A bar stands beside these lines, in order: those that were edited by hand.
  void MarkEdited(std::vector<LineRange> ranges) { Margin().Mark(std::move(ranges)); }

  // From 0; a line past the end is the last one.
  int CurrentLine() const;
  int CurrentColumn() const;
  int LineCount() const override;
  // Goes to the start of a line, and shows it with what follows.
  void GoToLine(int line);

  // Marks all places where the text stands, and tells how many they are; an empty text stands nowhere.
  int MarkFound(const QString& text, bool matchCase);
  // Selects the first place at or behind a position of the document, else, going backwards, the last one in front of
  // it; past the end it goes on at the start. Its number, from 0; -1 where there is none.
  int SelectFound(int position, bool backwards);

 protected:
  std::vector<SeenLine> SeenLines() const override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  QMimeData* createMimeDataFromSelection() const override;

 private:
  void PaintBehind();
  void PaintFound(QPainter& painter) const;
  void CountLines();

  std::vector<int> separators_;
  std::vector<int> found_;  // positions, in order
  int foundLength_ = 0;
};

}  // namespace formwizard::apps::desktop
