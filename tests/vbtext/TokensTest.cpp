#include "vbtext/LineKeys.h"
#include "vbtext/Tokens.h"

#include <doctest/doctest.h>

#include <array>
#include <string>
#include <vector>

using namespace formwizard::vbtext;

namespace {

// "Name x|Operator =|Number 1".
std::string Tokens(const std::string& line) {
  constexpr std::array names{"Name", "Number", "String", "Date", "Comment", "Operator", "Continuation"};
  std::string text;
  Tokenizer tokenizer;
  for (const Token& token : tokenizer.Read(line)) {
    text += (text.empty() ? "" : "|") + std::string(names[static_cast<std::size_t>(token.Kind)]) + " " +
            std::string(token.Text);
  }
  return text;
}

bool IsSame(const std::string& a, const std::string& b) {
  LineKeys keys;
  return keys.Of(LinesOf(a)) == keys.Of(LinesOf(b));
}

}  // namespace

TEST_CASE("A line falls into the tokens that the language has") {
  for (const auto& [line, tokens] : std::vector<std::array<const char*, 2>>{
           {"x = \"a \"\"b\"\" ' c\" ' d ", "Name x|Operator =|String \"a \"\"b\"\" ' c\"|Comment ' d"},
           {"Rem of \"it\"", "Comment Rem of \"it\""},
           {"o.Rem = [My Rem]", "Name o|Operator .|Name Rem|Operator =|Name [My Rem]"},
           {"10 y = &HfF& + 1.5E-3# - .5",
            "Number 10|Name y|Operator =|Number &HfF&|Operator +|Number 1.5E-3#|"
            "Operator -|Number .5"},
           {"d = #1/31/2000 10:00:00 AM#", "Name d|Operator =|Date #1/31/2000 10:00:00 AM#"},
           {"Print #1, a; #2", "Name Print|Operator #|Number 1|Operator ,|Name a|Operator ;|Operator #|Number 2"},
           {"Foo a:=1 _ ", "Name Foo|Name a|Operator :=|Number 1|Continuation _"},
           {"a_ = \"open", "Name a_|Operator =|String \"open"},
           {"\xE4\xF6 = 1", "Name \xE4\xF6|Operator =|Number 1"},
           {"#If a <> b Then", "Operator #|Name If|Name a|Operator <>|Name b|Name Then"}}) {
    CAPTURE(line);
    CHECK(Tokens(line) == tokens);
  }
}

TEST_CASE("Lines are equal whatever the environment does to their spelling, and differ in all else") {
  for (const auto& [a, b] :
       std::vector<std::array<const char*, 2>>{{"if x=1 then\r\nendif", "If X = 1 Then\nEnd If  "},
                                               {"MsgBox\"x\"", "\tMsgBox \"x\""},
                                               {"? a", "Print A"},
                                               {"go to L", "GoTo L"},
                                               {"If a=<b Then", "If a <= b Then"},
                                               {"x = 1 ' said \r\n", "X = 1  ' said\r\n"},
                                               {"Dim a     As Long", "dim a as long"},
                                               {"d = #1/1/2000 1:00:00 am#", "d = #1/1/2000 1:00:00 AM#"}}) {
    CAPTURE(a);
    CHECK(IsSame(a, b));
  }
  for (const auto& [a, b] : std::vector<std::array<const char*, 2>>{
           {"s = \"a\"", "s = \"A\""},
           {"s = \"a  b\"", "s = \"a b\""},
           {"x = 1 ' said", "x = 1 ' Said"},
           {"Rem a  b", "Rem a b"},
           {"' a _\nb  c", "' a _\nb c"},  // the comment goes on
           {"Show .Name", "Show.Name"},
           {"Fields !Name", "Fields!Name"},
           {"x = a _\n+ b", "x = a + b"},
           {"ab c", "a bc"},
           {"x = 1", "x = 10"},
           {"\x83\x41 = 1", "\x83\x61 = 1"}}) {  // two characters of an East Asian code page
    CAPTURE(a);
    CHECK_FALSE(IsSame(a, b));
  }
}
