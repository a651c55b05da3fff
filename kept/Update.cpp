#include "kept/Update.h"

#include "kept/Layout.h"
#include "kept/References.h"
#include "kept/State.h"
#include "merge/Merge.h"

#include <algorithm>
#include <utility>

namespace formwizard::kept {
namespace {

constexpr int MostRounds = 4;  // what is decided may bring up the next conflict

std::size_t LineIn(std::string_view whole, std::string_view part) {
  if (part.empty()) return 0;
  const auto at = static_cast<std::size_t>(part.data() - whole.data());
  return 1 + static_cast<std::size_t>(std::ranges::count(whole.substr(0, at), '\n'));
}

UpdateConflict ConflictOf(const merge::Conflict& conflict, const References& references) {
  return {conflict.Name, references.Shown(conflict.Mine), references.Shown(conflict.Theirs),
          LineIn(references.Mine(), conflict.Mine), LineIn(references.Theirs(), conflict.Theirs)};
}

}  // namespace

std::string_view ShortName(std::string_view conflict) {
  const bool isNamed = conflict.starts_with("procedure ") || conflict.starts_with("control ");
  return isNamed ? conflict.substr(conflict.rfind(' ') + 1) : conflict;
}

Update UpdateOf(const Sides& sides, std::string_view stem, const Decision& decide) {
  if (sides.Base == sides.Theirs) return {sides.Mine, {}, {}, {}};
  const References references(sides);
  if (sides.Base == sides.Mine) return {references.Resolved(std::string(references.Theirs()), stem), {}, {}, {}};
  merge::Options options;
  options.TakesSmallMoves = true;
  options.TakesPartsWhole = true;
  options.Theirs = "generated";
  Update update;
  merge::Merged merged;
  for (int round = 0; round < MostRounds; ++round) {
    merged = merge::Merge(references.Base(), references.Mine(), references.Theirs(), vbtext::FileKind::Form, options);
    bool isDecided = false;
    update.Conflicts.clear();
    for (const merge::Conflict& each : merged.Conflicts) {
      UpdateConflict conflict = ConflictOf(each, references);
      const auto choice = decide(conflict);
      if (choice && *choice != merge::Choice::Marks) {
        isDecided = true;
        options.Named[conflict.Name] = *choice;
        update.Decided.push_back(std::move(conflict));
      } else {
        update.Conflicts.push_back(std::move(conflict));
      }
    }
    if (!isDecided) break;
  }
  update.Form = references.Resolved(std::move(merged.Text), stem);
  for (const std::string& note : merged.Notes) update.Notes.push_back(references.Shown(note));
  // Where the controls are all yours, or all as they were made, nothing has come to overlap by the merge.
  if (update.Conflicts.empty() && !merged.HasHeaderOfOneSide) {
    std::ranges::move(LayoutNotes(sides.Mine.Frm, update.Form.Frm), std::back_inserter(update.Notes));
  }
  return update;
}

}  // namespace formwizard::kept
