// Feeds bytes to the reader of settings files: what is set is got, nothing else in the file changes, and settings are
// loaded or refused as the language refuses a value.
#include "adapters/profile/ProfileFile.h"
#include "adapters/profile/ProfileText.h"
#include "fuzz/Property.h"
#include "runtime/Conversions.h"
#include "runtime/RuntimeError.h"
#include "settings/Settings.h"
#include "tests/support/MemoryFileSystem.h"

#include <algorithm>
#include <optional>

using namespace formwizard;
using namespace formwizard::fuzz;
using adapters::profile::ProfileText;

namespace {

struct Key {
  std::string Section, Name;
};

// As the program's own keys and sections are.
bool IsPlain(std::string_view text) {
  return !text.empty() && !HasControlCharacter(text) && text.find_first_of(" ;=[]\"'") == std::string_view::npos;
}

// Whether `after` is `before` with one piece of a line replaced by another.
bool IsOneEdit(std::string_view before, std::string_view after, bool isInsertion) {
  const auto start = static_cast<std::size_t>(std::ranges::mismatch(before, after).in1 - before.begin());
  before.remove_prefix(start);
  after.remove_prefix(start);
  while (!before.empty() && !after.empty() && before.back() == after.back()) {
    before.remove_suffix(1);
    after.remove_suffix(1);
  }
  return isInsertion ? before.empty() : before.find('\n') == std::string_view::npos;
}

void CheckSet(const std::string& before, const Key& key, const std::string& value, const Key& other) {
  ProfileText text(before);
  const std::optional<std::string> old = text.Get(key.Section, key.Name);
  const bool isOther =
      !runtime::EqualIgnoringCase(key.Section, other.Section) || !runtime::EqualIgnoringCase(key.Name, other.Name);
  const std::optional<std::string> ofOther = text.Get(other.Section, other.Name);
  text.Set(key.Section, key.Name, value);
  Require(text.Get(key.Section, key.Name) == value, "what was set is got");
  Require(!isOther || text.Get(other.Section, other.Name) == ofOther, "another key keeps its value");
  Require(IsOneEdit(before, text.Text(), !old), "all other bytes stay");
  const std::string once = text.Text();
  text.Set(key.Section, key.Name, value);
  Require(text.Text() == once, "setting the same again changes nothing");
}

void CheckLoading(const std::string& text) {
  tests::MemoryFileSystem files({{"fuzz.ini", text}});
  const adapters::profile::ProfileFiles store(files);
  settings::Settings loaded;
  try {
    settings::LoadSettings(loaded, store, "fuzz.ini");
  } catch (const runtime::RuntimeError& error) {
    const bool isMarkedUtf16 = text.starts_with("\xFF\xFE");
    Require(error.Number() == runtime::TypeMismatch || error.Number() == runtime::Overflow ||
                (isMarkedUtf16 && error.Number() == runtime::PathFileAccessError),
            "a setting that cannot be loaded is no number or too large, or its file is no UTF-16 though it begins so");
  }
  Require(files.Operations == 0, "loading changes nothing");
}

}  // namespace

// The file, and behind zero bytes the key's section, the key and its value.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string text = TextOf(data, size);
  CheckLoading(text);
  const std::string value = TakeLast(text);
  Key key;
  key.Name = TakeLast(text);
  key.Section = TakeLast(text);
  const Key known{"OSTRELFORMWIZARD", "Columns"};
  if (!value.empty() && !IsPlain(value)) return 0;
  CheckSet(text, known, value, key);
  if (IsPlain(key.Section) && IsPlain(key.Name)) CheckSet(text, key, value, known);
  return 0;
}
