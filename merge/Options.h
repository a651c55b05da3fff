// What a user chooses of a merge.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::merge {

enum class Style { Merge, Diff3, Zdiff3 };  // what stands between the marks of a conflict, as git has it
enum class Choice { Marks, Mine, Theirs };  // what becomes of one

struct Options {
  Style MarkStyle = Style::Merge;
  Choice Conflicts = Choice::Marks;
  std::map<std::string, Choice> Named{};  // what becomes of conflicts by their names, in front of that
  // A place that theirs moves by less than the environment's rounding is theirs where mine has not moved it. Otherwise
  // many such steps, each merged alone, end where no one step would.
  bool TakesSmallMoves = false;
  // What stands before the code, or the code, is taken as theirs has it where mine is as the base, also in its
  // spelling: for theirs that a program has written.
  bool TakesPartsWhole = false;
  std::size_t MarkerSize = 7;
  std::string Mine = "mine", Base = "base", Theirs = "theirs";  // labels behind the marks

  Choice For(const std::string& conflict) const {
    const auto named = Named.find(conflict);
    return named == Named.end() ? Conflicts : named->second;
  }
};

// What both sides changed.
struct Conflict {
  std::string Name;  // "procedure Sub cmdOK_Click", "control txtName"
  std::size_t Line;  // of the result, where it begins; from 0
  // In the texts that were merged, which they refer to. Empty where that side has nothing.
  std::string_view Mine, Theirs;
};

struct Merged {
  std::string Text;
  std::vector<Conflict> Conflicts;
  std::vector<std::string> Notes;   // what was decided though both sides changed it: a place keeps mine
  bool HasHeaderOfOneSide = false;  // what stands before the code is as one side has it
};

}  // namespace formwizard::merge
