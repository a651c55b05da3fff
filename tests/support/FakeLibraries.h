// Satellite libraries in memory: one library for every path, or none.
#pragma once

#include "support/ResourceLibraries.h"
#include "tests/support/Test.h"

namespace formwizard::tests {

class FakeLibraries : public support::ResourceLibraries {
 public:
  std::string UserLanguage() const override { return "DEUTSCH"; }
  int UserLocaleId() const override {
    ++LocaleLookups;
    return LocaleId;
  }
  // Null when there are no texts.
  std::unique_ptr<support::ResourceLibrary> LoadAsData(const std::string& path) const override {
    Paths.push_back(path);
    if (Texts.empty()) return nullptr;
    class Library : public support::ResourceLibrary {
     public:
      explicit Library(const std::map<int, std::string>& texts) : texts_(texts) {}
      std::string LoadString(int id, std::size_t size) const override {
        const auto found = texts_.find(id);
        return found == texts_.end() ? "" : found->second.substr(0, size - 1);
      }

     private:
      std::map<int, std::string> texts_;
    };
    return std::make_unique<Library>(Texts);
  }

  std::map<int, std::string> Texts;
  int LocaleId = 1031;
  mutable int LocaleLookups = 0;
  mutable std::vector<std::string> Paths;
};

}  // namespace formwizard::tests
