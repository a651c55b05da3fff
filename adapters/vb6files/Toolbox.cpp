#include "adapters/vb6files/Toolbox.h"

#include "adapters/vb6files/ControlClasses.h"
#include "adapters/vb6files/ProjectFile.h"
#include "generator/ide/ActiveX.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace formwizard::adapters::vb6files {
namespace {

struct KnownLibrary {
  std::string_view Library;
  std::string_view File;
  std::string_view Id;  // empty: the type library belongs to the database product and must be supplied
};

constexpr std::array Libraries{
    KnownLibrary{"OSTRELQUERYLib", "OSTRELQUERY.OCX", ""},
    KnownLibrary{"MSComDlg", "COMDLG32.OCX", "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}#1.2#0"},
    KnownLibrary{"MSComctlLib", "MSCOMCTL.OCX", "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"},
};

constexpr std::string_view Section = "[Toolbox]";

std::string_view Trimmed(std::string_view text) { return runtime::Trimmed(text, " \t\r"); }

// Without its folder: the environment finds a library by its GUID.
std::string_view NameOf(std::string_view file) { return file.substr(file.rfind('\\') + 1); }

std::string_view GuidOf(std::string_view id) { return id.substr(0, id.find('#')); }

bool IsGuid(std::string_view text) {
  constexpr std::string_view pattern = "{00000000-0000-0000-0000-000000000000}";
  return std::ranges::equal(text, pattern, [](char c, char wanted) {
    return wanted == '0' ? std::isxdigit(static_cast<unsigned char>(c)) != 0 : c == wanted;
  });
}

// No project could be read that holds one.
bool HasControlCharacter(std::string_view text) {
  return std::ranges::any_of(text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

// "{GUID}#version#locale; file"
bool IsObjectValue(std::string_view value) {
  const std::size_t semicolon = value.find(';');
  const std::string_view id = value.substr(0, semicolon);
  return IsGuid(GuidOf(id)) && std::ranges::count(id, '#') == 2 && semicolon != std::string_view::npos &&
         !Trimmed(value.substr(semicolon + 1)).empty() && !HasControlCharacter(value);
}

}  // namespace

Toolbox::Toolbox(const system::FileSystem& files, std::string file) : file_(std::move(file)) {
  if (file_.empty()) return;
  constexpr std::string_view ofProjects = ".vbp";
  const bool isProject = file_.size() > ofProjects.size() &&
                         runtime::EqualIgnoringCase(file_.substr(file_.size() - ofProjects.size()), ofProjects);
  std::optional<std::string> text = files.Read(file_, isProject ? system::LargestProject : system::LargestSettings);
  if (!text) throw support::InputError(file_ + ": there is no such toolbox file; check the path given with --toolbox");
  isProject ? ReadProject(*std::move(text)) : ReadEntries(*text);
}

void Toolbox::ReadProject(std::string text) {
  const ProjectFile project(file_, std::move(text));
  for (const std::string_view value : project.Objects()) {
    ObjectReference reference = Parse(value);
    if (reference.Library != LibraryOf(generator::ide::Query.ProgId) || !IsObjectValue(value)) continue;
    reference.File = NameOf(reference.File);
    entries_.push_back({std::string(generator::ide::Query.ProgId), std::move(reference)});
    return;
  }
  throw support::InputError(
      file_ + ": this project does not use the query control: it has no line \"Object={GUID}#version#0; " +
      std::string(Libraries.front().File) + "\"; give with --toolbox a project that uses it, or a toolbox file");
}

void Toolbox::ReadEntries(std::string_view rest) {
  int number = 0;
  bool inSection = false;
  while (!rest.empty()) {
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    const std::string_view raw = rest.substr(0, length), line = Trimmed(raw);
    rest.remove_prefix(std::min(length + 1, rest.size()));
    ++number;
    if (line.starts_with('[')) inSection = runtime::EqualIgnoringCase(line, Section);
    if (!line.empty() && !line.starts_with(';') && !line.starts_with('[') && inSection) ReadEntry(raw, number);
  }
}

void Toolbox::ReadEntry(std::string_view raw, int number) {
  const std::string_view line = Trimmed(raw);
  const std::size_t equals = line.find('=');
  const bool hasKey = equals != std::string_view::npos && !Trimmed(line.substr(0, equals)).empty();
  if (!hasKey || !IsObjectValue(Trimmed(line.substr(equals + 1)))) {
    const std::size_t wrong = hasKey ? std::min(line.find_first_not_of(" \t", equals + 1), line.size()) : 0;
    throw support::InputError(file_ + ":" + std::to_string(number) + ":" +
                              std::to_string(raw.find_first_not_of(" \t\r") + wrong + 1) +
                              ": expected \"ProgID={GUID}#version#0; FILE.OCX\", found \"" + std::string(line) + "\"");
  }
  const std::string_view progId = Trimmed(line.substr(0, equals));
  ObjectReference reference = Parse(Trimmed(line.substr(equals + 1)));
  reference.Library = LibraryOf(progId);
  entries_.push_back({std::string(progId), std::move(reference)});
}

std::vector<std::string> Toolbox::ProgIds() const {
  std::vector<std::string> ids;
  for (const Entry& entry : entries_) ids.push_back(entry.ProgId);
  return ids;
}

ObjectReference Toolbox::Find(std::string_view progId) const {
  for (const Entry& entry : entries_) {
    if (runtime::EqualIgnoringCase(entry.ProgId, progId)) return entry.Reference;
  }
  const auto known = std::ranges::find(Libraries, LibraryOf(progId), &KnownLibrary::Library);
  if (known != Libraries.end() && !known->Id.empty()) {
    return {std::string(known->Id), std::string(known->File), std::string(known->Library)};
  }
  runtime::Raise(
      runtime::ControlNotFound,
      "ActiveX control '" + std::string(progId) +
          "' not found: name with --toolbox a project (.vbp) that uses it, or a toolbox file with the line \"" +
          std::string(progId) + "={GUID}#version#0; FILE.OCX\" in its section " + std::string(Section) + " (" +
          (file_.empty() ? "none was given" : file_ + " has no such line") + ")");
}

// A library is known by its GUID, whatever its file is called; by its file only where the GUID is not known.
ObjectReference Toolbox::Parse(std::string_view value) const {
  const std::size_t semicolon = value.find(';');
  ObjectReference reference{std::string(value.substr(0, semicolon)), "", ""};
  if (semicolon != std::string_view::npos) reference.File = Trimmed(value.substr(semicolon + 1));
  const auto hasGuidOf = [&](std::string_view id) {
    return runtime::EqualIgnoringCase(GuidOf(reference.Id), GuidOf(id));
  };
  for (const KnownLibrary& known : Libraries) {
    const bool same =
        known.Id.empty() ? runtime::EqualIgnoringCase(NameOf(reference.File), known.File) : hasGuidOf(known.Id);
    if (same) reference.Library = known.Library;
  }
  for (const Entry& entry : entries_) {
    if (hasGuidOf(entry.Reference.Id)) reference.Library = entry.Reference.Library;
  }
  return reference;
}

std::string_view Toolbox::LibraryOf(std::string_view progId) {
  const ControlClass* known = FindControlClass(progId);
  return known ? known->Library : std::string_view();
}

}  // namespace formwizard::adapters::vb6files
