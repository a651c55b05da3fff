// A project in which the program itself, run as a user runs it, makes forms.
#pragma once

#include "tests/support/RunProgram.h"

namespace formwizard::tests {

inline const std::string Samples = SourceFolder() + "/samples/";
inline const std::string Typical = "--class Sample.Person --fields Name,Home.City --set Columns=2";

inline std::string Quoted(const std::string& argument) { return '"' + argument + '"'; }
// Its files and folders have names in several scripts.
struct Workplace {
  TemporaryFolder Folder;
  std::string Home = Folder / "Žluťoučký 項目";
  std::string Project = Home + "/Project1.vbp";
  std::string Dictionary = Quoted("Gebühren 項目.sqlite");
  std::string Profile = "outility.ini";
  std::string Toolbox = " --toolbox " + Quoted(Samples + "toolbox.ini");

  explicit Workplace(const std::string& sample = "new-project") {
    CopySample(sample, Home);
    CHECK(Run("dictionary import " + Quoted(Samples + "dictionary.json") + " " + Dictionary).Status == 0);
    WriteFile(Folder / Profile, "");
  }
  // `more` is what RunProgram takes behind the folder.
  Outcome Run(const std::string& arguments, const auto&... more) const {
    return RunProgram(BuiltProgram("ostrel-form-wizard"), arguments, Folder, more...);
  }
  Outcome Generate(const std::string& arguments, const auto&... more) const {
    return Run("generate --project " + Quoted(Project) + " --dictionary " + Dictionary + " --profile " +
                   Quoted(Profile) + Toolbox + " " + arguments,
               more...);
  }
  Outcome Describe(const std::string& json, const std::string& arguments = "") const {
    WriteFile(Folder / "Maske 項目.json", json);
    return Generate("\"Maske 項目.json\" " + arguments);
  }
  std::map<std::string, std::string> Files() const { return FilesIn(NativePath(Home)); }
};

inline void CheckDone(const Outcome& made) {
  CHECK(made.Error.empty());
  CHECK(made.Status == 0);
}

}  // namespace formwizard::tests
