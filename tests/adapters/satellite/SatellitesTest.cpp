#include "adapters/satellite/Locales.h"
#include "adapters/satellite/Satellites.h"
#include "adapters/satellite/StringResources.h"

#include "tests/support/TemporaryFolder.h"

#include <random>

using namespace formwizard::adapters::satellite;
using namespace formwizard::tests;

namespace {

struct Number {
  std::size_t At;
  std::uint64_t Value;
  std::size_t Size;
};

void Put(std::string& bytes, std::initializer_list<Number> numbers) {
  for (const Number& number : numbers) {
    for (std::size_t i = 0; i < number.Size; ++i) {
      bytes[number.At + i] = static_cast<char>((number.Value >> (8 * i)) & 0xFF);
    }
  }
}

constexpr std::size_t Resources = 0x200;  // where they begin in the file

constexpr std::array<std::u16string_view, 16> Block{u"", u"Größe", u"日本", u"\xD83D\xDE00", u"\xD83Dx"};

// A library whose only resource is block 26 of the string table: ids 400 to 415, in two languages. The second one has
// the same texts from the second on, each under the id before.
std::string LibraryOfTexts(bool is64) {
  constexpr std::size_t header = 0x80, optional = header + 24, address = 0x1000;
  const std::size_t directories = optional + (is64 ? 112 : 96), section = directories + 128;
  std::string file(0x400, '\0');
  Put(file, {{0, 0x5A4D, 2}, {0x3C, header, 4}, {header, 0x00004550, 4}});
  const int sections = 1, known = 16;  // data directories
  Put(file, {{header + 6, sections, 2}, {header + 20, section - optional, 2}, {optional, is64 ? 0x20Bu : 0x10Bu, 2}});
  Put(file, {{directories - 4, known, 4}, {directories + 16, address, 4}});
  Put(file, {{section + 12, address, 4}, {section + 16, 0x200, 4}, {section + 20, Resources, 4}});
  const auto folder = [&](std::size_t at, std::uint32_t id, std::uint32_t target) {
    Put(file, {{Resources + at + 14, 1, 2}, {Resources + at + 16, id, 4}, {Resources + at + 20, target, 4}});
  };
  folder(0x00, 6, 0x80000018);
  folder(0x18, 26, 0x80000030);
  folder(0x30, 0x407, 0x50);
  Put(file, {{Resources + 0x3E, 2, 2}, {Resources + 0x48, 0x409, 4}, {Resources + 0x4C, 0x60, 4}});
  std::size_t at = Resources + 0x70;
  for (const std::u16string_view text : Block) {
    Put(file, {{at, text.size(), 2}});
    for (const char16_t unit : text) Put(file, {{at += 2, unit, 2}});
    at += 2;
  }
  const std::size_t size = at - Resources - 0x70;
  Put(file, {{Resources + 0x50, address + 0x70, 4}, {Resources + 0x54, size, 4}});
  Put(file, {{Resources + 0x60, address + 0x72, 4}, {Resources + 0x64, size - 2, 4}});
  return file;
}

// The same with `count` blocks that all name the texts of the first.
std::string LibraryOfSharedBlocks(std::size_t count) {
  constexpr std::size_t section = 0x80 + 24 + 96 + 128, blocks = Resources + 0x200;
  std::string file = LibraryOfTexts(false);
  file.resize(blocks + 16 + 8 * count);
  Put(file, {{section + 16, file.size() - Resources, 4}, {Resources + 20, 0x80000200, 4}, {blocks + 14, count, 2}});
  for (std::size_t i = 0; i < count; ++i) {
    Put(file, {{blocks + 16 + 8 * i, i + 1, 4}, {blocks + 20 + 8 * i, 0x80000030, 4}});
  }
  return file;
}

// In this process' environment; null removes it.
void SetVariable(const char* name, const char* value) {
#ifdef _WIN32
  ::_putenv_s(name, value ? value : "");
#else
  static_cast<void>(value ? ::setenv(name, value, 1) : ::unsetenv(name));
#endif
}

}  // namespace

TEST_CASE("Texts are read out of 32- and 64-bit libraries, in the first of their languages") {
  TemporaryFolder folder;
  for (const bool is64 : {false, true}) {
    WriteFile(folder / "x.dll", LibraryOfTexts(is64));
    const auto library = Satellites().LoadAsData(folder / "x.dll");
    REQUIRE(library);
    using Case = std::tuple<int, std::size_t, const char*>;  // the size counts characters
    for (const auto& [id, size, text] :
         {Case{401, 1024, "Größe"}, Case{402, 1024, "日本"}, Case{403, 1024, "😀"}, Case{404, 1024, "\uFFFDx"},
          Case{400, 1024, ""}, Case{500, 1024, ""}, Case{404, 1, ""}, Case{402, 2, "日"}}) {
      CHECK(library->LoadString(id, size) == text);
    }
  }
}

TEST_CASE("What is no library, is cut or damaged, or has no texts is none, and is read without harm") {
  TemporaryFolder folder;
  CHECK(Satellites().LoadAsData(folder / "missing.dll") == nullptr);
  const std::string whole = LibraryOfTexts(false);
  REQUIRE(ReadStringTable(whole));
  for (std::size_t size = 0; size < whole.size(); ++size) CHECK_FALSE(ReadStringTable(whole.substr(0, size)));
  // Another type of resource alone; a folder that names itself; a block number whose ids would begin at zero again; a
  // block that ends within its texts; one that is a text itself.
  for (const Number& hostile : {Number{0x210, 16, 4}, Number{0x218 + 20, 0x80000018, 4},
                                Number{0x218 + 16, 0x1000001A, 4}, Number{0x254, 40, 4}, Number{0x218 + 20, 0x30, 4}}) {
    CAPTURE(hostile.At);
    std::string bytes = whole;
    Put(bytes, {hostile});
    WriteFile(folder / "x.dll", bytes);
    CHECK(Satellites().LoadAsData(folder / "x.dll") == nullptr);
  }
  CHECK_FALSE(ReadStringTable(LibraryOfSharedBlocks(4000)));  // texts that are named again and again
  std::mt19937 random(20031);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes = whole;
    for (int i = 0; i < 4; ++i) bytes[random() % bytes.size()] = static_cast<char>(random() % 256);
    const auto texts = ReadStringTable(bytes);
    if (texts) CHECK(texts->size() <= 16);
  }
}

TEST_CASE("A locale's name leads to the platform's number and abbreviation") {
  using Case = std::tuple<const char*, int, const char*>;
  for (const auto& [text, id, abbreviation] :
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
    CAPTURE(text);
    CHECK(LocaleNamed(text).Id == id);
    CHECK(LocaleNamed(text).Abbreviation == abbreviation);
  }
}

TEST_CASE("A language is understood by its letters, as a locale and in English, in any case") {
  for (const auto& [language, names] : {std::pair{"DEU", "DEU deu de DE de_DE de_de.UTF-8 German de_XX"},
                                        {"DEA", "de-at"},
                                        {"PTG", "pt-PT PTG"},
                                        {"PTB", "portuguese"},
                                        {"ESP", "es_ES@tradnl"},
                                        {"ENU", "en"},
                                        {"FPO", "fil"},
                                        {"none", "tlh klingon d germany _DE"}}) {
    std::istringstream all(names);
    for (std::string name; all >> name;) CHECK_MESSAGE(LanguageNamed(name).value_or("none") == language, name);
  }
  CHECK_FALSE(LanguageNamed(""));
}

TEST_CASE("The user's locale is that of the first variable that is set") {
  const std::array names{"LC_ALL", "LC_MESSAGES", "LANG"};
  for (const char* name : names) SetVariable(name, nullptr);
  using Case = std::tuple<const char*, const char*, int, const char*>;
  for (const auto& [name, value, id, language] :
       {Case{"LANG", nullptr, 1033, "ENU"}, Case{"LANG", "de_DE.UTF-8", 1031, "DEU"},
        Case{"LC_MESSAGES", "fr_CA", 3084, "FRC"}, Case{"LC_ALL", "", 3084, "FRC"},  // as if unset
        Case{"LC_ALL", "C", 1033, "ENU"}}) {
    SetVariable(name, value);
    CHECK(Satellites().UserLocaleId() == id);
    CHECK(Satellites().UserLanguage() == language);
  }
  for (const char* name : names) SetVariable(name, nullptr);
}
