#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <stdio.h>
#endif

int main(int argc, char** argv) {
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);  // the list of tests is read by programs that know no carriage returns
#endif
  return doctest::Context(argc, argv).run();
}
