#include "tests/support/GenerationFixture.h"

using namespace formwizard;
using namespace formwizard::tests;
using namespace formwizard::model;
using runtime::Overflow;
using runtime::SubscriptOutOfRange;

namespace {

struct FormWithRows : GenerationFixture {
  FormWithRows(int columns, const std::vector<int>& rowCounts) {
    Settings.Columns = Int16(columns);
    for (const int rows : rowCounts) AddField(kind::ListBox, "P", rows);
  }
};

std::string GridText(const FormModel& form) {
  std::string text;
  for (const LayoutColumn& column : form.LayoutGrid) {
    text += "|";
    for (const Int16 field : column) text += " " + Text(field);
  }
  return text;
}

}  // namespace

TEST_CASE("ComputePositions fills a column until it has its share of rows") {
  struct Case {
    int columns;
    std::vector<int> rowCounts;
    std::string grid;
  };
  for (const Case& c : {Case{1, {1, 1, 1}, "| 1 2 3"}, Case{2, {1, 5, 1}, "| 1 2| 3"},
                        Case{3, {1, 1, 1, 1, 1}, "| 1 2| 3 4| 5"}, Case{2, {10}, "| 1|"},  // the last one still exists
                        Case{2, {0, 0, 0}, "| 1| 2 3"},  // a share of no rows is reached at once
                        Case{2, {}, "||"}}) {
    CAPTURE(c.grid);
    FormWithRows run(c.columns, c.rowCounts);
    run.LayOut();
    CHECK(GridText(run.Form) == c.grid);
  }
}

TEST_CASE("ComputeLayout sizes columns by their widest caption and the frame by its content") {
  struct Case {
    int columns, fields;
    bool button;
    std::string layout;  // width of a control, left of column 2, width of all; frame; top of the last field
  };
  // Captions "P" are 10 twips wide; three spacings of 120 a column.
  for (const Case& c :
       {Case{1, 10, true, "4000, 0, 4370; 3960 x 5705; 3480"}, Case{1, 2, true, "4000, 0, 4370; 2975 x 5705; 600"},
        Case{2, 1, false, "2000, 2370, 4730; 2975 x 4730; 240"},  // the empty column counts
        Case{3, 5, true, "1333, 1703, 5109; 2975 x 6444; 240"}}) {
    FormWithRows run(c.columns, std::vector<int>(static_cast<std::size_t>(c.fields), 1));
    run.Settings.Button = c.button;
    run.LayOut();
    const FormModel& form = run.Form;
    CHECK(Text(form.ControlWidth) + ", " + Text(form.ColumnLefts[Int16(2)]) + ", " + Text(form.ColumnsWidth) + "; " +
              Text(form.FrameHeight) + " x " + Text(form.FrameWidth) + "; " +
              Text(form.Fields[Int16(c.fields)].ControlTop) ==
          c.layout);
    CHECK(run.Settings.ButtonAreaWidth == Int16(c.button ? 1335 : 0));
  }
}

TEST_CASE("Sizes and settings out of range end the layout with their error") {
  const auto layOut = [](int columns, const std::vector<int>& rows) {
    return ErrorNumberOf([&] { FormWithRows(columns, rows).LayOut(); });
  };
  CHECK(layOut(0, {1}) == runtime::DivisionByZero);
  CHECK(layOut(5, {1}) == SubscriptOutOfRange);
  CHECK(layOut(-1, {1}) == SubscriptOutOfRange);
  CHECK(layOut(1, {90}) == 0);
  CHECK(layOut(1, {91}) == Overflow);            // a top past 32767
  CHECK(layOut(4, {20000, 20000}) == Overflow);  // rows past 32767
}
