// Beside the code: the numbers of its lines, and a bar beside some of them.
#pragma once

#include <QWidget>

#include <functional>
#include <vector>

namespace formwizard::apps::desktop {

// Lines counted from 0, the last one included.
struct LineRange {
  int First, Last;
};

// A line that is seen: where it stands in the view.
struct SeenLine {
  int Number;
  double Top, Height;
};

class LineMargin : public QWidget {
 public:
  // `seen` tells the lines that the view, which must outlive this widget, shows now.
  LineMargin(QWidget* view, std::function<std::vector<SeenLine>()> seen);

  // What it needs for so many lines, in pixels.
  int WidthFor(int lines) const;
  // In the order of the code.
  void Mark(std::vector<LineRange> ranges);
  bool IsMarked(int line) const;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  std::function<std::vector<SeenLine>()> seen_;
  std::vector<LineRange> marked_;
};

}  // namespace formwizard::apps::desktop
