// What a file is as bytes and lines.
#include "lint/Checks.h"
#include "vbtext/Limits.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <optional>

namespace formwizard::lint {

using vbtext::LongestLine, vbtext::MostContinuations, vbtext::MostLines;

void CheckUtf16(const Subject& subject, const Report& report) {
  if (subject.TextEncoding() == Encoding::Utf16) report(0, "the file is in UTF-16");
}

void CheckUtf8Mark(const Subject& subject, const Report& report) {
  if (subject.TextEncoding() == Encoding::Utf8WithMark) report(0, "the file begins with the mark of UTF-8");
}

void CheckUtf8(const Subject& subject, const Report& report) {
  if (subject.TextEncoding() != Encoding::Utf8) return;
  const auto& lines = subject.Lines();
  const auto first = std::ranges::find_if(lines, [](const vbtext::Line& line) {
    return std::ranges::any_of(line.Text, [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
  });
  report(static_cast<std::size_t>(first - lines.begin()), "the letters from here on are in UTF-8");
}

void CheckLineEnds(const Subject& subject, const Report& report) {
  std::optional<std::size_t> first;
  std::size_t count = 0;
  const auto& lines = subject.Lines();
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i].End != "\n") continue;
    if (!first) first = i;
    ++count;
  }
  if (first) report(*first, "line ends without a carriage return: " + std::to_string(count));
}

void CheckConflictMarkers(const Subject& subject, const Report& report) {
  for (const std::size_t line : subject.ConflictMarkers()) report(line, "a merge left a conflict here");
}

void CheckLineLengths(const Subject& subject, const Report& report) {
  if (!subject.Document()) return;
  for (std::size_t i = subject.Document()->CodeLines.First; i < subject.Document()->CodeLines.Behind; ++i) {
    const std::size_t length = subject.Lines()[i].Text.size();
    if (length > LongestLine) report(i, "a line of " + std::to_string(length) + " bytes");
  }
}

void CheckContinuations(const Subject& subject, const Report& report) {
  if (!subject.Document()) return;
  vbtext::Tokenizer tokenizer;
  std::size_t count = 0;
  for (std::size_t i = subject.Document()->CodeLines.First; i < subject.Document()->CodeLines.Behind; ++i) {
    const std::string_view line = subject.Lines()[i].Text;
    const std::size_t last = line.find_last_not_of(" \t");
    const bool mayGoOn = last != std::string_view::npos && line[last] == '_';
    if (count == 0 && !mayGoOn) continue;  // as nearly all, which need not be taken apart
    tokenizer.Read(line);
    count = tokenizer.GoesOn() ? count + 1 : 0;
    if (count == MostContinuations + 1) {
      report(i, "more than " + std::to_string(MostContinuations) + " continuations of one line");
    }
  }
}

void CheckModuleLength(const Subject& subject, const Report& report) {
  if (!subject.Document()) return;
  const vbtext::LineRange lines = subject.Document()->CodeLines;
  if (lines.Count() > MostLines) report(lines.First + MostLines, std::to_string(lines.Count()) + " lines of code");
}

}  // namespace formwizard::lint
