// The text of a project file: its component items, and the few changes that a new form makes to it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// What a component is, in the order in which the environment lists them.
enum class ComponentGroup : std::uint8_t { Form, Module, Class, UserControl, PropertyPage, UserDocument, Designer };

// Every text is bytes in the project's code page. What is not changed keeps every byte, line ends included.
class ProjectFile {
 public:
  enum class ItemKind { Form, Named, Other };
  struct Item {
    ItemKind Kind;  // Named: a module or class, whose line gives its name
    ComponentGroup Group;
    std::string_view Name;  // of a Named item
    std::string_view Path;  // as in the line, with backslashes
    std::size_t Line;       // counts from 1
  };

  // support::InputError, naming `path` and the line, for a text that is no project.
  ProjectFile(const std::string& path, std::string text);
  ProjectFile(const ProjectFile&) = delete;
  ProjectFile& operator=(const ProjectFile&) = delete;

  // The components as read, in the order of the file, once. Their texts hold until the first change.
  std::vector<Item> TakeItems();
  // The values of the "Object=" lines, until the next change.
  std::vector<std::string_view> Objects() const { return ValuesOf("Object"); }
  // The paths of the files that are listed beside the components, as in their lines; until the next change.
  std::vector<std::string_view> RelatedDocuments() const { return ValuesOf("RelatedDoc"); }
  // The project's own name; empty when the file has none.
  const std::string& Name() const { return name_; }

  void AddForm(std::string_view path);
  void RemoveForm(std::string_view path);
  void ReplaceFormPath(std::string_view oldPath, std::string_view newPath);
  void AddObject(std::string_view value);
  // The start-up form and the form whose icon the program has follow a renamed form.
  void RenameForm(std::string_view oldName, std::string_view newName);

  const std::string& Text() const { return state_.Text; }
  bool IsChanged() const { return state_.IsChanged; }
  void MarkSaved() { state_.IsChanged = false; }

  // All that changes.
  struct State {
    std::string Text;
    std::size_t NewFormAt = 0;            // where the next new form's line goes
    std::vector<std::size_t> NamesForms;  // where the lines begin that give a form by its name
    bool IsChanged = false;
  };
  const State& Current() const { return state_; }
  void GoBackTo(State state) { state_ = std::move(state); }

 private:
  // A line and its end: "\r\n", "\n" or nothing.
  struct Line {
    std::size_t Start = 0;
    std::string_view Text, End;

    std::size_t Behind() const { return Start + Text.size() + End.size(); }
  };

  std::vector<std::string_view> ValuesOf(std::string_view key) const;
  Line LineAt(std::size_t start) const;
  template <typename Action>
  void ForEachLine(Action&& action) const;
  [[noreturn]] void RefuseAsNoProject(const std::string& path) const;
  void ReadItem(const std::string& path, std::string_view key, std::string_view value, std::size_t number);
  void ReadSetting(const Line& line);
  Line FormLine(std::string_view path) const;  // empty when there is none
  void Replace(std::size_t at, std::size_t count, std::string_view text);
  void Insert(std::size_t at, std::string_view line);
  std::size_t BehindLast(std::string_view key) const;  // 0 when there is no such line

  State state_;
  std::vector<Item> items_;
  std::string name_;
  std::string_view lineEnd_ = "\r\n";
};

}  // namespace formwizard::adapters::vb6files
