// Feeds bytes to the reader of satellite libraries: whatever they are, it neither reads past them nor takes long.
#include "adapters/satellite/StringResources.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  const auto texts = formwizard::adapters::satellite::ReadStringTable(bytes);
  if (!texts) return 0;
  for (const auto& [id, text] : *texts) {
    if (id < 0 || id > 0xFFFF || text.empty()) std::abort();
  }
  return 0;
}
