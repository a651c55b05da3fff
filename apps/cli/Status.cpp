#include "apps/cli/Commands.h"
#include "apps/cli/KeptListing.h"
#include "apps/cli/KeptProject.h"
#include "apps/cli/Progress.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "support/Failures.h"
#include "support/Messages.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <memory>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;

struct StatusOptions : ProjectOptions {
  std::vector<std::string> Forms;
  bool Json = false;
};

class Report {
 public:
  Report(bool asJson, const system::CodePage& codePage) : asJson_(asJson), codePage_(codePage) {}

  void Add(const forms::KeptForm& form) {
    isOutdated_ |= form.State.IsOutdated();
    if (asJson_) {
      forms_.push_back(JsonOf(form.Name, form.State, codePage_));
    } else {
      std::cout << LinesOf(form.Name, form.State, codePage_);
    }
  }
  void AddUnreadable(const std::string& message) {
    std::cout.flush();
    std::cerr << "ostrel-form-wizard: " << support::Shown(message) << '\n';
    unreadable_.push_back(message);
  }
  int Finish() {
    if (asJson_) {
      const Json result{{"forms", forms_}, {"unreadable", unreadable_}};
      std::cout << result.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    }
    if (!unreadable_.empty()) return common::InvalidInput;
    return isOutdated_ ? common::Differs : common::Done;
  }

 private:
  bool asJson_;
  const system::CodePage& codePage_;
  Json forms_ = Json::array(), unreadable_ = Json::array();
  bool isOutdated_ = false;
};

// Others are looked at nevertheless when one cannot be read.
int ShowStatus(const StatusOptions& options) {
  KeptProject kept(options);
  Report report(options.Json, kept.Project.ProjectCodePage());
  const std::vector<std::string> names = kept.Forms.Meant(options.Forms);
  if (names.empty() && !options.Json) {
    std::cerr << "ostrel-form-wizard: note: " << support::Shown(kept.Forms.Folder().Path())
              << ": no form is kept; \"generate --keep\" keeps new ones, \"keep\" takes one up\n";
  }
  for (const std::string& name : names) {
    common::CheckInterrupted();
    try {
      report.Add(kept.Forms.Look(name));
    } catch (const support::InputError& error) {
      report.AddUnreadable(error.what());
    }
  }
  return report.Finish();
}

}  // namespace

void AddStatus(CLI::App& command, Task& task) {
  const auto options = std::make_shared<StatusOptions>();
  AddKeptInputs(command, *options);
  AddJson(command, options->Json);
  AddKeptForms(command, options->Forms);
  command.callback([&task, options] {
    task = {[options] { return ShowStatus(*options); }, options->Project, false, true};
  });
}

}  // namespace formwizard::apps::cli
