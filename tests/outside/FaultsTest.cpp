// The program itself, with each of its calls on files failing, and being its last one, in turn.
#include "tests/support/RunProgram.h"

using namespace formwizard::tests;

namespace {

using Files = std::map<std::string, std::string>;  // folders too, with a slash and without bytes

constexpr int Killed = 128 + 9;

const std::string Program = BuiltProgram("ostrel-form-wizard");
const std::string Samples = SourceFolder() + "/samples/";
const std::string Json = "'" + Samples + "dictionary.json' ";

constexpr std::array Looking{"read", "pread", "fstat", "stat", "lstat", "access", "opendir", "flock"};

struct Command {
  std::string Arguments;                // "{}" stands for the folder
  std::string Next;                     // those of the run that follows
  std::vector<std::string> First = {};  // those of the runs before
  std::string Look = {};                // those of one that only looks, after which files that are one set are so again
};

const std::string Preloaded = "LD_PRELOAD='" + BuiltFolder() + "libformwizard_failing_calls.so' ";

// A folder in which the program works, and everything that happens in it.
class Site {
 public:
  explicit Site(Command command) : command_(std::move(command)) {
    std::filesystem::create_directory(work_);
    CopySample("new-project", work_ + "/project");
    WriteFile(work_ + "/b.json", R"({"class":"A.B","fields":["Name","Notes"]})");
    WriteFile(work_ + "/c.json", R"({"class":"A.C","fields":["Name"]})");
    const auto dictionary = [](const std::string& caption) {
      const std::string classes =
          R"("classes":[{"Name":"A.C","properties":[{"Name":"Name"}]},{"Name":"A.B","properties":[
        {"Name":"Name"},{"Name":"Notes",)" +
          caption + R"("Collection":"characterstream"}]}]})";
      return R"({"systems":[{"name":"S","connect":"s",)" + classes + R"(,{"name":"T","connect":"t",)" + classes + "]}";
    };
    WriteFile(work_ + "/small.json", dictionary(""));
    WriteFile(work_ + "/newer.json", dictionary(R"("Caption":"Remarks",)"));
    WriteFile(work_ + "/outility.ini", "[OstrelFormWizard]\r\nLastConnect=?\r\nColumns=2\r\n[Other]\r\nx=1\r\n");
    WriteFile(work_ + "/run.jsonl", "{\"call\":\"AddToolboxProgID\",\"progId\":\"Old\"}\n");
    for (const std::string& from : {std::string("{}/small.json {}/old.sqlite"), Json + "{}/new.sqlite"}) {
      REQUIRE(Run("dictionary import " + from).Status == 0);
    }
    REQUIRE(Run("dictionary export {}/old.sqlite {}/old.json").Status == 0);
    for (const std::string& first : command_.First) {
      const Outcome made = Run(first);
      REQUIRE_MESSAGE(made.Status == 0, made.Error);
    }
    before_ = All();
    REQUIRE(Run(command_.Arguments, "FAULT_LOG='" + folder_ / "calls.log" + "'").Status == 0);
    after_ = All();
    REQUIRE(before_ != after_);
  }

  void TryEveryCall() {
    const std::string log = ReadFile(folder_ / "calls.log");
    const auto count = static_cast<int>(std::ranges::count(log, '\n'));
    REQUIRE(count > 10);
    std::map<std::string, int> known;  // the settings are read once a key
    std::size_t at = 0;
    for (int n = 1; n <= count; ++n, at = log.find('\n', at) + 1) {
      const std::string call = log.substr(at, log.find('\n', at) - at);
      CAPTURE(call);
      CAPTURE(n);
      if (++known[call] > 3) continue;
      TryCall(n, "");
      // Before a call that only looks, the files are as they are before the next one.
      const bool looks = std::ranges::any_of(Looking, [&](const char* start) { return call.starts_with(start); });
      if (!looks) TryCall(n, " FAULT_KILL=1");
    }
  }

 private:
  void TryCall(int n, const std::string& kill) {
    CAPTURE(kill);
    Restore(before_);
    const Outcome made = Run(command_.Arguments, "FAULT_AT=" + std::to_string(n) + kill);
    CAPTURE(made.Status);
    CAPTURE(made.Error);
    const bool mayBeUnderWay = !kill.empty() || made.Status == 0;  // a run that failed has taken everything back
    if (mayBeUnderWay && !command_.Look.empty()) Run(command_.Look);
    const Files left = All();
    const Files state = Sound(left);
    if (!kill.empty()) {
      CHECK(made.Status == Killed);
    } else if (made.Status == 0) {
      CheckSaved(state);
    } else if (made.Status == 5) {
      CHECK(Has(made.Error, "was saved"));
      CheckSaved(state);
    } else {
      CHECK((made.Status == 3 || made.Status == 4));
      CHECK(Unchanged(state));
    }
    if (made.Status != 0 && kill.empty()) CHECK(Has(made.Error, work_));
    CHECK(made.Error.size() < 2000);
    const Outcome next = Run(command_.Next);
    CHECK_MESSAGE(next.Status == 0, next.Error);
    CHECK(Differences(All(), Expected(state)) == "");
  }

  // What the files are worth: each is the old or the new one, and those of the project belong together. What else there
  // is must go with the next run.
  Files Sound(const Files& left) {
    Files sound;
    const auto changed = std::ranges::find_if(before_, [&](const Files::value_type& file) {
      return file.first.starts_with("project/") && after_.contains(file.first) && after_.at(file.first) != file.second;
    });
    const bool isNew = changed != before_.end() && left.at(changed->first) == after_.at(changed->first);
    for (const auto& [name, bytes] : isNew ? after_ : before_) {
      if (name.starts_with("project/")) sound.insert({name, bytes});
    }
    const auto stands = [](const Files& files, const Files::value_type& file) {
      const auto found = files.find(file.first);
      return found != files.end() && *found == file;
    };
    for (const Files::value_type& file : left) {
      const bool isOfStoppedRun = file.first == "run.jsonl" && after_.at(file.first).starts_with(file.second);
      const bool isSound = stands(before_, file) || stands(after_, file) || isOfStoppedRun;
      const bool isKnown = before_.contains(file.first) || after_.contains(file.first);
      if (isKnown) CHECK_MESSAGE(isSound, file.first);
      if (isSound && !file.first.starts_with("project/")) sound.insert(file);
    }
    for (const Files::value_type& file : sound) CHECK_MESSAGE(stands(left, file), file.first);
    return sound;
  }

  // But for the journal and the settings, which are no part of what the command is for.
  Files Main(Files files) const {
    files.erase("run.jsonl");
    files.erase("outility.ini");
    return files;
  }
  void CheckSaved(const Files& state) const { CHECK(Differences(Main(state), Main(after_)) == ""); }
  bool Unchanged(const Files& state) const { return Main(state) == Main(before_); }

  static std::string Differences(const Files& found, const Files& expected) {
    std::string names;
    for (const auto& [name, bytes] : found) {
      if (!expected.contains(name) || expected.at(name) != bytes) names += name + " ";
    }
    for (const auto& [name, bytes] : expected) names += found.contains(name) ? "" : "no " + name + " ";
    return names;
  }

  // What the next command makes of a state.
  const Files& Expected(const Files& state) {
    const auto known = expected_.find(state);
    if (known != expected_.end()) return known->second;
    Restore(state);
    REQUIRE(Run(command_.Next).Status == 0);
    return expected_[state] = All();
  }

  Outcome Run(std::string arguments, const std::string& faults = "") const {
    for (std::size_t at = 0; (at = arguments.find("{}", at)) != std::string::npos;) arguments.replace(at, 2, work_);
    return RunProgram(Program, arguments, folder_, "", Preloaded + "FAULT_UNDER='" + work_ + "' " + faults);
  }

  Files All() const {
    Files all = FilesIn(NativePath(work_));
    for (const auto& entry : std::filesystem::recursive_directory_iterator(work_)) {
      if (entry.is_directory()) all[entry.path().lexically_relative(work_).string() + "/"] = "";
    }
    return all;
  }

  void Restore(const Files& files) const {
    std::filesystem::remove_all(work_);
    for (const auto& [name, bytes] : files) {
      if (name.ends_with('/')) std::filesystem::create_directories(work_ + "/" + name);
    }
    for (const auto& [name, bytes] : files) {
      if (!name.ends_with('/')) WriteFile(work_ + "/" + name, bytes);
    }
  }

  TemporaryFolder folder_;
  std::string work_ = folder_ / "work";
  Command command_;
  Files before_, after_;
  std::map<Files, Files> expected_;
};

// The settings are written by every run, since each asks for another system.
const std::string Generate = "generate --project {}/project/Project1.vbp --dictionary {}/old.sqlite --toolbox '" +
                             Samples + "toolbox.ini' --profile {}/outility.ini --journal {}/run.jsonl ";

const std::string Project = " --project {}/project/Project1.vbp";
const std::string Status = "status" + Project + " --dictionary {}/newer.sqlite";
const std::string Update = "update" + Project + " --dictionary {}/newer.sqlite";
const std::array KeepForms{std::string("dictionary import {}/newer.json {}/newer.sqlite"),
                           Generate + "--keep {}/b.json {}/c.json"};

}  // namespace

TEST_CASE("Whatever call fails or is the last one, a generated form is there or not, and the next run works") {
  Site({Generate + "--system S {}/b.json {}/c.json", Generate + "--system T --class A.B --fields Notes"})
      .TryEveryCall();
}

TEST_CASE("Whatever call fails or is the last one, an update is the old set of files or the new one") {
  Site({Update, Update, {KeepForms.begin(), KeepForms.end()}, Status}).TryEveryCall();
}

TEST_CASE("Whatever call fails or is the last one, an undo is the old set of files or the new one") {
  Site({"undo" + Project, "undo" + Project, {KeepForms[0], KeepForms[1], Update}, Status}).TryEveryCall();
}

TEST_CASE("Whatever call fails or is the last one, a dictionary is the old or the new one") {
  Site({"dictionary import " + Json + "{}/old.sqlite", "dictionary import {}/small.json {}/old.sqlite"}).TryEveryCall();
}

TEST_CASE("Whatever call fails or is the last one, an export is the old or the new one") {
  Site({"dictionary export {}/new.sqlite {}/old.json", "dictionary export {}/old.sqlite {}/old.json"}).TryEveryCall();
}

TEST_CASE("Whoever has no home folder gets the form, remembers nothing and finds nothing new where the program ran") {
  const TemporaryFolder folder;
  CopySample("new-project", folder / "project");
  const std::string import = "dictionary import " + Json + "d.sqlite";
  REQUIRE(RunProgram(Program, import, folder).Status == 0);
  const Outcome made = RunProgram(Program,
                                  "generate --project project/Project1.vbp --dictionary d.sqlite --toolbox '" +
                                      Samples + "toolbox.ini' --class Sample.Person --fields Name",
                                  folder, "", Preloaded + "FAULT_UNDER=/none HOME= XDG_CONFIG_HOME=config ");
  CHECK(made.Status == 0);
  CHECK(made.Error.empty());
  for (const auto& file : FilesIn(folder.Path())) {
    const std::string& name = file.first;
    CHECK_MESSAGE((name.starts_with("project/") || name == "d.sqlite" || name.ends_with(".txt")), name);
  }
}

#ifdef FORMWIZARD_HAS_DESKTOP
TEST_CASE("The desktop program ends with a message and a status where there is no output, no display or no file") {
  const TemporaryFolder folder;
  struct Case {
    std::string Arguments, Redirection;
    int Status;
    std::string Message;
  };
  for (const Case& c :
       {Case{"--help", ">/dev/full", 4, "standard output: "}, Case{"--version", ">&-", 4, "standard output: "},
        Case{"", "", 3, "there is no display"}, Case{"--render out.txt x.png", "", 3, "out.txt:1: "},
        Case{"--render none.frm x.png", "", 3, "none.frm: "}}) {
    CAPTURE(c.Arguments);
    const Outcome made = RunProgram(BuiltProgram("ostrel-form-wizard-desktop"), c.Arguments, folder, c.Redirection,
                                    "DISPLAY= WAYLAND_DISPLAY= QT_QPA_PLATFORM= ");
    CHECK(made.Status == c.Status);
    CHECK_MESSAGE(Has(made.Error, c.Message), made.Error);
  }
}
#endif
