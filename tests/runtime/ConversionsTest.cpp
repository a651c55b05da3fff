#include "runtime/Conversions.h"
#include "runtime/Variant.h"
#include "tests/support/Test.h"

#include <locale>

using namespace formwizard::runtime;
using formwizard::tests::ErrorNumberOf;

TEST_CASE("The leading number of a text ends where the number does") {
  for (const auto& [text, value] :
       {std::pair{"12key", 12.0}, std::pair{"", 0.0}, std::pair{"key12", 0.0}, std::pair{"  7", 7.0},
        std::pair{"1 2", 12.0}, std::pair{"-3.5x", -3.5}, std::pair{"+4", 4.0}, std::pair{".5", 0.5},
        std::pair{"5.", 5.0}, std::pair{".", 0.0}, std::pair{"-", 0.0}, std::pair{"1e2z", 100.0}, std::pair{"1ex", 1.0},
        std::pair{"1.2.3", 1.2}, std::pair{"inf", 0.0}, std::pair{"0x10", 0.0}}) {
    CAPTURE(text);
    CHECK(LeadingNumber(text) == value);
  }
}

TEST_CASE("The decimal sign is a point whatever the locale has") {
  struct Comma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
  };
  const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Comma));
  CHECK(LeadingNumber("1.5e1") == 15.0);
  std::locale::global(before);
}

TEST_CASE("Rounding takes halves to the even number and refuses what does not fit") {
  for (const auto& [value, rounded] : {std::pair{0.5, 0}, std::pair{1.5, 2}, std::pair{2.5, 2}, std::pair{-0.5, 0},
                                       std::pair{-1.5, -2}, std::pair{2.4, 2}, std::pair{32767.4, 32767}}) {
    CHECK(RoundToInt16(value) == Int16(rounded));
  }
  CHECK(ErrorNumberOf([] { RoundToInt16(32767.5); }) == Overflow);
  CHECK(ErrorNumberOf([] { RoundToInt32(1e300); }) == Overflow);
  CHECK(ErrorNumberOf([] { RoundToInt32(0.0 / (1e-300 * 1e-300)); }) == Overflow);  // not a number
}

TEST_CASE("Booleans and integers come from whole texts only") {
  for (const char* text : {"1", "-1", "True", "TRUE", " true ", "0.1"}) CHECK(ToBoolean(text));
  for (const char* text : {"0", "False", "fAlse", "0.0", " 0"}) CHECK_FALSE(ToBoolean(text));
  for (const char* text : {"", " ", "yes", "1x", "Truee"}) {
    CAPTURE(text);
    CHECK(ErrorNumberOf([&] { ToBoolean(text); }) == TypeMismatch);
    CHECK(ErrorNumberOf([&] { ToInt16(text); }) == TypeMismatch);
  }
  CHECK(ToInt16(" 12 ") == Int16(12));
  CHECK(ToInt16("2.5") == Int16(2));
  CHECK(ToInt16("3.5") == Int16(4));
  CHECK(ErrorNumberOf([] { ToInt16("32768"); }) == Overflow);
}

TEST_CASE("Replacing goes through the text once") {
  CHECK(ReplaceAll("%S1 and %S1", "%S1", "a%S1") == "a%S1 and a%S1");
  CHECK(ReplaceAll("%s1", "%S1", "x") == "%s1");
  CHECK(ReplaceAll("aaa", "aa", "b") == "ba");
  CHECK(ReplaceAll("abc", "", "x") == "abc");
}

TEST_CASE("Columns compare by value, whatever type the server gives them") {
  for (const Variant& one : {Variant(Int32(1)), Variant(Int16(1)), Variant(1.0), Variant("1"), Variant(" 1 ")}) {
    CHECK(EqualsNumber(one, Int32(1)));
    CHECK_FALSE(EqualsNumber(one, Int32(0)));
    CHECK(IsTrue(one));
  }
  CHECK(EqualsNumber(Variant(true), Int32(-1)));
  CHECK(EqualsNumber(Variant(Empty{}), Int32(0)));
  CHECK(EqualsText(Variant(Empty{}), ""));
  CHECK(EqualsText(Variant(Int32(12)), "12"));
  CHECK_FALSE(EqualsNumber(Variant(Null{}), Int32(0)));
  CHECK_FALSE(EqualsText(Variant(Null{}), ""));
  CHECK_FALSE(IsTrue(Variant(Null{})));
  CHECK(ErrorNumberOf([] { EqualsNumber(Variant("abc"), Int32(1)); }) == TypeMismatch);
  CHECK(ErrorNumberOf([] { ToText(Variant(Null{})); }) == InvalidUseOfNull);
  const std::vector<std::pair<double, const char*>> numbers{
      {2.5, "2.5"}, {100000, "100000"}, {0.1 + 0.2, "0.3"}, {-123456789012345, "-123456789012345"}, {1e20, "1E+20"}};
  for (const auto& [number, text] : numbers) CHECK(ToText(Variant(number)) == text);
  CHECK(NumericValue(Variant("50 characters")) == 50.0);
  CHECK(NumericValue(Variant(Null{})) == 0.0);
}
