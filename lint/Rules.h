// The rules of the linter: what Visual Basic would refuse, lose or mangle in a file.
#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>

namespace formwizard::lint {

class Subject;

enum class Severity {
  Error,    // the file or a part of it is refused or lost
  Warning,  // it is taken, and is something else than it was
  Note,     // worth a look
};
// "error", "warning", "note"
std::string_view WordOf(Severity severity);

// Takes what a rule finds: the line, from 0, and a message without line and remedy. Names in it are the file's bytes.
using Report = std::function<void(std::size_t line, std::string message)>;

struct Rule {
  std::string_view Id;  // "duplicate-control"
  Severity HowBad;
  std::string_view Finds;   // a sentence for the manual
  std::string_view Remedy;  // what the user is to do
  void (*Check)(const Subject& subject, const Report& report);
  bool OnRequest = false;  // only where the user asks for it
};

// All of them, in the order of the manual.
std::span<const Rule> Rules();

}  // namespace formwizard::lint
