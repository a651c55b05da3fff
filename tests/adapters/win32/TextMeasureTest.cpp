#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "adapters/win32/Text.h"
#include "adapters/win32/Win32TextMeasure.h"
#include "tests/adapters/win32/User.h"

#include <doctest/doctest.h>

using namespace formwizard::adapters;
using formwizard::tests::HasDialogFont;

TEST_CASE("The system measures every character of the Western code page as the built-in widths have it") {
  if (!HasDialogFont()) {
    MESSAGE("skipped: the dialogs' font is not installed");
    return;
  }
  const win32::Win32TextMeasure measured;
  const textmeasure::BuiltInTextMeasure builtIn;
  std::string all;
  for (int code = 0x20; code < 0x100; ++code) {
    const char byte = static_cast<char>(code);
    wchar_t character = 0;
    MultiByteToWideChar(1252, 0, &byte, 1, &character, 1);
    if (code == 0x7F || (character >= 0x80 && character < 0xA0)) continue;  // not printable
    const std::string text = win32::Utf8({&character, 1});
    CAPTURE(code);
    CHECK(measured.WidthOf(text) == builtIn.WidthOf(text));
    all += text;
  }
  for (const std::string& caption : {all, std::string("Ca&ption:"), std::string("A && B&"), std::string()}) {
    CAPTURE(caption);
    CHECK(measured.WidthOf(caption) == builtIn.WidthOf(caption));
  }
}
