#include "adapters/vb6files/ProjectFile.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

struct ItemKey {
  std::string_view Key;
  ProjectFile::ItemKind Kind;
  std::optional<ComponentGroup> Group;  // nothing: no component
};

// Lines that stand among the items of a project. A new form goes behind the last of them, but before a resource file.
constexpr std::array ItemKeys{
    ItemKey{"Reference", ProjectFile::ItemKind::Other, {}},
    ItemKey{"Object", ProjectFile::ItemKind::Other, {}},
    ItemKey{"Form", ProjectFile::ItemKind::Form, ComponentGroup::Form},
    ItemKey{"Module", ProjectFile::ItemKind::Named, ComponentGroup::Module},
    ItemKey{"Class", ProjectFile::ItemKind::Named, ComponentGroup::Class},
    ItemKey{"UserControl", ProjectFile::ItemKind::Form, ComponentGroup::UserControl},
    ItemKey{"PropertyPage", ProjectFile::ItemKind::Form, ComponentGroup::PropertyPage},
    ItemKey{"UserDocument", ProjectFile::ItemKind::Form, ComponentGroup::UserDocument},
    ItemKey{"Designer", ProjectFile::ItemKind::Form, ComponentGroup::Designer},
    ItemKey{"RelatedDoc", ProjectFile::ItemKind::Other, {}},
};

const ItemKey* FindItemKey(std::string_view key) {
  const auto found =
      std::ranges::find_if(ItemKeys, [&](const ItemKey& k) { return runtime::EqualIgnoringCase(k.Key, key); });
  return found == ItemKeys.end() ? nullptr : &*found;
}

std::string_view KeyOf(std::string_view line) {
  const std::size_t equals = line.find('=');
  return equals == std::string_view::npos ? std::string_view() : line.substr(0, equals);
}
std::string_view ValueOf(std::string_view line) { return line.substr(std::min(line.find('=') + 1, line.size())); }

std::string_view Unquoted(std::string_view text) {
  if (text.size() >= 2 && text.starts_with('"') && text.ends_with('"')) return text.substr(1, text.size() - 2);
  return text;
}

std::string_view TrimmedLeft(std::string_view text) {
  return text.substr(std::min(text.find_first_not_of(' '), text.size()));
}

bool IsSection(std::string_view line) { return line.starts_with('['); }

}  // namespace

ProjectFile::Line ProjectFile::LineAt(std::size_t start) const {
  const std::string_view rest = std::string_view(state_.Text).substr(start);
  const std::size_t length = rest.find('\n');
  if (length == std::string_view::npos) return {start, rest, ""};
  const bool hasReturn = length > 0 && rest[length - 1] == '\r';
  const std::size_t size = hasReturn ? length - 1 : length;
  return {start, rest.substr(0, size), rest.substr(size, length + 1 - size)};
}

// As long as the action says so.
template <typename Action>
void ProjectFile::ForEachLine(Action&& action) const {
  for (std::size_t start = 0; start < state_.Text.size();) {
    const Line line = LineAt(start);
    if (!action(line)) return;
    start = line.Behind();
  }
}

ProjectFile::ProjectFile(const std::string& path, std::string text) {
  state_.Text = std::move(text);
  if (state_.Text.find('\0') != std::string::npos) {
    throw support::InputError(path + ": this is not a project file: it contains binary data; give a .vbp file");
  }
  const Line first = LineAt(0);
  if (first.End == "\n") lineEnd_ = "\n";
  if (!runtime::EqualIgnoringCase(KeyOf(first.Text), "Type")) RefuseAsNoProject(path);
  state_.NewFormAt = first.Behind();
  std::size_t number = 0;
  ForEachLine([&](const Line& line) {
    if (IsSection(line.Text)) return false;
    ++number;
    const std::string_view key = KeyOf(line.Text);
    const ItemKey* item = FindItemKey(key);
    if (!item) {
      ReadSetting(line);
      return true;
    }
    state_.NewFormAt = line.Behind();
    if (item->Group) ReadItem(path, key, ValueOf(line.Text), number);
    return true;
  });
}

// Projects of Visual Basic 4 have the items and settings of later ones, but no type.
void ProjectFile::RefuseAsNoProject(const std::string& path) const {
  bool isOlder = false;
  ForEachLine([&](const Line& line) {
    const std::string_view key = KeyOf(line.Text);
    isOlder = FindItemKey(key) || runtime::EqualIgnoringCase(key, "ProjWinSize");
    return !isOlder;
  });
  throw support::InputError(
      path + ":1: " +
      (isOlder
           ? "the \"Type=\" line is missing, as in projects of Visual Basic 4 and older; open the project in Visual "
             "Basic 6 and save it there, then give the saved file"
           : "expected \"Type=Exe\" or another \"Type=\" line; give the .vbp file of a project, not a project "
             "group or another file"));
}

void ProjectFile::ReadItem(const std::string& path, std::string_view key, std::string_view value, std::size_t number) {
  const ItemKey& item = *FindItemKey(key);
  const ItemKind kind = item.Kind;
  std::string_view name;
  std::string_view file = Unquoted(value);
  if (kind == ItemKind::Named) {
    const std::size_t semicolon = value.find(';');
    name = value.substr(0, semicolon);
    file = semicolon == std::string_view::npos ? std::string_view() : TrimmedLeft(value.substr(semicolon + 1));
  }
  if (file.empty() || (kind == ItemKind::Named && name.empty())) {
    throw support::InputError(path + ":" + std::to_string(number) + ": expected \"" + std::string(key) +
                              (kind == ItemKind::Named ? "=Name; file\"" : "=file\"") + ", found \"" +
                              std::string(key) + "=" + std::string(value) + "\"; correct the line");
  }
  items_.push_back({kind, *item.Group, name, file, number});
}

void ProjectFile::ReadSetting(const Line& line) {
  const std::string_view key = KeyOf(line.Text);
  const auto is = [&](std::string_view name) { return runtime::EqualIgnoringCase(key, name); };
  if (is("Name") && name_.empty()) name_ = Unquoted(ValueOf(line.Text));
  if (is("Startup") || is("IconForm")) state_.NamesForms.push_back(line.Start);
}

std::vector<ProjectFile::Item> ProjectFile::TakeItems() { return std::exchange(items_, {}); }

std::vector<std::string_view> ProjectFile::ValuesOf(std::string_view key) const {
  std::vector<std::string_view> values;
  ForEachLine([&](const Line& line) {
    if (runtime::EqualIgnoringCase(KeyOf(line.Text), key)) values.push_back(ValueOf(line.Text));
    return true;
  });
  return values;
}

// What stands behind moves along, also what stands right there where nothing is taken away.
void ProjectFile::Replace(std::size_t at, std::size_t count, std::string_view text) {
  state_.Text.replace(at, count, text);
  state_.IsChanged = true;
  const auto move = [&](std::size_t& place) {
    if (place >= at + count) place = place + text.size() - count;
  };
  move(state_.NewFormAt);
  for (std::size_t& line : state_.NamesForms) move(line);
}

// As a line of its own before the one that begins there.
void ProjectFile::Insert(std::size_t at, std::string_view line) {
  const bool isUnfinished = at > 0 && state_.Text[at - 1] != '\n';
  std::string text(isUnfinished ? lineEnd_ : "");
  Replace(at, 0, text.append(line).append(lineEnd_));
}

std::size_t ProjectFile::BehindLast(std::string_view key) const {
  std::size_t behind = 0;
  ForEachLine([&](const Line& line) {
    if (IsSection(line.Text)) return false;
    if (runtime::EqualIgnoringCase(KeyOf(line.Text), key)) behind = line.Behind();
    return true;
  });
  return behind;
}

void ProjectFile::AddForm(std::string_view path) { Insert(state_.NewFormAt, "Form=" + std::string(path)); }

ProjectFile::Line ProjectFile::FormLine(std::string_view path) const {
  Line found;
  ForEachLine([&](const Line& line) {
    const bool isIt = runtime::EqualIgnoringCase(KeyOf(line.Text), "Form") && Unquoted(ValueOf(line.Text)) == path;
    if (isIt) found = line;
    return !isIt;
  });
  return found;
}

void ProjectFile::RemoveForm(std::string_view path) {
  if (const Line found = FormLine(path); !found.Text.empty()) Replace(found.Start, found.Behind() - found.Start, "");
}

void ProjectFile::ReplaceFormPath(std::string_view oldPath, std::string_view newPath) {
  const Line found = FormLine(oldPath);
  if (!found.Text.empty()) Replace(found.Start, found.Text.size(), "Form=" + std::string(newPath));
}

void ProjectFile::AddObject(std::string_view value) {
  std::size_t at = BehindLast("Object");
  if (at == 0) at = BehindLast("Reference");
  Insert(at == 0 ? LineAt(0).Behind() : at, "Object=" + std::string(value));
}

void ProjectFile::RenameForm(std::string_view oldName, std::string_view newName) {
  for (std::size_t i = 0; i < state_.NamesForms.size(); ++i) {
    const Line line = LineAt(state_.NamesForms[i]);
    if (!runtime::EqualIgnoringCase(Unquoted(ValueOf(line.Text)), oldName)) continue;
    Replace(line.Start, line.Text.size(), std::string(KeyOf(line.Text)) + "=\"" + std::string(newName) + "\"");
  }
}

}  // namespace formwizard::adapters::vb6files
