#include "adapters/profile/ProfileFile.h"

#include "adapters/profile/ProfileText.h"
#include "runtime/RuntimeError.h"
#include "support/Failures.h"
#include "system/Text.h"
#include "system/WholeFile.h"

#include <optional>

namespace formwizard::adapters::profile {
namespace {

constexpr std::string_view Utf16Mark = "\xFF\xFE";

// The text of a file, and how the file has it.
class Document {
 public:
  // support::InputError for UTF-16 that is none, because it could not be written back as it was.
  Document(const std::string& bytes, const system::CodePage& codePage, const std::string& file)
      : codePage_(codePage), isUtf16_(bytes.starts_with(Utf16Mark)), text_(isUtf16_ ? FromUtf16(bytes, file) : bytes) {}

  std::optional<std::string> Get(std::string_view section, std::string_view key) const {
    return text_.Get(Encoded(section), Encoded(key));
  }
  std::vector<ProfileKey> KeysIn(std::string_view section) const {
    std::vector<ProfileKey> keys;
    for (const ProfileText::Key& key : text_.KeysIn(Encoded(section))) {
      keys.push_back({Decoded(key.Name), key.Line, key.Column, key.ValueColumn});
    }
    return keys;
  }
  void Set(std::string_view section, std::string_view key, std::string_view value) {
    text_.Set(Encoded(section), Encoded(key), Encoded(value));
  }
  std::string Encoded(std::string_view utf8) const { return isUtf16_ ? std::string(utf8) : codePage_.Encode(utf8); }
  std::string Decoded(std::string_view text) const {
    return isUtf16_ ? std::string(system::WholeStart(text)) : codePage_.Decode(text);
  }
  std::string Bytes() const {
    if (!isUtf16_) return text_.Text();
    std::string bytes(Utf16Mark);
    for (const char16_t unit : system::Utf16(text_.Text())) {
      bytes += static_cast<char>(unit & 0xFF);
      bytes += static_cast<char>(unit >> 8);
    }
    return bytes;
  }

 private:
  static std::string FromUtf16(std::string_view bytes, const std::string& file) {
    std::u16string units;
    for (std::size_t at = Utf16Mark.size(); at + 1 < bytes.size(); at += 2) {
      units += static_cast<char16_t>(static_cast<unsigned char>(bytes[at]) |
                                     (static_cast<unsigned char>(bytes[at + 1]) << 8));
    }
    if (bytes.size() % 2 == 0 && system::IsWhole(units)) return system::Utf8(units);
    throw support::InputError(file + ": the file begins like UTF-16 and is none; save it anew in an editor");
  }

  const system::CodePage& codePage_;
  bool isUtf16_;
  ProfileText text_;
};

// Another program may change the file meanwhile; its change is then read and kept.
bool Set(system::FileSystem& files, const system::CodePage& codePage, std::string_view section, std::string_view key,
         std::string_view value, const std::string& file) {
  constexpr int attempts = 10;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const std::optional<std::string> old = files.Read(file, system::LargestSettings);
    Document text(old.value_or(""), codePage, file);
    text.Set(section, key, value);
    if (text.Bytes() == old) return true;
    if (!old) system::MakeFolderOf(files, file);
    system::WholeFile changed(files, file);
    changed.Write(text.Bytes());
    if (changed.CommitOver(old)) return true;
  }
  return false;
}

}  // namespace

std::string ProfileFiles::GetProfileString(std::string_view section, std::string_view key, std::string_view defaultText,
                                           std::size_t size, const std::string& file) const {
  try {
    const Document text(files_.Read(file, system::LargestSettings).value_or(""), codePage_, file);
    const std::string standard = text.Encoded(defaultText);
    std::string value = text.Get(section, key).value_or(standard);
    if (value == standard) value.erase(value.find_last_not_of(' ') + 1);
    return text.Decoded(std::string_view(value).substr(0, size == 0 ? 0 : size - 1));
  } catch (const support::InputError& error) {
    runtime::Raise(runtime::PathFileAccessError, error.what());
  }
}

std::vector<ProfileKey> ProfileFiles::KeysIn(std::string_view section, const std::string& file) const {
  const Document text(files_.Read(file, system::LargestSettings).value_or(""), codePage_, file);
  return text.KeysIn(section);
}

bool ProfileFiles::WriteProfileString(std::string_view section, std::string_view key, std::string_view value,
                                      const std::string& file) {
  try {
    return Set(files_, codePage_, section, key, value, file);
  } catch (const support::InputError&) {
    return false;
  } catch (const support::SaveError&) {
    return false;
  }
}

}  // namespace formwizard::adapters::profile
