// What the command line asks for.
#pragma once

#include "apps/cli/FormDescription.h"

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace formwizard::apps::cli {

// The documented exit statuses.
enum ExitStatus : int {
  Done = 0,
  Incomplete = 1,  // failures were reported, or with --check something would be written
  WrongUsage = 2,
  InvalidInput = 3,
  NotSaved = 4,
};

// A command line that makes no sense; its message says what is wrong.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

struct GenerateOptions {
  std::string Project, Dictionary, Class, System, Profile, Language, Journal, Toolbox;
  std::vector<std::string> Fields, Settings, Descriptions;
  int CodePage = 1252;
  bool DryRun = false, Diff = false, Check = false, Json = false;
};

struct BrowseOptions {
  std::string Dictionary, System, Class;
  bool Server = false, Json = false, All = false;  // the installed server instead of a dictionary
};

struct TransferOptions {
  std::string From, To, System;
  bool Server = false;  // export from the installed server, of one system or all
};

// Each returns an ExitStatus and raises support::InputError, support::SaveError or UsageError.
int Generate(const GenerateOptions& options);
int ListSystems(const BrowseOptions& options);
int ListClasses(const BrowseOptions& options);
int ListProperties(const BrowseOptions& options);
int ListQueries(const BrowseOptions& options);
int Import(const TransferOptions& options);
int Export(const TransferOptions& options);

}  // namespace formwizard::apps::cli
