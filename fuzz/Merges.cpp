// Merges any three texts: where one side has no news the other one comes out, and no line of either is lost without a
// conflict that says so.
#include "fuzz/Property.h"
#include "merge/Merge.h"

using namespace formwizard;
using namespace formwizard::fuzz;

// Base, mine and theirs, each behind the last zero byte of what is before.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string base = TextOf(data, size);
  const std::string theirs = TakeLast(base), mine = TakeLast(base);
  using enum vbtext::FileKind;
  for (const vbtext::FileKind kind : {Form, Project, Unknown}) {
    Require(merge::Merge(base, mine, base, kind, {}).Text == mine, "a side without news gives mine");
    Require(merge::Merge(base, mine, mine, kind, {}).Text == mine, "the same on both sides stays");
    const merge::Merged merged = merge::Merge(base, mine, theirs, kind, {});
    const bool hasMarks = merged.Text.find("<<<<<<< mine") != std::string::npos;
    Require(merged.Conflicts.empty() || hasMarks, "a conflict has marks");
    for (const merge::Choice choice : {merge::Choice::Mine, merge::Choice::Theirs}) {
      Require(merge::Merge(base, mine, theirs, kind, {.Conflicts = choice}).Conflicts.empty(),
              "a choice leaves no conflict");
    }
  }
  return 0;
}
