#include "system/CodePage.h"
#include "tests/support/Test.h"

#include "support/Failures.h"

using formwizard::support::InputError;
using formwizard::system::CodePage;

namespace {

struct Case {
  int Number;
  std::string Text, Bytes;
};

}  // namespace

TEST_CASE("Texts turn into the code page's bytes and back") {
  const std::string longText(1000, 'x');
  for (const Case& c : {Case{1252, "€ Größe", "\x80 Gr\xF6\xDF\x65"}, Case{1251, "меню", "\xEC\xE5\xED\xFE"},
                        Case{932, "入力", "\x93\xFC\x97\xCD"}, Case{1255, "שלום", "\xF9\xEC\xE5\xED"},
                        Case{65001, "ä😀", "ä😀"}, Case{1252, longText + "ä", longText + "\xE4"}}) {
    CAPTURE(c.Text);
    CHECK(CodePage(c.Number).Encode(c.Text) == c.Bytes);
    CHECK(CodePage(c.Number).Decode(c.Bytes) == c.Text);
  }
  // Undefined bytes and halves of characters.
  for (const Case& c : {Case{1252, "a\uFFFDz", "a\x81z"}, Case{932, "\uFFFD", "\x82"},
                        Case{932, "\uFFFD\x01z", "\x82\x01z"}, Case{65001, "ä\uFFFD\uFFFDz", "ä\xE2\x82z"},
                        Case{65001, "\uFFFD\uFFFD\uFFFD\uFFFD\uFFFDz", "\xF8\x88\x80\x80\x80z"}}) {
    CAPTURE(c.Text);
    CHECK(CodePage(c.Number).Decode(c.Bytes) == c.Text);
  }
}

TEST_CASE("A character that the code page lacks is named, and nothing takes its place") {
  CHECK_THROWS_WITH_AS(CodePage(1252).Encode("Straße Ж"),
                       "the text \"Straße Ж\" cannot be written in code page 1252, which lacks its character U+0416; "
                       "change the text or choose the code page of its language with --code-page (932 for Japanese, "
                       "936 and 950 for Chinese, 949 for Korean, 1251 for Cyrillic)",
                       InputError);
  // What similar letters or a question mark could stand for, what Windows keeps a byte for without a meaning, and what
  // is no text.
  for (const char* text : {"Ā", "∞", "！", "\u0081", "😀", "\xFF", "a\xC3", "\xED\xA0\x80"}) {
    CAPTURE(text);
    CHECK_THROWS_AS(CodePage(1252).Encode(text), InputError);
  }
  CHECK_THROWS_AS(CodePage(65001).Encode("\xED\xA0\x80"), InputError);
  CHECK_THROWS_WITH_AS(CodePage(932).Encode("入¥力"), doctest::Contains("U+00A5"), InputError);
  CHECK_THROWS_AS(CodePage(4711), InputError);
}
