#include "adapters/vb6files/CodeText.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::adapters::vb6files {
namespace {

// Takes the next word off the line.
std::string_view TakeWord(std::string_view& line) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t'; };
  const auto start = std::ranges::find_if_not(line, isBlank);
  const auto end = std::find_if(start, line.end(), [&](char c) { return isBlank(c) || c == '(' || c == '\r'; });
  const std::string_view word(start, end);
  line = std::string_view(end, line.end());
  return word;
}

void ForEachLine(std::string_view text, auto action) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    action(line);
    text.remove_prefix(std::min(line.size() + 1, text.size()));
  }
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

}  // namespace

std::vector<std::string_view> ProceduresIn(std::string_view code) {
  std::vector<std::string_view> names;
  ForEachLine(code, [&](std::string_view line) {
    // A quick look at the first letter spares most lines the rest.
    const auto first = std::ranges::find_if_not(line, [](char c) { return c == ' ' || c == '\t'; });
    const char letter = first == line.end() ? ' ' : *first;
    if (letter == 'P' || letter == 'p' || letter == 'F' || letter == 'f' || letter == 'S' || letter == 's') {
      const std::string_view name = ProcedureBegunBy(line);
      if (!name.empty()) names.push_back(name);
    }
  });
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

CodeText::CodeText(std::string bytes) : bytes_(std::move(bytes)) {
  IndexLines(0);
  NoteProcedures(bytes_);
}

void CodeText::IndexLines(std::size_t from) {
  while (from < bytes_.size()) {
    starts_.push_back(from);
    from = std::min(bytes_.find('\n', from), bytes_.size() - 1) + 1;
  }
}

void CodeText::NoteProcedures(std::string_view text) {
  for (const std::string_view name : ProceduresIn(text)) procedures_.insert(runtime::LowerCase(name));
}

bool CodeText::HasProcedure(std::string_view name) const { return procedures_.contains(runtime::LowerCase(name)); }

void CodeText::Insert(std::size_t line, std::string_view text) {
  if (line > starts_.size()) {
    if (!bytes_.empty() && !bytes_.ends_with('\n')) bytes_ += "\r\n";
    const std::size_t end = bytes_.size();
    bytes_ += text;
    bytes_ += "\r\n";
    IndexLines(end);
  } else {
    const std::size_t at = starts_[line - 1];
    bytes_.insert(at, std::string(text) + "\r\n");
    starts_.resize(line - 1);
    IndexLines(at);
  }
  NoteProcedures(text);
}

}  // namespace formwizard::adapters::vb6files
