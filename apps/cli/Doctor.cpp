#include "apps/doctor/Doctor.h"

#include "apps/cli/Commands.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace formwizard::apps::cli {

void AddDoctor(CLI::App& command, Task& task) {
  const auto options = std::make_shared<doctor::DoctorOptions>();
  command.add_flag("--fix", options->Fix, "mend what you may change");
  command.add_flag("--strict", options->Strict, "exit with status 1 unless everything is good");
  AddJson(command, options->Json);
  // By which this program asks itself, or one of 32 bits; not for users.
  command.add_option("--answer", options->Answer)->allow_extra_args(false)->group("");
  command.callback([&task, options] {
    task = {[options] { return doctor::Doctor(*options, std::cout); }, "", options->Fix};
  });
}

}  // namespace formwizard::apps::cli
