// What a user chooses of a merge.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::merge {

enum class Style { Merge, Diff3, Zdiff3 };  // what stands between the marks of a conflict, as git has it
enum class Choice { Marks, Mine, Theirs };  // what becomes of one

struct Options {
  Style MarkStyle = Style::Merge;
  Choice Conflicts = Choice::Marks;
  std::size_t MarkerSize = 7;
  std::string Mine = "mine", Base = "base", Theirs = "theirs";  // labels behind the marks
};

// What both sides changed.
struct Conflict {
  std::string Name;  // "procedure Sub cmdOK_Click", "control txtName"
  std::size_t Line;  // of the result, where it begins; from 0
};

struct Merged {
  std::string Text;
  std::vector<Conflict> Conflicts;
  std::vector<std::string> Notes;  // what was decided though both sides changed it: a place keeps mine
};

}  // namespace formwizard::merge
