#include "adapters/sqlite/Dictionary.h"
#include "apps/cli/Options.h"
#include "support/Failures.h"

#include <cstdio>
#include <fstream>
#include <iostream>

namespace formwizard::apps::cli {

int Import(const TransferOptions& options) {
  if (options.From == "-") {
    adapters::sqlite::ImportDictionary(std::cin, "standard input", options.To);
    return Done;
  }
  std::ifstream in(options.From, std::ios::binary);
  if (!in || in.peek() == std::ifstream::traits_type::eof()) {
    throw support::InputError(options.From +
                              ": the file is missing, empty or cannot be read; give a dictionary in JSON");
  }
  adapters::sqlite::ImportDictionary(in, options.From, options.To);
  return Done;
}

int Export(const TransferOptions& options) {
  if (options.To == "-") {
    adapters::sqlite::ExportDictionary(options.From, std::cout);
    return Done;
  }
  const std::string aside = options.To + ".exporting";
  {
    std::ofstream out(aside, std::ios::binary | std::ios::trunc);
    if (!out) throw support::SaveError(options.To + ": the file cannot be created");
    try {
      adapters::sqlite::ExportDictionary(options.From, out);
    } catch (const support::InputError&) {
      std::remove(aside.c_str());
      throw;
    }
    if (!out.flush()) {
      std::remove(aside.c_str());
      throw support::SaveError(options.To + ": writing failed");
    }
  }
  if (std::rename(aside.c_str(), options.To.c_str()) != 0) {
    std::remove(aside.c_str());
    throw support::SaveError(options.To + ": the file cannot be replaced");
  }
  return Done;
}

}  // namespace formwizard::apps::cli
