#include "adapters/satellite/Locales.h"
#include "adapters/satellite/StringResources.h"
#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "resources/DesktopTexts.h"
#include "resources/StringTable.h"

#include "tests/support/Languages.h"

#include <cctype>

using namespace formwizard;
using namespace formwizard::adapters::satellite;
using namespace formwizard::tests;

namespace {

// Captions that are on the screen together; 103 and 118, 507 and 513 share a letter in English only.
const std::vector<std::vector<int>> KeyGroups{{50, 51, 52, 53, 103, 114, 115, 118},
                                              {506, 507, 509, 510, 511, 512, 513, 550, 551},
                                              {200, 201, 202, 203, 204, 205, 219},
                                              {206, 207, 208},
                                              {215, 216}};

// The buttons of generated forms are 1095 twips wide, with a border and one line of text.
constexpr int ButtonCaptions[] = {200, 201, 202, 203, 204, 219};
constexpr double ButtonRoom = 1095 - 90;

// The desktop program's own texts, which it does not have on Windows, stand behind the wizard's.
std::vector<int> DesktopIds() {
#ifdef _WIN32
  return {};
#else
  return resources::DesktopTextIds();
#endif
}

std::string English(int id) {
  const std::vector<int> desktop = DesktopIds();
  if (std::ranges::binary_search(desktop, id)) {
    return std::string(resources::EnglishText(static_cast<resources::DesktopText>(id)));
  }
  return std::string(resources::StringTableText(id).value_or(""));
}

std::string LibraryPath(std::string_view language) {
  return BuiltFolder() + "OstrelFormWizard" + std::string(language) + ".dll";
}

// Empty for a text without one.
std::string AccessKey(const std::string& text) {
  const std::size_t at = text.find('&');
  if (at == std::string::npos) return "";
  return std::string(1, static_cast<char>(std::toupper(static_cast<unsigned char>(text.at(at + 1)))));
}

// What a translation must leave as it is: placeholders, outer blanks, a closing ellipsis.
std::string Frame(const std::string& text) {
  std::ostringstream frame;
  for (const std::string name : {"%S1", "%N1", "%N2", "%1", "%2", "%3", "%4"}) {
    for (auto at = text.find(name); at != std::string::npos; at = text.find(name, at + 1)) frame << name;
  }
  frame << '[' << text.find_first_not_of(' ') << ',' << text.size() - text.find_last_not_of(' ') - 1 << ']';
  frame << text.ends_with("...");
  return frame.str();
}

// The text that is followed by a system's name at once; a full stop as wide as a letter needs no blank behind it.
constexpr int UnableToConnect = 404;
bool IsBlankAdded(int id, const std::string& text) { return id == UnableToConnect && !text.ends_with("。"); }

}  // namespace

TEST_CASE("Every satellite has each text of the program, with the same placeholders, blanks and access keys") {
  for (const ShippedLanguage& language : ShippedLanguages()) {
    if (language.Abbreviation == "ENU") continue;  // in the programs
    CAPTURE(language.Abbreviation);
    const auto texts = ReadSatellite(LibraryPath(language.Abbreviation));
    REQUIRE(texts);
    std::vector<int> ids;
    for (const auto& entry : *texts) {
      const std::string& text = entry.second;
      ids.push_back(entry.first);
      CAPTURE(ids.back());
      CHECK(Frame(text) == Frame(English(ids.back()) + (IsBlankAdded(ids.back(), text) ? " " : "")));
      CHECK_FALSE(text.ends_with(" ..."));  // as English has it alone
      CHECK(text.size() < 1024);
      CHECK(AccessKey(text).empty() == AccessKey(English(ids.back())).empty());
      for (const char key : AccessKey(text)) CHECK((key >= 'A' && key <= 'Z'));
    }
    std::ranges::sort(ids);
    std::vector<int> expected = resources::StringTableIds();
    std::ranges::copy(DesktopIds(), std::back_inserter(expected));
    CHECK(ids == expected);
    for (const int id : ButtonCaptions) {
      CAPTURE(texts->at(id));
      CHECK(adapters::textmeasure::BuiltInTextMeasure().WidthOf(texts->at(id)) <= ButtonRoom);
    }
    for (const std::vector<int>& group : KeyGroups) {
      std::string keys;
      for (const int id : group) keys += AccessKey(texts->at(id));
      CAPTURE(keys);
      std::ranges::sort(keys);
      CHECK(std::ranges::adjacent_find(keys) == keys.end());
    }
  }
}

TEST_CASE("Users of every region have their language") {
  std::set<int> shipped;  // languages without regard to the region, which is in the higher bits
  for (const ShippedLanguage& language : ShippedLanguages()) shipped.insert(language.LocaleId & 0x3FF);
  for (const Locale& locale : AllLocales()) {
    CAPTURE(locale.Name);
    if (shipped.contains(locale.Id & 0x3FF) && !locale.Name.starts_with("en"))
      CHECK(IsSatellite(LibraryPath(locale.Abbreviation)));
  }
  for (const auto& [region, language] :
       {std::pair{"DEA", "DEU"}, {"ESP", "ESN"}, {"FRC", "FRA"}, {"ITS", "ITA"}, {"ZHH", "CHT"}, {"ZHI", "CHS"}}) {
    CAPTURE(region);
    CHECK(ReadFile(LibraryPath(region)) == ReadFile(LibraryPath(language)));
  }
}
