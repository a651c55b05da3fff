// Feeds bytes to the reader of satellite libraries: whatever they are, it neither reads past them nor takes long.
#include "adapters/satellite/StringResources.h"
#include "fuzz/Property.h"
#include "system/Text.h"

using namespace formwizard;
using namespace formwizard::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes = TextOf(data, size);
  const auto texts = adapters::satellite::ReadStringTable(bytes);
  if (!texts) return 0;
  for (const auto& [id, text] : *texts) {
    Require(id >= 0 && id <= 0xFFFF, "an id has 16 bits");
    Require(!text.empty() && system::IsUtf8(text), "a text is one");
  }
  return 0;
}
