// The languages that are shipped: English and one for every file of texts.
#pragma once

#include "tests/support/TemporaryFolder.h"

#include <cstdio>

namespace formwizard::tests {

struct ShippedLanguage {
  std::string Abbreviation;
  int LocaleId;

  // Whether it is written with letters, which the dialogs' font has.
  bool IsWestern() const {
    constexpr int chinese = 4, japanese = 17, korean = 18;
    const int primary = LocaleId & 0x3FF;
    return primary != chinese && primary != japanese && primary != korean;
  }
};

inline std::vector<ShippedLanguage> ShippedLanguages() {
  std::vector<ShippedLanguage> languages{{"ENU", 1033}};
  for (const auto& file : std::filesystem::directory_iterator(SourceFolder() + "/resources/satellites")) {
    if (file.path().extension() != ".rc") continue;
    const std::string text = ReadFile(file.path().string());
    int primary = 0, sub = 0;
    REQUIRE(std::sscanf(text.c_str() + text.find("\nLANGUAGE "), "\nLANGUAGE %d, %d", &primary, &sub) == 2);
    languages.push_back({file.path().stem().string(), sub << 10 | primary});
  }
  return languages;
}

}  // namespace formwizard::tests
