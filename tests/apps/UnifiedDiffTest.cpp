#include "apps/cli/UnifiedDiff.h"
#include "tests/support/Test.h"

using formwizard::apps::cli::UnifiedDiff;

TEST_CASE("Differences are shown with three lines around them") {
  CHECK(UnifiedDiff("a", "x\n", "b", "x\n").empty());
  CHECK(UnifiedDiff("/dev/null", "", "b", "1\r\n2") ==
        "--- /dev/null\n+++ b\n@@ -0,0 +1,2 @@\n+1\r\n+2\n\\ No newline at end of file\n");
  CHECK(UnifiedDiff("a", "1\n2\n3\n4\n5\n6\n7\n8\n9\n", "b", "1\n2\n3\n4\nnew\n6\n7\n8\n9\n") ==
        "--- a\n+++ b\n@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+new\n 6\n 7\n 8\n");
  // Six lines between two changes are the context of both, seven are not.
  CHECK(UnifiedDiff("a", "a\n1\n2\n3\n4\n5\n6\nz\n", "b", "b\n1\n2\n3\n4\n5\n6\ny\n") ==
        "--- a\n+++ b\n@@ -1,8 +1,8 @@\n-a\n+b\n 1\n 2\n 3\n 4\n 5\n 6\n-z\n+y\n");
  CHECK(UnifiedDiff("a", "1\n2\n3\n4\n5\n6\n7\nz\n", "b", "0\n1\n2\n3\n4\n5\n6\n7\n") ==
        "--- a\n+++ b\n@@ -1,3 +1,4 @@\n+0\n 1\n 2\n 3\n@@ -5,4 +6,3 @@\n 5\n 6\n 7\n-z\n");
  CHECK(UnifiedDiff("a", "x\nx\ny\n", "b", "x\ny\nx\n") == "--- a\n+++ b\n@@ -1,3 +1,3 @@\n x\n-x\n y\n+x\n");
}
