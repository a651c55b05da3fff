// A file as the rules look at it.
#pragma once

#include "vbtext/Controls.h"
#include "vbtext/Document.h"
#include "vbtext/Project.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace formwizard::lint {

enum class Encoding { CodePage, Utf8, Utf8WithMark, Utf16 };

// The files around one that is looked at.
class Surroundings {
 public:
  virtual ~Surroundings() = default;
  // In bytes; nothing when there is no such file. `file` is a path as projects write it, from the folder of the one
  // that is looked at, in any case of its letters.
  virtual std::optional<std::uintmax_t> SizeOf(std::string_view file) const = 0;
};

struct SubjectFile {
  std::string_view Path, Bytes;
  const Surroundings& Around;
  // The name of the project that lists the file, in front of the names of its own controls; nothing when it is not
  // known.
  std::optional<std::string_view> Project = std::nullopt;
};

// What can be told of a file; where it is broken the rest is empty. Refers to the bytes of the file.
class Subject {
 public:
  explicit Subject(const SubjectFile& file);

  const SubjectFile& File() const { return file_; }
  vbtext::FileKind Kind() const { return kind_; }
  // Whether its first lines or a line with its name are those of its kind: other programs use the endings, too.
  bool IsRecognized() const;
  Encoding TextEncoding() const { return encoding_; }
  // None in UTF-16.
  const std::vector<vbtext::Line>& Lines() const { return lines_; }
  // Those with which a conflict that a merge left behind begins, or one that stands alone. Nothing is read of such a
  // file.
  const std::vector<std::size_t>& ConflictMarkers() const { return markers_; }
  // Where the tree of a form, or a project, cannot be read.
  const std::optional<vbtext::Fault>& Broken() const { return broken_; }
  // A form, control, page, class or module.
  const std::optional<vbtext::Document>& Document() const { return document_; }
  // The form and its controls; none in a class or module.
  const std::vector<vbtext::Control>& Controls() const { return controls_; }
  // Of a project.
  const std::vector<vbtext::ProjectEntry>& Entries() const { return entries_; }

 private:
  void Read(std::string_view text);

  SubjectFile file_;
  vbtext::FileKind kind_;
  Encoding encoding_;
  std::vector<vbtext::Line> lines_;
  std::vector<std::size_t> markers_;
  std::optional<vbtext::Fault> broken_;
  std::optional<vbtext::Document> document_;
  std::vector<vbtext::Control> controls_;
  std::vector<vbtext::ProjectEntry> entries_;
};

}  // namespace formwizard::lint
