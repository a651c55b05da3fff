#include "adapters/vb6files/ProjectFile.h"

#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

struct ItemKey {
  std::string_view Key;
  ProjectFile::ItemKind Kind;
  bool IsComponent;
};

// Lines that stand among the items of a project. A new form goes behind the last of them, but before a resource file.
constexpr std::array ItemKeys{
    ItemKey{"Reference", ProjectFile::ItemKind::Other, false},
    ItemKey{"Object", ProjectFile::ItemKind::Other, false},
    ItemKey{"Form", ProjectFile::ItemKind::Form, true},
    ItemKey{"Module", ProjectFile::ItemKind::Named, true},
    ItemKey{"Class", ProjectFile::ItemKind::Named, true},
    ItemKey{"UserControl", ProjectFile::ItemKind::Form, true},
    ItemKey{"PropertyPage", ProjectFile::ItemKind::Form, true},
    ItemKey{"UserDocument", ProjectFile::ItemKind::Form, true},
    ItemKey{"Designer", ProjectFile::ItemKind::Form, true},
    ItemKey{"RelatedDoc", ProjectFile::ItemKind::Other, false},
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

ProjectFile::ProjectFile(const std::string& path, std::string_view text) {
  if (text.find('\0') != std::string_view::npos) {
    throw support::InputError(path + ": this is no project file: it holds binary data; give a .vbp file");
  }
  while (!text.empty()) {
    const std::size_t length = text.find('\n');
    std::string_view line = text.substr(0, length);
    std::string_view end = length == std::string_view::npos ? "" : "\n";
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (!end.empty() && line.ends_with('\r')) {
      line.remove_suffix(1);
      end = "\r\n";
    }
    lines_.push_back({std::string(line), end});
  }
  if (!lines_.empty()) lineEnd_ = lines_.front().End == "\n" ? "\n" : "\r\n";
  if (lines_.empty() || !runtime::EqualIgnoringCase(KeyOf(lines_.front().Text), "Type")) RefuseAsNoProject(path);
  newFormAt_ = 1;
  for (std::size_t i = 0; i < lines_.size() && !IsSection(lines_[i].Text); ++i) {
    const std::string_view key = KeyOf(lines_[i].Text);
    const ItemKey* item = FindItemKey(key);
    if (!item) ReadSetting(key, i);
    if (!item) continue;
    newFormAt_ = i + 1;
    if (item->IsComponent) ReadItem(path, key, ValueOf(lines_[i].Text), i + 1);
  }
}

// Projects of Visual Basic 4 have the items and settings of later ones, but no type.
void ProjectFile::RefuseAsNoProject(const std::string& path) const {
  const bool isOlder = std::ranges::any_of(lines_, [](const Line& line) {
    return FindItemKey(KeyOf(line.Text)) || runtime::EqualIgnoringCase(KeyOf(line.Text), "ProjWinSize");
  });
  throw support::InputError(
      path + ":1: " +
      (isOlder
           ? "the \"Type=\" line is missing, as in projects of Visual Basic 4 and older; open the project in Visual "
             "Basic 6 and save it there, then give the saved file"
           : "expected \"Type=Exe\" or another \"Type=\" line; give the .vbp file of a project, not a project "
             "group or another file"));
}

void ProjectFile::ReadItem(const std::string& path, std::string_view key, std::string_view value, std::size_t line) {
  const ItemKind kind = FindItemKey(key)->Kind;
  std::string_view name;
  std::string_view file = Unquoted(value);
  if (kind == ItemKind::Named) {
    const std::size_t semicolon = value.find(';');
    name = value.substr(0, semicolon);
    file = semicolon == std::string_view::npos ? std::string_view() : TrimmedLeft(value.substr(semicolon + 1));
  }
  if (file.empty() || (kind == ItemKind::Named && name.empty())) {
    throw support::InputError(path + ":" + std::to_string(line) + ": expected \"" + std::string(key) +
                              (kind == ItemKind::Named ? "=Name; file\"" : "=file\"") + ", found \"" +
                              std::string(key) + "=" + std::string(value) + "\"; mend the line");
  }
  items_.push_back({kind, std::string(name), std::string(file), line});
}

void ProjectFile::ReadSetting(std::string_view key, std::size_t index) {
  const auto is = [&](std::string_view name) { return runtime::EqualIgnoringCase(key, name); };
  if (is("Name") && name_.empty()) name_ = Unquoted(ValueOf(lines_[index].Text));
  if (is("Startup") || is("IconForm")) formNameLines_.push_back(index);
}

std::vector<std::string_view> ProjectFile::Objects() const {
  std::vector<std::string_view> values;
  for (const Line& line : lines_) {
    if (runtime::EqualIgnoringCase(KeyOf(line.Text), "Object")) values.push_back(ValueOf(line.Text));
  }
  return values;
}

void ProjectFile::Insert(std::size_t at, std::string text) {
  changed_ = true;
  if (at > 0 && lines_[at - 1].End.empty()) lines_[at - 1].End = lineEnd_;
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(at), {std::move(text), lineEnd_});
  if (at <= newFormAt_) ++newFormAt_;
  for (std::size_t& line : formNameLines_) {
    if (at <= line) ++line;
  }
}

std::size_t ProjectFile::BehindLast(std::string_view key) const {
  std::size_t behind = 0;
  for (std::size_t i = 0; i < lines_.size() && !IsSection(lines_[i].Text); ++i) {
    if (runtime::EqualIgnoringCase(KeyOf(lines_[i].Text), key)) behind = i + 1;
  }
  return behind;
}

void ProjectFile::AddForm(std::string_view path) { Insert(newFormAt_, "Form=" + std::string(path)); }

void ProjectFile::ReplaceFormPath(std::string_view oldPath, std::string_view newPath) {
  for (Line& line : lines_) {
    if (!runtime::EqualIgnoringCase(KeyOf(line.Text), "Form") || Unquoted(ValueOf(line.Text)) != oldPath) continue;
    line.Text = "Form=" + std::string(newPath);
    changed_ = true;
    return;
  }
}

void ProjectFile::AddObject(std::string_view value) {
  std::size_t at = BehindLast("Object");
  if (at == 0) at = BehindLast("Reference");
  if (at == 0) at = 1;
  Insert(at, "Object=" + std::string(value));
  newObjectsAt_.push_back(at);
}

// A new form's line moves no item: it stands behind all of them.
void ProjectFile::MarkSaved() {
  changed_ = false;
  for (const std::size_t at : std::exchange(newObjectsAt_, {})) {
    for (Item& item : items_) {
      if (item.Line > at) ++item.Line;
    }
  }
}

void ProjectFile::RenameForm(std::string_view oldName, std::string_view newName) {
  for (const std::size_t i : formNameLines_) {
    Line& line = lines_[i];
    if (!runtime::EqualIgnoringCase(Unquoted(ValueOf(line.Text)), oldName)) continue;
    line.Text = std::string(KeyOf(line.Text)) + "=\"" + std::string(newName) + "\"";
    changed_ = true;
  }
}

std::string ProjectFile::Text() const {
  std::string text;
  for (const Line& line : lines_) {
    text += line.Text;
    text += line.End;
  }
  return text;
}

}  // namespace formwizard::adapters::vb6files
