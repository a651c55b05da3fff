// The commands of the program. Each is a file, which declares its options and says what it does, and a row in
// Program.cpp with its name.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace formwizard::apps::cli {

// What the command line asks for.
struct Task {
  // Returns an ExitStatus. Whatever exception it raises, nothing was changed, but for common::FailedAfterSaving.
  std::function<int()> Do;
  std::string Subject;  // the file that it is about: begins messages of failures that name none
  bool Saves = false;   // files, and not only to standard output
  bool Stops = false;   // when the user interrupts it, by common::Interrupted, and leaves nothing half done
};

// Adds its options, with their help, to a command that the command line names. Its callback, which the parser calls
// when the command line is right so far, sets the task, or raises CLI::ParseError for what the parser itself cannot
// see.
using AddOptions = void(CLI::App& command, Task& task);
AddOptions AddGenerate, AddKeep, AddStatus, AddUpdate, AddUndo, AddWizard, AddSystems, AddClasses, AddProperties,
    AddQueries, AddDictionary, AddDictionaryDiff, AddCompare, AddMerge, AddLint, AddRender, AddDoctor;

// An option, or an argument when the name has no dashes, that takes a path. One that no file can have ends in
// support::InputError.
CLI::Option* AddFile(CLI::App& command, const char* name, std::string& file, const char* about);
// The same where "-" is standard input or output, which is no wrong usage then.
CLI::Option* AddStream(CLI::App& command, const char* name, std::string& file, const char* about);
// The checks that these make, for options that take several; what they return is what is wrong.
std::string CheckedPath(const std::string& path);
std::string NoStream(const std::string& path);

// --code-page, a number that is known.
void AddCodePage(CLI::App& command, int& codePage, const char* about);

// What commands that write or list have in common.
CLI::Option* AddDryRun(CLI::App& command, bool& dryRun);
CLI::Option* AddDiff(CLI::App& command, bool& diff);
CLI::Option* AddJson(CLI::App& command, bool& json, const std::string& what = "result");
CLI::Option* AddQuiet(CLI::App& command, bool& quiet);

// How much a command tells.
struct Verbosity {
  bool Quiet = false;  // errors, and what was asked for
  bool Verbose = false;
};
// -q and -v, of which one may be given.
void AddVerbosity(CLI::App& command, Verbosity& verbosity, const char* aboutVerbose);

}  // namespace formwizard::apps::cli
