// What the programs have in common that do a step in windows which nobody sees.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace benchmarks {

// How a program is called: NAME STEP SIZE [OPTION].
struct Program {
  std::string_view Name;
  std::vector<std::string_view> Steps;
  std::string_view Option = "";  // empty for none
};

// Of a table whose rows have names.
std::vector<std::string_view> NamesOf(const auto& rows) {
  std::vector<std::string_view> names;
  for (const auto& row : rows) names.push_back(row.Name);
  return names;
}

// What is to be done once.
struct Task {
  std::size_t Step;  // an index into the program's steps
  int Size;
  bool HasOption;
  std::filesystem::path Folder;  // for the files that it makes
};

// Does what the arguments of a program say; its exit status. Files stay in the folder of all benchmarks, which runs
// them and removes it; where the program is run alone, they are gone at the end. False from `task` is a failure.
int RunOffScreen(int argc, char** argv, const Program& program, const std::function<bool(const Task&)>& task);

// Makes a class dictionary of this JSON in the folder unless it is there; its path.
std::string DictionaryIn(const std::filesystem::path& folder, const std::string& name,
                         const std::function<std::string()>& json);

// Of process time, and the greatest memory so far.
double Milliseconds();
double Mebibytes();

}  // namespace benchmarks
