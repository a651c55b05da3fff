#include "system/CodePage.h"

#include "support/Failures.h"
#include "system/CodePageConverter.h"
#include "system/Text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <cstdio>

namespace formwizard::system {
namespace {

constexpr std::array Known{874, 932, 936, 949, 950, 1250, 1251, 1252, 1253, 1254, 1255, 1256, 1257, 1258};

// Operating systems differ in what they take for UTF-8, such as characters of six bytes.
class Utf8Converter : public CodePageConverter {
 public:
  void Convert(std::string_view& text, std::string& result) override {
    const std::string_view whole = WholeStart(text);
    result += whole;
    text.remove_prefix(whole.size());
  }
};

constexpr std::string_view ReplacementCharacter = "\xEF\xBF\xBD";

// Eight characters a step, and the last ones together.
bool IsAscii(std::string_view text) {
  std::uint64_t all = 0;
  const auto take = [&](std::string_view eight) {
    std::array<char, 8> word{};
    eight.copy(word.data(), word.size());
    all |= std::bit_cast<std::uint64_t>(word);
  };
  for (; text.size() > 8; text.remove_prefix(8)) take(text);
  take(text);
  return (all & 0x8080808080808080) == 0;
}

// The character at the start of a UTF-8 text as "U+00E4", for messages.
std::string CharacterName(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead < 0x80 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  unsigned code = lead < 0x80 ? lead : lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < std::min(length, text.size()); ++i) {
    code = (code << 6) | (static_cast<unsigned char>(text[i]) & 0x3Fu);
  }
  std::array<char, 16> name{};
  std::snprintf(name.data(), name.size(), "U+%04X", code);
  return name.data();
}

}  // namespace

std::span<const int> CodePageNumbers() { return Known; }

CodePage::CodePage(int number) : number_(number) {
  if (number == Utf8CodePage) {
    encoder_ = std::make_unique<Utf8Converter>();
    decoder_ = std::make_unique<Utf8Converter>();
  } else if (std::ranges::find(Known, number) != Known.end()) {
    encoder_ = MakeEncoder(number);
    decoder_ = MakeDecoder(number);
  }
  if (!encoder_ || !decoder_) {
    throw support::InputError("code page " + std::to_string(number) +
                              " is not known; use a Windows code page such as 1252, 1250, 1251 or 932");
  }
}

CodePage::~CodePage() = default;

std::string_view CodePage::Encoded(std::string_view utf8, std::string& room) const {
  if (IsAscii(utf8)) return utf8;
  room = Encode(utf8);
  return room;
}

std::string CodePage::Encode(std::string_view utf8) const {
  if (IsAscii(utf8)) return std::string(utf8);
  std::string bytes;
  std::string_view rest = utf8;
  encoder_->Convert(rest, bytes);
  if (!rest.empty()) {
    throw support::InputError(
        "the text \"" + std::string(utf8) + "\" cannot be written in code page " + std::to_string(number_) +
        ", which lacks its character " + CharacterName(rest) +
        "; change the text or choose the code page of its language with --code-page (932 for Japanese, "
        "936 and 950 for Chinese, 949 for Korean, 1251 for Cyrillic)");
  }
  return bytes;
}

std::string CodePage::Decode(std::string_view bytes) const {
  if (IsAscii(bytes)) return std::string(bytes);
  std::string utf8;
  while (!bytes.empty()) {
    decoder_->Convert(bytes, utf8);
    if (bytes.empty()) break;
    utf8 += ReplacementCharacter;
    bytes.remove_prefix(1);
  }
  return utf8;
}

}  // namespace formwizard::system
