#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#include <QApplication>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" FORMWIZARD_SOURCE_DIR "/tests/apps/desktop/screen.json");
  qputenv("LC_ALL", "C");
  const QApplication application(argc, argv);
  return doctest::Context(argc, argv).run();
}
