// A program that runs beside this one, whose lines on standard output are read as they come.
#pragma once

#include "apps/doctor/ChildProcess.h"

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace formwizard::apps::doctor {

class ChildProgram {
 public:
  // std::system_error when it cannot be started.
  ChildProgram(const std::filesystem::path& program, const std::vector<std::string>& arguments)
      : process_(StartProcess(program, arguments)) {}

  // The next line without its end; nothing when none came in time or none will come.
  std::optional<std::string> NextLine(std::chrono::milliseconds limit);
  // How the program ended after its last line was read; nothing while it may still run.
  std::optional<int> Status() const { return status_; }

 private:
  std::unique_ptr<ChildProcess> process_;
  std::string unread_;
  std::optional<int> status_;
};

}  // namespace formwizard::apps::doctor
