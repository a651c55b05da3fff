#include "apps/desktop/code/CodeView.h"
#include "tests/support/Test.h"

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

using namespace formwizard::apps::desktop;

TEST_CASE("Long code scrolls, is selected and copied by lines, and is coloured where it is seen") {
  constexpr int lines = 1000;
  QString code, read;
  for (int line = 0; line < lines; ++line) {
    const QString text = line % 2 == 0 ? QString("' line %1 _").arg(line) : QString("Next line %1").arg(line);
    code += text + "\r\n";
    read += text + "\n";
  }
  CodeView view;
  view.resize(400, 300);
  view.show();
  view.ShowCode("short");
  CHECK(view.verticalScrollBar()->maximum() == 0);
  view.ShowCode(code);
  CHECK(view.toPlainText() == read);

  const QPoint middle(40, 150);
  int coloured = 0, plain = 0;
  for (const int top : {0, 500, lines}) {
    CAPTURE(top);
    view.verticalScrollBar()->setValue(top);
    view.grab();
    const int shown = view.verticalScrollBar()->value();
    const int rows = view.verticalScrollBar()->pageStep();
    CHECK(shown == std::min(top, lines + 1 - rows));
    const int line = shown + middle.y() / view.fontMetrics().lineSpacing();
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, middle);
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, middle);  // the third in a row
    view.copy();
    const QStringList copied = QApplication::clipboard()->text().split(' ');
    CHECK(copied.size() >= 3);
    CHECK(std::abs(copied.value(2).toInt() - line) <= 1);
  }
  for (QTextBlock block = view.document()->begin(); block.isValid(); block = block.next()) {
    ++(block.layout()->formats().isEmpty() ? plain : coloured);
  }
  CHECK(coloured >= 3);
  CHECK(plain > coloured);
  view.selectAll();
  view.copy();
  CHECK(QApplication::clipboard()->text() == read);
}
