// The port to satellite resource libraries, which carry the string table in another language.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>

namespace formwizard::support {

// A library loaded as data; none of its code runs.
class ResourceLibrary {
 public:
  virtual ~ResourceLibrary() = default;
  // At most `size` - 1 characters of string `id`, as UTF-8; the empty text when the library lacks it.
  virtual std::string LoadString(int id, std::size_t size) const = 0;
};

class ResourceLibraries {
 public:
  virtual ~ResourceLibraries() = default;
  // The platform's three-letter abbreviation of the language of the user's locale, "ENU" for one.
  virtual std::string UserLanguage() const = 0;
  // The platform's number of the user's default locale: 1031 for German in Germany.
  virtual int UserLocaleId() const = 0;
  // Null when the file does not exist or is no library that can be read.
  virtual std::unique_ptr<ResourceLibrary> LoadAsData(const std::string& path) const = 0;
};

}  // namespace formwizard::support
