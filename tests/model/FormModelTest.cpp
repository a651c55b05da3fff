#include "model/FormModel.h"

#include <doctest/doctest.h>

using namespace formwizard::model;

TEST_CASE("Records are taken in order and the array grows by ten, keeping what it holds") {
  FormModel form;
  form.ResetFieldRecords();
  CHECK(form.Fields.UpperBound() == Int16(10));
  for (Int16 expected(1); expected <= Int16(11); expected += Int16(1)) {
    const Int16 index = form.AllocateFieldRecord();
    CHECK(index == expected);
    form.Fields[index].FieldKind = kind::TextBox;
    form.Fields[index].Caption = Text(index);
  }
  CHECK(form.Fields.UpperBound() == Int16(20));
  CHECK(form.Fields[Int16(10)].Caption == "10");

  // A record that was allocated and not given a kind is still free.
  CHECK(form.AllocateFieldRecord() == Int16(12));
  CHECK(form.AllocateFieldRecord() == Int16(12));

  form.ResetFieldRecords();
  CHECK(form.Fields.UpperBound() == Int16(10));
  CHECK(form.AllocateFieldRecord() == Int16(1));
  CHECK(form.Fields[Int16(1)].Caption.empty());
}
