#include "resources/DesktopTexts.h"

#include <algorithm>
#include <array>

namespace formwizard::resources {
namespace {

struct Entry {
  DesktopText Id;
  std::string_view Text;
};

constexpr auto Table = std::to_array<Entry>({
#define TEXT(id, name, english) {DesktopText::name, english},
#include "resources/DesktopTexts.inc"
#undef TEXT
});

static_assert(std::ranges::is_sorted(Table, std::ranges::less_equal(), &Entry::Id));

}  // namespace

std::string_view EnglishText(DesktopText text) { return std::ranges::lower_bound(Table, text, {}, &Entry::Id)->Text; }

std::vector<int> DesktopTextIds() {
  std::vector<int> ids;
  ids.reserve(Table.size());
  for (const Entry& entry : Table) ids.push_back(static_cast<int>(entry.Id));
  return ids;
}

}  // namespace formwizard::resources
