// The thread that plays the environment is, like its own one, a single-threaded apartment.
#define DOCTEST_CONFIG_IMPLEMENT
#include <doctest/doctest.h>
#include <fcntl.h>
#include <io.h>
#include <objbase.h>
#include <stdio.h>

int main(int argc, char** argv) {
  _setmode(_fileno(stdout), _O_BINARY);  // the list of tests is read by programs that know no carriage returns
  if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) return 1;
  const int result = doctest::Context(argc, argv).run();
  CoUninitialize();
  return result;
}
