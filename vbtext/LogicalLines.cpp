#include "vbtext/LogicalLines.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace formwizard::vbtext {

bool LogicalLines::Next(LogicalLine& line) {
  if (range_.First >= range_.Behind) return false;
  line.Lines.First = range_.First;
  line.Tokens.clear();
  do {
    const std::vector<Token>& tokens = tokenizer_.Read(lines_[range_.First++].Text);
    std::ranges::copy_if(tokens, std::back_inserter(line.Tokens),
                         [](const Token& token) { return token.Kind != TokenKind::Continuation; });
  } while (tokenizer_.GoesOn() && range_.First < range_.Behind);
  line.Lines.Behind = range_.First;
  return true;
}

std::string_view WordIn(Statement statement, std::size_t at) {
  return at < statement.size() ? statement[at].Text : std::string_view();
}

bool IsDirective(Statement line) {
  constexpr std::array<std::string_view, 5> words{"If", "ElseIf", "Else", "End", "EndIf"};
  return WordIn(line, 0) == "#" && std::ranges::any_of(words, [&](std::string_view word) {
           return runtime::EqualIgnoringCase(WordIn(line, 1), word);
         });
}

}  // namespace formwizard::vbtext
