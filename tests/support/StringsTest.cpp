#include "support/Strings.h"

#include "tests/support/ErrorNumber.h"

#include <doctest/doctest.h>

#include <map>
#include <vector>

using namespace formwizard;
using namespace formwizard::support;
using runtime::Variant;

namespace {

// One satellite library, found under one path.
class OneLibrary : public ResourceLibraries {
 public:
  std::string UserLanguage() const override { return "DEUTSCH"; }
  int UserLocaleId() const override { return 1031; }
  std::unique_ptr<ResourceLibrary> LoadAsData(const std::string& path) const override {
    Paths.push_back(path);
    if (path != "/addin/OstrelFormWizardDEU.dll") return nullptr;
    class Library : public ResourceLibrary {
     public:
      std::string LoadString(int id, std::size_t size) const override {
        const std::map<int, std::string> texts{{407, "Bereit"}, {408, std::string("ab\0cd", 5)}};
        const auto found = texts.find(id);
        return found == texts.end() ? "" : found->second.substr(0, size - 1);
      }
    };
    return std::make_unique<Library>();
  }

  mutable std::vector<std::string> Paths;
};

}  // namespace

TEST_CASE("A satellite library replaces the whole table, without one the English texts serve") {
  const OneLibrary libraries;
  Strings strings(libraries, "/addin/");
  CHECK(strings.LoadResStringLocal(407) == "Ready");

  std::string language;
  strings.LoadResourceLibrary("OstrelFormWizard", language);
  CHECK(language == "DEU");  // the first three letters, written back
  CHECK(strings.LoadResStringLocal(407) == "Bereit");
  CHECK(strings.LoadResStringLocal(408) == "ab");  // cut before the first zero
  CHECK(strings.LoadResStringLocal(50).empty());   // no fall-back for an id that the library lacks
  CHECK(strings.LoadResStringLocal(9999).empty());

  language = "FRA";
  strings.LoadResourceLibrary("OstrelFormWizard", language);
  CHECK(libraries.Paths.back() == "/addin/OstrelFormWizardFRA.dll");
  CHECK(strings.LoadResStringLocal(407) == "Ready");
  CHECK(tests::ErrorNumberOf([&] { (void)strings.LoadResStringLocal(9999); }) == runtime::ResourceNotFound);
}

TEST_CASE("A numeric value stands for the string of that id, any other for itself") {
  const OneLibrary libraries;
  const Strings strings(libraries, "");
  CHECK(strings.LoadResStringValue(Variant("105")) == Variant("Please select a class:"));
  CHECK(strings.LoadResStringValue(Variant(runtime::Int16(105))) == Variant("Please select a class:"));
  CHECK(strings.LoadResStringValue(Variant("Name")) == Variant("Name"));
  CHECK(strings.LoadResStringValue(Variant("")) == Variant(""));
}
