// What the fuzzers share: their input as a text, and how a property that does not hold ends the run.
#pragma once

#include "support/Failures.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>

namespace formwizard::fuzz {

inline void Require(bool holds, std::string_view property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %.*s\n", static_cast<int>(property.size()), property.data());
  std::abort();
}

inline std::string TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Takes off what stands behind the last zero byte; empty when there is none.
inline std::string TakeLast(std::string& text) {
  const std::size_t zero = text.rfind('\0');
  if (zero == std::string::npos) return "";
  std::string last = text.substr(zero + 1);
  text.resize(zero);
  return last;
}

// What `read` makes of an input; nothing but an InputError may come out of it, and that names the file.
template <typename Read>
bool IsAccepted(std::string_view file, Read&& read) {
  try {
    std::forward<Read>(read)();
    return true;
  } catch (const support::InputError& error) {
    const std::string_view message = error.what();
    Require(message.starts_with(file), "a refusal begins with the name of the file: " + std::string(message));
    return false;
  }
}

inline bool HasControlCharacter(std::string_view text) {
  for (const char c : text) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7F') return true;
  }
  return false;
}

}  // namespace formwizard::fuzz
