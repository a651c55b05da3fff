#include "apps/common/Languages.h"

#include "adapters/satellite/Locales.h"
#include "adapters/satellite/StringResources.h"
#include "apps/common/Endings.h"
#include "apps/common/Paths.h"
#include "runtime/Conversions.h"
#include "support/Names.h"
#include "support/Strings.h"
#include "system/FileSystem.h"

#include <algorithm>
#include <map>
#include <optional>
#include <string_view>
#include <vector>

namespace formwizard::apps::common {
namespace {

namespace satellite = adapters::satellite;

constexpr std::string_view LibraryEnd = ".dll";

std::string LibraryOf(std::string_view language) {
  return std::string(support::ApplicationName).append(language).append(LibraryEnd);
}

std::string InCapitals(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

// The locale that has these letters and the shortest name; null when they are a user's own.
const satellite::Locale* LocaleOf(std::string_view language) {
  const satellite::Locale* shortest = nullptr;
  for (const satellite::Locale& each : satellite::AllLocales()) {
    if (!runtime::EqualIgnoringCase(each.Abbreviation, language)) continue;
    if (!shortest || each.Name.size() < shortest->Name.size()) shortest = &each;
  }
  return shortest;
}

bool IsEnglish(std::string_view language) {
  const satellite::Locale* const locale = LocaleOf(language);
  return locale && locale->Name.substr(0, locale->Name.find('_')) == "en";
}

bool HasTexts(const std::string& language) {
  const bool isName = language.size() == 3 && std::ranges::all_of(language, [](char c) {
                        return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
                      });
  return isName && satellite::IsSatellite(ProgramFolder() + LibraryOf(language));
}

// "DEU (de)"; the same texts under the letters of several regions stand there once, under those of the language.
std::vector<std::string> Available() {
  system::FileSystem& files = system::RealFileSystem();
  std::map<std::string, std::string> byTexts;
  std::vector<std::string> names = files.NamesIn(ProgramFolder()).value_or(std::vector<std::string>());
  std::ranges::sort(names);
  for (const std::string& name : names) {
    const std::string language = LanguageOfLibrary(name);
    if (!HasTexts(language)) continue;
    const satellite::Locale* const locale = LocaleOf(language);
    std::string& shown = byTexts[files.Read(ProgramFolder() + name, system::LargestLibrary).value_or("")];
    const bool isWhole = locale && locale->Name.find('_') == std::string_view::npos;
    if (!shown.empty() && !isWhole) continue;
    shown = language + (locale ? " (" + std::string(locale->Name) + ")" : "");
  }
  std::vector<std::string> available{"ENU (en)"};
  for (const auto& [texts, shown] : byTexts) available.push_back(shown);
  std::ranges::sort(available.begin() + 1, available.end());
  return available;
}

}  // namespace

std::string LanguageMeant(const std::string& text) {
  const std::string name(runtime::Trimmed(text));
  if (name.empty()) return "";
  const auto named = satellite::LanguageNamed(name);
  const auto alone = satellite::LanguageNamed(name.substr(0, name.find_first_of("_-")));
  for (const std::string& each :
       {name, InCapitals(name), std::string(named.value_or("")), std::string(alone.value_or(""))}) {
    if (HasTexts(each)) return each;
  }
  if (named && IsEnglish(*named)) return std::string(*named);
  const std::vector<std::string> available = Available();
  throw UsageError(
      "--language " + text + ": there are no texts in this language; " +
      support::Names(available, [](const std::string& each) { return std::string_view(each); }).Answer(name));
}

std::string LanguageOfLibrary(const std::string& fileName) {
  const std::string_view begin = support::ApplicationName;
  if (fileName.size() != begin.size() + 3 + LibraryEnd.size()) return "";
  const std::string language = fileName.substr(begin.size(), 3);
  return runtime::EqualIgnoringCase(fileName, LibraryOf(language)) ? language : "";
}

}  // namespace formwizard::apps::common
