// Feeds bytes to the conversions of texts: nothing is replaced without a word, and what is shown can be shown.
#include "fuzz/Property.h"
#include "support/Messages.h"
#include "system/CodePage.h"
#include "system/Text.h"

#include <array>
#include <memory>

using namespace formwizard;
using namespace formwizard::fuzz;
using system::CodePage;

namespace {

constexpr std::array Numbers{874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258, 65001};

const CodePage& CodePageAt(std::size_t index) {
  static std::array<std::unique_ptr<CodePage>, Numbers.size()> pages;
  auto& page = pages.at(index % Numbers.size());
  if (!page) page = std::make_unique<CodePage>(Numbers.at(index % Numbers.size()));
  return *page;
}

void CheckCodePage(const CodePage& page, const std::string& bytes) {
  const std::string text = page.Decode(bytes);
  Require(system::IsUtf8(text), "bytes of a code page are decoded to UTF-8");
  std::string encoded;
  if (IsAccepted("the text", [&] { encoded = page.Encode(text); })) {
    Require(page.Decode(encoded) == text, "a text that can be written in a code page is read from there");
  }
  if (IsAccepted("the text", [&] { encoded = page.Encode(bytes); })) {
    Require(system::IsUtf8(bytes), "only UTF-8 is encoded");
    const std::string again = page.Decode(encoded);
    // Where a mark follows its letter, the two may come back as one character.
    const bool isSame = page.Number() == 1255 || page.Number() == 1258 ? page.Encode(again) == encoded : again == bytes;
    Require(isSame, "no character is replaced by a similar one");
  }
}

void CheckUtf(const std::string& bytes) {
  const std::u16string wide = system::Utf16(bytes);
  const std::string text = system::Utf8(wide);
  Require(system::IsWhole(wide) && system::IsUtf8(text), "a conversion gives characters");
  Require((text == bytes) == system::IsUtf8(bytes), "UTF-8 stays as it is, and nothing else does");
}

void CheckShown(const std::string& bytes) {
  const std::string shown = support::Shown(bytes);
  Require(system::IsUtf8(shown) && !HasControlCharacter(shown), "what is shown can be shown");
  Require(shown.size() < 2000, "what is shown is no longer than a screen");
}

}  // namespace

// The first byte says which code page.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string bytes = TextOf(data + 1, size - 1);
  CheckCodePage(CodePageAt(data[0]), bytes);
  CheckUtf(bytes);
  CheckShown(bytes);
  return 0;
}
