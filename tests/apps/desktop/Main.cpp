#include "tests/support/BuildTree.h"

#include <QApplication>

#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

int main(int argc, char** argv) {
  const std::string screen =
      "offscreen:configfile=" + formwizard::tests::SourceFolder() + "/tests/apps/desktop/screen.json";
  qputenv("QT_QPA_PLATFORM", screen.c_str());
  qputenv("LC_ALL", "C");
  const QApplication application(argc, argv);
  QApplication::setDoubleClickInterval(20);  // for so long an open list takes no click
  return doctest::Context(argc, argv).run();
}
