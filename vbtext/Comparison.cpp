#include "vbtext/Comparison.h"

#include "runtime/Conversions.h"
#include "vbtext/Differences.h"
#include "vbtext/LineKeys.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <array>
#include <map>

namespace formwizard::vbtext {
namespace {

// Lines each of which stands for itself, in any order: "Object =" and "Attribute" lines.
class LineSets {
 public:
  LineSets(const Document& a, const Document& b, Differences& differences) : a_(a), b_(b), differences_(differences) {}

  // `keyOf` is what makes two of them the same line, `nameOf` what it is called.
  template <typename KeyOf, typename NameOf>
  void Compare(std::string_view what, LineRange a, LineRange b, KeyOf keyOf, NameOf nameOf) {
    std::multimap<std::string, std::size_t> rest;
    for (std::size_t i = b.First; i < b.Behind; ++i) rest.emplace(keyOf(b_.Lines[i].Text), i);
    for (std::size_t i = a.First; i < a.Behind; ++i) {
      const std::string_view text = a_.Lines[i].Text;
      const auto found = rest.find(keyOf(text));
      if (found != rest.end()) {
        rest.erase(found);
      } else if (!runtime::Trimmed(text).empty()) {
        differences_.AddOneSided(what, nameOf(text), {i, i + 1}, true);
      }
    }
    for (const auto& [key, line] : rest) {
      const std::string_view text = b_.Lines[line].Text;
      if (!runtime::Trimmed(text).empty()) differences_.AddOneSided(what, nameOf(text), {line, line + 1}, false);
    }
  }

 private:
  const Document& a_;
  const Document& b_;
  Differences& differences_;
};

// Letters in any case, and without blanks.
std::string HeadKey(std::string_view line) {
  std::string key = Folded(line);
  std::erase_if(key, IsBlank);
  return key;
}

std::string Trim(std::string_view text) { return std::string(runtime::Trimmed(text)); }

}  // namespace

std::string_view Word(Change change) {
  constexpr std::array<std::string_view, 5> words{"added", "removed", "changed", "renamed", "moved"};
  return words[static_cast<std::size_t>(change)];
}

std::vector<Difference> Compare(const Compared& a, const Compared& b) {
  Differences differences;
  LineSets lines(a.File, b.File, differences);
  lines.Compare("component", a.File.Head, b.File.Head, HeadKey, Trim);
  if (a.File.Root && b.File.Root) {
    const Companion recordsA(*a.File.Root, a.Records), recordsB(*b.File.Root, b.Records);
    CompareHeaders(*a.File.Root, recordsA, *b.File.Root, recordsB, differences);
  } else if (a.File.Root || b.File.Root) {
    const bool isOfA = a.File.Root.has_value();
    differences.AddOneSided("header", "", (isOfA ? a : b).File.Root->Lines, isOfA);
  }
  const auto spelling = [&](std::string_view line) {
    std::string key;
    Tokenizer tokenizer;
    AppendSpelling(tokenizer.Read(line), key);
    return WordOf(line, 1) == "VB_Name" ? Folded(key) : key;
  };
  lines.Compare("attribute", a.File.Attributes, b.File.Attributes, spelling,
                [](std::string_view line) { return std::string(WordOf(line, 1)); });
  CompareCode(a.File, b.File, differences);
  return differences.Take();
}

}  // namespace formwizard::vbtext
