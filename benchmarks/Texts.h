// Forms and projects for the commands that work on texts.
#pragma once

#include "benchmarks/Workload.h"

#include <string>
#include <vector>

namespace benchmarks {

// Writes what a run works on into the folder `name`, and returns the run, which ends with status 0. Nothing where the
// program is not built.
// - "merge": a form of so many text boxes, each with a procedure, 20 lines for both; in each tenth one side changed the
//   control and a line of code, the other another line
// - "compare": such a form and one that spells it otherwise
// - "lint": a project of so many forms of 460 lines
std::vector<std::string> TextRun(const Workload& work, const std::string& command, int size, const std::string& name);

}  // namespace benchmarks
