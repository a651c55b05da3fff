#include "apps/desktop/CodeView.h"

#include <QAbstractTextDocumentLayout>
#include <QEvent>
#include <QFontDatabase>
#include <QMouseEvent>
#include <QTextBlock>

namespace formwizard::apps::desktop {
namespace {

CodeColors ColorsFor(const QPalette& palette) {
  const bool isDark = palette.color(QPalette::Base).lightness() < 128;
  return isDark ? CodeColors::Dark() : CodeColors::Light();
}

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

}  // namespace

CodeView::CodeView() {
  highlighter_.SetColors(ColorsFor(palette()));
  setReadOnly(true);
  setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  setLineWrapMode(QPlainTextEdit::NoWrap);
  setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  setAccessibleName("Code");
}

void CodeView::ShowCode(const QString& code) {
  setPlainText(InParagraphs(code));
  // A paragraph counts as one line until it is laid out, which only those are that are seen.
  for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
    block.setLineCount(static_cast<int>(block.text().count(QChar(QChar::LineSeparator))) + 1);
  }
  const QAbstractTextDocumentLayout* layout = document()->documentLayout();
  emit document()->documentLayout()->documentSizeChanged(layout->documentSize());  // for the scroll bar
}

void CodeView::paintEvent(QPaintEvent* event) {
  QTextBlock block = firstVisibleBlock();
  for (double top = contentOffset().y(); block.isValid() && top < viewport()->height(); block = block.next()) {
    highlighter_.Highlight(*document(), block);
    top += blockBoundingRect(block).height();
  }
  QPlainTextEdit::paintEvent(event);
}

void CodeView::changeEvent(QEvent* event) {
  if (event->type() == QEvent::PaletteChange) highlighter_.SetColors(ColorsFor(palette()));
  QPlainTextEdit::changeEvent(event);
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
