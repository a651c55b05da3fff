// The text of a project file: its component items, and the few changes that a new form makes to it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// Every text is bytes in the project's code page. Lines that are not changed keep every byte, line ends included.
class ProjectFile {
 public:
  enum class ItemKind { Form, Named, Other };
  struct Item {
    ItemKind Kind;     // Named: a module or class, whose line gives its name
    std::string Name;  // of a Named item
    std::string Path;  // as in the line, with backslashes
    std::size_t Line;  // counts from 1
  };

  // support::InputError, naming `path` and the line, for a text that is no project.
  ProjectFile(const std::string& path, std::string_view text);

  // Components in the order of the file; line numbers are those of the file.
  const std::vector<Item>& Items() const { return items_; }
  // The values of the "Object=" lines.
  std::vector<std::string_view> Objects() const;
  // The project's own name; empty when the file has none.
  const std::string& Name() const { return name_; }

  void AddForm(std::string_view path);
  void ReplaceFormPath(std::string_view oldPath, std::string_view newPath);
  void AddObject(std::string_view value);
  // The start-up form and the form whose icon the program has follow a renamed form.
  void RenameForm(std::string_view oldName, std::string_view newName);

  bool IsChanged() const { return changed_; }
  // The text as it is now stands in the file.
  void MarkSaved();
  std::string Text() const;

 private:
  struct Line {
    std::string Text;      // without its line end
    std::string_view End;  // "\r\n", "\n" or nothing
  };

  [[noreturn]] void RefuseAsNoProject(const std::string& path) const;
  void ReadItem(const std::string& path, std::string_view key, std::string_view value, std::size_t line);
  void ReadSetting(std::string_view key, std::size_t index);
  void Insert(std::size_t at, std::string text);
  std::size_t BehindLast(std::string_view key) const;  // 0 when there is no such line

  std::vector<Line> lines_;
  std::vector<Item> items_;
  std::string name_;
  std::vector<std::size_t> formNameLines_;  // the lines that give a form by its name
  std::string_view lineEnd_ = "\r\n";
  std::size_t newFormAt_ = 0;              // where the next new form's line goes
  std::vector<std::size_t> newObjectsAt_;  // in front of items; not in the file yet
  bool changed_ = false;
};

}  // namespace formwizard::adapters::vb6files
