// What the command line asks for.
#pragma once

#include "apps/cli/FormDescription.h"
#include "apps/common/Endings.h"

#include <string>
#include <vector>

namespace formwizard::apps::cli {

using common::Done;
using common::Incomplete;
using common::InvalidInput;
using common::NotSaved;
using common::UsageError;
using common::WrongUsage;

struct GenerateOptions {
  std::string Project, Dictionary, Class, System, Profile, Language, Journal, Toolbox;
  std::vector<std::string> Fields, Settings, Descriptions;
  int CodePage = 1252;
  bool DryRun = false, Diff = false, Check = false, Json = false, Force = false;
};

struct BrowseOptions {
  std::string Dictionary, System, Class;
  bool Server = false, Json = false, All = false;  // the installed server instead of a dictionary
};

struct TransferOptions {
  std::string From, To, System;
  bool Server = false;  // export from the installed server, of one system or all
  bool Force = false;   // replaces whatever file stands there
};

// Each returns an ExitStatus. Whatever exception one raises, nothing was changed, but for common::FailedAfterSaving.
int Generate(const GenerateOptions& options);
int ListSystems(const BrowseOptions& options);
int ListClasses(const BrowseOptions& options);
int ListProperties(const BrowseOptions& options);
int ListQueries(const BrowseOptions& options);
int Import(const TransferOptions& options);
int Export(const TransferOptions& options);

}  // namespace formwizard::apps::cli
