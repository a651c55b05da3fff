#include "system/CodePageConverter.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace formwizard::system {
namespace {

using Units = std::array<wchar_t, 2>;  // of one character
using Bytes = std::array<char, 8>;     // of one character

int Size(std::string_view text) { return static_cast<int>(text.size()); }

// Windows gives bytes that a code page does not define to control characters, and where all bytes are characters to
// private ones.
bool IsStandIn(wchar_t unit, bool hasSingleBytes) {
  return (unit >= 0x80 && unit < 0xA0) || (hasSingleBytes && unit >= 0xE000 && unit < 0xF900);
}

bool HasSingleBytes(UINT codePage) {
  CPINFO info{};
  return ::GetCPInfo(codePage, &info) && info.MaxCharSize == 1;
}

// How many units the bytes, which are one character or none, make; 0 for none.
int Decoded(UINT codePage, std::string_view character, Units& units) {
  return ::MultiByteToWideChar(codePage, MB_ERR_INVALID_CHARS, character.data(), Size(character), units.data(),
                               static_cast<int>(units.size()));
}

// How many bytes the character makes; 0 when the code page lacks it.
int Encoded(UINT codePage, const Units& units, int count, Bytes& bytes) {
  if (codePage == CP_UTF8) {
    return ::WideCharToMultiByte(CP_UTF8, WC_ERR_INVALID_CHARS, units.data(), count, bytes.data(),
                                 static_cast<int>(bytes.size()), nullptr, nullptr);
  }
  BOOL isReplaced = FALSE;
  const int size = ::WideCharToMultiByte(codePage, WC_NO_BEST_FIT_CHARS, units.data(), count, bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, &isReplaced);
  return isReplaced ? 0 : size;
}

std::size_t LengthOfUtf8(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

class WindowsConverter : public CodePageConverter {
 public:
  WindowsConverter(UINT from, UINT to)
      : from_(from), to_(to), hasSingleBytes_(HasSingleBytes(from == CP_UTF8 ? to : from)) {}

  void Convert(std::string_view& text, std::string& result) override {
    Units units{};
    Bytes bytes{};
    while (!text.empty()) {
      const std::string_view character = text.substr(0, std::min(LengthOfNext(text), text.size()));
      const int count = Decoded(from_, character, units);
      if (count == 0 || IsStandIn(units[0], hasSingleBytes_)) return;
      const int size = Encoded(to_, units, count, bytes);
      if (size == 0) return;
      result.append(bytes.data(), static_cast<std::size_t>(size));
      text.remove_prefix(character.size());
    }
  }

 private:
  std::size_t LengthOfNext(std::string_view text) const {
    if (from_ == CP_UTF8) return LengthOfUtf8(text.front());
    return ::IsDBCSLeadByteEx(from_, static_cast<BYTE>(text.front())) ? 2 : 1;
  }

  UINT from_, to_;
  bool hasSingleBytes_;
};

std::unique_ptr<CodePageConverter> Make(UINT from, UINT to) {
  if (!::IsValidCodePage(from) || !::IsValidCodePage(to)) return nullptr;
  return std::make_unique<WindowsConverter>(from, to);
}

}  // namespace

std::unique_ptr<CodePageConverter> MakeEncoder(int codePage) { return Make(CP_UTF8, static_cast<UINT>(codePage)); }
std::unique_ptr<CodePageConverter> MakeDecoder(int codePage) { return Make(static_cast<UINT>(codePage), CP_UTF8); }

}  // namespace formwizard::system
