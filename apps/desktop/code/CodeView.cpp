#include "apps/desktop/code/CodeView.h"

#include "apps/desktop/basics/Theme.h"
#include "apps/desktop/code/ColouredText.h"

#include <QAbstractTextDocumentLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QTextBlock>

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

// A paragraph takes more memory and time than its text, so that one holds that many lines.
constexpr int LinesTogether = 64;

// With a line break between paragraphs and a line separator between the lines of one.
QString InParagraphs(QStringView code) {
  QString text;
  text.reserve(code.size());
  int lines = 0;
  for (qsizetype start = 0; start <= code.size();) {
    qsizetype end = code.indexOf('\n', start);
    if (end < 0) end = code.size();
    if (lines > 0) text += lines % LinesTogether == 0 ? QChar('\n') : QChar(QChar::LineSeparator);
    const QStringView line = code.sliced(start, end - start);
    text += line.endsWith('\r') ? line.chopped(1) : line;
    start = end + 1;
    ++lines;
  }
  return text;
}

int LinesIn(const QTextBlock& paragraph) {
  return static_cast<int>(paragraph.text().count(QChar(QChar::LineSeparator))) + 1;
}

}  // namespace

CodeView::CodeView() {
  connect(this, &QPlainTextEdit::cursorPositionChanged, viewport(), [this] { viewport()->update(); });
}

void CodeView::ShowCode(const QString& code) {
  found_.clear();
  separators_.clear();
  MarkEdited({});
  setPlainText(InParagraphs(code));
  CountLines();
  PlaceMargin();
}

// A paragraph counts as one line until it is laid out, which only those are that are seen.
void CodeView::CountLines() {
  const QTextBlock last = document()->lastBlock();
  for (QTextBlock block = document()->begin(); block != last; block = block.next()) block.setLineCount(LinesTogether);
  QTextBlock(last).setLineCount(LinesIn(last));
  QAbstractTextDocumentLayout* layout = document()->documentLayout();
  emit layout->documentSizeChanged(layout->documentSize());  // for the scroll bar
}

void CodeView::SetSeparators(std::vector<int> lines) {
  separators_ = std::move(lines);
  viewport()->update();
}

int CodeView::CurrentLine() const {
  const QTextCursor cursor = textCursor();
  const QString before = cursor.block().text().first(cursor.positionInBlock());
  return cursor.blockNumber() * LinesTogether + static_cast<int>(before.count(QChar(QChar::LineSeparator)));
}

int CodeView::CurrentColumn() const {
  const QTextCursor cursor = textCursor();
  const QString before = cursor.block().text().first(cursor.positionInBlock());
  return static_cast<int>(before.size() - before.lastIndexOf(QChar(QChar::LineSeparator)) - 1);
}

int CodeView::LineCount() const {
  return (document()->blockCount() - 1) * LinesTogether + LinesIn(document()->lastBlock());
}

void CodeView::GoToLine(int line) {
  line = std::clamp(line, 0, LineCount() - 1);
  const QTextBlock block = document()->findBlockByNumber(line / LinesTogether);
  const QString text = block.text();
  qsizetype start = 0;
  for (int i = line % LinesTogether; i > 0; --i) start = text.indexOf(QChar(QChar::LineSeparator), start) + 1;
  QTextCursor cursor(block);
  cursor.setPosition(block.position() + static_cast<int>(start));
  setTextCursor(cursor);
  constexpr int partAbove = 4;  // of what is seen
  verticalScrollBar()->setValue(line - verticalScrollBar()->pageStep() / partAbove);
  horizontalScrollBar()->setValue(0);
}

int CodeView::MarkFound(const QString& text, bool matchCase) {
  found_.clear();
  foundLength_ = static_cast<int>(text.size());
  const Qt::CaseSensitivity cases = matchCase ? Qt::CaseSensitive : Qt::CaseInsensitive;
  for (QTextBlock block = document()->begin(); block.isValid() && foundLength_ > 0; block = block.next()) {
    const QString content = block.text();
    for (qsizetype at = content.indexOf(text, 0, cases); at >= 0;
         at = content.indexOf(text, at + foundLength_, cases)) {
      found_.push_back(block.position() + static_cast<int>(at));
    }
  }
  viewport()->update();
  return static_cast<int>(found_.size());
}

int CodeView::SelectFound(int position, bool backwards) {
  if (found_.empty()) return -1;
  auto at = std::ranges::lower_bound(found_, position);
  if (backwards && at == found_.begin()) at = found_.end();
  if (backwards) --at;
  if (at == found_.end()) at = found_.begin();
  QTextCursor cursor(document());
  cursor.setPosition(*at);
  cursor.setPosition(*at + foundLength_, QTextCursor::KeepAnchor);
  setTextCursor(cursor);
  const QRect place = cursorRect();
  if (place.top() < 0 || place.bottom() > viewport()->height()) centerCursor();
  return static_cast<int>(at - found_.begin());
}

std::vector<SeenLine> CodeView::SeenLines() const {
  std::vector<SeenLine> seen;
  double top = contentOffset().y();
  for (QTextBlock block = firstVisibleBlock(); block.isValid() && top < viewport()->height(); block = block.next()) {
    const double height = blockBoundingRect(block).height();
    const QTextLayout& layout = *block.layout();
    for (int i = 0; i < layout.lineCount(); ++i) {
      const QTextLine line = layout.lineAt(i);
      const double place = top + line.y();
      if (place + line.height() < 0 || place > viewport()->height()) continue;
      seen.push_back({block.blockNumber() * LinesTogether + i, place, line.height()});
    }
    top += height;
  }
  return seen;
}

// What the text is drawn over.
void CodeView::PaintBehind() {
  QPainter painter(viewport());
  constexpr int faint = 150;
  QColor current = ColourOf(Shade::MessageBar, palette());
  current.setAlpha(faint);
  const QRectF width(0, 0, viewport()->width(), 1);
  const int line = CurrentLine();
  for (const SeenLine& seen : SeenLines()) {
    if (seen.Number == line) painter.fillRect(QRectF(0, seen.Top, width.width(), seen.Height), current);
    if (!std::ranges::binary_search(separators_, seen.Number)) continue;
    painter.fillRect(width.translated(0, seen.Top + seen.Height), ColourOf(Shade::Lines, palette()));
  }
  PaintFound(painter);
}

void CodeView::PaintFound(QPainter& painter) const {
  const int first = firstVisibleBlock().position();
  for (auto at = std::ranges::lower_bound(found_, first); at != found_.end(); ++at) {
    QTextCursor cursor(document());
    cursor.setPosition(*at);
    const QRect start = cursorRect(cursor);
    if (start.top() > viewport()->height()) return;
    cursor.setPosition(*at + foundLength_);
    const QRect end = cursorRect(cursor);
    painter.fillRect(QRect(start.topLeft(), QPoint(end.left() - 1, start.bottom())), ColourOf(Shade::Found, palette()));
  }
}

QMimeData* CodeView::createMimeDataFromSelection() const { return ColouredText(textCursor(), font().family()); }

void CodeView::resizeEvent(QResizeEvent* event) {
  const int top = verticalScrollBar()->value();
  PlainCode::resizeEvent(event);  // which counts one line a paragraph again
  CountLines();
  verticalScrollBar()->setValue(top);
}

void CodeView::paintEvent(QPaintEvent* event) {
  QTextBlock block = firstVisibleBlock();
  for (double top = contentOffset().y(); block.isValid() && top < viewport()->height(); block = block.next()) {
    Highlight(block);
    top += blockBoundingRect(block).height();
  }
  PaintBehind();
  QPlainTextEdit::paintEvent(event);
}

// Pressing three times selects the paragraph, of which only the line is meant.
void CodeView::mousePressEvent(QMouseEvent* event) {
  QPlainTextEdit::mousePressEvent(event);
  const QTextCursor selection = textCursor();
  const QTextBlock block = document()->findBlock(selection.selectionStart());
  const int end = block.position() + block.length();  // of the last paragraph there is no break to be selected
  const bool isParagraph = selection.hasSelection() && selection.selectionStart() == block.position() &&
                           (selection.selectionEnd() == end || selection.selectionEnd() == end - 1);
  if (!isParagraph) return;
  QTextCursor line = cursorForPosition(event->position().toPoint());
  line.select(QTextCursor::LineUnderCursor);
  line.movePosition(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);  // with its end
  setTextCursor(line);
}

}  // namespace formwizard::apps::desktop
