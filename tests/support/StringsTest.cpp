#include "support/Strings.h"

#include "support/Messages.h"
#include "support/Names.h"
#include "support/Pieces.h"
#include "tests/support/FakeLibraries.h"

using namespace formwizard;
using namespace formwizard::support;
using runtime::Variant;

TEST_CASE("A satellite library replaces the whole table, without one the English texts serve") {
  tests::FakeLibraries libraries;
  Strings strings(libraries, "/addin/");
  CHECK(strings.LoadResStringLocal(407) == "Ready");

  libraries.Texts = {{407, "Bereit"}, {408, std::string("ab\0cd", 5)}};
  std::string language;
  strings.LoadResourceLibrary("OstrelFormWizard", language);
  CHECK(libraries.Paths.back() == "/addin/OstrelFormWizardDEU.dll");
  CHECK(language == "DEU");  // the first three letters, written back
  CHECK(strings.LoadResStringLocal(407) == "Bereit");
  CHECK(strings.LoadResStringLocal(408) == "ab");  // cut before the first zero
  CHECK(strings.LoadResStringLocal(50).empty());   // no fall-back for an id that the library lacks

  libraries.Texts.clear();
  language = "FRA";
  strings.LoadResourceLibrary("OstrelFormWizard", language);
  CHECK(libraries.Paths.back() == "/addin/OstrelFormWizardFRA.dll");
  CHECK(strings.LoadResStringLocal(407) == "Ready");
  CHECK(tests::ErrorNumberOf([&] { (void)strings.LoadResStringLocal(3160); }) == runtime::ResourceNotFound);
}

TEST_CASE("Pieces are counted from 1 and empty past the last one") {
  for (const auto& [index, piece] : {std::pair{1, "a"}, std::pair{2, ""}, std::pair{3, "c"}, std::pair{4, ""}}) {
    CHECK(GetPiece("a;;c", ";", index) == piece);
  }
  CHECK(GetPiece("abc", ";", 1) == "abc");
  CHECK(GetPiece("abc", ";", 2).empty());
  CHECK(GetPiece("a--b--", "--", 2) == "b");
}

TEST_CASE("A message shows what is no character as an escape") {
  for (const std::string text : {"\xC3\xA4", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
    CHECK(Shown(text) == text);
  }
  for (const char* text : {"\xC0\x8A", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\n"}) {
    CHECK(Shown(text).starts_with('\\'));
  }
}

TEST_CASE("A name is found exactly, or alone but for its case, and what is not there has the likeliest in front") {
  const std::string longOne(70, 'x');
  const std::vector<std::string> all{"Zip",          "name",  "Name",   "Home.City", " Odd",
                                     "\xC3\x84rger", "State", "Street", longOne};
  const Names names(all, [](const std::string& each) { return std::string_view(each); });
  for (const auto& [wanted, found] : {std::pair{"Name", 2},
                                      {"name ", 1},
                                      {"NAME", -1},
                                      {"\tzIP ", 0},
                                      {" Odd", 4},
                                      {"odd", -1},
                                      {"\xC3\xA4RGER", 5},
                                      {"HOME.city", 3},
                                      {"Zi", -1},
                                      {"", -1}}) {
    CHECK_MESSAGE(names.Find(wanted).value_or(~0U) == static_cast<unsigned>(found), wanted);
  }
  for (const auto& [wanted, listed] : {std::pair{"Naem", "name, Name, "},
                                       {"NAME", "name, Name, "},
                                       {"Stret", "Street, State, "},
                                       {"city", "Home.City, "},
                                       {"", "Zip, name, Name, Home.City"}}) {
    CHECK_MESSAGE(names.Answer(wanted).starts_with(std::string("available: ") + listed), names.Answer(wanted));
  }
  CHECK(Names().Answer("x") == "none is available");
}
