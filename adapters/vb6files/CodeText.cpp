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
  for (; !text.empty(); ++count) {
    const std::string_view line = text.substr(0, text.find('\n'));
    action(line);
    text.remove_prefix(std::min(line.size() + 1, text.size()));
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

// A quick look at the first letter spares most lines the rest.
bool MayBeginProcedure(std::string_view line) {
  const auto first = std::ranges::find_if_not(line, IsBlank);
  if (first == line.end()) return false;
  const char letter = *first;
  return letter == 'P' || letter == 'p' || letter == 'F' || letter == 'f' || letter == 'S' || letter == 's';
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
  Note(bytes_);
}

// The lines and procedures of a text that is new.
void CodeText::Note(std::string_view text) {
  lines_ += ForEachProcedure(text, [this](std::string_view name) { procedures_.insert(texts_.Kept(name)); });
}

bool CodeText::HasProcedure(std::string_view name) const { return procedures_.contains(name); }

void CodeText::FinishLastLine() {
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
    FinishLastLine();
    bytes_.append(text).append(LineEnd);
  } else {
    const std::size_t start = StartOf(line);
    bytes_.insert(start, LineEnd).insert(start, text);
  }
  Note(text);
  if (text.empty() || text.ends_with('\n')) ++lines_;  // an empty one behind it
}

std::size_t CodeText::AppendSub(std::string_view name, std::string_view parameters) {
  FinishLastLine();
  bytes_.append("\r\nPrivate Sub ").append(name).append("(").append(parameters).append(")\r\n\r\nEnd Sub\r\n");
  procedures_.insert(texts_.Kept(name));
  lines_ += 4;
  return lines_ - 2;
}

}  // namespace formwizard::adapters::vb6files
