#include "merge/Output.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace formwizard::merge {
namespace {

// Most lines of the text have it.
std::string_view UsualLineEnd(std::string_view text) {
  std::size_t all = 0, withReturn = 0;
  for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
    ++all;
    if (at > 0 && text[at - 1] == '\r') ++withReturn;
  }
  return all == 0 || withReturn * 2 >= all ? "\r\n" : "\n";
}

// Lines at the beginning that both have, and at the end, taken off both.
struct Trimmed {
  std::string_view Before, A, B, Behind;
};
Trimmed WithoutCommon(std::string_view a, std::string_view b) {
  const std::vector<vbtext::Line> linesA = vbtext::LinesOf(a), linesB = vbtext::LinesOf(b);
  const std::size_t most = std::min(linesA.size(), linesB.size());
  std::size_t before = 0, behind = 0;
  while (before < most && linesA[before].Whole() == linesB[before].Whole()) ++before;
  while (behind < most - before &&
         linesA[linesA.size() - 1 - behind].Whole() == linesB[linesB.size() - 1 - behind].Whole()) {
    ++behind;
  }
  const vbtext::LineRange inA{before, linesA.size() - behind}, inB{before, linesB.size() - behind};
  return {vbtext::TextOf(linesA, {0, before}), vbtext::TextOf(linesA, inA), vbtext::TextOf(linesB, inB),
          vbtext::TextOf(linesA, {inA.Behind, linesA.size()})};
}

}  // namespace

bool HasLineEnds(std::string_view text, std::string_view lineEnd) {
  const bool hasReturn = lineEnd == "\r\n";
  for (std::size_t at = text.find('\n'); at != std::string_view::npos; at = text.find('\n', at + 1)) {
    if ((at > 0 && text[at - 1] == '\r') != hasReturn) return false;
  }
  return true;
}

std::string WithLineEnds(std::string_view text, std::string_view lineEnd) {
  std::string result;
  result.reserve(text.size());
  for (const vbtext::Line& line : vbtext::LinesOf(text)) {
    result += line.Text;
    if (!line.End.empty()) result += lineEnd;
  }
  return result;
}

Output::Output(std::string_view mine, const Options& options) : mine_(mine), options_(options) {
  merged_.Text.reserve(mine.size() + mine.size() / 8);
}

std::string_view Output::LineEnd() {
  if (lineEnd_.empty()) lineEnd_ = UsualLineEnd(mine_);
  return lineEnd_;
}

std::size_t Output::CountOfLines() {
  lines_ += static_cast<std::size_t>(std::ranges::count(std::string_view(merged_.Text).substr(counted_), '\n'));
  counted_ = merged_.Text.size();
  return lines_;
}

void Output::AddMine(std::string_view lines) {
  if (lines.empty()) return;
  EndLine();
  merged_.Text += lines;
}

void Output::AddTheirs(std::string_view lines) {
  HasLineEnds(lines, LineEnd()) ? AddMine(lines) : AddMine(WithLineEnds(lines, LineEnd()));
}

// What was the last line of its text has perhaps no end.
void Output::EndLine() {
  if (!merged_.Text.empty() && !merged_.Text.ends_with('\n')) merged_.Text += LineEnd();
}

void Output::Mark(char sign, std::string_view label) {
  EndLine();
  merged_.Text.append(options_.MarkerSize, sign);
  if (!label.empty()) merged_.Text.append(" ").append(label);
  merged_.Text += LineEnd();
}

void Output::AddConflict(std::string name, std::string_view mine, std::string_view base, std::string_view theirs) {
  const Choice choice = options_.For(name);
  if (choice == Choice::Mine) return AddMine(mine);
  if (choice == Choice::Theirs) return AddTheirs(theirs);
  const std::string ofTheirs = WithLineEnds(theirs, LineEnd());
  if (ofTheirs == WithLineEnds(mine, LineEnd())) return AddMine(mine);
  Trimmed sides{{}, mine, ofTheirs, {}};
  if (options_.MarkStyle != Style::Diff3) sides = WithoutCommon(mine, ofTheirs);
  AddMine(sides.Before);
  EndLine();
  merged_.Conflicts.push_back({std::move(name), CountOfLines(), mine, theirs});
  Mark('<', options_.Mine);
  AddMine(sides.A);
  if (options_.MarkStyle != Style::Merge) {
    Mark('|', options_.Base);
    AddTheirs(base);
  }
  Mark('=', "");
  AddMine(sides.B);
  Mark('>', options_.Theirs);
  AddMine(sides.Behind);
}

}  // namespace formwizard::merge
