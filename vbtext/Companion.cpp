#include "vbtext/Companion.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <charconv>

namespace formwizard::vbtext {
namespace {

void CollectOffsets(const std::vector<HeaderProperty>& properties, std::vector<std::size_t>& offsets) {
  for (const HeaderProperty& property : properties) {
    if (const auto reference = ReferenceIn(property.Value)) offsets.push_back(reference->Offset);
    CollectOffsets(property.Members, offsets);
  }
}

void CollectOffsets(const HeaderNode& node, std::vector<std::size_t>& offsets) {
  CollectOffsets(node.Properties, offsets);
  for (const HeaderNode& child : node.Children) CollectOffsets(child, offsets);
}

}  // namespace

std::optional<CompanionReference> ReferenceIn(std::string_view value) {
  const bool isText = value.starts_with('$');
  if (isText) value.remove_prefix(1);
  if (!value.starts_with('"')) return std::nullopt;
  const std::size_t close = value.find("\":", 1);
  if (close == std::string_view::npos) return std::nullopt;
  const std::string_view digits = value.substr(close + 2);
  CompanionReference reference{value.substr(1, close - 1), 0, isText};
  const char* const end = digits.data() + digits.size();
  const auto read = std::from_chars(digits.data(), end, reference.Offset, 16);
  if (read.ec != std::errc() || read.ptr != end) return std::nullopt;
  return reference;
}

Companion::Companion(const HeaderNode& form, std::optional<std::string_view> bytes) : bytes_(bytes) {
  CollectOffsets(form, offsets_);
  std::ranges::sort(offsets_);
}

std::optional<std::string_view> Companion::RecordAt(std::size_t offset) const {
  if (!bytes_ || offset >= bytes_->size()) return std::nullopt;
  const auto next = std::ranges::upper_bound(offsets_, offset);
  const std::size_t end = next == offsets_.end() ? bytes_->size() : std::min(*next, bytes_->size());
  return bytes_->substr(offset, end - offset);
}

}  // namespace formwizard::vbtext
