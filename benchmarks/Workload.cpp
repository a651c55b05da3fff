#include "benchmarks/Workload.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <map>
#include <memory>
#include <sstream>
#include <thread>

namespace benchmarks {
namespace {

constexpr int FieldCount = 20;
constexpr int MostForms = 10000;
const std::string Samples = FORMWIZARD_SOURCE_DIR "/samples/";

std::string ReplaceAll(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
    text.replace(at, from.size(), to);
  }
  return text;
}

std::map<std::string, std::string> FilesIn(const fs::path& folder) {
  std::map<std::string, std::string> files;
  for (const auto& entry : fs::directory_iterator(folder)) {
    files[entry.path().filename().string()] = ReadFile(entry.path());
  }
  return files;
}

std::string NameOf(int classes, int properties, int width) {
  return std::to_string(classes) + "x" + std::to_string(properties) + "x" + std::to_string(width);
}

}  // namespace

void Die(const std::string& message) {
  std::fprintf(stderr, "%s\n", message.c_str());
  std::exit(1);
}

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void WriteFile(const fs::path& path, const std::string& text) {
  if (!(std::ofstream(path, std::ios::binary) << text).flush()) Die(path.string() + ": cannot be written");
}

int Run(const std::vector<std::string>& arguments, const std::string& output) {
  std::fflush(stdout);
  const pid_t process = fork();
  if (process == 0) Become(arguments, output);
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128;
}

void Become(const std::vector<std::string>& arguments, const std::string& output) {
  std::vector<char*> argv;
  for (const std::string& argument : arguments) argv.push_back(const_cast<char*>(argument.c_str()));
  argv.push_back(nullptr);
  dup2(open(output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666), 1);
  execvp(argv[0], argv.data());
  _exit(127);
}

std::vector<std::string> Counted(const std::vector<std::string>& arguments, const fs::path& log) {
  std::vector<std::string> all{"valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=/dev/null",
                               "--log-file=" + log.string()};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return all;
}

std::optional<double> CountIn(const fs::path& log) {
  const std::string text = ReadFile(log), label = "I   refs:";
  const std::size_t at = text.find(label);
  if (at == std::string::npos) return std::nullopt;
  std::string digits;
  for (std::size_t i = at + label.size(); i < text.size() && text[i] != '\n'; ++i) {
    if (text[i] >= '0' && text[i] <= '9') digits += text[i];
  }
  return std::strtod(digits.c_str(), nullptr);
}

std::optional<double> Instructions(const std::vector<std::string>& arguments, const fs::path& log) {
  return Run(Counted(arguments, log)) == 0 ? CountIn(log) : std::nullopt;
}

std::string Commit() {
  const std::unique_ptr<FILE, int (*)(FILE*)> git(
      popen("git -C " FORMWIZARD_SOURCE_DIR " describe --always --dirty --abbrev=10 --exclude '*'", "r"), pclose);
  char text[64] = "";
  if (!git || !std::fgets(text, sizeof text, git.get())) return "unknown";
  return std::string(text, std::strcspn(text, "\n"));
}

Workload::Workload(fs::path folder, fs::path programs) : home_(std::move(folder)), programs_(std::move(programs)) {
  fs::remove_all(home_);
  fs::create_directories(home_);
  setenv("TMPDIR", home_.c_str(), 1);
  setenv("FORMWIZARD_BENCHMARKS", home_.c_str(), 1);  // what is made for one run serves the next
  MakeDescriptions(MostForms);
  MakeTemplate();
}

Workload::~Workload() {
  std::error_code error;
  fs::remove_all(home_, error);
}

void Workload::MakeDescriptions(int count) const {
  std::string fields;
  for (int i = 0; i < FieldCount; ++i) fields += (i ? ",\"Field" : "\"Field") + std::to_string(i) + "\"";
  for (int i = 0; i < count; ++i) {
    const std::string number = std::to_string(i);
    WriteFile(home_ / (number + ".json"), R"({"class":"Bench.Thing)" + number + R"(","fields":[)" + fields + "]}");
  }
}

std::vector<std::string> Workload::Import(int classes, int properties, int width) const {
  const std::string name = NameOf(classes, properties, width);
  const fs::path json = home_ / (name + ".json");
  std::ofstream out(json);
  out << R"({"systems":[{"name":"S","connect":"c","classes":[)";
  for (int c = 0; c < classes; ++c) {
    out << (c ? ",\n" : "\n") << R"({"Name":"Bench.Thing)" << c << R"(","properties":[)";
    for (int p = 0; p < properties; ++p)
      out << (p ? "," : "") << R"({"Name":"Field)" << p << R"(","MaxLen":)" << width
          << (p == 0 && width != UsualWidth ? R"(,"Caption":"Title"})" : "}");
    out << "]}";
  }
  out << "]}]}";
  const fs::path dictionary = home_ / (name + ".sqlite");
  return {(programs_ / "ostrel-form-wizard").string(), "dictionary", "import", json.string(), dictionary.string()};
}

std::string Workload::Dictionary(int classes, int properties, int width) const {
  const fs::path path = home_ / (NameOf(classes, properties, width) + ".sqlite");
  if (!fs::exists(path) && Run(Import(classes, properties, width)) != 0) Die("the import failed");
  return path.string();
}

std::vector<std::string> Workload::Export(int classes, int properties, const fs::path& to) const {
  return {(programs_ / "ostrel-form-wizard").string(), "dictionary", "export", Dictionary(classes, properties),
          to.string()};
}

std::vector<std::string> Workload::Compare(int classes, int properties) const {
  const std::string dictionary = Dictionary(classes, properties);
  return {(programs_ / "ostrel-form-wizard").string(), "dictionary", "diff", dictionary, dictionary};
}

std::vector<std::string> Workload::Other(const std::string& program, const std::vector<std::string>& arguments) const {
  if (!fs::exists(programs_ / program)) return {};
  std::vector<std::string> all{(programs_ / program).string()};
  all.insert(all.end(), arguments.begin(), arguments.end());
  return all;
}

fs::path Workload::NewProject(const Job& job, const std::string& name) const {
  const fs::path folder = home_ / name;
  fs::remove_all(folder);
  fs::copy(Samples + "new-project", folder);
  if (job.Components == 0) return folder;
  const std::string form = ReadFile(folder / "Form1.frm");
  std::string items;
  for (int i = 0; i < job.Components; ++i) {
    const std::string other = "frmOther" + std::to_string(i);
    WriteFile(folder / (other + ".frm"), ReplaceAll(form, "Form1", other));
    items += "Form=" + other + ".frm\r\n";
  }
  std::string project = ReadFile(folder / "Project1.vbp");
  WriteFile(folder / "Project1.vbp", project.insert(project.find("Startup="), items));
  std::this_thread::sleep_for(std::chrono::seconds(3));  // files as young as these would be read once more
  return folder;
}

std::vector<std::string> Workload::Descriptions(const Job& job) const {
  std::vector<std::string> files;
  for (int i = 0; i < job.Forms; ++i) {
    files.push_back((home_ / (std::to_string(job.OneClass ? 0 : i) + ".json")).string());
  }
  return files;
}

std::vector<std::string> Workload::Generate(const Job& job, const fs::path& project) const {
  std::vector<std::string> arguments{(programs_ / "ostrel-form-wizard").string(),
                                     "generate",
                                     "--project",
                                     (project / "Project1.vbp").string(),
                                     "--dictionary",
                                     Dictionary(job.Classes, job.Properties),
                                     "--profile",
                                     (project / "outility.ini").string(),
                                     "--toolbox",
                                     Samples + "toolbox.ini"};
  if (job.Option == "--journal") {
    arguments.insert(arguments.end(), {"--journal", (project / "journal.jsonl").string()});
  } else if (!job.Option.empty()) {
    std::istringstream words(job.Option);
    for (std::string word; words >> word;) arguments.push_back(word);
  }
  for (std::string& file : Descriptions(job)) arguments.push_back(std::move(file));
  return arguments;
}

std::vector<std::string> Workload::Reference(const Job& job, const fs::path& project) const {
  std::vector<std::string> arguments{(programs_ / "reference-program").string(), (home_ / "template").string(),
                                     Dictionary(job.Classes, job.Properties), (project / "Project1.vbp").string()};
  for (std::string& file : Descriptions(job)) arguments.push_back(std::move(file));
  return arguments;
}

std::vector<std::string> Workload::Kept(const std::string& command, const Job& job, const fs::path& project) const {
  const bool updates = command == "update";
  Job keeping = job;
  keeping.Option = "--keep --quiet";
  if (Run(Generate(keeping, project)) != 0) Die("the program keeps no form");
  for (const auto& entry : fs::directory_iterator(project)) {
    if (!updates || !entry.path().filename().string().starts_with("frmThing")) continue;
    WriteFile(entry.path(), ReadFile(entry.path()) + "\r\nPrivate Sub OfMine()\r\n    Beep\r\nEnd Sub\r\n");
  }
  return {(programs_ / "ostrel-form-wizard").string(),
          command,
          "--project",
          (project / "Project1.vbp").string(),
          "--dictionary",
          Dictionary(job.Classes, job.Properties, updates ? UsualWidth - 20 : UsualWidth)};
}

// The form and the project that the program makes of the first description, with gaps for what differs in others.
void Workload::MakeTemplate() const {
  const Job job;
  const fs::path project = NewProject(job);
  if (Run(Generate(job, project)) != 0) Die("the program makes no form");
  std::string form = ReadFile(project / "frmThing0.frm");
  for (int i = FieldCount - 1; i >= 0; --i) {
    form = ReplaceAll(form, "Field" + std::to_string(i), "{" + std::to_string(i + 3) + "}");
  }
  form = ReplaceAll(ReplaceAll(ReplaceAll(form, "frmThing0", "{0}"), "Bench.Thing0", "{1}"), "Thing0", "{2}");
  WriteFile(home_ / "template.frm", form);
  std::string text = ReadFile(project / "Project1.vbp");
  WriteFile(home_ / "template.vbp", text.insert(text.find("Startup="), "{0}"));
}

void Workload::CheckReference() const {
  for (const bool oneClass : {true, false}) {
    const Job job{.Forms = 120, .Classes = 120, .OneClass = oneClass};
    const fs::path project = NewProject(job), other = NewProject(job, "other");
    if (Run(Generate(job, project)) != 0 || Run(Reference(job, other)) != 0) Die("a program failed");
    fs::remove(project / "outility.ini");
    if (FilesIn(project) != FilesIn(other)) Die("the reference program does not make the same files");
  }
}

}  // namespace benchmarks
