// Feeds bytes to the store of dictionaries: whatever stands in the file, it is read through to its end or refused by
// name, in a time that the size of the file accounts for.
#include "apps/common/Dictionaries.h"
#include "fuzz/Property.h"
#include "fuzz/TemporaryInput.h"

#include <nlohmann/json.hpp>

#include <sstream>

using namespace formwizard;
using namespace formwizard::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const TemporaryInput input;
  const std::string file = input.Write(data, size);
  // The export reads all there is, by the queries that the wizard uses.
  std::ostringstream all;
  const bool isRead = IsAccepted("", [&] { apps::common::ExportDictionary(file, all); });
  Require(!isRead || nlohmann::json::accept(all.str()), "what is exported is JSON");
  Require(all.str().size() <= 100 * size + 100, "no more is exported than the file can hold");
  const bool isOpen = IsAccepted(file + ":", [&] { apps::common::OpenDictionary(file); });
  Require(isOpen || !isRead, "what is exported can be opened");
  return 0;
}
