#include "adapters/sqlite/Dictionary.h"
#include "adapters/sqlite/Snapshot.h"
#include "apps/cli/Options.h"
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>

namespace formwizard::apps::cli {

namespace fs = std::filesystem;

namespace {

void WriteJson(const TransferOptions& options, std::ostream& out) {
  if (options.Server) {
    adapters::sqlite::WriteSnapshot(*common::InstalledServer(), options.System, out);
  } else {
    adapters::sqlite::ExportDictionary(options.From, out);
  }
}

}  // namespace

int Import(const TransferOptions& options) {
  if (options.From == "-") {
    adapters::sqlite::ImportDictionary(std::cin, "standard input", options.To);
    return Done;
  }
  std::ifstream in(system::NativePath(options.From), std::ios::binary);
  if (!in || in.peek() == std::ifstream::traits_type::eof()) {
    throw support::InputError(options.From +
                              ": the file is missing, empty or cannot be read; give a dictionary in JSON");
  }
  adapters::sqlite::ImportDictionary(in, options.From, options.To);
  return Done;
}

int Export(const TransferOptions& options) {
  if (options.To == "-") {
    WriteJson(options, std::cout);
    return Done;
  }
  const fs::path target = system::NativePath(options.To);
  fs::path aside = target;
  aside += ".exporting";
  std::error_code error;
  {
    std::ofstream out(aside, std::ios::binary | std::ios::trunc);
    if (!out) throw support::SaveError(options.To + ": the file cannot be created");
    try {
      WriteJson(options, out);
    } catch (const std::exception&) {
      out.close();
      fs::remove(aside, error);
      throw;
    }
    if (!out.flush()) {
      out.close();
      fs::remove(aside, error);
      throw support::SaveError(options.To + ": writing failed");
    }
  }
  fs::rename(aside, target, error);
  if (error) {
    fs::remove(aside, error);
    throw support::SaveError(options.To + ": the file cannot be replaced");
  }
  return Done;
}

}  // namespace formwizard::apps::cli
