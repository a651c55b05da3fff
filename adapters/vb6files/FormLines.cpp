#include "adapters/vb6files/FormLines.h"

#include "support/Failures.h"

#include <algorithm>

namespace formwizard::adapters::vb6files {

void FormLines::Next() {
  end_ = rest_.empty();
  const std::size_t length = std::min(rest_.find('\n'), rest_.size());
  line_ = rest_.substr(0, length);
  if (line_.ends_with('\r')) line_.remove_suffix(1);
  rest_.remove_prefix(std::min(length + 1, rest_.size()));
  ++number_;
}

PropertyLine FormLines::Property() const {
  const std::size_t equals = line_.find('=');
  if (equals == std::string_view::npos) Fail("a property as \"Name = value\"");
  return {Trimmed(line_.substr(0, equals)), Trimmed(line_.substr(equals + 1))};
}

void FormLines::Fail(const std::string& expected) const {
  throw support::InputError(path_ + ":" + std::to_string(number_) + ": expected " + expected +
                            "; the form is damaged: restore it or take it out of the project");
}

}  // namespace formwizard::adapters::vb6files
