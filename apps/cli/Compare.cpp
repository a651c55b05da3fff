#include "apps/cli/Commands.h"
#include "apps/cli/VisualBasicFile.h"
#include "apps/common/Endings.h"
#include "support/Failures.h"
#include "support/Messages.h"
#include "system/CodePage.h"
#include "system/Text.h"
#include "vbtext/Comparison.h"
#include "vbtext/Project.h"

#include <CLI/CLI.hpp>
#include <nlohmann/json.hpp>

#include <iostream>
#include <memory>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using vbtext::Difference;
using vbtext::LineRange;

struct CompareOptions {
  std::string A, B;
  int CodePage = 1252;
  bool Json = false;
};

std::vector<vbtext::ProjectEntry> EntriesIn(const VisualBasicFile& file) {
  try {
    return vbtext::EntriesOf(vbtext::LinesOf(file.Bytes));
  } catch (const vbtext::Fault& fault) {
    throw support::InputError(PlaceOf(file.Path, fault.Line) + ": expected " + fault.Expected +
                              "; give a project as Visual Basic 6 saves it");
  }
}

void CheckNoProject(const VisualBasicFile& file, const VisualBasicFile& other) {
  if (KindOf(file) != vbtext::FileKind::Project) return;
  throw support::InputError(file.Path + ": this is a project, and " + other.Path +
                            " is none; compare a project with a project");
}

std::vector<Difference> DifferencesOf(const VisualBasicFile& a, const VisualBasicFile& b) {
  const bool areProjects = KindOf(a) == vbtext::FileKind::Project && KindOf(b) == vbtext::FileKind::Project;
  if (areProjects) return vbtext::CompareProjects(EntriesIn(a), EntriesIn(b));
  CheckNoProject(a, b);
  CheckNoProject(b, a);
  const vbtext::Document fileA = DocumentIn(a), fileB = DocumentIn(b);
  return vbtext::Compare({fileA, a.Records}, {fileB, b.Records});
}

// "frmPerson.frm:12-15".
std::string Place(const std::string& path, LineRange lines) {
  std::string place = PlaceOf(path, lines.First);
  if (lines.Count() > 1) place += "-" + std::to_string(lines.Behind);
  return place;
}

class Report {
 public:
  Report(const VisualBasicFile& a, const VisualBasicFile& b, int codePage)
      : a_(a), b_(b), linesA_(vbtext::LinesOf(a.Bytes)), linesB_(vbtext::LinesOf(b.Bytes)), codePage_(codePage) {}

  void Print(const Difference& difference) const {
    const bool isOnlyInB = !difference.A && difference.B;
    std::string line = difference.A ? Place(a_.Path, *difference.A)
                       : isOnlyInB  ? Place(b_.Path, *difference.B)
                                    : b_.Path;
    line += ": " + std::string(difference.What);
    if (!difference.Name.empty()) line += " " + Shown(difference.Name);
    line += " " + std::string(Word(difference.Kind));
    if (IsOfOneLine(difference)) line += ": " + Value(linesA_, *difference.A) + " -> " + Value(linesB_, *difference.B);
    if (difference.A && difference.B) line += " (" + Place(b_.Path, *difference.B) + ")";
    std::cout << support::Escaped(line) << '\n';
  }

  Json AsJson(const Difference& difference) const {
    Json json{{"change", Word(difference.Kind)}, {"what", difference.What}, {"name", Shown(difference.Name)}};
    if (difference.A) json["a"] = Lines(*difference.A);
    if (difference.B) json["b"] = Lines(*difference.B);
    return json;
  }

 private:
  // A property or setting, whose values are worth a look.
  static bool IsOfOneLine(const Difference& difference) {
    return difference.Kind == vbtext::Change::Changed &&
           (difference.What == "property" || difference.What == "setting") && difference.A &&
           difference.A->Count() == 1 && difference.B && difference.B->Count() == 1;
  }

  std::string Value(const std::vector<vbtext::Line>& lines, LineRange range) const {
    const std::string_view text = lines[range.First].Text;
    const std::size_t from = text.find_first_not_of(' ', text.find('=') + 1);
    return from == std::string_view::npos ? "" : Shown(text.substr(from));
  }

  static Json Lines(LineRange lines) { return {{"first", lines.First + 1}, {"last", lines.Behind}}; }

  std::string Shown(std::string_view bytes) const {
    return system::IsUtf8(bytes) ? std::string(bytes) : codePage_.Decode(bytes);
  }

  const VisualBasicFile& a_;
  const VisualBasicFile& b_;
  std::vector<vbtext::Line> linesA_, linesB_;
  system::CodePage codePage_;
};

int CompareFiles(const CompareOptions& options) {
  const VisualBasicFile a = ReadVisualBasicFile(options.A), b = ReadVisualBasicFile(options.B);
  const std::vector<Difference> differences = DifferencesOf(a, b);
  const Report report(a, b, options.CodePage);
  if (options.Json) {
    Json list = Json::array();
    for (const Difference& difference : differences) list.push_back(report.AsJson(difference));
    const Json result{{"equal", differences.empty()}, {"differences", list}};
    std::cout << result.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
  } else {
    for (const Difference& difference : differences) report.Print(difference);
  }
  return differences.empty() ? common::Done : common::Differs;
}

}  // namespace

void AddCompare(CLI::App& command, Task& task) {
  const auto options = std::make_shared<CompareOptions>();
  AddFile(command, "a", options->A, "a form, control, class, module or project")->required();
  AddFile(command, "b", options->B, "the one to compare with")->required();
  AddCodePage(command, options->CodePage, "the Windows code page in which names are shown");
  AddJson(command, options->Json);
  command.callback([&task, options] { task = {[options] { return CompareFiles(*options); }, options->A}; });
}

}  // namespace formwizard::apps::cli
