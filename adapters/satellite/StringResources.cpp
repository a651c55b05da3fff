#include "adapters/satellite/StringResources.h"

#include "system/Text.h"

#include <cstdint>

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

class Library {
 public:
  explicit Library(std::string_view bytes) : file_(bytes), unread_(bytes.size()) {}

  // Finds the sections and the resources; false for a file that has none.
  bool Open() {
    const auto header = file_.U32(0x3C);
    if (file_.U16(0) != 0x5A4D || !header || file_.U32(*header) != 0x00004550) return false;
    const std::uint64_t coff = std::uint64_t{*header} + 4;
    const auto sections = file_.U16(coff + 2);
    const auto optionalSize = file_.U16(coff + 16);
    const std::uint64_t optional = coff + 20;
    const std::uint32_t magic = file_.U16(optional).value_or(0);
    const bool isKnown = magic == 0x10B || magic == 0x20B;  // 32 bits, 64 bits
    if (!sections || *sections > MostSections || !optionalSize || !isKnown) return false;
    const std::uint64_t directories = optional + (magic == 0x10B ? 96 : 112);
    if (file_.U32(directories - 4).value_or(0) <= ResourceDirectory) return false;
    const auto address = file_.U32(directories + std::uint64_t{ResourceDirectory} * 8);
    if (!address || *address == 0) return false;
    sectionTable_ = optional + *optionalSize;
    sectionCount_ = *sections;
    const auto root = OffsetOf(*address, 16);
    if (root) root_ = *root;
    return root.has_value();
  }

  StringTable Texts() const {
    StringTable texts;
    // Type, then block, then language: exactly three levels, so that no folder is visited in a circle.
    ForEach(0, [&](std::uint32_t type, std::uint32_t blocks) {
      if (type != StringType || (blocks & IsFolder) == 0) return;
      ForEach(blocks & ~IsFolder, [&](std::uint32_t block, std::uint32_t languages) {
        if ((languages & IsFolder) != 0) ReadFirstLanguage(block, languages & ~IsFolder, texts);
      });
    });
    return texts;
  }

 private:
  // Where `count` bytes that are at an address in memory stand in the file; they lie in one section.
  std::optional<std::uint64_t> OffsetOf(std::uint32_t address, std::uint32_t count) const {
    for (std::uint32_t i = 0; i < sectionCount_; ++i) {
      const std::uint64_t section = sectionTable_ + std::uint64_t{40} * i;
      const auto start = file_.U32(section + 12);
      const auto size = file_.U32(section + 16);
      const auto offset = file_.U32(section + 20);
      if (!start || !size || !offset) return std::nullopt;
      const std::uint64_t within = std::uint64_t{address} - *start;  // past any size for an address before the section
      if (within <= *size && count <= *size - within) return *offset + within;
    }
    return std::nullopt;
  }

  template <typename Visit>
  void ForEach(std::uint32_t folder, Visit&& visit) const {
    const std::uint64_t at = root_ + folder;
    const auto named = file_.U16(at + 12);
    const auto numbered = file_.U16(at + 14);
    if (!named || !numbered || *named + *numbered > MostEntries) return;
    for (std::uint32_t i = 0; i < *named + *numbered; ++i) {
      const auto id = file_.U32(at + 16 + std::uint64_t{8} * i);
      const auto target = file_.U32(at + 20 + std::uint64_t{8} * i);
      if (!id || !target || ++visits_ > MostVisits) return;
      visit(*id, *target);
    }
  }

  void ReadFirstLanguage(std::uint32_t block, std::uint32_t languages, StringTable& texts) const {
    bool done = false;
    ForEach(languages, [&](std::uint32_t, std::uint32_t target) {
      if (done || (target & IsFolder) != 0) return;
      done = true;
      const auto address = file_.U32(root_ + target);
      const auto size = file_.U32(root_ + target + 4);
      if (!address || !size) return;
      const auto offset = OffsetOf(*address, *size);
      const auto data = offset ? file_.Range(*offset, *size) : std::nullopt;
      if (!data || data->size() > unread_) return;
      unread_ -= data->size();
      ReadBlock(block, *data, texts);
    });
  }

  // Sixteen texts, each a length in UTF-16 units and the units.
  static void ReadBlock(std::uint32_t block, std::string_view data, StringTable& texts) {
    if (block == 0 || block > MostBlocks) return;
    const Bytes bytes(data);
    std::uint64_t at = 0;
    for (std::uint32_t i = 0; i < StringsInBlock; ++i) {
      const auto length = bytes.U16(at);
      if (!length) return;
      const auto units = bytes.Range(at + 2, std::uint64_t{2} * *length);
      if (!units) return;
      const std::uint32_t id = (block - 1) * StringsInBlock + i;
      if (*length > 0) texts[static_cast<int>(id)] = FromUtf16(Bytes(*units), *length);
      at += 2 + std::uint64_t{2} * *length;
    }
  }

  Bytes file_;
  std::uint64_t sectionTable_ = 0, root_ = 0;
  std::uint32_t sectionCount_ = 0;
  mutable std::uint32_t visits_ = 0;
  mutable std::uint64_t unread_;  // blocks do not share bytes, so together they are no longer than the file
};

}  // namespace

std::optional<StringTable> ReadStringTable(std::string_view library) {
  Library reader(library);
  if (!reader.Open()) return std::nullopt;
  return reader.Texts();
}

}  // namespace formwizard::adapters::satellite
