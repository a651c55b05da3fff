// One run that makes forms: everything that the wizard is given, and the forms one after the other.
#pragma once

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/cli/ConsoleDesktop.h"
#include "apps/cli/GenerateOptions.h"
#include "apps/cli/GenerateReport.h"
#include "apps/cli/JournalFile.h"
#include "apps/forms/KeptFolder.h"
#include "apps/forms/Workshop.h"

#include <memory>
#include <optional>
#include <string>

namespace formwizard::apps::cli {

class GenerateRun {
 public:
  // Opens all that is named. `options` must outlive this object.
  explicit GenerateRun(const GenerateOptions& options);

  // support::InputError when it cannot be made, or not be called what it should.
  void Make(const forms::FormDescription& form);
  // Ends a run that saves nothing. Its journal tells how far it came.
  void Stop();
  // The ExitStatus.
  int Save();

 private:
  void CheckSurroundings(const forms::FormDescription& form);
  void FinishForm(const forms::FormDescription& form, const wizard::AddInState& state);
  void Keep(const forms::FormDescription& form, const std::string& name, bool isReused);
  void KeepJournal();
  int Finish();

  const GenerateOptions& options_;
  forms::SettingTexts settings_;  // of the command line, which wins
  ConsoleDesktop desktop_;
  forms::Workshop workshop_;
  adapters::vb6files::ProjectOnDisk project_;
  forms::KeptFolder kept_{system::RealFileSystem(), project_.Path()};
  GenerateReport report_{options_, project_};
  std::optional<JournalFile> journal_;
  std::unique_ptr<generator::ide::Vbe> journalled_;
  bool incomplete_ = false;
};

}  // namespace formwizard::apps::cli
