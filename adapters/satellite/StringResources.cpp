#include "adapters/satellite/StringResources.h"

#include "support/Failures.h"
#include "system/FileSystem.h"
#include "system/Text.h"

#include <cstdint>
#include <utility>

namespace formwizard::adapters::satellite {
namespace {

constexpr std::uint32_t StringType = 6;
constexpr std::uint32_t StringsInBlock = 16;
constexpr std::uint32_t IsFolder = 0x80000000u;
constexpr std::uint32_t ResourceDirectory = 2;  // index among the data directories
constexpr std::uint32_t MostBlocks = 4096;      // ids are 16-bit numbers
constexpr std::uint32_t MostSections = 96;      // as the platform's loader has it
constexpr std::uint32_t MostEntries = 4096;     // of one folder
constexpr std::uint32_t MostVisits = 100000;    // of entries in all: a hostile file may name one folder again and again

// Little-endian numbers out of bytes; nothing past the end.
class Bytes {
 public:
  explicit Bytes(std::string_view bytes) : bytes_(bytes) {}

  std::optional<std::uint32_t> U16(std::uint64_t at) const { return Number(at, 2); }
  std::optional<std::uint32_t> U32(std::uint64_t at) const { return Number(at, 4); }
  std::optional<std::string_view> Range(std::uint64_t at, std::uint64_t size) const {
    if (at > bytes_.size() || size > bytes_.size() - at) return std::nullopt;
    return bytes_.substr(static_cast<std::size_t>(at), static_cast<std::size_t>(size));
  }

 private:
  std::optional<std::uint32_t> Number(std::uint64_t at, std::uint64_t size) const {
    const auto range = Range(at, size);
    if (!range) return std::nullopt;
    std::uint32_t value = 0;
    for (std::size_t i = 0; i < range->size(); ++i) {
      value |= static_cast<std::uint32_t>(static_cast<unsigned char>((*range)[i])) << (8 * i);
    }
    return value;
  }

  std::string_view bytes_;
};

std::string FromUtf16(const Bytes& units, std::uint32_t count) {
  std::u16string text;
  for (std::uint32_t i = 0; i < count; ++i) {
    text += static_cast<char16_t>(units.U16(std::uint64_t{2} * i).value_or(0));
  }
  return system::Utf8(text);
}

// Raised within this file for what does not hold together.
struct Damage {};

template <typename T>
T Sound(const std::optional<T>& value) {
  if (!value) throw Damage();
  return *value;
}

void Expect(bool holds) {
  if (!holds) throw Damage();
}

class Library {
 public:
  explicit Library(std::string_view bytes) : file_(bytes), unread_(bytes.size()) { FindResources(); }

  StringTable Texts() {
    StringTable texts;
    // Type, then block, then language: exactly three levels, so that no folder is visited in a circle.
    ForEach(0, [&](std::uint32_t type, std::uint32_t blocks) {
      if (type != StringType) return;
      Expect((blocks & IsFolder) != 0);
      ForEach(blocks & ~IsFolder, [&](std::uint32_t block, std::uint32_t languages) {
        Expect((languages & IsFolder) != 0);
        ReadFirstLanguage(block, languages & ~IsFolder, texts);
      });
    });
    return texts;
  }

 private:
  void FindResources() {
    const std::uint64_t header = Sound(file_.U32(0x3C));
    Expect(file_.U16(0) == 0x5A4Du && file_.U32(header) == 0x00004550u);
    const std::uint64_t coff = header + 4, optional = coff + 20;
    const std::uint32_t magic = Sound(file_.U16(optional));
    Expect(magic == 0x10B || magic == 0x20B);  // 32 bits, 64 bits
    const std::uint64_t directories = optional + (magic == 0x10B ? 96 : 112);
    Expect(Sound(file_.U32(directories - 4)) > ResourceDirectory);
    sectionTable_ = optional + Sound(file_.U16(coff + 16));
    sectionCount_ = Sound(file_.U16(coff + 2));
    Expect(sectionCount_ <= MostSections);
    CheckSections();
    root_ = OffsetOf(Sound(file_.U32(directories + std::uint64_t{ResourceDirectory} * 8)), 16);
  }

  // A file that ends within a section is the beginning of one.
  void CheckSections() const {
    for (std::uint32_t i = 0; i < sectionCount_; ++i) {
      const std::uint64_t section = sectionTable_ + std::uint64_t{40} * i;
      const std::uint32_t size = Sound(file_.U32(section + 16));
      Expect(size == 0 || file_.Range(Sound(file_.U32(section + 20)), size));
    }
  }

  // Where `count` bytes that are at an address in memory stand in the file; they lie in one section.
  std::uint64_t OffsetOf(std::uint32_t address, std::uint32_t count) const {
    for (std::uint32_t i = 0; i < sectionCount_; ++i) {
      const std::uint64_t section = sectionTable_ + std::uint64_t{40} * i;
      const std::uint32_t start = Sound(file_.U32(section + 12)), size = Sound(file_.U32(section + 16));
      const std::uint64_t within = std::uint64_t{address} - start;  // past any size for an address before the section
      if (within <= size && count <= size - within) return Sound(file_.U32(section + 20)) + within;
    }
    throw Damage();
  }

  template <typename Visit>
  void ForEach(std::uint32_t folder, Visit&& visit) {
    const std::uint64_t at = root_ + folder;
    const std::uint32_t count = Sound(file_.U16(at + 12)) + Sound(file_.U16(at + 14));  // named and numbered ones
    Expect(count <= MostEntries);
    for (std::uint32_t i = 0; i < count; ++i) {
      Expect(++visits_ <= MostVisits);
      const std::uint64_t entry = at + 16 + std::uint64_t{8} * i;
      visit(Sound(file_.U32(entry)), Sound(file_.U32(entry + 4)));
    }
  }

  void ReadFirstLanguage(std::uint32_t block, std::uint32_t languages, StringTable& texts) {
    bool done = false;
    ForEach(languages, [&](std::uint32_t, std::uint32_t target) {
      if (std::exchange(done, true)) return;
      Expect((target & IsFolder) == 0);
      const std::uint32_t size = Sound(file_.U32(root_ + target + 4));
      const std::string_view data = Sound(file_.Range(OffsetOf(Sound(file_.U32(root_ + target)), size), size));
      Expect(data.size() <= unread_);
      unread_ -= data.size();
      ReadBlock(block, data, texts);
    });
  }

  // Sixteen texts, each a length in UTF-16 units and the units.
  static void ReadBlock(std::uint32_t block, std::string_view data, StringTable& texts) {
    Expect(block > 0 && block <= MostBlocks);
    const Bytes bytes(data);
    std::uint64_t at = 0;
    for (std::uint32_t i = 0; i < StringsInBlock; ++i) {
      const std::uint32_t length = Sound(bytes.U16(at));
      const std::string_view units = Sound(bytes.Range(at + 2, std::uint64_t{2} * length));
      const std::uint32_t id = (block - 1) * StringsInBlock + i;
      if (length > 0) texts[static_cast<int>(id)] = FromUtf16(Bytes(units), length);
      at += 2 + std::uint64_t{2} * length;
    }
  }

  Bytes file_;
  std::uint64_t sectionTable_ = 0, root_ = 0;
  std::uint32_t sectionCount_ = 0, visits_ = 0;
  std::uint64_t unread_;  // blocks do not share bytes, so together they are no longer than the file
};

}  // namespace

std::optional<StringTable> ReadStringTable(std::string_view library) {
  try {
    StringTable texts = Library(library).Texts();
    if (!texts.empty()) return texts;
  } catch (const Damage&) {
    return std::nullopt;
  }
  return std::nullopt;
}

std::optional<StringTable> ReadSatellite(const std::string& path) {
  try {
    return ReadStringTable(system::RealFileSystem().Read(path, system::LargestLibrary).value_or(""));
  } catch (const support::InputError&) {
    return std::nullopt;  // as the platform's loader answers
  }
}

bool IsSatellite(const std::string& path) { return ReadSatellite(path).has_value(); }

}  // namespace formwizard::adapters::satellite
