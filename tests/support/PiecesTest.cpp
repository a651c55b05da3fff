#include "support/Pieces.h"

#include <doctest/doctest.h>

using formwizard::support::GetPiece;

TEST_CASE("Pieces are counted from 1 and empty past the last one") {
  CHECK(GetPiece("a;b;c", ";", 1) == "a");
  CHECK(GetPiece("a;b;c", ";", 3) == "c");
  CHECK(GetPiece("a;b;c", ";", 4).empty());
  CHECK(GetPiece("abc", ";", 1) == "abc");
  CHECK(GetPiece("abc", ";", 2).empty());
  CHECK(GetPiece("a;;c", ";", 2).empty());
  CHECK(GetPiece("a--b--", "--", 2) == "b");
  CHECK(GetPiece("", ";", 1).empty());
}
