#include "vbtext/LineKeys.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::vbtext {
namespace {

constexpr char Between = '\x1F';  // tokens; no byte of a text

// What the environment saves in another spelling than it was typed in.
struct Respelling {
  std::string_view Typed, Saved;
};
constexpr std::array Respellings{Respelling{"EndIf", "end\x1Fif"}, Respelling{"?", "print"}, Respelling{"><", "<>"},
                                 Respelling{"=<", "<="}, Respelling{"=>", ">="}};

// "GoTo" can be typed as two words.
bool IsSplitJump(const Token& first, const Token& second) {
  return runtime::EqualIgnoringCase(first.Text, "Go") &&
         (runtime::EqualIgnoringCase(second.Text, "To") || runtime::EqualIgnoringCase(second.Text, "Sub"));
}

// A blank before the dot of a member means that the name before it ends there: "Show .Name" is no "Show.Name".
bool IsDetachedMember(const Token& token, const Token& before) {
  const bool endsValue = before.Kind == TokenKind::Name || before.Text == ")";
  return token.AfterBlank && endsValue && (token.Text == "." || token.Text == "!");
}

void AppendComment(std::string_view comment, std::string& to) {
  constexpr std::size_t word = std::string_view("Rem").size();
  const std::size_t folded = runtime::EqualIgnoringCase(comment.substr(0, word), "Rem") ? word : 0;
  AppendFolded(comment.substr(0, folded), to);
  to += comment.substr(folded);
}

void AppendDate(std::string_view date, std::string& to) {
  std::string folded;
  AppendFolded(date, folded);
  for (const char c : folded) {
    if (c != ' ' || to.back() != ' ') to += c;
  }
}

void AppendToken(const Token& token, std::string& to) {
  const auto respelled = std::ranges::find_if(
      Respellings, [&](const Respelling& r) { return runtime::EqualIgnoringCase(r.Typed, token.Text); });
  if (respelled != Respellings.end()) {
    to += respelled->Saved;
  } else if (token.Kind == TokenKind::String) {
    to += token.Text;
  } else if (token.Kind == TokenKind::Comment) {
    AppendComment(token.Text, to);
  } else if (token.Kind == TokenKind::Date) {
    AppendDate(token.Text, to);
  } else {
    AppendFolded(token.Text, to);
  }
}

}  // namespace

void AppendSpelling(const std::vector<Token>& line, std::string& to) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    const bool joins = i > 0 && IsSplitJump(line[i - 1], line[i]);
    if (i > 0 && !joins) to += Between;
    if (i > 0 && IsDetachedMember(line[i], line[i - 1])) to += ' ';
    AppendToken(line[i], to);
  }
}

std::vector<LineKey> LineKeys::Of(std::span<const Line> lines) {
  std::vector<LineKey> keys;
  keys.reserve(lines.size());
  Tokenizer tokenizer;
  std::string spelling;
  bool goesOn = false;  // a line that does, or that another one goes on in, depends on more than itself
  for (const Line& line : lines) {
    const auto known = goesOn ? known_.end() : known_.find(line.Text);
    if (known != known_.end()) {
      keys.push_back(known->second);
      continue;
    }
    spelling.clear();
    AppendSpelling(tokenizer.Read(line.Text), spelling);
    keys.push_back(Number(spelling));
    const bool standsAlone = !goesOn && !tokenizer.GoesOn();
    if (standsAlone) known_.emplace(line.Text, keys.back());
    goesOn = tokenizer.GoesOn();
  }
  return keys;
}

LineKey LineKeys::Number(std::string spelling) {
  if (spelling.empty()) return EmptyLine;
  return numbers_.try_emplace(std::move(spelling), static_cast<LineKey>(numbers_.size() + 1)).first->second;
}

}  // namespace formwizard::vbtext
