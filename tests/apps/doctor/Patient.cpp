// A doctor whose checks are made up: a program of its own, because checks hang and crash in it.
#include "apps/common/Endings.h"
#include "apps/common/Platform.h"
#include "apps/doctor/Doctor.h"

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <thread>

using namespace formwizard::apps;
using namespace formwizard::apps::doctor;
using namespace std::chrono_literals;

namespace {

constexpr const char* Broken = "broken";  // a file in the current folder: the fault that can be mended

Finding Hang() {
  for (;;) std::this_thread::sleep_for(1h);
}
Finding Throw() { throw std::runtime_error("an answer\nof two lines"); }
Finding Crash() { std::_Exit(77); }
Finding LookAtFile() {
  if (std::filesystem::exists(Broken)) return {State::Fault, "broken", "rm broken"};
  return {State::Good, "in order"};
}
std::string RemoveFile() { return std::filesystem::remove(Broken) ? "removed it" : ""; }
Finding Good() { return {State::Good, "well"}; }

constexpr auto Enough = 60s;
constexpr std::array Table{
    Check{"good", true, Teller::Any, Enough, Good},
    Check{"mended", true, Teller::Any, Enough, LookAtFile, RemoveFile},
    Check{"throws", true, Teller::Any, Enough, Throw},
    Check{"optional", false, Teller::Any, Enough,
          [] {
            return Finding{State::Fault, "bad", "do it"};
          },
          [] { return std::string(); }},
    Check{"absent", true, Teller::Any, Enough,
          [] {
            return Finding{State::NotInstalled, "not here"};
          }},
    Check{"elsewhere", true, Teller::Of32Bits, Enough, Good},
    Check{"hangs", false, Teller::Any, 200ms, Hang},
    Check{"crashes", false, Teller::Any, Enough, Crash},
    Check{"last", true, Teller::Any, Enough, Good},
};

}  // namespace

// "patient healthy" makes only the checks that are good after mending, "patient 32=PROGRAM" has one of 32 bits. A copy
// of it that is called "older" has only the first check.
int main(int argc, char** argv) {
  DoctorOptions options;
  Programs programs{common::RunningProgram(), {}};
  std::size_t count = programs.This.stem() == "older" ? 1 : Table.size();
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "healthy") count = 2;
    if (argument.starts_with("32=")) programs.Of32Bits = argument.substr(3);
    options.Fix |= argument == "--fix";
    options.Strict |= argument == "--strict";
    options.Json |= argument == "--json";
    if (argument == "--answer") options.Answer.emplace_back(argv[++i]);
  }
  try {
    return Doctor(options, std::cout, Checks(Table).first(count), programs);
  } catch (const common::UsageError&) {
    return common::WrongUsage;
  }
}
