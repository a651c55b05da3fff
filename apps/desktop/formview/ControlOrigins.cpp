#include "apps/desktop/formview/ControlOrigins.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace formwizard::apps::desktop {
namespace {

constexpr std::string_view ClassLine = "Const m_classname = \"", ToScreen = "Private Sub SyncObjectToScreen()",
                           EndSub = "End Sub", Object = "m_object.", Member = "obj.";

bool IsInName(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '%' ||
         static_cast<unsigned char>(c) > 127;
}

std::string_view Trimmed(std::string_view line) {
  line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
  return line.substr(0, line.find_last_not_of("\r ") + 1);
}

// The dotted path behind `prefix`; empty where it does not stand as a word of its own.
std::string_view PathBehind(std::string_view line, std::string_view prefix) {
  std::size_t at = line.find(prefix);
  while (at != line.npos && at > 0 && (IsInName(line[at - 1]) || line[at - 1] == '.')) at = line.find(prefix, at + 1);
  if (at == line.npos) return {};
  const std::string_view rest = line.substr(at + prefix.size());
  const auto end = std::ranges::find_if(rest, [](char c) { return !IsInName(c) && c != '.'; });
  return rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
}

// A stream is read by a method of the property.
std::string_view WithoutMethod(std::string_view path) {
  for (const std::string_view method : std::to_array<std::string_view>({".Read", ".GetPicture"})) {
    if (path.ends_with(method)) path.remove_suffix(method.size());
  }
  return path;
}

// The control whose member a statement begins with, or sets behind a Then; empty for none.
std::string_view ControlIn(std::string_view line) {
  const std::size_t then = line.find(" Then ");
  if (line.starts_with("If ") && then != line.npos) line = line.substr(then + 6);
  if (line.starts_with("Set ")) line = line.substr(std::min(line.find("= ") + 2, line.size()));
  const auto end = std::ranges::find_if(line, [](char c) { return !IsInName(c); });
  return end == line.end() || *end != '.' ? std::string_view()
                                          : line.substr(0, static_cast<std::size_t>(end - line.begin()));
}

// An event's procedure is named after object and event, which has no underscore.
void AddProcedure(FormOrigin& origin, std::string_view line) {
  for (const std::string_view word : std::to_array<std::string_view>({"Private ", "Public ", "Friend ", "Static "})) {
    if (line.starts_with(word)) line.remove_prefix(word.size());
  }
  if (!line.starts_with("Sub ")) return;
  line.remove_prefix(4);
  const std::string_view name = line.substr(0, line.find('('));
  const std::size_t mark = name.rfind('_');
  if (mark == name.npos || mark == 0) return;
  origin.Procedures.emplace(name.substr(0, mark), name.substr(mark + 1));
}

}  // namespace

FormOrigin OriginOf(std::string_view code) {
  FormOrigin origin;
  bool isToScreen = false;
  std::string property;  // that the statements are about
  for (std::size_t start = 0; start < code.size();) {
    const std::size_t end = std::min(code.find('\n', start), code.size());
    const std::string_view line = Trimmed(code.substr(start, end - start));
    start = end + 1;
    if (line.starts_with(ClassLine) && origin.Class.empty()) {
      origin.Class = line.substr(ClassLine.size(), line.find('"', ClassLine.size()) - ClassLine.size());
    }
    AddProcedure(origin, line);
    if (line == ToScreen || line == EndSub) isToScreen = line == ToScreen;
    if (!isToScreen) continue;
    if (const std::string_view path = PathBehind(line, Object); !path.empty()) property = WithoutMethod(path);
    const std::string_view control = ControlIn(line);
    if (control.empty() || property.empty() || control == "m_object" || control == "obj") continue;
    const std::string_view member = PathBehind(line, Member);
    const bool isOfReference = !member.empty() && member != "GetNext";
    const std::string shown = isOfReference ? property + "." + std::string(member) : property;
    if (isOfReference || !origin.Properties.contains(std::string(control))) {
      origin.Properties[std::string(control)] = shown;
    }
  }
  return origin;
}

}  // namespace formwizard::apps::desktop
