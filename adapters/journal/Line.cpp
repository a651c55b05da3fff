#include "adapters/journal/Line.h"

#include "system/Text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstring>
#include <type_traits>
#include <variant>

namespace formwizard::adapters::journal {
namespace {

using nlohmann::json;

constexpr std::size_t LongestEscape = 6;

constexpr bool IsAscii(char c) { return static_cast<unsigned char>(c) < 0x80; }

// Whether it is ASCII and stands between quotes as it is.
constexpr bool IsPlain(char c) { return IsAscii(c) && c >= ' ' && c != '"' && c != '\\'; }

using Eight = std::uint64_t;

// Whether eight characters are plain ones of ASCII; also false for some that are. The highest bit of a byte tells that
// it is none: it is set in the byte, or by taking away from one that is too small.
bool ArePlain(Eight characters) {
  constexpr auto each = [](unsigned char c) { return c * Eight{0x0101010101010101}; };
  const Eight small =
      (characters - each(' ')) | ((characters ^ each('"')) - each(1)) | ((characters ^ each('\\')) - each(1));
  return ((characters | small) & each(0x80)) == 0;
}

// Copies what is plain at the beginning of a text, and gives its size.
std::size_t CopyPlain(std::string_view text, char* to) {
  std::size_t size = 0;
  for (Eight next = 0; text.size() - size >= sizeof next; size += sizeof next) {
    std::memcpy(&next, &text[size], sizeof next);
    if (!ArePlain(next)) break;
    std::memcpy(to + size, &next, sizeof next);
  }
  for (; size < text.size() && IsPlain(text[size]); ++size) to[size] = text[size];
  return size;
}

// Writes a character that is not plain and gives the end; a byte of others than ASCII stays as it is.
char* PutEscape(char* to, char c) {
  constexpr std::string_view escaped = "\"\\\b\t\n\f\r", letters = "\"\\btnfr", digits = "0123456789abcdef";
  if (IsAscii(c)) *to++ = '\\';
  if (const std::size_t at = escaped.find(c); at != std::string_view::npos) {
    c = letters[at];
  } else if (IsAscii(c)) {
    for (const char each : {'u', '0', '0', digits[static_cast<unsigned char>(c) >> 4U]}) *to++ = each;
    c = digits[static_cast<unsigned char>(c) & 15U];
  }
  *to++ = c;
  return to;
}

}  // namespace

char* Line::Room(std::size_t most) {
  if (buffer_.size() < size_ + most) buffer_.resize(2 * (size_ + most));
  return &buffer_[size_];
}

void Line::Append(std::string_view text) {
  std::ranges::copy(text, Room(text.size()));
  size_ += text.size();
}

void Line::Append(const Beginning& beginning) {
  char* const room = Room(Beginning::Most);
  size_ += static_cast<std::size_t>(beginning.PutTo(room) - room);
}

Line& Line::Begin(const CallName& call) {
  size_ = 0;
  Append(call.Text);
  return *this;
}

std::string_view Line::End() {
  Append("}\n");
  return std::string_view(buffer_).substr(0, size_);
}

void Line::AppendQuoted(std::string_view text) {
  char* const begin = Room(LongestEscape * text.size() + 2);
  char* to = begin;
  bool isAscii = true;
  *to++ = '"';
  for (std::string_view rest = text;;) {
    const std::size_t plain = CopyPlain(rest, to);
    to += plain;
    if (plain == rest.size()) break;
    isAscii = isAscii && IsAscii(rest[plain]);
    to = PutEscape(to, rest[plain]);
    rest.remove_prefix(plain + 1);
  }
  *to++ = '"';
  if (isAscii || system::IsUtf8(text)) {
    size_ += static_cast<std::size_t>(to - begin);
  } else {
    Append(json(text).dump(-1, ' ', false, json::error_handler_t::replace));
  }
}

Line& Line::AddWritten(const MemberName& name, std::string_view json) {
  Append(name.Text);
  Append(json);
  return *this;
}

Line& Line::Add(const MemberName& name, std::string_view text) {
  Append(name.Text);
  AppendQuoted(text);
  return *this;
}

Line& Line::Add(const MemberName& name, std::int32_t number) { return AddWritten(name, std::to_string(number)); }

Line& Line::AddValue(const MemberName& name, const generator::ide::PropertyValue& value) {
  const auto add = [&]<typename T>(T v) {
    if constexpr (std::is_same_v<T, std::string_view> || std::is_same_v<T, bool>) {
      Add(name, v);
    } else {
      Add(name, std::int32_t{v.Value()});
    }
  };
  std::visit(add, value);
  return *this;
}

Line& Line::Add(const MemberName& name, const std::shared_ptr<generator::ide::VBControl>& control) {
  return control ? Add(name, control->Name()) : AddWritten(name, "null");
}

Line& Line::AddError(const runtime::RuntimeError& error) {
  AddWritten("error", R"({"number":)");
  Append(std::to_string(error.Number()) + R"(,"description":)");
  AppendQuoted(error.Description());
  Append("}");
  return *this;
}

}  // namespace formwizard::adapters::journal
