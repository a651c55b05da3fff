#include "apps/desktop/code/CodeHighlighter.h"
#include "tests/support/Test.h"

#include <QTextBlock>
#include <QTextDocument>
#include <QTextLayout>

using namespace formwizard::apps::desktop;

namespace {

// The last line of a code with one letter a character: k, c, t, n or a blank for what has no colour of its own.
std::string Colored(const QString& code) {
  const CodeColors colors = CodeColors::Light();
  QTextDocument document(code);
  const QTextBlock block = document.lastBlock();
  CodeHighlighter highlighter;
  highlighter.SetColors(colors);
  highlighter.Highlight(document, block);
  std::string letters(static_cast<std::size_t>(block.text().size()), ' ');
  for (const QTextLayout::FormatRange& range : block.layout()->formats()) {
    const QColor color = range.format.foreground().color();
    const char letter = color == colors.Keyword   ? 'k'
                        : color == colors.Comment ? 'c'
                        : color == colors.Text    ? 't'
                                                  : 'n';
    for (int i = range.start; i < range.start + range.length; ++i) letters[static_cast<std::size_t>(i)] = letter;
  }
  return letters;
}

}  // namespace

TEST_CASE("Code is coloured by what it is") {
  struct Case {
    std::string code, colors;
  };
  for (const Case& c : {
           Case{"PRIVATE sub If_x()", "kkkkkkk kkk       "},
           Case{"x = \"a\"\"' If\" ' If", "    ttttttttt cccc"},
           Case{"s = \"open If", "    tttttttt"},
           Case{"Rem If : End", "cccccccccccc"},
           Case{"a: rem If", "   cccccc"},
           Case{"Remark = 1", "         n"},
           Case{"obj.Next = .Name!End", "                    "},
           Case{"x = &HFF& + .5 + a1", "    nnnn    nn     "},
           Case{"d = #1/2/99#: Print #f", "    nnnnnnnn  kkkkk   "},
           Case{"' goes on _\nIf x Then", "ccccccccc"},
           Case{"' ends_\nIf x Then", "kk   kkkk"},
       }) {
    CAPTURE(c.code);
    CHECK(Colored(QString::fromStdString(c.code)) == c.colors);
  }
}
