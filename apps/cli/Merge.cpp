#include "merge/Merge.h"

#include "apps/cli/Commands.h"
#include "apps/cli/VisualBasicFile.h"
#include "apps/common/Endings.h"
#include "support/Messages.h"
#include "system/CodePage.h"
#include "system/FileSystem.h"
#include "system/Text.h"
#include "system/WholeFile.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <map>
#include <memory>

namespace formwizard::apps::cli {
namespace {

struct MergeOptions {
  std::string Base, Mine, Theirs, Output, Path;
  int CodePage = 1252;
  merge::Options Merge;
};

// A name in a message.
std::string Readable(const std::string& bytes, int codePage) {
  return system::IsUtf8(bytes) ? bytes : system::CodePage(codePage).Decode(bytes);
}

int MergeFiles(const MergeOptions& options) {
  const VisualBasicFile base = ReadVisualBasicFile(options.Base), mine = ReadVisualBasicFile(options.Mine),
                        theirs = ReadVisualBasicFile(options.Theirs);
  vbtext::FileKind kind = vbtext::KindOfName(options.Path);
  if (kind == vbtext::FileKind::Unknown) kind = KindOf(mine);
  const merge::Merged merged = merge::Merge(base.Bytes, mine.Bytes, theirs.Bytes, kind, options.Merge);
  if (options.Output.empty()) {
    std::cout << merged.Text;
    common::FlushOutput();
  } else {
    system::WholeFile file(system::RealFileSystem(), options.Output);
    file.Stream() << merged.Text;
    file.Commit();
  }
  // The result: git calls it by its path in the project.
  std::string name = options.Path.empty() ? options.Output : options.Path;
  if (name.empty()) name = options.Mine;
  const auto say = [&](const std::string& text) {
    std::cerr << support::Escaped(Readable(text, options.CodePage)) << '\n';
  };
  for (const std::string& note : merged.Notes) say(std::string(name).append(": note: ").append(note));
  for (const merge::Conflict& conflict : merged.Conflicts) {
    say(PlaceOf(name, conflict.Line) + ": conflict: both sides changed " + conflict.Name +
        "; keep what is right and take out the marks");
  }
  return merged.Conflicts.empty() ? common::Done : common::Differs;
}

void AddChoices(CLI::App& command, MergeOptions& options) {
  const std::map<std::string, merge::Style> styles{
      {"merge", merge::Style::Merge}, {"diff3", merge::Style::Diff3}, {"zdiff3", merge::Style::Zdiff3}};
  const std::map<std::string, merge::Choice> choices{
      {"marks", merge::Choice::Marks}, {"mine", merge::Choice::Mine}, {"theirs", merge::Choice::Theirs}};
  command.add_option("--style", options.Merge.MarkStyle, "what stands between the marks: merge, diff3 or zdiff3")
      ->transform(CLI::CheckedTransformer(styles).description(""))
      ->type_name("STYLE");
  command.add_option("--conflicts", options.Merge.Conflicts, "what becomes of a conflict: marks, mine or theirs")
      ->transform(CLI::CheckedTransformer(choices).description(""))
      ->type_name("CHOICE");
  command.add_option("--marker-size", options.Merge.MarkerSize, "how many signs a mark has")
      ->check(CLI::Range(1, 1000).description(""))
      ->capture_default_str()
      ->type_name("N");
}

}  // namespace

void AddMerge(CLI::App& command, Task& task) {
  const auto options = std::make_shared<MergeOptions>();
  AddFile(command, "base", options->Base, "the file on which both sides rest")->required();
  AddFile(command, "mine", options->Mine, "what became of it on this side")->required();
  AddFile(command, "theirs", options->Theirs, "what became of it on the other side")->required();
  AddFile(command, "-o,--output", options->Output, "the result (default: standard output)");
  AddFile(command, "--path", options->Path, "what the file is called in the project, which tells its kind");
  AddChoices(command, *options);
  command.add_option("--code-page", options->CodePage, "the Windows code page in which names are shown")
      ->capture_default_str()
      ->type_name("N");
  command.callback([&task, options] {
    task = {[options] { return MergeFiles(*options); }, options->Mine, !options->Output.empty()};
  });
}

}  // namespace formwizard::apps::cli
