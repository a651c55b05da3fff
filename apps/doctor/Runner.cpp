#include "apps/doctor/Runner.h"

#include "apps/common/Endings.h"
#include "apps/doctor/Answer.h"
#include "apps/doctor/ChildProgram.h"
#include "system/Paths.h"

#include <memory>
#include <sstream>
#include <system_error>

namespace formwizard::apps::doctor {
namespace {

// The checks from `first` on that the same program makes.
std::vector<std::string> ArgumentsFor(Checks checks, std::size_t first, bool fix) {
  std::vector<std::string> arguments{"doctor"};
  if (fix) arguments.emplace_back("--fix");
  for (std::size_t i = first; i < checks.size() && checks[i].Who == checks[first].Who; ++i) {
    arguments.emplace_back("--answer");
    arguments.emplace_back(checks[i].Id);
  }
  return arguments;
}

std::string Seconds(std::chrono::milliseconds time) {
  std::ostringstream text;
  text << static_cast<double>(time.count()) / 1000 << " s";
  return text.str();
}

class Runner {
 public:
  Runner(Checks checks, const Programs& programs, bool fix) : checks_(checks), programs_(programs), fix_(fix) {}

  Finding Make(std::size_t index) {
    const Check& check = checks_[index];
    const bool isOf32Bits = check.Who == Teller::Of32Bits;
    const std::filesystem::path& program = isOf32Bits ? programs_.Of32Bits : programs_.This;
    if (program.empty())
      return {State::Unknown, "cannot be told from here: only a 32-bit program can, and there is none"};
    try {
      if (!child_ || index == 0 || checks_[index - 1].Who != check.Who) {
        child_ = std::make_unique<ChildProgram>(program, ArgumentsFor(checks_, index, fix_));
      }
      return Answer(check);
    } catch (const std::system_error& error) {
      child_ = nullptr;
      return {State::Unknown, "cannot be told from here: " + std::string(error.what())};
    }
  }

 private:
  Finding Answer(const Check& check) {
    while (const auto line = child_->NextLine(check.Limit)) {
      if (auto finding = FindingIn(*line, check.Id)) return *finding;
    }
    const std::optional<int> status = child_->Status();
    child_ = nullptr;  // the next check has it started anew
    if (!status) return {State::Fault, "given up: this takes more than " + Seconds(check.Limit)};
    if (*status == common::WrongUsage) {
      return {State::Unknown, "cannot be told from here: the 32-bit program is of another version"};
    }
    return {State::Fault, "the program that tried it came to grief (status " + std::to_string(*status) + ")"};
  }

  Checks checks_;
  const Programs& programs_;
  bool fix_;
  std::unique_ptr<ChildProgram> child_;
};

}  // namespace

std::vector<Finding> MakeChecks(Checks checks, const Programs& programs, bool fix) {
  Runner runner(checks, programs, fix);
  std::vector<Finding> findings;
  for (std::size_t i = 0; i < checks.size(); ++i) findings.push_back(runner.Make(i));
  return findings;
}

}  // namespace formwizard::apps::doctor
