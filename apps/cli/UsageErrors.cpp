#include "apps/cli/UsageErrors.h"

#include "support/Names.h"

#include <CLI/CLI.hpp>

#include <string_view>
#include <vector>

namespace formwizard::apps::cli {
namespace {

std::string Quoted(const std::string& text) { return '"' + text + '"'; }

// The commands that the line names, the program first: "dictionary", "import".
std::vector<const CLI::App*> NamedCommands(const CLI::App& program) {
  std::vector<const CLI::App*> named{&program};
  while (!named.back()->get_subcommands().empty()) named.push_back(named.back()->get_subcommands().front());
  return named;
}

std::vector<std::string> OptionsOf(const CLI::App& command) {
  std::vector<std::string> options;
  for (const CLI::Option* option : command.get_options()) {
    if (option->get_group().empty()) continue;  // not for users
    for (const std::string& name : option->get_lnames()) options.push_back("--" + name);
  }
  return options;
}

std::vector<std::string> CommandsOf(const CLI::App& command) {
  std::vector<std::string> commands;
  for (const CLI::App* each : command.get_subcommands([](const CLI::App*) { return true; })) {
    commands.push_back(each->get_name());
  }
  return commands;
}

support::Names NamesIn(const std::vector<std::string>& list) {
  return {list, [](const std::string& each) { return std::string_view(each); }};
}

// Of a word that is neither a command, nor an option, nor a value.
std::string UnknownWord(const CLI::App& program, const CLI::App& command, const std::string& word) {
  const std::vector<std::string> commands = CommandsOf(command), options = OptionsOf(command);
  const std::string name = word.substr(0, word.find('='));
  const support::Names names = NamesIn(options);
  if (word.starts_with('-')) {
    const bool isTooEarly = &command != &program && !program.remaining(false).empty() && names.Find(name);
    return isTooEarly ? name + " belongs behind the command"
                      : "there is no option " + Quoted(name) + (commands.empty() ? "" : " in front of a command") +
                            "; " + names.Answer(name);
  }
  if (commands.empty()) return Quoted(word) + " is one argument too many";
  return "there is no command " + Quoted(word) + "; " + NamesIn(commands).Answer(word);
}

// With what to give instead: "--class is missing; give --class NAME, the class".
std::string Missing(const CLI::App& command, const std::string& name) {
  const CLI::Option* const option = command.get_option_no_throw(name);
  if (!option) return name + " is missing; give it";
  const std::string what = option->get_positional()
                               ? "the argument " + Quoted(name) + " is missing; give a file for it"
                               : name + " is missing; give " + name + " " + option->get_type_name();
  return what + ": " + option->get_description();
}

// Takes the option's name out of the parser's own words.
std::string InWords(const CLI::App& command, const CLI::ParseError& end) {
  constexpr std::string_view conversion = "Could not convert: ";
  const std::string text = end.what();
  if (text == "A subcommand is required") return "name a command; " + NamesIn(CommandsOf(command)).Answer("");
  if (text.starts_with(conversion)) {
    const std::string value = text.substr(conversion.size()), name = value.substr(0, value.find(' '));
    const CLI::Option* const option = command.get_option_no_throw(name);
    return option && option->get_expected_max() == 0 ? name + " takes no value" : value + ": this is not a number";
  }
  constexpr std::string_view excludes = " excludes ", required = " is required";
  if (dynamic_cast<const CLI::ExcludesError*>(&end)) {
    const std::size_t at = text.find(excludes);
    return text.substr(0, at) + " and " + text.substr(at + excludes.size()) + " exclude each other; give one of them";
  }
  if (dynamic_cast<const CLI::RequiredError*>(&end)) {
    return Missing(command, text.substr(0, text.find(required)));
  }
  const std::string name = text.substr(0, text.find(": "));
  if (text.find("At Most 1") != std::string::npos) return name + " is given more than once";
  return dynamic_cast<const CLI::ArgumentMismatch*>(&end) ? name + " needs a value behind it" : text;
}

}  // namespace

std::string Explained(const CLI::App& program, const CLI::ParseError& end) {
  const std::vector<const CLI::App*> commands = NamedCommands(program);
  const CLI::App& command = *commands.back();
  const std::vector<std::string> unknown = program.remaining(true);
  std::string name;
  for (const CLI::App* each : commands) name += (name.empty() ? "" : " ") + each->get_name();
  return (commands.size() == 1 ? "" : name.substr(program.get_name().size() + 1) + ": ") +
         (unknown.empty() ? InWords(command, end) : UnknownWord(program, command, unknown.front())) + "; see \"" +
         name + " --help\"";
}

}  // namespace formwizard::apps::cli
