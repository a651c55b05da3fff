// Classes change, forms are edited by hand and saved by the environment, and an update brings all of it together.
#include "tests/support/RunHere.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/vbtext/Developer.h"
#include "tests/vbtext/Environment.h"

#include <nlohmann/json.hpp>

using namespace formwizard;
using namespace formwizard::tests;
using nlohmann::json;

namespace {

constexpr int FormsOfRound = 25;

json NewProperty(std::mt19937& random, const std::string& name) {
  json property{{"Name", name}, {"Caption", "The " + name}, {"MaxLen", 5 + random() % 40}, {"Required", random() % 2}};
  const unsigned kind = random() % 8;
  if (kind < 3) property["Collection"] = std::array{"list", "array", "characterstream"}[kind];
  if (kind == 3) property["Type"] = "%Library.Date";
  if (kind == 4) property["Editable"] = 0;
  return property;
}

// Classes that change, a form of each, and its kept description.
struct World {
  TemporaryFolder Folder;
  std::mt19937& Random;
  std::vector<json> Classes = std::vector<json>(FormsOfRound);
  int Added = 0;

  explicit World(std::mt19937& random) : Random(random) {
    CopySample("new-project", Folder / "App");
    json forms = json::array();
    for (int i = 0; i < FormsOfRound; ++i) {
      json& made =
          Classes[static_cast<std::size_t>(i)] = {{"Name", "P.C" + std::to_string(i)}, {"properties", json::array()}};
      json fields = json::array();
      for (auto count = 2 + random() % 5; count > 0; --count) {
        made["properties"].push_back(NewProperty(random, "P" + std::to_string(++Added)));
        if (fields.empty() || random() % 5 > 0) fields.push_back(made["properties"].back()["Name"]);
      }
      forms.push_back({{"class", made["Name"]}, {"fields", fields}, {"settings", {{"Columns", 1 + random() % 2}}}});
    }
    Import();
    WriteFile(Folder / "forms.json", forms.dump());
    CHECK(Run("generate", {Folder / "forms.json", "--keep", "--quiet", "--toolbox",
                           SourceFolder() + "/samples/toolbox.ini", "--profile", Folder / "none.ini"})
              .Status == 0);
  }
  void Import() const {
    WriteFile(Folder / "c.json", json{{"systems", {{{"name", "S"}, {"connect", "s"}, {"classes", Classes}}}}}.dump());
    CHECK(RunHere({"dictionary", "import", Folder / "c.json", Folder / "d.sqlite"}).Status == 0);
  }
  Outcome Run(const std::string& command, std::vector<std::string> more = {}) const {
    more.insert(more.begin(), {command, "--project", Folder / "App/Project1.vbp", "--dictionary", Folder / "d.sqlite"});
    return RunHere(more);
  }
  // By the names of the forms.
  std::map<std::string, json> Told(const std::string& command, const std::vector<std::string>& more) const {
    std::map<std::string, json> told;
    const json result = json::parse(Run(command, more).Out);
    for (const json& form : result["forms"]) told[form["form"]] = form;
    return told;
  }
  std::string FormOf(int i) const { return Folder / ("App/frmC" + std::to_string(i) + ".frm"); }
  std::string KeptOf(int i, const std::string& ending) const {
    return Folder / ("App/Project1.forms/frmC" + std::to_string(i) + ending);
  }

  // As the environment saves it, with the .frx beside it.
  void WriteSavedAgain(int i, const std::string& form) const {
    const std::string frx = Folder / ("App/frmC" + std::to_string(i) + ".frx");
    const bool hasRecords = std::filesystem::exists(NativePath(frx));
    const SavedForm saved = SavedAgain({form, hasRecords ? ReadFile(frx) : ""}, Random);
    WriteFile(FormOf(i), saved.File);
    if (hasRecords) WriteFile(frx, saved.Records);
  }

  // One change of a class, which its form's description follows where it must. False for one that is none.
  bool Change(int i) {
    json& properties = Classes[static_cast<std::size_t>(i)]["properties"];
    json& any = properties[Random() % properties.size()];
    switch (Random() % 6) {
      case 0:
        any["Caption"] = "Caption " + std::to_string(++Added);
        return true;
      case 1:
        any["MaxLen"] = 50 + ++Added;
        return true;
      case 2:
        any["Required"] = 1 - any["Required"].get<int>();
        return true;
      case 3: {
        const std::string name = any["Name"];
        any = NewProperty(Random, name);
        return true;
      }
      case 4:
        if (properties.size() < 3) return false;
        properties.erase(Random() % properties.size());
        return true;
      default:
        properties.push_back(NewProperty(Random, "P" + std::to_string(++Added)));
        if (Random() % 2 == 0) Ask(i, properties.back()["Name"]);
        return true;
    }
  }
  // For a field more.
  void Ask(int i, const std::string& property) const {
    std::string text = ReadFile(KeptOf(i, ".json"));
    const std::string fields = "\"fields\": [\n";
    text.insert(text.find(fields) + fields.size(), "    \"" + property + "\",\n");
    WriteFile(KeptOf(i, ".json"), text);
  }
};

// The procedures and controls that the developer has written, as they stand in the file.
std::vector<std::string> OwnParts(const std::string& form) {
  const vbtext::Document document = vbtext::DocumentOf(form);
  std::vector<std::string> parts;
  for (const auto& section : document.Code.Sections) {
    const bool isOwn =
        section.Kind == vbtext::SectionKind::Procedure && vbtext::Folded(section.Name).starts_with("new_");
    if (isOwn) parts.emplace_back(TextOf(document.Lines, section.Body));
  }
  for (const auto& control : document.Root->Children) {
    if (vbtext::Folded(control.Name).starts_with("tmr_")) parts.emplace_back(TextOf(document.Lines, control.Lines));
  }
  return parts;
}

std::set<std::string> ErrorsIn(const std::string& path) {
  std::set<std::string> errors;
  const json listing = json::parse(RunHere({"lint", "--json", path}).Out);
  for (const json& finding : listing["findings"]) {
    if (finding["severity"] == "error") errors.insert(finding["rule"].get<std::string>() + finding["message"].dump());
  }
  return errors;
}

}  // namespace

TEST_CASE("Whatever is edited and whatever classes become, an update has both or names the conflict") {
  std::mt19937 random(5);
  int updated = 0, conflicts = 0;
  for (int round = 0; round < Thousand / FormsOfRound; ++round) {
    World world(random);
    std::vector<bool> isEdited(FormsOfRound, false), isChanged(FormsOfRound, false);
    std::vector<std::string> base, mine;
    for (int i = 0; i < FormsOfRound; ++i) {
      std::string form = base.emplace_back(ReadFile(world.FormOf(i)));
      Developer developer(random, "m");
      for (auto edits = random() % 4; edits > 0; --edits) form = developer.DoSomething(form);
      isEdited[static_cast<std::size_t>(i)] = form != base.back();
      WriteFile(world.FormOf(i), form);
      if (random() % 2 == 0) world.WriteSavedAgain(i, form);
      mine.push_back(ReadFile(world.FormOf(i)));
    }
    const auto before = world.Told("status", {"--json"});
    for (int i = 0; i < FormsOfRound; ++i) {
      const json& state = before.at("frmC" + std::to_string(i))["state"];
      CHECK(state == json{isEdited[static_cast<std::size_t>(i)] ? "edited" : "unchanged"});
      for (auto changes = random() % 3; changes > 0; --changes)
        isChanged[static_cast<std::size_t>(i)] = world.Change(i) || isChanged[static_cast<std::size_t>(i)];
    }
    world.Import();
    const auto result = world.Told("update", {"--skip-conflicts", "--json"});
    const auto after = world.Told("status", {"--json"});
    for (int i = 0; i < FormsOfRound; ++i) {
      const std::string name = "frmC" + std::to_string(i);
      CAPTURE(round);
      CAPTURE(name);
      const auto at = static_cast<std::size_t>(i);
      const std::string form = ReadFile(world.FormOf(i)), theirs = ReadFile(world.KeptOf(i, ".frm"));
      if (!isChanged[at]) REQUIRE(form == mine[at]);
      if (result.at(name)["result"] == "in conflict") {
        ++conflicts;
        REQUIRE((!result.at(name)["conflicts"].empty() || result.at(name).contains("message")));
        REQUIRE(form == mine[at]);
        REQUIRE(after.at(name)["outdated"] == true);
        continue;
      }
      ++updated;
      REQUIRE(after.at(name)["outdated"] == false);
      REQUIRE(MarksIn(form) == MarksIn(mine[at]));
      std::set<std::string> wanted = Changes(base[at], mine[at]);
      wanted.merge(Changes(base[at], theirs));
      REQUIRE(Changes(base[at], form) == wanted);
      for (const std::string& part : OwnParts(mine[at])) REQUIRE(Has(form, part));
      if (!isEdited[at]) REQUIRE(Changes(theirs, form).empty());
    }
    const std::set<std::string> known = [&] {
      std::set<std::string> errors;
      for (int i = 0; i < FormsOfRound; ++i) {
        WriteFile(world.Folder / "mine.frm", mine[static_cast<std::size_t>(i)]);
        errors.merge(ErrorsIn(world.Folder / "mine.frm"));
      }
      return errors;
    }();
    for (int i = 0; i < FormsOfRound; ++i) {
      for (const std::string& error : ErrorsIn(world.FormOf(i))) CHECK_MESSAGE(known.contains(error), error);
    }
    const auto files = FilesIn(world.Folder.Path() / "App");
    world.Run("update", {"--skip-conflicts"});
    CHECK(FilesIn(world.Folder.Path() / "App") == files);
  }
  MESSAGE(updated << " updated, " << conflicts << " in conflict");
  CHECK(updated > conflicts);
}

TEST_CASE("Ten upgrades in a row end where one does") {
  std::mt19937 random(6);
  World world(random);
  for (int i = 0; i < FormsOfRound; ++i) {
    std::string form = ReadFile(world.FormOf(i));
    const std::size_t at = form.find("Private Sub actionSave()\r\n");
    form.insert(at, "Private Sub New_m1()\r\n  x = 1\r\nEnd Sub\r\n");
    world.WriteSavedAgain(i, form);
  }
  std::filesystem::copy(world.Folder.Path() / "App", world.Folder.Path() / "Once",
                        std::filesystem::copy_options::recursive);
  for (int upgrade = 0; upgrade < 10; ++upgrade) {
    for (json& each : world.Classes) {
      json& property = each["properties"][random() % each["properties"].size()];
      property["Caption"] = std::string(3 + random() % 20, 'W');
      property["MaxLen"] = 1 + random() % 60;
    }
    world.Import();
    CHECK(world.Run("update", {"--quiet"}).Status == 0);
  }
  CHECK(RunHere({"update", "--project", world.Folder / "Once/Project1.vbp", "--dictionary", world.Folder / "d.sqlite"})
            .Status == 0);
  for (int i = 0; i < FormsOfRound; ++i) {
    const std::string name = "frmC" + std::to_string(i) + ".frm";
    CHECK(ReadFile(world.KeptOf(i, ".frm")) == ReadFile(world.Folder / ("Once/Project1.forms/" + name)));
    CHECK(Changes(ReadFile(world.FormOf(i)), ReadFile(world.Folder / ("Once/" + name))).empty());
  }
}
