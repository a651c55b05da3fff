#include "adapters/satellite/Locales.h"
#include "adapters/satellite/Satellites.h"
#include "adapters/satellite/StringResources.h"

#include "tests/support/Environment.h"
#include "tests/support/TemporaryFolder.h"

#include <doctest/doctest.h>

#include <random>
#include <string>
#include <vector>

using namespace formwizard::adapters::satellite;
using namespace formwizard::tests;

namespace {

class LibraryBytes {
 public:
  explicit LibraryBytes(std::size_t size) : Bytes(size, '\0') {}

  void Put(std::size_t at, std::uint64_t value, std::size_t size) {
    for (std::size_t i = 0; i < size; ++i) Bytes[at + i] = static_cast<char>((value >> (8 * i)) & 0xFF);
  }
  std::string Bytes;
};

// A library whose only resource is block 26 of the string table: ids 400 to 415.
std::string LibraryWith(const std::vector<std::u16string>& block, bool is64) {
  constexpr std::size_t header = 0x80, resources = 0x200, address = 0x1000;
  const std::size_t optional = header + 24;
  const std::size_t directories = optional + (is64 ? 112 : 96);
  LibraryBytes file(0x400);
  file.Put(0, 0x5A4D, 2);
  file.Put(0x3C, header, 4);
  file.Put(header, 0x00004550, 4);
  file.Put(header + 6, 1, 2);  // one section
  file.Put(header + 20, directories + 128 - optional, 2);
  file.Put(optional, is64 ? 0x20B : 0x10B, 2);
  file.Put(directories - 4, 16, 4);  // data directories
  file.Put(directories + 16, address, 4);
  const std::size_t section = directories + 128;
  file.Put(section + 12, address, 4);
  file.Put(section + 16, 0x200, 4);
  file.Put(section + 20, resources, 4);
  const auto folder = [&](std::size_t at, std::uint32_t id, std::uint32_t target) {
    file.Put(resources + at + 14, 1, 2);
    file.Put(resources + at + 16, id, 4);
    file.Put(resources + at + 20, target, 4);
  };
  folder(0x00, 6, 0x80000018);
  folder(0x18, 26, 0x80000030);
  folder(0x30, 0x407, 0x48);
  file.Put(resources + 0x48, address + 0x60, 4);
  std::size_t at = resources + 0x60;
  for (std::size_t i = 0; i < 16; ++i) {
    const std::u16string text = i < block.size() ? block[i] : u"";
    file.Put(at, text.size(), 2);
    for (std::size_t c = 0; c < text.size(); ++c) file.Put(at + 2 + 2 * c, text[c], 2);
    at += 2 + 2 * text.size();
  }
  file.Put(resources + 0x4C, at - resources - 0x60, 4);
  return file.Bytes;
}

const std::vector<std::u16string> Block{u"", u"Größe", u"日本", u"\xD83D\xDE00", u"\xD83Dx"};

// The same with `count` blocks that all name the texts of the first.
std::string LibraryOfSharedBlocks(std::size_t count) {
  constexpr std::size_t resources = 0x200, section = 0x80 + 24 + 96 + 128, blocks = 0x200;
  LibraryBytes file(0);
  file.Bytes = LibraryWith(Block, false);
  file.Bytes.resize(resources + blocks + 16 + 8 * count);
  file.Put(section + 16, file.Bytes.size() - resources, 4);
  file.Put(resources + 20, 0x80000000 + blocks, 4);
  file.Put(resources + blocks + 14, count, 2);
  for (std::size_t i = 0; i < count; ++i) {
    file.Put(resources + blocks + 16 + 8 * i, i + 1, 4);
    file.Put(resources + blocks + 20 + 8 * i, 0x80000030, 4);
  }
  return file.Bytes;
}

}  // namespace

TEST_CASE("Texts are read out of 32- and 64-bit libraries") {
  TemporaryFolder folder;
  for (const bool is64 : {false, true}) {
    WriteFile(folder / "x.dll", LibraryWith(Block, is64));
    const auto library = Satellites().LoadAsData(folder / "x.dll");
    REQUIRE(library);
    CHECK(library->LoadString(401, 1024) == "Größe");
    CHECK(library->LoadString(402, 1024) == "日本");
    CHECK(library->LoadString(403, 1024) == "😀");
    CHECK(library->LoadString(404, 1024) == "\uFFFDx");
    CHECK(library->LoadString(400, 1024).empty());
    CHECK(library->LoadString(500, 1024).empty());
    CHECK(library->LoadString(404, 1).empty());
    CHECK(library->LoadString(402, 2) == "日");  // the size counts characters
  }
}

TEST_CASE("What is no library is none, and damaged ones are read without harm") {
  TemporaryFolder folder;
  CHECK(Satellites().LoadAsData(folder / "missing.dll") == nullptr);
  for (const std::string& bytes : {std::string(), std::string("MZ"), std::string(5000, 'M')}) {
    WriteFile(folder / "x.dll", bytes);
    CHECK(Satellites().LoadAsData(folder / "x.dll") == nullptr);
  }
  // Cut anywhere, and with bytes turned into others: whatever comes out, nothing is read past the end.
  const std::string whole = LibraryWith(Block, false);
  for (std::size_t size = 0; size < whole.size(); ++size) ReadStringTable(whole.substr(0, size));
  std::mt19937 random(20031);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes = whole;
    for (int i = 0; i < 4; ++i) bytes[random() % bytes.size()] = static_cast<char>(random() % 256);
    const auto texts = ReadStringTable(bytes);
    if (texts) CHECK(texts->size() <= 65536);
  }
  // A folder that names itself.
  std::string circle = whole;
  circle[0x200 + 0x30 + 20] = 0;
  circle[0x200 + 0x30 + 23] = '\x80';
  CHECK(ReadStringTable(circle)->empty());
  // A block number whose ids would begin at zero again.
  std::string wraps = whole;
  wraps[0x200 + 0x18 + 19] = '\x10';
  CHECK(ReadStringTable(wraps)->empty());
  // Texts that are named again and again do not add up to more than the file.
  const std::string shared = LibraryOfSharedBlocks(4000);
  const auto texts = ReadStringTable(shared);
  REQUIRE(texts);
  std::size_t size = 0;
  for (const auto& [id, text] : *texts) size += text.size();
  CHECK(size > 0);
  CHECK(size < shared.size());
}

TEST_CASE("A locale's name leads to the platform's number and abbreviation") {
  struct Case {
    const char* text;
    int id;
    const char* abbreviation;
  };
  for (const Case& c :
       {Case{"de_DE.UTF-8", 1031, "DEU"}, Case{"de_AT", 3079, "DEA"}, Case{"de_XX", 1031, "DEU"},
        Case{"de", 1031, "DEU"}, Case{"de_DE@euro", 1031, "DEU"}, Case{"pt", 1046, "PTB"}, Case{"pt_PT", 2070, "PTG"},
        Case{"es", 3082, "ESN"}, Case{"es_MX.UTF-8", 2058, "ESM"}, Case{"no_NO", 1044, "NOR"},
        Case{"nn_NO", 2068, "NON"}, Case{"zh", 2052, "CHS"}, Case{"zh_TW.Big5", 1028, "CHT"},
        Case{"zh_HK", 3076, "ZHH"}, Case{"ja_JP.eucJP", 1041, "JPN"}, Case{"sr_RS", 10266, "SRO"},
        Case{"sr_RS.UTF-8@latin", 9242, "SRM"}, Case{"sr_XK@latin", 9242, "SRM"}, Case{"uz_UZ@cyrillic", 2115, "UZC"},
        Case{"ca_ES.UTF-8@valencia", 2051, "VAL"},
        // "fi" and "ko" begin other languages' names, too
        Case{"fil_PH", 1124, "FPO"}, Case{"kok_IN", 1111, "KNK"}, Case{"C.UTF-8", 1033, "ENU"},
        Case{"POSIX", 1033, "ENU"}, Case{"tlh", 1033, "ENU"}, Case{"", 1033, "ENU"}, Case{"@", 1033, "ENU"}}) {
    CAPTURE(c.text);
    CHECK(LocaleNamed(c.text).Id == c.id);
    CHECK(LocaleNamed(c.text).Abbreviation == c.abbreviation);
  }
}

TEST_CASE("The user's locale is that of the first variable that is set") {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) RemoveVariable(name);
  const auto check = [](int id, const char* language) {
    CHECK(Satellites().UserLocaleId() == id);
    CHECK(Satellites().UserLanguage() == language);
  };
  check(1033, "ENU");
  SetVariable("LANG", "de_DE.UTF-8");
  check(1031, "DEU");
  SetVariable("LC_MESSAGES", "fr_CA");
  check(3084, "FRC");
  SetVariable("LC_ALL", "");  // as if unset
  check(3084, "FRC");
  SetVariable("LC_ALL", "C");
  check(1033, "ENU");
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) RemoveVariable(name);
}
