// Prints the table of locales, a row of source each: names as POSIX systems write them, with number and abbreviation.
// For Windows; tools/make-tables runs it.
#include <windows.h>

#include <array>
#include <cstdio>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace {

struct Entry {
  std::string Language, Script, Region, Variant;
  unsigned Id = 0;
  std::string Abbreviation;
};

std::string Narrow(const wchar_t* text) { return {text, text + lstrlenW(text)}; }

// The parts of a name such as "sr-Latn-RS", "ca-ES-valencia" or "es-ES_tradnl".
Entry Parse(const std::string& name) {
  Entry entry;
  for (std::size_t from = 0, to = 0; to != std::string::npos; from = to + 1) {
    to = name.find_first_of("-_", from);
    const std::string part = name.substr(from, to - from);
    std::string& place = from == 0              ? entry.Language
                         : part.size() == 4     ? entry.Script
                         : entry.Region.empty() ? entry.Region
                                                : entry.Variant;
    place = part;
  }
  return entry;
}

Entry Look(const wchar_t* name) {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> abbreviation{};
  GetLocaleInfoEx(name, LOCALE_SABBREVLANGNAME, abbreviation.data(), static_cast<int>(abbreviation.size()));
  Entry entry = Parse(Narrow(name));
  entry.Id = LocaleNameToLCID(name, LOCALE_ALLOW_NEUTRAL_NAMES);
  entry.Abbreviation = Narrow(abbreviation.data());
  return entry;
}

// Those with a region, a number and an abbreviation of their own; orders of sorting are no locales.
BOOL CALLBACK Collect(LPWSTR name, DWORD flags, LPARAM entries) {
  const Entry entry = Look(name);
  const bool ordering = (flags & LOCALE_ALTERNATE_SORTS) != 0 && entry.Variant != "tradnl";
  if (!entry.Region.empty() && entry.Id != LOCALE_CUSTOM_UNSPECIFIED && entry.Abbreviation != "ZZZ" && !ordering)
    reinterpret_cast<std::vector<Entry>*>(entries)->push_back(entry);
  return TRUE;
}

// The region that the platform takes for "de" or "sr-Latn".
Entry Resolved(const std::string& name) {
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> resolved{};
  ResolveLocaleName(std::wstring(name.begin(), name.end()).c_str(), resolved.data(), static_cast<int>(resolved.size()));
  return Look(resolved.data());
}

// Where a language has two scripts, the one that POSIX names do not mention.
const std::map<std::string, std::string> UsualScripts{{"az", "Latn"}, {"bs", "Latn"}, {"iu", "Cans"}, {"mn", ""},
                                                      {"pa", ""},     {"sr", "Cyrl"}, {"uz", "Latn"}};
const std::map<std::string, std::string> Modifiers{
    {"Arab", "@arabic"}, {"Cyrl", "@cyrillic"}, {"Latn", "@latin"}, {"Mong", "@mongolian"}};

std::string ModifierOf(const Entry& entry) {
  if (!entry.Variant.empty()) return "@" + entry.Variant;
  const auto usual = UsualScripts.find(entry.Language);
  if (usual == UsualScripts.end() || usual->second == entry.Script) return "";
  return Modifiers.at(entry.Script);
}

}  // namespace

int main() {
  std::vector<Entry> entries;
  EnumSystemLocalesEx(Collect, LOCALE_ALL, reinterpret_cast<LPARAM>(&entries), nullptr);
  std::map<std::string, Entry> rows;
  for (const Entry& entry : entries) {
    const std::string modifier = ModifierOf(entry);
    rows[entry.Language + "_" + entry.Region + modifier] = entry;
    // The language alone, in this script.
    const Entry region = Resolved(entry.Language + (entry.Script.empty() ? "" : "-" + entry.Script));
    if (region.Region == entry.Region && region.Script == entry.Script && entry.Variant != "tradnl")
      rows[entry.Language + modifier] = entry;
  }
  rows["no"] = rows.at("nb_NO");  // the name for both ways of writing Norwegian
  // A modifier that no other locale of its region stands beside is left out.
  std::map<std::string, Entry> shown;
  for (const auto& [name, entry] : rows) {
    const std::string plain = name.substr(0, name.find('@'));
    shown[plain != name && !rows.contains(plain) ? plain : name] = entry;
  }
  for (const auto& [name, entry] : shown)
    std::printf("{\"%s\", %u, \"%s\"},\n", name.c_str(), entry.Id, entry.Abbreviation.c_str());
}
