#include "apps/cli/Listing.h"

#include <doctest/doctest.h>

#include <sstream>

using namespace formwizard::apps::cli;

TEST_CASE("A listing is aligned by characters, goes out as it comes, and obeys nothing that stands in it") {
  std::ostringstream aligned, separated, json;
  Listing people(aligned, ListingForm::Aligned, {"NAME", "KIND", "NOTE"}),
      script(separated, ListingForm::Separated, {"A", "B", "C"});
  people.Add({"Größe", "a", ""}, nullptr);
  people.Add({"x", "\x1B[1m\t", "last"}, nullptr, 1);
  CHECK(aligned.str().empty());  // the columns are not known yet
  for (int i = 0; i < 498; ++i) people.Add({"n", "", ""}, nullptr);
  const std::string start = "NAME   KIND       NOTE\nGröße  a\n  x    \\x1B[1m\\t  last\nn\n";
  CHECK(aligned.str().starts_with(start));
  people.Add({"longer than all", "b", "c"}, nullptr);
  people.Add({"n", "b", "c"}, nullptr);
  people.End();
  CHECK(aligned.str().ends_with("\nn\nlonger than all  b          c\nn                b          c\n"));

  script.Add({"a", "", "\t\x1B"}, nullptr, 1);
  CHECK(separated.str() == "a\t\t\\t\\x1B\n");
  Listing none(json, ListingForm::Json, {"A"});
  none.End();
  CHECK(json.str() == "[]\n");
}
