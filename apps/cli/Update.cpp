#include "apps/cli/Commands.h"
#include "apps/cli/KeptListing.h"
#include "apps/cli/KeptProject.h"
#include "apps/cli/Progress.h"
#include "apps/cli/Spool.h"
#include "apps/cli/Summary.h"
#include "apps/cli/VisualBasicFile.h"
#include "apps/common/Endings.h"
#include "apps/common/Interruption.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "vbtext/Lines.h"
#include "vbtext/Tokens.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <utility>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using merge::Choice;

constexpr const char *Updated = "updated", *LeftAlone = "left as it is";  // what becomes of a form

struct UpdateOptions : ProjectOptions {
  std::vector<std::string> Forms, Resolve;
  Choice Conflicts = Choice::Marks;
  bool DecidesAll = false;  // --conflicts was given
  bool DryRun = false, Diff = false, Json = false, SkipConflicts = false;
  Verbosity Tells;
};

// What the user has decided: "frmPerson.cmdSave_Click=theirs".
class Resolutions {
 public:
  explicit Resolutions(const UpdateOptions& options) : options_(options) {
    for (const std::string& text : options.Resolve) Add(text);
  }

  std::optional<Choice> For(const std::string& form, const kept::UpdateConflict& conflict) {
    for (Resolution& each : all_) {
      const bool isMeant =
          vbtext::IsSameName(each.Form, form) && (vbtext::IsSameName(each.Name, kept::ShortName(conflict.Name)) ||
                                                  vbtext::IsSameName(each.Name, conflict.Name));
      if (!isMeant) continue;
      each.IsUsed = true;
      return each.Takes;
    }
    return options_.DecidesAll ? std::optional(options_.Conflicts) : std::nullopt;
  }

  // UsageError for one that is about nothing.
  void CheckAllUsed() const {
    for (const Resolution& each : all_) {
      if (each.IsUsed) continue;
      throw common::UsageError("--resolve " + each.Text + ": there is no such conflict in a form that is updated; " +
                               "\"ostrel-form-wizard update --dry-run\" lists those that there are");
    }
  }

 private:
  struct Resolution {
    std::string Text, Form, Name;
    Choice Takes;
    bool IsUsed = false;
  };

  void Add(const std::string& text) {
    const std::size_t dot = text.find('.'), equals = text.rfind('=');
    const std::string choice = equals == std::string::npos ? "" : text.substr(equals + 1);
    if (dot == std::string::npos || equals < dot || (choice != "mine" && choice != "theirs")) {
      throw common::UsageError("--resolve " + text +
                               ": expected FORM.PROCEDURE=mine or =theirs, such as frmPerson.cmdSave_Click=theirs");
    }
    all_.push_back({text, text.substr(0, dot), text.substr(dot + 1, equals - dot - 1),
                    choice == "mine" ? Choice::Mine : Choice::Theirs});
  }

  const UpdateOptions& options_;
  std::vector<Resolution> all_;
};

class Run {
 public:
  explicit Run(const UpdateOptions& options)
      : options_(options), resolutions_(options), kept_(options), codePage_(kept_.Project.ProjectCodePage()) {
    adapters::vb6files::ChangeListener note;
    const bool tells = options.Json || options.Diff || !options.Tells.Quiet;
    if (tells) note = [this](const adapters::vb6files::FileChange& change) { Note(change); };
    kept_.Project.OnChange(std::move(note), options.DryRun);
  }

  void UpdateAll() {
    const std::vector<std::string> names = kept_.Forms.Meant(options_.Forms);
    Progress progress(std::cerr, "updating forms", ShowsProgress(options_.Tells.Quiet, options_.DryRun));
    for (const std::string& name : names) {
      common::CheckInterrupted();
      if (const auto form = Look(name)) Update(*form);
      progress.Show(static_cast<double>(&name - names.data() + 1), static_cast<double>(names.size()));
    }
    if (unreadable_.empty()) resolutions_.CheckAllUsed();  // what is meant may stand in those
  }

  int Finish() {
    const bool needsDecision = conflicts_ > blocked_ && !options_.DecidesAll;
    if (!options_.SkipConflicts && (needsDecision || blocked_ > 0 || !unreadable_.empty())) {
      if (!options_.Json) std::cerr << "ostrel-form-wizard: " << WhyNothing(needsDecision) << '\n';
      PrintJson(false);
      return Status();
    }
    common::CheckInterrupted();  // what follows is not given up
    kept_.Project.Save();
    return common::AfterSaving(options_.Project, [this] { return Report(); });
  }

 private:
  int Status() const {
    if (!unreadable_.empty()) return common::InvalidInput;
    return conflicts_ > 0 ? common::Differs : common::Done;
  }

  std::string WhyNothing(bool needsDecision) const {
    const auto counted = [](std::size_t count, const std::string& thing) {
      return count == 0 ? "" : std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
    };
    const std::string conflicts = counted(static_cast<std::size_t>(conflicts_), "conflict");
    std::string unreadable = counted(unreadable_.size(), "form");
    if (!unreadable.empty()) unreadable += " that cannot be read";
    const std::string both = conflicts.empty() || unreadable.empty() ? "" : " and ";
    return conflicts + both + unreadable + "; nothing was written. " +
           (needsDecision ? "Decide with --conflicts mine, theirs or marks, one by one with --resolve "
                            "FORM.PROCEDURE=mine or =theirs, or leave"
                          : "Leave") +
           " such forms alone with --skip-conflicts";
  }

  static bool IsWanted(const forms::KeptForm& form, bool isNamed) {
    const kept::State& state = form.State;
    return state.IsOutdated() || state.HasOtherSettings || (isNamed && !state.Output.empty());
  }

  // Others are looked at nevertheless when one cannot be read.
  std::optional<forms::KeptForm> Look(const std::string& name) {
    try {
      return kept_.Forms.Look(name, options_.Json);
    } catch (const support::InputError& error) {
      std::cerr << "ostrel-form-wizard: " << support::Shown(error.what()) << '\n';
      unreadable_.push_back(error.what());
      return std::nullopt;
    }
  }

  void Update(const forms::KeptForm& form) {
    if (form.State.IsMissing) {  // what the user deleted stays deleted
      if (!options_.Forms.empty()) Remark(form.Name + " is missing: " + form.State.Reason);
      return Add(form, "missing", {});
    }
    if (form.State.IsForeign) {
      return Block(form, form.State.Reason);
    }
    if (!form.State.Problem.empty()) {
      return Block(form, form.File + ": conflict: the form cannot be made any longer: " + form.State.Problem +
                             "; change its description");
    }
    if (!IsWanted(form, !options_.Forms.empty())) return Add(form, "", {});
    const kept::Update update = kept_.Forms.UpdateOf(
        form, [&](const kept::UpdateConflict& conflict) { return resolutions_.For(form.Name, conflict); });
    for (const kept::UpdateConflict& conflict : update.Conflicts) Tell(form, conflict);
    Add(form, update.Conflicts.empty() || options_.DecidesAll ? Updated : "in conflict", update);
    if (!update.Conflicts.empty() && !options_.DecidesAll) return;
    isFormWritten_ |= !(update.Form == form.Sides.Mine);
    kept_.Forms.Put(form, update);
    if (!options_.Json && !options_.Diff && !options_.Tells.Quiet) {
      report_.Add(form.Name + (options_.DryRun ? ": would be updated" : ": updated") +
                  (form.Sides.Base == form.Sides.Mine ? "" : ", with what was edited") +
                  (update.Conflicts.empty() ? "" : " and with conflicts between marks, which are to be taken out") +
                  "\n");
    }
    for (const std::string& property : form.State.Class.Lost)
      Remark(form.Name + ": " + property + " goes, which the class has lost");
    for (const kept::Property& property : form.State.Class.New) {
      Remark(form.Name + ": the class has " + property.Path +
             ", which the form does not show; add it to the fields in " +
             kept_.Forms.Folder().FileOf(form.Name, ".json") + " and update again to have it");
    }
    for (const std::string& note : update.Notes) Remark(form.Name + ": " + Readable(note, codePage_));
    for (const std::string& message : form.Messages) Remark(form.Name + ": " + message);
  }

  void Block(const forms::KeptForm& form, const std::string& message) {
    ++conflicts_;
    ++blocked_;
    if (!options_.Json) std::cerr << support::Shown(message) << '\n';
    Add(form, "in conflict", {});
    if (options_.Json) forms_.back()["message"] = message;
  }

  void Tell(const forms::KeptForm& form, const kept::UpdateConflict& conflict) {
    ++conflicts_;
    if (options_.Json) return;
    const std::string place = conflict.MineLine > 0 ? PlaceOf(form.File, conflict.MineLine - 1) : form.File;
    std::cerr << support::Escaped(place + ": conflict: you and the class changed " +
                                  Readable(conflict.Name, codePage_) + " (" + form.Name + "." +
                                  Readable(std::string(kept::ShortName(conflict.Name)), codePage_) + ")")
              << '\n';
    TellSide("yours", conflict.Mine, conflict.MineLine);
    TellSide("generated", conflict.Theirs, conflict.TheirsLine);
  }

  void TellSide(const char* whose, const std::string& text, std::size_t line) {
    if (line == 0) {
      std::cerr << "  " << whose << ": nothing\n";
      return;
    }
    std::cerr << "  " << whose << ", line " << line << ":\n";
    for (const vbtext::Line& each : vbtext::LinesOf(text)) {
      std::cerr << "  | " << support::Escaped(Readable(std::string(each.Text), codePage_)) << '\n';
    }
  }

  void Remark(const std::string& note) {
    notes_.push_back(note);
    if (!options_.Tells.Quiet && !options_.Json) {
      std::cerr << "ostrel-form-wizard: note: " << support::Shown(note) << '\n';
    }
  }

  void Note(const adapters::vb6files::FileChange& change) {
    if (options_.Json) {
      files_.push_back(change.Path);
    } else if (options_.Diff) {
      if (!IsKeptForm(change.Path)) report_.Add(DiffOf(change));
    } else {
      report_.Add(LineOf(change, !options_.DryRun));
    }
  }

  // It changes as the form does, but for what was edited.
  bool IsKeptForm(const std::string& path) const {
    return path.starts_with(kept_.Forms.Folder().Path() + "/") && !path.ends_with(".json");
  }

  void Add(const forms::KeptForm& form, const char* result, const kept::Update& update) {
    if (!options_.Json) return;
    Json json = JsonOf(form.Name, form.State, codePage_);
    json["result"] = *result == '\0' ? LeftAlone : result;
    json["conflicts"] = ConflictsOf(update.Conflicts);
    json["decided"] = ConflictsOf(update.Decided);
    forms_.push_back(std::move(json));
  }

  Json ConflictsOf(const std::vector<kept::UpdateConflict>& conflicts) const {
    Json list = Json::array();
    for (const kept::UpdateConflict& each : conflicts) {
      list.push_back({{"name", Readable(each.Name, codePage_)},
                      {"mine", {{"line", each.MineLine}, {"text", Readable(each.Mine, codePage_)}}},
                      {"theirs", {{"line", each.TheirsLine}, {"text", Readable(each.Theirs, codePage_)}}}});
    }
    return list;
  }

  void PrintJson(bool isWritten) {
    if (!options_.Json) return;
    for (Json& form : forms_) {
      if (!isWritten && form["result"] == Updated) form["result"] = LeftAlone;
    }
    const Json result{{"forms", forms_},
                      {"files", isWritten ? files_ : Json::array()},
                      {"notes", notes_},
                      {"conflicts", conflicts_},
                      {"unreadable", unreadable_}};
    std::cout << result.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
  }

  int Report() {
    report_.PrintTo(std::cout);
    PrintJson(true);
    common::FlushOutput();
    if (isFormWritten_ && !options_.DryRun) {
      Remark(
          "where Visual Basic has this project open it does not notice: open it there anew before it saves, or it "
          "writes its old forms back");
    }
    return Status();
  }

  const UpdateOptions& options_;
  Resolutions resolutions_;
  KeptProject kept_;
  const system::CodePage& codePage_;
  Spool report_;  // that is not printed yet
  Json forms_ = Json::array(), files_ = Json::array(), notes_ = Json::array(), unreadable_ = Json::array();
  int conflicts_ = 0, blocked_ = 0;  // blocked_: of them those that no choice decides
  bool isFormWritten_ = false;
};

int UpdateForms(const UpdateOptions& options) {
  if (options.Json && options.Diff) {
    throw common::UsageError("give --json or --diff, not both: a summary is one JSON document");
  }
  Run run(options);
  run.UpdateAll();
  return run.Finish();
}

}  // namespace

void AddUpdate(CLI::App& command, Task& task) {
  const auto options = std::make_shared<UpdateOptions>();
  AddKeptInputs(command, *options);
  AddDryRun(command, options->DryRun);
  AddDiff(command, options->Diff);
  const std::map<std::string, Choice> choices{
      {"marks", Choice::Marks}, {"mine", Choice::Mine}, {"theirs", Choice::Theirs}};
  CLI::Option& conflicts =
      *command.add_option("--conflicts", options->Conflicts, "what becomes of conflicts: marks, mine or theirs")
           ->transform(CLI::CheckedTransformer(choices).description(""))
           ->type_name("CHOICE");
  command.add_option("--resolve", options->Resolve, "what becomes of one of them; may be repeated")
      ->allow_extra_args(false)
      ->type_name("FORM.PROCEDURE=CHOICE");
  command.add_flag("--skip-conflicts", options->SkipConflicts, "leave forms with conflicts as they are");
  AddJson(command, options->Json);
  AddQuiet(command, options->Tells.Quiet);
  AddKeptForms(command, options->Forms);
  command.callback([&task, options, &conflicts] {
    options->DecidesAll = conflicts.count() > 0;
    task = {[options] { return UpdateForms(*options); }, options->Project, !options->DryRun, true};
  });
}

}  // namespace formwizard::apps::cli
