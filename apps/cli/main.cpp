#include "apps/cli/Program.h"
#include "apps/common/Platform.h"

#include <iostream>
#include <memory>
#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace formwizard::apps;

// Without memory to say so, the program ends as the run-time library ends it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
#ifdef __GLIBC__
  mallopt(M_TRIM_THRESHOLD, 1 << 20);  // what one form has needed stays for the next one
#endif
  std::ios::sync_with_stdio(false);
  const std::shared_ptr<void> streams = common::UseStandardStreams();
  return cli::RunProgram([&] { return common::Arguments(argc, argv); });
}
