#include "lint/Subject.h"

#include "vbtext/LogicalLines.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace formwizard::lint {
namespace {

using vbtext::FileKind;

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";

bool IsInside(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

// How many bytes the character at the start has in UTF-8; 0 where none begins.
std::size_t LengthInUtf8(std::string_view text) {
  const auto first = static_cast<unsigned char>(text.front());
  const std::size_t length = first < 0x80   ? 1
                             : first < 0xC2 ? 0
                             : first < 0xE0 ? 2
                             : first < 0xF0 ? 3
                             : first < 0xF5 ? 4
                                            : 0;
  if (length == 0 || length > text.size()) return 0;
  return std::ranges::all_of(text.substr(1, length - 1), IsInside) ? length : 0;
}

// Single characters of code pages, such as a capital sharp s before a closing quotation mark or two half-width kana,
// can look like UTF-8. That all bytes above ASCII do, in several different pairs, does not come about by chance.
bool IsUtf8Only(std::string_view text) {
  constexpr std::size_t enough = 4;
  std::unordered_set<std::string_view> characters;
  for (std::size_t at = 0; at < text.size();) {
    if (static_cast<unsigned char>(text[at]) < 0x80) {  // as nearly all are
      ++at;
      continue;
    }
    const std::size_t length = LengthInUtf8(text.substr(at));
    if (length == 0) return false;
    if (characters.size() < enough) characters.insert(text.substr(at, length));
    at += length;
  }
  return characters.size() >= enough;
}

Encoding EncodingOf(std::string_view bytes) {
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) return Encoding::Utf16;
  const bool isWide = bytes.size() > 1 && (bytes[0] == '\0') != (bytes[1] == '\0');
  if (isWide) return Encoding::Utf16;
  if (bytes.starts_with(Utf8Mark)) return Encoding::Utf8WithMark;
  return IsUtf8Only(bytes) ? Encoding::Utf8 : Encoding::CodePage;
}

bool IsMarker(std::string_view line, char c) {
  constexpr std::size_t length = 7;
  return line.size() >= length && line.find_first_not_of(c) >= length && line.substr(0, length).back() == c &&
         (line.size() == length || line[length] == ' ');
}

std::vector<std::size_t> MarkersIn(const std::vector<vbtext::Line>& lines) {
  std::vector<std::size_t> markers;
  bool isOpen = false;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::string_view line = lines[i].Text;
    const bool begins = IsMarker(line, '<'), ends = IsMarker(line, '>');
    if (begins || (ends && !isOpen)) markers.push_back(i);
    isOpen = begins || (isOpen && !ends);
  }
  return markers;
}

}  // namespace

Subject::Subject(const SubjectFile& file)
    : file_(file), kind_(vbtext::KindOfName(file.Path)), encoding_(EncodingOf(file.Bytes)) {
  if (encoding_ == Encoding::Utf16) return;
  std::string_view text = file.Bytes;
  if (encoding_ == Encoding::Utf8WithMark) text.remove_prefix(Utf8Mark.size());
  lines_ = vbtext::LinesOf(text);
  if (kind_ == FileKind::Unknown) kind_ = vbtext::KindOfText(lines_);
  markers_ = MarkersIn(lines_);
  if (!markers_.empty()) return;
  try {
    Read(text);
  } catch (const vbtext::Fault& fault) {
    broken_ = fault;
  }
}

bool Subject::IsRecognized() const {
  if (encoding_ == Encoding::Utf16 || kind_ == FileKind::Module || kind_ == FileKind::Project) return true;
  return vbtext::KindOfText(lines_) != FileKind::Unknown || std::ranges::any_of(lines_, [](const vbtext::Line& line) {
           return vbtext::BeginsWith(line.Text, "Attribute") && vbtext::WordOf(line.Text, 1) == "VB_Name";
         });
}

void Subject::Read(std::string_view text) {
  if (kind_ == FileKind::Project) {
    entries_ = vbtext::EntriesOf(lines_);
  } else if (kind_ == FileKind::Form || vbtext::KindOfText(lines_) != FileKind::Unknown) {
    document_ = vbtext::DocumentOf(text);
    if (kind_ == FileKind::Form && document_->Root) controls_ = vbtext::ControlsOf(*document_->Root);
  } else {
    // A module whose name is not in it is called by its file's.
    vbtext::Document module{kind_, lines_, {}, {}, {}, {0, lines_.size()}, vbtext::ModuleOf(lines_)};
    document_ = std::move(module);
  }
}

}  // namespace formwizard::lint
