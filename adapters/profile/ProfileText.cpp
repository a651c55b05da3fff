#include "adapters/profile/ProfileText.h"

#include "runtime/Conversions.h"

#include <algorithm>

namespace formwizard::adapters::profile {
namespace {

std::string_view Trimmed(std::string_view text) { return runtime::Trimmed(text, " \t\r"); }

std::string_view Unquoted(std::string_view text) {
  const bool quoted = text.size() >= 2 && (text.front() == '"' || text.front() == '\'') && text.back() == text.front();
  return quoted ? text.substr(1, text.size() - 2) : text;
}

}  // namespace

ProfileText::Place ProfileText::Find(std::string_view section, std::string_view key) const {
  Place place;
  bool inSection = false;
  for (std::size_t start = 0; start < text_.size();) {
    const std::size_t end = std::min(text_.find('\n', start), text_.size());
    const std::string_view raw = std::string_view(text_).substr(start, end - start);
    const std::string_view line = Trimmed(raw);
    const std::size_t next = std::min(end + 1, text_.size());
    if (line.starts_with('[')) {
      if (inSection) return place;  // the first section of the name counts
      const std::string_view name = Trimmed(line.substr(1, line.find(']') - 1));
      inSection = line.find(']') != std::string_view::npos && runtime::EqualIgnoringCase(name, section);
      place.HasSection = inSection;
      place.NewKeyAt = next;
    } else if (inSection && !line.empty()) {
      place.NewKeyAt = next;
      const std::size_t equals = raw.find('=');
      if (!line.starts_with(';') && equals != std::string_view::npos &&
          runtime::EqualIgnoringCase(Trimmed(raw.substr(0, equals)), key)) {
        place.HasKey = true;
        place.ValueStart = start + equals + 1;
        place.ValueEnd = raw.ends_with('\r') ? end - 1 : end;
        return place;
      }
    }
    start = next;
  }
  return place;
}

std::vector<ProfileText::Key> ProfileText::KeysIn(std::string_view section) const {
  std::vector<Key> keys;
  bool isIn = false;
  std::string_view rest = text_;
  for (std::size_t number = 1; !rest.empty(); ++number) {
    const std::string_view raw = rest.substr(0, rest.find('\n')), line = Trimmed(raw);
    rest.remove_prefix(std::min(rest.find('\n'), rest.size() - 1) + 1);
    const std::size_t end = line.find(']'), equals = line.find('=');
    if (line.starts_with('[')) {
      if (isIn) break;  // the first section of the name counts
      isIn = end != std::string_view::npos && runtime::EqualIgnoringCase(Trimmed(line.substr(1, end - 1)), section);
    } else if (isIn && !line.starts_with(';') && equals != std::string_view::npos) {
      const std::size_t column = raw.find_first_not_of(" \t\r") + 1;
      const std::size_t value = std::min(line.find_first_not_of(" \t", equals + 1), line.size());
      keys.push_back({Trimmed(line.substr(0, equals)), number, column, column + value});
    }
  }
  return keys;
}

std::optional<std::string> ProfileText::Get(std::string_view section, std::string_view key) const {
  const Place place = Find(section, key);
  if (!place.HasKey) return std::nullopt;
  const std::string_view value = std::string_view(text_).substr(place.ValueStart, place.ValueEnd - place.ValueStart);
  return std::string(Unquoted(Trimmed(value)));
}

void ProfileText::Set(std::string_view section, std::string_view key, std::string_view value) {
  const Place place = Find(section, key);
  if (place.HasKey) {
    text_.replace(place.ValueStart, place.ValueEnd - place.ValueStart, value);
    return;
  }
  const std::string lineEnd =
      text_.find("\r\n") == std::string::npos && text_.find('\n') != std::string::npos ? "\n" : "\r\n";
  std::size_t at = place.HasSection ? place.NewKeyAt : text_.size();
  std::string added = std::string(key) + "=" + std::string(value) + lineEnd;
  if (!place.HasSection) added.insert(0, "[" + std::string(section) + "]" + lineEnd);
  if (at > 0 && text_[at - 1] != '\n') added.insert(0, lineEnd);
  text_.insert(at, added);
}

}  // namespace formwizard::adapters::profile
