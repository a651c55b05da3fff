#include "support/Pieces.h"

#include <doctest/doctest.h>

using formwizard::support::GetPiece;

TEST_CASE("Pieces are counted from 1 and empty past the last one") {
  for (const auto& [index, piece] : {std::pair{1, "a"}, std::pair{2, ""}, std::pair{3, "c"}, std::pair{4, ""}}) {
    CHECK(GetPiece("a;;c", ";", index) == piece);
  }
  CHECK(GetPiece("abc", ";", 1) == "abc");
  CHECK(GetPiece("abc", ";", 2).empty());
  CHECK(GetPiece("a--b--", "--", 2) == "b");
}
