#include "lint/Lint.h"

#include "apps/cli/Commands.h"
#include "apps/cli/FilesAround.h"
#include "apps/cli/Findings.h"
#include "apps/cli/VisualBasicFile.h"
#include "apps/common/Endings.h"
#include "apps/common/Platform.h"
#include "lint/Listed.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "system/CodePage.h"
#include "system/FileSystem.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <functional>
#include <iostream>
#include <memory>
#include <optional>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;

constexpr int WesternCodePage = 1252;

struct LintOptions {
  std::vector<std::string> Files;
  std::string Project;
  std::optional<int> CodePage;
  bool All = false, Json = false;
};

std::string BytesOf(const std::string& path) {
  std::optional<std::string> bytes = system::RealFileSystem().Read(path);
  if (!bytes) throw support::InputError(path + ": there is no such file; check the path");
  return std::move(*bytes);
}

class Run {
 public:
  explicit Run(const LintOptions& options) : options_(options), codePage_(options.CodePage.value_or(WesternCodePage)) {}

  // Others are looked at nevertheless when one cannot be read.
  void LookAtAll() {
    if (!options_.Project.empty()) Try([this] { LookAtProject(options_.Project); });
    for (const std::string& file : options_.Files) Try([&] { LookAtFile(file); });
  }

  int Finish() {
    if (options_.Json) {
      const Json result{{"files", files_}, {"findings", findings_}, {"unreadable", unreadable_}};
      std::cout << result.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
    }
    if (!unreadable_.empty()) return common::InvalidInput;
    return isFaulty_ ? common::Differs : common::Done;
  }

 private:
  void Try(const std::function<void()>& look) {
    try {
      look();
    } catch (const support::InputError& error) {
      std::cout.flush();
      std::cerr << "ostrel-form-wizard: " << support::Shown(error.what()) << '\n';
      unreadable_.push_back(error.what());
    }
  }

  void LookAtFile(const std::string& path) {
    const std::string bytes = BytesOf(path);
    const FilesAround around(path, NamesCodePage(), folders_);
    const lint::Subject subject({path, bytes, around});
    if (!subject.IsRecognized()) {
      throw support::InputError(path +
                                ": this is no file of Visual Basic; give a form, control, class, module or project");
    }
    Tell(path, subject);
  }

  // The project, and what it lists and is there.
  void LookAtProject(const std::string& path) {
    const std::string bytes = BytesOf(path);
    const FilesAround around(path, NamesCodePage(), folders_);
    const lint::Subject project({path, bytes, around});
    if (project.Kind() != vbtext::FileKind::Project) {
      throw support::InputError(path + ": this is no project; give a file as Visual Basic 6 saves it (.vbp)");
    }
    Tell(path, project);
    const std::string_view name = lint::ProjectNameIn(project.Entries());
    for (const vbtext::ProjectEntry& entry : project.Entries()) {
      const auto listed = lint::ListedFileIn(entry);
      if (!listed || vbtext::KindOfName(*listed) == vbtext::FileKind::Unknown) continue;
      if (const std::optional<std::string> file = around.Find(*listed)) {
        const std::string text = BytesOf(*file);
        const FilesAround beside(*file, NamesCodePage(), folders_);
        Tell(*file, lint::Subject({*file, text, beside, name}));
      }
    }
  }

  const system::CodePage* NamesCodePage() const { return options_.CodePage ? &codePage_ : nullptr; }

  void Tell(const std::string& path, const lint::Subject& subject) {
    ++files_;
    for (const lint::Finding& finding : lint::FindingsIn(subject, options_.All)) {
      const lint::Rule& rule = *finding.Broken;
      if (rule.HowBad != lint::Severity::Note) isFaulty_ = true;
      if (options_.Json) {
        findings_.push_back({{"file", path},
                             {"line", finding.Line},
                             {"severity", lint::WordOf(rule.HowBad)},
                             {"rule", rule.Id},
                             {"message", MessageOf(finding, codePage_)},
                             {"remedy", rule.Remedy}});
      } else {
        std::cout << support::Escaped(LineOf(path, finding, codePage_)) << '\n';
      }
    }
  }

  const LintOptions& options_;
  system::CodePage codePage_;
  ListedFolders folders_;
  std::size_t files_ = 0;
  Json findings_ = Json::array(), unreadable_ = Json::array();
  bool isFaulty_ = false;
};

int LookAt(const LintOptions& options) {
  if (options.Files.empty() && options.Project.empty()) {
    throw common::UsageError("lint: give the files to look at, or a project with --project; see \"lint --help\"");
  }
  Run run(options);
  run.LookAtAll();
  return run.Finish();
}

}  // namespace

void AddLint(CLI::App& command, Task& task) {
  const auto options = std::make_shared<LintOptions>();
  AddFile(command, "--project", options->Project, "a VB6 project file (.vbp), with all files that it lists");
  command.add_flag("--all", options->All, "also ask the rules that are left out otherwise");
  command
      .add_option("--code-page", options->CodePage, "the Windows code page of the names (default: 1252 to show them)")
      ->type_name("N");
  AddJson(command, options->Json);
  command.add_option("files", options->Files, "forms, controls, classes, modules and projects")
      ->type_name("FILE")
      ->check(CheckedPath)
      ->check(NoStream);
  command.callback([&task, options] {
    const auto look = [options] {
      options->Files = common::FilesMeant(std::move(options->Files));
      return LookAt(*options);
    };
    task = {look, options->Files.empty() ? options->Project : options->Files.front()};
  });
}

}  // namespace formwizard::apps::cli
