// The tokens of a line of Visual Basic. Bytes of any code page: those above ASCII count as letters.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::vbtext {

enum class TokenKind {
  Name,          // identifier, keyword or [any name]
  Number,        // with its type character: 12, 1.5E-3#, &HFF&
  String,        // with its quotes; an unfinished one goes to the end of the line
  Date,          // #1/31/2000#
  Comment,       // from its apostrophe, or from "Rem", without blanks at its end
  Operator,      // one of + - ( ) . and the like, or one of := <> <= >=
  Continuation,  // the "_" that ends a line which goes on in the next
};

struct Token {
  TokenKind Kind;
  std::string_view Text;
  bool AfterBlank;  // or at the start of the line
};

// Goes through a text line by line, because a comment that ends in a continuation goes on in the next line.
class Tokenizer {
 public:
  // `line` without its end. The tokens refer to it, and hold until the next call.
  const std::vector<Token>& Read(std::string_view line);
  // Whether the line that was read last goes on in the next one.
  bool GoesOn() const { return goesOn_; }

 private:
  void ReadToken(std::string_view line, std::size_t& at, bool afterBlank);
  void ReadComment(std::string_view rest, bool afterBlank);

  std::vector<Token> tokens_;
  bool goesOn_ = false, inComment_ = false;
};

// ASCII letter, digit, underscore or a byte above ASCII.
bool IsNameByte(char c);
constexpr bool IsBlank(char c) { return c == ' ' || c == '\t'; }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Whether two names are one to the environment: ASCII letters in any case. One behind a byte above ASCII counts as it
// stands, because in code pages of East Asia it may be the second half of a character.
bool IsSameName(std::string_view a, std::string_view b);
// Equal for such names only.
void AppendFolded(std::string_view name, std::string& to);
std::string Folded(std::string_view name);

}  // namespace formwizard::vbtext
