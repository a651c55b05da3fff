#include "apps/cli/Program.h"
#include "apps/common/Platform.h"

#include <iostream>
#include <memory>

using namespace formwizard::apps;

// Without memory to say so, the program ends as the run-time library ends it.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  std::ios::sync_with_stdio(false);
  const std::shared_ptr<void> streams = common::UseStandardStreams();
  return cli::RunProgram([&] { return common::Arguments(argc, argv); });
}
