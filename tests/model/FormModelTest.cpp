#include "model/FormModel.h"
#include "tests/support/Test.h"

using namespace formwizard::model;

TEST_CASE("Records are taken in order and the array grows by ten, keeping what it holds") {
  FormModel form;
  form.ResetFieldRecords();
  CHECK(form.Fields.UpperBound() == Int16(10));
  for (Int16 expected(1); expected <= Int16(11); expected += Int16(1)) {
    CHECK(form.AllocateFieldRecord() == expected);
    CHECK(form.AllocateFieldRecord() == expected);  // without a kind it is still free
    form.Fields[expected].FieldKind = kind::TextBox;
    form.Fields[expected].Caption = Text(expected);
  }
  CHECK(form.Fields.UpperBound() == Int16(20));
  CHECK(form.Fields[Int16(10)].Caption == "10");

  form.ResetFieldRecords();
  CHECK(form.Fields.UpperBound() == Int16(10));
  CHECK(form.AllocateFieldRecord() == Int16(1));
  CHECK(form.Fields[Int16(1)].Caption.empty());
}
