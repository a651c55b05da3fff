#include "vbtext/Tokens.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace formwizard::vbtext {
namespace {

bool IsLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
bool IsHigh(char c) { return static_cast<unsigned char>(c) >= 0x80; }
bool IsHex(char c) { return IsDigit(c) || (c >= 'A' && c <= 'F') || (c >= 'a' && c <= 'f'); }
bool IsTypeCharacter(char c) { return std::string_view("%&!#@").find(c) != std::string_view::npos; }

char At(std::string_view line, std::size_t at) { return at < line.size() ? line[at] : '\0'; }

std::string_view WithoutBlanksBehind(std::string_view text) {
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Each returns where the token that begins at `at` ends, or `at` when none of its kind begins there.
using EndOf = std::size_t(std::string_view line, std::size_t at);

std::size_t EndOfName(std::string_view line, std::size_t at) {
  const char first = At(line, at);
  if (first == '[') {
    const std::size_t close = line.find(']', at);
    return close == std::string_view::npos ? at : close + 1;
  }
  if (!IsNameByte(first) || IsDigit(first)) return at;
  while (IsNameByte(At(line, at))) ++at;
  return at;
}

std::size_t EndOfDigits(std::string_view line, std::size_t at) {
  while (IsDigit(At(line, at))) ++at;
  return at;
}

std::size_t EndOfNumber(std::string_view line, std::size_t at) {
  std::size_t end = at;
  if (At(line, at) == '&') {
    const char base = At(line, at + 1);
    end = base == 'H' || base == 'h' || base == 'O' || base == 'o' ? at + 2 : at + 1;
    const std::size_t digits = end;
    while (IsHex(At(line, end))) ++end;
    if (end == digits || (digits == at + 1 && !IsDigit(base))) return at;
    return At(line, end) == '&' ? end + 1 : end;
  }
  if (!IsDigit(At(line, at)) && !(At(line, at) == '.' && IsDigit(At(line, at + 1)))) return at;
  end = EndOfDigits(line, at);
  if (At(line, end) == '.') end = EndOfDigits(line, end + 1);
  if (std::string_view("eEdD").find(At(line, end)) != std::string_view::npos) {
    const char sign = At(line, end + 1);
    const std::size_t digits = sign == '+' || sign == '-' ? end + 2 : end + 1;
    if (IsDigit(At(line, digits))) end = EndOfDigits(line, digits);
  }
  return IsTypeCharacter(At(line, end)) ? end + 1 : end;
}

std::size_t EndOfString(std::string_view line, std::size_t at) {
  if (At(line, at) != '"') return at;
  for (std::size_t end = at + 1;; end += 2) {  // behind each doubled quote
    end = line.find('"', end);
    if (end == std::string_view::npos) return line.size();
    if (At(line, end + 1) != '"') return end + 1;
  }
}

// A number sign also marks file numbers and directives, so what is between two must look like a date: digits, month
// names and what separates them, without blanks at either end.
std::size_t EndOfDate(std::string_view line, std::size_t at) {
  if (At(line, at) != '#') return at;
  const std::size_t close = line.find('#', at + 1);
  if (close == std::string_view::npos || close - at < 4) return at;
  const std::string_view inside = line.substr(at + 1, close - at - 1);
  constexpr std::string_view separators = "/:- ,.";
  const bool isDate = std::ranges::all_of(
      inside, [&](char c) { return IsDigit(c) || IsLetter(c) || separators.find(c) != std::string_view::npos; });
  const bool isSeparated = inside.find_first_of("/:- ") != std::string_view::npos;
  const bool isTight =
      (IsDigit(inside.front()) || IsLetter(inside.front())) && (IsDigit(inside.back()) || IsLetter(inside.back()));
  return isDate && isSeparated && isTight && std::ranges::any_of(inside, IsDigit) ? close + 1 : at;
}

std::size_t EndOfOperator(std::string_view line, std::size_t at) {
  constexpr std::array<std::string_view, 7> pairs{":=", "<>", "<=", ">=", "><", "=<", "=>"};
  const bool isPair = std::ranges::find(pairs, line.substr(at, 2)) != pairs.end();
  return at + (isPair ? 2 : 1);
}

struct Reader {
  TokenKind Kind;
  EndOf* End;
};
constexpr std::array Readers{Reader{TokenKind::Name, EndOfName}, Reader{TokenKind::Number, EndOfNumber},
                             Reader{TokenKind::String, EndOfString}, Reader{TokenKind::Date, EndOfDate},
                             Reader{TokenKind::Operator, EndOfOperator}};

}  // namespace

bool IsNameByte(char c) { return IsLetter(c) || IsDigit(c) || c == '_' || IsHigh(c); }

void AppendFolded(std::string_view name, std::string& to) {
  char before = '\0';
  for (const char c : name) {
    const bool isCapital = c >= 'A' && c <= 'Z' && !IsHigh(before);
    to += isCapital ? static_cast<char>(c - 'A' + 'a') : c;
    before = c;
  }
}

std::string Folded(std::string_view name) {
  std::string folded;
  AppendFolded(name, folded);
  return folded;
}

bool IsSameName(std::string_view a, std::string_view b) {
  if (a.size() != b.size() || !runtime::EqualIgnoringCase(a, b)) return false;
  for (std::size_t i = 1; i < a.size(); ++i) {
    if (a[i] != b[i] && IsHigh(a[i - 1])) return false;
  }
  return true;
}

const std::vector<Token>& Tokenizer::Read(std::string_view line) {
  tokens_.clear();
  const bool wasInComment = inComment_;
  goesOn_ = inComment_ = false;
  if (wasInComment) {
    ReadComment(line, true);
    return tokens_;
  }
  for (std::size_t at = 0; at < line.size() && !inComment_;) {
    const bool afterBlank = at == 0 || IsBlank(line[at - 1]);
    if (IsBlank(line[at])) {
      ++at;
    } else {
      ReadToken(line, at, afterBlank);
    }
  }
  return tokens_;
}

void Tokenizer::ReadToken(std::string_view line, std::size_t& at, bool afterBlank) {
  const std::string_view rest = WithoutBlanksBehind(line.substr(at));
  if (rest == "_" && afterBlank) {
    tokens_.push_back({TokenKind::Continuation, rest, afterBlank});
    goesOn_ = true;
    at = line.size();
    return;
  }
  if (rest.front() == '\'') {
    ReadComment(rest, afterBlank);
    at = line.size();
    return;
  }
  for (const Reader& reader : Readers) {
    const std::size_t end = reader.End(line, at);
    if (end == at) continue;
    const std::string_view text = line.substr(at, end - at);
    const bool isMember = !tokens_.empty() && (tokens_.back().Text == "." || tokens_.back().Text == "!");
    if (reader.Kind == TokenKind::Name && !isMember && runtime::EqualIgnoringCase(text, "Rem")) {
      ReadComment(rest, afterBlank);
      at = line.size();
      return;
    }
    tokens_.push_back({reader.Kind, text, afterBlank});
    at = end;
    return;
  }
}

void Tokenizer::ReadComment(std::string_view rest, bool afterBlank) {
  rest = WithoutBlanksBehind(rest);
  tokens_.push_back({TokenKind::Comment, rest, afterBlank});
  goesOn_ = inComment_ = rest.ends_with(" _") || rest.ends_with("\t_") || rest == "_";
}

}  // namespace formwizard::vbtext
