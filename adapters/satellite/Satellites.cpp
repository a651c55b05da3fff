#include "adapters/satellite/Satellites.h"

#include "adapters/satellite/StringResources.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string_view>

namespace formwizard::adapters::satellite {
namespace {

constexpr std::streamoff LargestLibrary = 16 << 20;  // bytes; a satellite holds texts only

struct Language {
  std::string_view Locale, Abbreviation;
};

// A locale with its region stands before the language alone.
constexpr std::array Languages{
    Language{"de_AT", "DEA"}, Language{"de_CH", "DES"}, Language{"de", "DEU"}, Language{"en_GB", "ENG"},
    Language{"en", "ENU"},    Language{"es_MX", "ESM"}, Language{"es", "ESN"}, Language{"fr_BE", "FRB"},
    Language{"fr_CA", "FRC"}, Language{"fr_CH", "FRS"}, Language{"fr", "FRA"}, Language{"it_CH", "ITS"},
    Language{"it", "ITA"},    Language{"ja", "JPN"},    Language{"ko", "KOR"}, Language{"nl_BE", "NLB"},
    Language{"nl", "NLD"},    Language{"pt_BR", "PTB"}, Language{"pt", "PTG"}, Language{"zh_HK", "ZHH"},
    Language{"zh_SG", "ZHI"}, Language{"zh_TW", "CHT"}, Language{"zh", "CHS"}, Language{"ru", "RUS"},
    Language{"pl", "PLK"},    Language{"cs", "CSY"},    Language{"hu", "HUN"}, Language{"sv", "SVE"},
    Language{"da", "DAN"},    Language{"nb", "NOR"},    Language{"fi", "FIN"}, Language{"tr", "TRK"},
    Language{"el", "ELL"},
};

std::string_view UserLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value && *value != '\0') return value;
  }
  return {};
}

class Library : public support::ResourceLibrary {
 public:
  explicit Library(StringTable texts) : texts_(std::move(texts)) {}

  std::string LoadString(int id, std::size_t size) const override {
    const auto found = texts_.find(id);
    if (found == texts_.end() || size == 0) return "";
    return found->second.substr(0, size - 1);
  }

 private:
  StringTable texts_;
};

}  // namespace

std::string Satellites::UserLanguage() const {
  const std::string_view locale = UserLocale();
  for (const Language& language : Languages) {
    if (locale.starts_with(language.Locale)) return std::string(language.Abbreviation);
  }
  return "ENU";
}

std::unique_ptr<support::ResourceLibrary> Satellites::LoadAsData(const std::string& path) const {
  std::ifstream in(path, std::ios::binary | std::ios::ate);
  if (!in || in.tellg() > LargestLibrary || in.tellg() < 0) return nullptr;
  std::string bytes(static_cast<std::size_t>(in.tellg()), '\0');
  in.seekg(0);
  if (!in.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) return nullptr;
  std::optional<StringTable> texts = ReadStringTable(bytes);
  return texts ? std::make_unique<Library>(std::move(*texts)) : nullptr;
}

}  // namespace formwizard::adapters::satellite
