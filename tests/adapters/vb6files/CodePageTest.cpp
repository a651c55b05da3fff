#include "adapters/vb6files/CodePage.h"

#include "support/Failures.h"

#include <doctest/doctest.h>

using formwizard::adapters::vb6files::CodePage;
using formwizard::support::InputError;

TEST_CASE("Texts turn into the code page's bytes and back") {
  CHECK(CodePage(1252).Encode("Größe €") ==
        "Gr\xF6\xDF"
        "e \x80");
  CHECK(CodePage(1252).Decode("Gr\xF6\xDF"
                              "e \x80") == "Größe €");
  CHECK(CodePage(1251).Encode("меню") == "\xEC\xE5\xED\xFE");
  CHECK(CodePage(932).Decode(CodePage(932).Encode("入力")) == "入力");
  CHECK(CodePage(932).Encode("入力").size() == 4);
  CHECK(CodePage(1255).Decode("\xF9\xEC\xE5\xED") == "שלום");  // whose letters may be followed by marks
  CHECK(CodePage(1252).Decode("a\x81"
                              "b") == "a\uFFFDb");  // an undefined byte
  CHECK(CodePage(932).Decode("\x82") == "\uFFFD");  // half a character
  CHECK(CodePage(932).Decode("\x82"
                             "\x01"
                             "b") ==
        "\uFFFD\x01"
        "b");
  CHECK(CodePage(65001).Decode("ä\xE2\x82"
                               "b") == "ä\uFFFD\uFFFDb");
  CHECK(CodePage(65001).Encode("ä😀") == "ä😀");
  const std::string longText(1000, 'x');
  CHECK(CodePage(1252).Encode(longText + "ä") == longText + "\xE4");
}

TEST_CASE("A character that the code page lacks is named, and nothing takes its place") {
  CHECK_THROWS_WITH_AS(CodePage(1252).Encode("Straße Ж"),
                       "the text \"Straße Ж\" cannot be written in code page 1252, which lacks its character U+0416; "
                       "change the text or choose another code page with --code-page",
                       InputError);
  // What similar letters or a question mark could stand for, what Windows keeps a byte for without a meaning, and what
  // is no text.
  for (const char* text : {"Ā", "∞", "！", "\u0081", "😀", "\xFF", "a\xC3", "\xED\xA0\x80"}) {
    CAPTURE(text);
    CHECK_THROWS_AS(CodePage(1252).Encode(text), InputError);
  }
  CHECK_THROWS_AS(CodePage(65001).Encode("\xED\xA0\x80"), InputError);
  CHECK_THROWS_AS(CodePage(4711), InputError);
}
