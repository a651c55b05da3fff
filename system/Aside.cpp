#include "system/Aside.h"

#include "system/ContentSum.h"

#include <algorithm>
#include <random>

namespace formwizard::system {
namespace {

constexpr std::string_view Suffix = ".new";
constexpr std::size_t TokenSize = 16, SumSize = 8, Added = 1 + TokenSize + SumSize + Suffix.size();
constexpr std::size_t LongestStem = 100;  // bytes of the name that are taken over: names have a limit

// Whole characters of UTF-8.
std::string_view StemOf(std::string_view name) {
  if (name.size() <= LongestStem) return name;
  std::size_t end = LongestStem;
  while (end > 0 && (static_cast<unsigned char>(name[end]) & 0xC0) == 0x80) --end;
  return name.substr(0, end);
}

std::string CheckSum(std::string_view name, std::string_view random) {
  const std::uint64_t sum = BytewiseSum(std::string(name) + "." + std::string(random));
  return Hexadecimal((sum ^ (sum >> 32)) & 0xFFFFFFFF, 8);
}

}  // namespace

std::string Hexadecimal(std::uint64_t value, int digits) {
  std::string text(static_cast<std::size_t>(digits), '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, value >>= 4) *digit = "0123456789abcdef"[value & 0xF];
  return text;
}

std::string AsideName(std::string_view name) {
  std::random_device random;
  const std::string token = Hexadecimal((std::uint64_t{random()} << 32) | random());
  return std::string(StemOf(name)) + "." + token + CheckSum(name, token) + std::string(Suffix);
}

std::string AboutTarget(std::string message, std::string_view aside, std::string_view target) {
  if (!aside.empty() && message.starts_with(aside)) message.replace(0, aside.size(), target);
  return message;
}

bool IsAsideName(std::string_view aside) {
  return aside.size() > Added && IsAsideName(aside, aside.substr(0, aside.size() - Added));
}

bool IsAsideName(std::string_view aside, std::string_view name) {
  const std::string_view stem = StemOf(name);
  if (aside.size() != stem.size() + Added || !aside.ends_with(Suffix)) return false;
  if (!aside.starts_with(stem) || aside[stem.size()] != '.') return false;
  const std::string_view random = aside.substr(stem.size() + 1, TokenSize);
  return aside.substr(stem.size() + 1 + TokenSize, SumSize) == CheckSum(name, random);
}

}  // namespace formwizard::system
