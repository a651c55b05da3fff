#include "support/Strings.h"

#include "resources/StringTable.h"
#include "runtime/Conversions.h"

#include <utility>

namespace formwizard::support {
namespace {

constexpr std::size_t BufferSize = 1024;

std::string BeforeFirstZero(std::string text) {
  text.resize(std::min(text.find('\0'), text.size()));
  return text;
}

std::string OwnText(int id) {
  const std::optional<std::string_view> text = resources::StringTableText(id);
  if (!text) {
    runtime::Raise(runtime::ResourceNotFound, "Resource with identifier '" + std::to_string(id) + "' not found");
  }
  return std::string(*text);
}

bool IsNumeric(const runtime::Variant& value) {
  if (const auto* text = std::get_if<std::string>(&value)) return runtime::IsNumeric(*text);
  return !std::holds_alternative<runtime::Null>(value);
}

}  // namespace

Strings::Strings(const ResourceLibraries& libraries, std::string directory)
    : libraries_(libraries), directory_(std::move(directory)) {}

void Strings::LoadResourceLibrary(std::string_view appName, std::string& language) {
  if (language.empty()) language = libraries_.UserLanguage().substr(0, 3);
  library_ = libraries_.LoadAsData(directory_ + std::string(appName) + language + ".dll");
}

std::string Strings::LoadResStringLocal(int id) const {
  return library_ ? BeforeFirstZero(library_->LoadString(id, BufferSize)) : OwnText(id);
}

runtime::Variant Strings::LoadResStringValue(const runtime::Variant& value) const {
  if (!IsNumeric(value)) return value;
  return BeforeFirstZero(LoadResStringLocal(runtime::RoundToInt32(runtime::ToNumber(value)).Value()));
}

}  // namespace formwizard::support
