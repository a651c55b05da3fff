#include "apps/desktop/code/ColouredText.h"

#include "apps/desktop/code/CodeHighlighter.h"

#include <algorithm>

namespace formwizard::apps::desktop {
namespace {

constexpr int MostColoured = 1000000;  // characters

QString WithLineEnds(QString text) {
  return text.replace(QChar::ParagraphSeparator, '\n').replace(QChar::LineSeparator, '\n');
}

// The part of a paragraph between two places in it.
QString Coloured(const QTextBlock& paragraph, int from, int to) {
  const QString text = paragraph.text();
  const auto plain = [&](int start, int end) { return WithLineEnds(text.sliced(start, end - start)).toHtmlEscaped(); };
  QString html;
  int at = from;
  for (const QTextLayout::FormatRange& range : ColoursOf(paragraph, CodeColors::Light())) {
    const int start = std::clamp(range.start, at, to), end = std::clamp(range.start + range.length, at, to);
    if (start == end) continue;
    html += plain(at, start) + "<span style=\"color:" + range.format.foreground().color().name() + "\">" +
            plain(start, end) + "</span>";
    at = end;
  }
  return html + plain(at, to);
}

}  // namespace

QMimeData* ColouredText(const QTextCursor& selection, const QString& fontFamily) {
  auto* data = new QMimeData;
  data->setText(WithLineEnds(selection.selectedText()));
  const int start = selection.selectionStart(), end = selection.selectionEnd();
  if (end - start > MostColoured) return data;
  QString html;
  for (QTextBlock block = selection.document()->findBlock(start); block.isValid() && block.position() < end;
       block = block.next()) {
    const int last = block.length() - 1;
    html += Coloured(block, std::max(start - block.position(), 0), std::min(end - block.position(), last));
    if (end - block.position() > last) html += '\n';
  }
  data->setHtml("<pre style=\"font-family:'" + fontFamily.toHtmlEscaped() + "',monospace\">" + html + "</pre>");
  return data;
}

}  // namespace formwizard::apps::desktop
