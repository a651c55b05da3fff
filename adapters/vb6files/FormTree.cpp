#include "adapters/vb6files/FormTree.h"

#include "adapters/vb6files/FormLines.h"
#include "adapters/vb6files/FormReader.h"
#include "adapters/vb6files/Spelling.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <optional>

namespace formwizard::adapters::vb6files {
namespace {

constexpr int DeepestNesting = 64;             // controls and property groups together
constexpr std::size_t LongestGroupName = 255;  // with those of the groups around it

// Takes little-endian numbers and texts off the front of a record.
class RecordReader {
 public:
  explicit RecordReader(std::string_view bytes) : rest_(bytes) {}

  std::string_view Rest() const { return rest_; }
  // Nothing past the end.
  std::optional<std::size_t> Number(std::size_t size) {
    const std::optional<std::string_view> bytes = Bytes(size);
    if (!bytes) return std::nullopt;
    std::size_t value = 0;
    for (std::size_t i = size; i > 0; --i) value = value << 8 | static_cast<unsigned char>((*bytes)[i - 1]);
    return value;
  }
  std::optional<std::string_view> Bytes(std::optional<std::size_t> count) {
    if (!count || *count > rest_.size()) return std::nullopt;
    const std::string_view bytes = rest_.substr(0, *count);
    rest_.remove_prefix(*count);
    return bytes;
  }

 private:
  std::string_view rest_;
};

// The record shapes; nothing when the bytes do not have the shape.
std::optional<std::string> ReadString(RecordReader& record) {
  const auto text = record.Bytes(record.Number(4));
  return text ? std::optional<std::string>(*text) : std::nullopt;
}
std::optional<std::string> ReadMultiLineText(RecordReader& record) {
  std::optional<std::size_t> length = record.Number(1);
  if (length == std::size_t{0xFF}) length = record.Number(2);
  const auto text = record.Bytes(length);
  return text ? std::optional<std::string>(*text) : std::nullopt;
}
std::optional<std::string> ReadList(RecordReader& record) {
  const std::optional<std::size_t> count = record.Number(2);
  if (!count || (*count > 0 && !record.Number(2))) return std::nullopt;  // the longest item's length
  std::string lines;
  for (std::size_t i = 0; i < *count; ++i) {
    const auto item = record.Bytes(record.Number(2));
    if (!item) return std::nullopt;
    if (i > 0) lines += "\r\n";
    lines += *item;
  }
  return lines;
}

// Other libraries put the class of the picture in front. Whatever else they write is left to be read.
std::optional<std::string> ReadPicture(RecordReader& record) {
  RecordReader ahead = record;
  constexpr std::string_view pictureClass("\x04\x52\xE3\x0B\x91\x8F\xCE\x11\x9D\xE3\0\xAA\0\x4B\xB8\x51", 16);
  const std::optional<std::size_t> size = ahead.Number(4);
  const std::size_t before = ahead.Rest().starts_with(pictureClass) ? ahead.Bytes(pictureClass.size())->size() : 0;
  if (ahead.Bytes(4) != std::string_view("lt\0\0", 4)) return std::nullopt;
  const std::optional<std::size_t> length = ahead.Number(4);
  const auto bytes = ahead.Bytes(length);
  if (!size || !bytes || *size != before + *length + 8) return std::nullopt;
  record = ahead;
  return std::string(*bytes);
}

struct RecordShape {
  std::string_view Property;
  std::optional<std::string> (*Read)(RecordReader& record);
};
constexpr std::array Shapes{RecordShape{"Text", ReadMultiLineText}, RecordShape{"List", ReadList},
                            RecordShape{"ItemData", ReadList}};
constexpr std::array<std::string_view, 2> Pictures{"Picture", "Icon"};

// The companion file. The records are read once and in their order, which is that of the references.
class Companion {
 public:
  explicit Companion(std::string_view frx) : frx_(frx) {}

  // `value` as it stands behind the "=". Nothing when it does not refer to a text or a picture that is there.
  std::optional<std::string> TextFor(std::string_view property, std::string_view value) {
    if (value.starts_with('$')) return Record(value, ReadString);
    const auto shape = std::ranges::find_if(
        Shapes, [&](const RecordShape& s) { return runtime::EqualIgnoringCase(s.Property, property); });
    return shape == Shapes.end() ? std::nullopt : Record(value, shape->Read);
  }
  std::optional<std::string> PictureFor(std::string_view property, std::string_view value) {
    const bool isPicture = std::ranges::any_of(
        Pictures, [&](std::string_view name) { return runtime::EqualIgnoringCase(name, property); });
    return isPicture ? Record(value, ReadPicture) : std::nullopt;
  }

 private:
  std::optional<std::string> Record(std::string_view value, std::optional<std::string> (*read)(RecordReader& record)) {
    constexpr std::string_view mark = ".frx\":";
    const std::size_t at = value.find(mark);
    if (at == std::string_view::npos) return std::nullopt;
    std::size_t offset = 0;
    const std::string_view digits = value.substr(at + mark.size());
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), offset, 16).ptr;
    if (digits.empty() || end != digits.data() + digits.size() || offset < read_ || offset > frx_.size()) return {};
    RecordReader record(frx_.substr(offset));
    std::optional<std::string> content = read(record);
    read_ = frx_.size() - record.Rest().size();
    return content;
  }

  std::string_view frx_;
  std::size_t read_ = 0;
};

class TreeReader {
 public:
  TreeReader(const std::string& path, std::string_view frm, std::string_view frx, const system::CodePage& codePage)
      : lines_(path, frm), companion_(frx), codePage_(codePage) {}

  FormNode Read() {
    while (!lines_.StartsWith("Begin")) Next();
    return ReadNode(1);
  }

 private:
  void Next() {
    lines_.Next();
    if (lines_.AtEnd()) lines_.Fail("\"End\" of a control or \"EndProperty\"");
  }
  void CheckDepth(int depth) const {
    if (depth > DeepestNesting) lines_.Fail("at most " + std::to_string(DeepestNesting) + " levels of nesting");
  }

  // From the line with "Begin" to the one with its "End".
  FormNode ReadNode(int depth) {
    CheckDepth(depth);
    FormNode node;
    node.Class = codePage_.Decode(WordOf(lines_.Line(), 1));
    node.Name = codePage_.Decode(WordOf(lines_.Line(), 2));
    if (node.Name.empty()) lines_.Fail("a class and a name behind \"Begin\"");
    for (Next(); !lines_.StartsWith("End"); Next()) {
      if (lines_.StartsWith("Begin")) {
        node.Children.push_back(ReadNode(depth + 1));
      } else {
        ReadProperty(node, "", depth);
      }
    }
    return node;
  }

  // `group` is what stands before the name, as "Font.".
  void ReadProperty(FormNode& node, const std::string& group, int depth) {
    if (lines_.StartsWith("BeginProperty")) return ReadGroup(node, group, depth + 1);
    if (Trimmed(lines_.Line()).empty()) return;
    const PropertyLine line = lines_.Property();
    if (auto picture = companion_.PictureFor(line.Name, line.Value)) {
      node.Pictures.push_back({codePage_.Decode(group + std::string(line.Name)), *std::move(picture)});
    }
    node.Properties.push_back(
        {codePage_.Decode(group + std::string(line.Name)), codePage_.Decode(ValueOf(line.Name, line.Value))});
  }

  void ReadGroup(FormNode& node, const std::string& outer, int depth) {
    CheckDepth(depth);
    const std::string group = outer + std::string(WordOf(lines_.Line(), 1)) + ".";
    if (group.size() > LongestGroupName) lines_.Fail("a shorter name of a property group");
    for (Next(); !lines_.StartsWith("EndProperty"); Next()) ReadProperty(node, group, depth);
  }

  std::string ValueOf(std::string_view name, std::string_view value) {
    const bool refers = value.starts_with("$\"");
    if (!refers && !value.starts_with('"')) return std::string(Trimmed(value.substr(0, value.find('\''))));
    std::size_t end = 0;
    std::string text = vbtext::Unquoted(value.substr(refers ? 1 : 0), end);
    if (!refers && !value.substr(end).starts_with(':')) return text;
    return companion_.TextFor(name, value).value_or(std::string(value));
  }

  FormLines lines_;
  Companion companion_;
  const system::CodePage& codePage_;
};

}  // namespace

const std::string* FormNode::Find(std::string_view property) const {
  const auto found = std::ranges::find_if(
      Properties, [&](const NodeProperty& p) { return runtime::EqualIgnoringCase(p.Name, property); });
  return found == Properties.end() ? nullptr : &found->Value;
}

std::string FormNode::Text(std::string_view property, const std::string& missing) const {
  const std::string* value = Find(property);
  return value ? *value : missing;
}

double FormNode::Number(std::string_view property, double missing) const {
  const std::string* value = Find(property);
  if (!value) return missing;
  if (value->starts_with("&H")) {
    std::uint32_t bits = 0;
    std::from_chars(value->data() + 2, value->data() + value->size(), bits, 16);
    return bits;
  }
  const double number = runtime::LeadingNumber(*value);
  return std::isfinite(number) ? number : missing;
}

bool FormNode::Flag(std::string_view property, bool missing) const { return Number(property, missing ? -1 : 0) != 0; }

FormTree ReadFormTree(const std::string& path, std::string_view frm, std::string_view frx,
                      const system::CodePage& codePage) {
  const FormParts parts = ReadForm(path, frm);
  FormTree tree{TreeReader(path, frm, frx, codePage).Read(), codePage.Decode(parts.Code)};
  tree.Form.Name = codePage.Decode(parts.Name);
  return tree;
}

FormTree ReadFormFile(const system::FileSystem& files, const std::string& path, const system::CodePage& codePage) {
  const std::optional<std::string> frm = files.Read(path);
  if (!frm) throw support::InputError(path + ": there is no such file; check the path");
  std::string frxPath = path.substr(0, path.rfind('.')) + ".frx";
  std::optional<std::string> frx = files.Read(frxPath);
  if (!frx) frx = files.Read(Spelling(files).Of(frxPath));
  return ReadFormTree(path, *frm, frx.value_or(""), codePage);
}

}  // namespace formwizard::adapters::vb6files
