// The locales of the platform, found by the names that the environment of a POSIX system gives them.
#pragma once

#include <optional>
#include <span>
#include <string_view>

namespace formwizard::adapters::satellite {

struct Locale {
  std::string_view Name;          // as in LANG, without an encoding: "de_AT", "sr_RS@latin"
  int Id;                         // the platform's number of the locale
  std::string_view Abbreviation;  // the platform's three letters for its language
};

// The locale that a text such as "de_AT.UTF-8" or "ca_ES.UTF-8@valencia" names. A region that the platform lacks leaves
// the language alone, an unknown modifier is passed over; what names no known language is English (United States).
const Locale& LocaleNamed(std::string_view text);

// The platform's three letters for the language that a user names in any case: by them ("DEU"), as a locale ("de",
// "de_AT", "de-AT", "de_DE.UTF-8") or, those that are shipped, in English ("german"). Nothing for what names no known
// language.
std::optional<std::string_view> LanguageNamed(std::string_view text);

// All of them, ordered by name.
std::span<const Locale> AllLocales();

}  // namespace formwizard::adapters::satellite
