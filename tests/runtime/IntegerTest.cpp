#include "runtime/OneBased.h"
#include "tests/support/Test.h"

using namespace formwizard::runtime;
using formwizard::tests::ErrorNumberOf;

TEST_CASE("Arithmetic that leaves its range is an overflow, never a wrap") {
  const Int16 most(32767), least(-32768);
  for (const auto overflow : {+[] { (void)(Int16(32767) + Int16(1)); }, +[] { (void)(Int16(-32768) - Int16(1)); },
                              +[] { (void)(Int16(200) * Int16(200)); }, +[] { (void)-Int16(-32768); },
                              +[] { (void)(Int16(-32768) / Int16(-1)); }, +[] { (void)(Int32(2147483647) + Int32(1)); },
                              +[] { (void)Int16(32768); }, +[] { (void)Int16(Int32(-32769)); }}) {
    CHECK(ErrorNumberOf(overflow) == Overflow);
  }
  CHECK(ErrorNumberOf([] { (void)(Int16(1) / Int16(0)); }) == DivisionByZero);

  CHECK(most + Int32(1) == Int32(32768));  // mixed arithmetic is 32 bits wide
  CHECK(Int16(200) * Int32(200) == Int32(40000));
  CHECK(Int16(4000) / Int16(3) == Int16(1333));
  CHECK(Int16(-7) / Int16(2) == Int16(-3));
  CHECK(Text(least) == "-32768");
}

TEST_CASE("Arrays count from 1 and check every index") {
  OneBased<Int16> array(Int16(2));
  array[Int16(1)] = Int16(10);
  array[Int16(2)] = Int16(20);
  for (const int index : {0, 3, -1}) CHECK(ErrorNumberOf([&] { array[Int16(index)]; }) == SubscriptOutOfRange);
  array.ReDimPreserve(Int16(3));
  CHECK(array[Int16(2)] == Int16(20));
  CHECK(array[Int16(3)] == Int16(0));
  CHECK(OneBased<Int16>(Int16(0)).UpperBound() == Int16(0));
  CHECK(ErrorNumberOf([] { OneBased<Int16>(Int16(-1)); }) == SubscriptOutOfRange);
}
