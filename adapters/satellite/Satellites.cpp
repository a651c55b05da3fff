#include "adapters/satellite/Satellites.h"

#include "adapters/satellite/Locales.h"
#include "adapters/satellite/StringResources.h"

#include <cstdlib>
#include <optional>
#include <string_view>
#include <utility>

namespace formwizard::adapters::satellite {
namespace {

std::string_view UserLocale() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(name);
    if (value && *value != '\0') return value;
  }
  return {};
}

// At most `count` characters from the start of a UTF-8 text.
std::string FirstCharacters(const std::string& text, std::size_t count) {
  std::size_t end = 0;
  for (; end < text.size(); ++end) {
    const bool begins = (static_cast<unsigned char>(text[end]) & 0xC0) != 0x80;
    if (begins && count-- == 0) break;
  }
  return text.substr(0, end);
}

class Library : public support::ResourceLibrary {
 public:
  explicit Library(StringTable texts) : texts_(std::move(texts)) {}

  std::string LoadString(int id, std::size_t size) const override {
    const auto found = texts_.find(id);
    if (found == texts_.end() || size == 0) return "";
    return FirstCharacters(found->second, size - 1);
  }

 private:
  StringTable texts_;
};

}  // namespace

std::string Satellites::UserLanguage() const { return std::string(LocaleNamed(UserLocale()).Abbreviation); }

int Satellites::UserLocaleId() const { return LocaleNamed(UserLocale()).Id; }

std::unique_ptr<support::ResourceLibrary> Satellites::LoadAsData(const std::string& path) const {
  std::optional<StringTable> texts = ReadSatellite(path);
  return texts ? std::make_unique<Library>(std::move(*texts)) : nullptr;
}

}  // namespace formwizard::adapters::satellite
