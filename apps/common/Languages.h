// The languages of the texts, as users name them.
#pragma once

#include <string>

namespace formwizard::apps::common {

// The three letters by which the library of the language that a user means is called, or English, which needs none: by
// them, as a locale ("de", "de_AT", "de_DE.UTF-8"), or in English ("german"), all in any case. Empty for an empty text.
// UsageError, which lists those that there are, for a language without texts beside this program.
std::string LanguageMeant(const std::string& text);

// The three letters in the name of a library of texts; empty for any other file.
std::string LanguageOfLibrary(const std::string& fileName);

}  // namespace formwizard::apps::common
