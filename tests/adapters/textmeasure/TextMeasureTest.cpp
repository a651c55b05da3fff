#include "adapters/textmeasure/BuiltInTextMeasure.h"
#include "tests/support/Test.h"

using formwizard::adapters::textmeasure::BuiltInTextMeasure;

TEST_CASE("Captions are as wide as the platform measures them") {
  const BuiltInTextMeasure measure;
  // In pixels of 15 twips, as the platform's own measurement gives them for this font.
  for (const auto& [caption, pixels] : {std::pair{"", 0}, std::pair{"M", 9}, std::pair{"Name", 28},
                                        std::pair{"Home City", 48}, std::pair{"AVAWAToy", 57}, std::pair{"Größe", 29},
                                        std::pair{"€", 6}, std::pair{"Ж", 11}, std::pair{"漢字", 24}}) {
    CAPTURE(caption);
    CHECK(measure.WidthOf(caption) == pixels * 15);
  }
}

TEST_CASE("The mark of an access key takes no room") {
  const BuiltInTextMeasure measure;
  CHECK(measure.WidthOf("Ca&ption") == measure.WidthOf("Caption"));
  CHECK(measure.WidthOf("a && b") == measure.WidthOf("a  b") + 6 * 15);
  CHECK(measure.WidthOf("end&") == measure.WidthOf("end"));
  CHECK(measure.WidthOf("\xFF\xC3") == 2 * measure.WidthOf("\xFF"));  // damaged text is measured too
}
