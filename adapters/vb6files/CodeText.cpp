#include "adapters/vb6files/CodeText.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

bool IsBlank(char c) { return c == ' ' || c == '\t'; }

// Takes the next word off the line.
std::string_view TakeWord(std::string_view& line) {
  const auto start = std::ranges::find_if_not(line, IsBlank);
  const auto end = std::find_if(start, line.end(), [&](char c) { return IsBlank(c) || c == '(' || c == '\r'; });
  const std::string_view word(start, end);
  line = std::string_view(end, line.end());
  return word;
}

constexpr std::string_view LineEnd = "\r\n";

// Returns how many there are.
std::size_t ForEachLine(std::string_view text, auto action) {
  std::size_t count = 0;
  for (std::size_t start = 0; start < text.size(); ++count) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    action(std::string_view(text.data() + start, end - start));
    start = end + 1;
  }
  return count;
}

bool IsOneOf(std::string_view word, auto... words) { return (runtime::EqualIgnoringCase(word, words) || ...); }

// The procedure that a line begins, or the empty text.
std::string_view ProcedureBegunBy(std::string_view line) {
  std::string_view word = TakeWord(line);
  while (IsOneOf(word, "Private", "Public", "Friend", "Static")) word = TakeWord(line);
  if (IsOneOf(word, "Property")) {
    TakeWord(line);  // Get, Let or Set
    return TakeWord(line);
  }
  return IsOneOf(word, "Sub", "Function") ? TakeWord(line) : std::string_view();
}

// A quick look at the first two letters spares most lines the rest: those of Private, Public, Friend, Static, Property,
// Sub and Function.
bool MayBeginProcedure(std::string_view line) {
  const auto first = std::ranges::find_if_not(line, IsBlank);
  if (line.end() - first < 2) return false;
  const int letter = first[0] | 0x20, next = first[1] | 0x20;
  return (letter == 'p' || letter == 'f' || letter == 's') && (next == 'r' || next == 'u' || next == 't');
}

// Returns how many lines there are.
std::size_t ForEachProcedure(std::string_view code, auto action) {
  return ForEachLine(code, [&](std::string_view line) {
    if (!MayBeginProcedure(line)) return;
    const std::string_view name = ProcedureBegunBy(line);
    if (!name.empty()) action(name);
  });
}

}  // namespace

std::vector<std::string_view> ProceduresIn(std::string_view code) {
  std::vector<std::string_view> names;
  ForEachProcedure(code, [&](std::string_view name) { names.push_back(name); });
  return names;
}

bool HoldsCode(std::string_view code) {
  bool holds = false;
  ForEachLine(code, [&](std::string_view line) {
    const std::string_view word = TakeWord(line);
    holds = holds || !(word.empty() || word.starts_with('\'') || IsOneOf(word, "Rem", "Option"));
  });
  return holds;
}

void CodeText::Load(std::string bytes) {
  bytes_ = std::move(bytes);
  lines_ = 0;
  procedures_.clear();
  hasNameTwice_ = false;
  NoteNew(bytes_);
}

// The lines and procedures of a text.
void CodeText::NoteNew(std::string_view text) {
  lines_ += ForEachProcedure(text, [this](std::string_view name) {
    if (!procedures_.insert(texts_.Kept(name)).second) hasNameTwice_ = true;
  });
}

void CodeText::PrepareEnd() {
  if (bytes_.empty()) bytes_.reserve(MostOften);
  if (!bytes_.empty() && !bytes_.ends_with('\n')) bytes_ += LineEnd;
}

// Lines are inserted near the end.
std::size_t CodeText::StartOf(std::size_t line) const {
  std::size_t start = bytes_.size();
  for (std::size_t behind = lines_ + 1; behind > line; --behind) {
    start = start < 2 ? 0 : bytes_.rfind('\n', start - 2) + 1;
  }
  return start;
}

void CodeText::Insert(std::size_t line, std::string_view text) {
  if (line > lines_) {
    PrepareEnd();
    bytes_.append(text).append(LineEnd);
  } else {
    const std::size_t start = StartOf(line);
    bytes_.insert(start, LineEnd).insert(start, text);
  }
  NoteNew(text);
  if (text.empty() || text.ends_with('\n')) ++lines_;  // an empty one behind it
}

std::optional<std::size_t> CodeText::AppendHandler(std::string_view object, std::string_view event,
                                                   std::string_view parameters) {
  const std::string_view name = texts_.Kept(object, "_", event);
  if (!procedures_.insert(name).second) return std::nullopt;
  PrepareEnd();
  bytes_.append("\r\nPrivate Sub ").append(name).append("(").append(parameters).append(")\r\n\r\nEnd Sub\r\n");
  lines_ += 4;
  return lines_ - 2;
}

}  // namespace formwizard::adapters::vb6files
