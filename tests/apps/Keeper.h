// A project with forms that are kept, and the class dictionary beside it.
#pragma once

#include "tests/support/RunHere.h"
#include "tests/support/TemporaryFolder.h"

#include <nlohmann/json.hpp>

namespace formwizard::tests {

inline const std::string Samples = SourceFolder() + "/samples/";

struct Keeper {
  TemporaryFolder Folder;
  std::string Project = Folder / "App/Project1.vbp", Kept = Folder / "App/Project1.forms/";
  nlohmann::json Classes = nlohmann::json::parse(ReadFile(Samples + "dictionary.json"));

  explicit Keeper(const std::string& description = R"({"class":"Sample.Person","fields":["Name","Home.City"]})") {
    CopySample("new-project", Folder / "App");
    Import();
    WriteFile(Folder / "form.json", description);
    CHECK(Generate({"--keep", Folder / "form.json"}).Status == 0);
  }
  void Import() const {
    WriteFile(Folder / "classes.json", Classes.dump());
    CHECK(RunHere({"dictionary", "import", Folder / "classes.json", Folder / "d.sqlite"}).Status == 0);
  }
  Outcome Run(const std::string& command, const std::vector<std::string>& more = {}) const {
    std::vector<std::string> arguments{command, "--project", Project, "--dictionary", Folder / "d.sqlite"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return RunHere(arguments);
  }
  Outcome Generate(std::vector<std::string> more) const {
    more.insert(more.end(), {"--toolbox", Samples + "toolbox.ini", "--profile", Folder / "none.ini", "--quiet"});
    return Run("generate", more);
  }
  // The property of Sample.Person, which the first class is.
  nlohmann::json& Property(const std::string& name) {
    for (nlohmann::json& of : Classes["systems"][0]["classes"]) {
      if (of["Name"] != "Sample.Person") continue;
      for (nlohmann::json& property : of["properties"]) {
        if (property["Name"] == name) return property;
      }
    }
    throw std::runtime_error("no property " + name);
  }
  void Edit(const std::string& file, const std::string& from, const std::string& to) const {
    std::string text = ReadFile(file);
    const std::size_t at = text.find(from);
    REQUIRE_MESSAGE(at != std::string::npos, from);
    WriteFile(file, text.replace(at, from.size(), to));
  }
  std::string Form() const { return Folder / "App/frmPerson.frm"; }
  std::map<std::string, std::string> Files() const { return FilesIn(NativePath(Folder / "App")); }
  nlohmann::json Status() const { return nlohmann::json::parse(Run("status", {"--json"}).Out)["forms"][0]; }
};

inline const std::string SaveClick = "Private Sub cmd__Save_Click()\r\n";
inline const std::string Guard = "    If txtName.Text = \"\" Then Exit Sub\r\n";

}  // namespace formwizard::tests
