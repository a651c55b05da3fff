// The sample's class dictionary, or another one, in a file of its own.
#pragma once

#include "apps/common/Dictionaries.h"
#include "tests/support/TemporaryFolder.h"

namespace formwizard::tests {

inline std::unique_ptr<wizard::factory::FactoryCreator> OpenSampleDictionary(const TemporaryFolder& folder,
                                                                             const std::string& otherJson = "") {
  std::istringstream json(otherJson.empty() ? ReadFile(SourceFolder() + "/samples/dictionary.json") : otherJson);
  apps::common::ImportDictionary(json, "dictionary.json", folder / "d.sqlite");
  return apps::common::OpenDictionary(folder / "d.sqlite");
}

}  // namespace formwizard::tests
