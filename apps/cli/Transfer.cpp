#include "apps/cli/Options.h"
#include "apps/common/Dictionaries.h"
#include "apps/common/Platform.h"
#include "support/Failures.h"
#include "system/Paths.h"
#include "system/WholeFile.h"

#include <fstream>
#include <iostream>

namespace formwizard::apps::cli {
namespace {

void WriteJson(const TransferOptions& options, std::ostream& out) {
  if (options.Server) {
    common::ExportServer(*common::InstalledServer(), options.System, out);
  } else {
    common::ExportDictionary(options.From, out);
  }
}

}  // namespace

int Import(const TransferOptions& options) {
  if (options.From == "-") {
    common::ImportDictionary(std::cin, "standard input", options.To, options.Force);
    return Done;
  }
  if (!system::RealFileSystem().ReadHead(options.From, 0)) {  // says what is no file and what cannot be read
    throw support::InputError(options.From + ": there is no such file; give a dictionary in JSON");
  }
  std::ifstream in(system::NativePath(options.From), std::ios::binary);
  if (!in) throw support::InputError(options.From + ": the file cannot be read; give a dictionary in JSON");
  common::ImportDictionary(in, options.From, options.To, options.Force);
  return Done;
}

int Export(const TransferOptions& options) {
  if (options.To == "-") {
    WriteJson(options, std::cout);
    return Done;
  }
  if (!options.Force) common::CheckIsExport(options.To);
  system::WholeFile file(system::RealFileSystem(), options.To);
  WriteJson(options, file.Stream());
  file.Commit();
  return Done;
}

}  // namespace formwizard::apps::cli
