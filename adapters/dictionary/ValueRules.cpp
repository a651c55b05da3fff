#include "adapters/dictionary/ValueRules.h"

#include "wizard/factory/DictionaryText.h"

#include <algorithm>

namespace formwizard::adapters::dictionary {

using namespace wizard::factory;

std::string ExpectedIn(const Column& column) {
  if (column.Kind == ColumnKind::Number) {
    return column.Most == 1 ? "0 or 1" : "a whole number from 0 to " + std::to_string(column.Most);
  }
  if (column.Kind != ColumnKind::Collection) return "a text";
  std::string known;
  for (std::size_t i = 0; i < CollectionKinds.size(); ++i) {
    if (i > 0) known += i + 1 < CollectionKinds.size() ? ", " : " or ";
    known += '"' + std::string(CollectionKinds.at(i)) + '"';
  }
  return known;
}

std::string ProblemOf(const Column& column, std::string_view text) {
  const std::size_t most = column.Kind == ColumnKind::Caption ? LongestText : LongestName;
  if (text.size() > most) {
    return "at most " + std::to_string(most) + " bytes are allowed here, found " + std::to_string(text.size());
  }
  if (column.Kind == ColumnKind::Number ||
      (column.Kind == ColumnKind::Collection && std::ranges::find(CollectionKinds, text) == CollectionKinds.end())) {
    return "expected " + ExpectedIn(column) + ", found " + Shown(text);
  }
  const bool isName = column.Kind == ColumnKind::Name || (column.Kind == ColumnKind::Type && !text.empty());
  if (isName && IsName(text)) return "";  // then it is a line, too
  if (column.IsRequired() && text.empty()) return "expected a text that is not empty, found \"\"";
  if (!IsLine(text)) return "a line break or control character is not allowed here, found " + Shown(text);
  if (column.Kind == ColumnKind::SystemText && text.find_first_of(",;") != std::string_view::npos) {
    return "must contain neither \",\" nor \";\", found " + Shown(text);
  }
  if (isName) {
    return "a name must contain nothing but letters, digits, \"_\", \"%\" and \".\", found " + Shown(text);
  }
  return "";
}

}  // namespace formwizard::adapters::dictionary
