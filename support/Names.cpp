#include "support/Names.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <span>
#include <utility>

namespace formwizard::support {
namespace {

constexpr std::size_t ShownNames = 12, LikeliestNames = 3;
constexpr std::size_t ComparedLength = 64;  // characters of a name, so that a long one costs no more

// Capital letters whose small ones stand at the same distance from each other.
struct Capitals {
  char32_t First, Last, Distance;
};
constexpr std::array Alphabets{Capitals{'A', 'Z', 32},     Capitals{0xC0, 0xD6, 32},   Capitals{0xD8, 0xDE, 32},
                               Capitals{0x391, 0x3A1, 32}, Capitals{0x3A3, 0x3AB, 32}, Capitals{0x400, 0x40F, 80},
                               Capitals{0x410, 0x42F, 32}};

constexpr char32_t Small(char32_t c) {
  // Pairs of a capital letter and its small one.
  if ((c >= 0x100 && c <= 0x137) || (c >= 0x14A && c <= 0x177)) return c | 1U;
  if ((c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E)) return c + (c & 1U);
  for (const Capitals& each : Alphabets) {
    if (c >= each.First && c <= each.Last) return c + each.Distance;
  }
  return c;
}

// What is no UTF-8 counts byte by byte.
std::u32string FoldedCharacters(std::string_view utf8, std::size_t most) {
  std::u32string characters;
  for (std::size_t at = 0; at < utf8.size() && characters.size() < most;) {
    const auto lead = static_cast<unsigned char>(utf8[at]);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC2 ? 2 : 1;
    char32_t character = length == 1 ? lead : lead & (0x7FU >> length);
    std::size_t next = at + 1;
    for (; next < at + length && next < utf8.size(); ++next) {
      character = character << 6U | (static_cast<unsigned char>(utf8[next]) & 0x3FU);
    }
    characters += Small(character);
    at = next;
  }
  return characters;
}

// Characters of `a` to insert, to take out, to replace, or to change places with the next one until it is `b`; with
// `anywhere`, or a part of `b`.
std::size_t EditDistance(std::u32string_view a, std::u32string_view b, bool anywhere = false) {
  using Row = std::array<std::size_t, ComparedLength + 1>;
  std::array<Row, 3> rows{};
  const auto rowOf = [&](std::size_t i) -> Row& { return rows.at(i % rows.size()); };
  for (std::size_t j = 0; j <= b.size() && !anywhere; ++j) rowOf(0).at(j) = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    Row& row = rowOf(i);
    const Row& before = rowOf(i - 1);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row.at(j) = std::min({row.at(j - 1) + 1, before.at(j) + 1, before.at(j - 1) + (a[i - 1] == b[j - 1] ? 0 : 1)});
      const bool isSwapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (isSwapped) row.at(j) = std::min(row.at(j), rowOf(i - 2).at(j - 2) + 1);
    }
  }
  const Row& last = rowOf(a.size());
  return anywhere ? *std::ranges::min_element(last.begin(), last.begin() + static_cast<std::ptrdiff_t>(b.size()) + 1)
                  : last.at(b.size());
}

// 0 for the very letters. A class may be called without its package, a property without the object that it is in, and
// either by a part of its name.
std::size_t Unlikeliness(std::u32string_view name, std::u32string_view wanted) {
  const std::u32string_view own = name.substr(name.rfind(U'.') + 1);
  return std::min({EditDistance(wanted, name), EditDistance(wanted, own) + 1, EditDistance(wanted, name, true) + 2});
}

}  // namespace

void Names::Add(std::string_view name) {
  exact_.emplace(name, names_.size());
  names_.push_back(name);
  folded_.clear();
}

std::optional<std::size_t> Names::Find(std::string_view wanted) const {
  const std::string_view trimmed = runtime::Trimmed(wanted);
  for (const std::string_view each : {wanted, trimmed}) {
    const auto found = exact_.find(each);
    if (found != exact_.end()) return found->second;
  }
  if (folded_.empty()) {
    for (const auto& [name, at] : exact_) {
      const auto [entry, isNew] = folded_.emplace(FoldedCharacters(name, name.size()), at);
      if (!isNew) entry->second = std::nullopt;
    }
  }
  const auto found = folded_.find(FoldedCharacters(trimmed, trimmed.size()));
  return found == folded_.end() ? std::nullopt : found->second;
}

std::string Names::Listed(std::string_view wanted, const std::string& prefix) const {
  const std::u32string typed = FoldedCharacters(runtime::Trimmed(wanted), ComparedLength);
  std::vector<std::pair<std::size_t, std::size_t>> order;  // how unlikely, and which
  for (std::size_t i = 0; i < names_.size(); ++i) {
    const std::size_t unlikeliness =
        typed.empty() ? 0 : Unlikeliness(FoldedCharacters(names_[i], ComparedLength), typed);
    order.emplace_back(unlikeliness, i);
  }
  const auto at = [&](std::size_t count) {
    return order.begin() + static_cast<std::ptrdiff_t>(std::min(count, order.size()));
  };
  std::partial_sort(order.begin(), at(LikeliestNames), order.end());
  std::partial_sort(at(LikeliestNames), at(ShownNames), order.end(),
                    [](const auto& a, const auto& b) { return a.second < b.second; });
  std::string text;
  for (const auto& [unlikeliness, i] : std::span(order).first(std::min(ShownNames, order.size()))) {
    text.append(text.empty() ? "" : ", ").append(prefix).append(names_[i]);
  }
  if (order.size() > ShownNames) text += " and " + std::to_string(order.size() - ShownNames) + " more";
  return text;
}

std::string Names::Answer(std::string_view wanted, const std::string& prefix) const {
  return names_.empty() ? "none is available" : "available: " + Listed(wanted, prefix);
}

}  // namespace formwizard::support
