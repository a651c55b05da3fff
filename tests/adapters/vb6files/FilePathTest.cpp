#include "adapters/vb6files/FilePath.h"
#include "tests/support/Test.h"

#include "system/Paths.h"

#include <filesystem>

using namespace formwizard::adapters::vb6files;
using formwizard::system::FolderOf;
using formwizard::system::FolderPart;

TEST_CASE("Paths are cut and joined as the operating system does it") {
  struct Case {
    std::string path, part, folder, projectPath, file;
  };
  std::vector<Case> cases{{"a/b.vbp", "a/", "a", "Forms\\f.frm", "a/Forms/f.frm"},
                          {"/b.vbp", "/", "/", "..\\f.frm", "/../f.frm"},
                          {"/a/b.vbp", "/a/", "/a", "/c/f.frm", "/c/f.frm"}};
  if (std::filesystem::path::preferred_separator == '\\') {
    cases.insert(cases.end(), {{"C:\\a\\b.vbp", "C:\\a\\", "C:\\a", "Forms\\f.frm", "C:\\a\\Forms\\f.frm"},
                               {"C:\\b.vbp", "C:\\", "C:\\", "f.frm", "C:\\f.frm"},
                               {"C:b.vbp", "C:", "C:.", "Forms\\f.frm", "C:Forms\\f.frm"},
                               {"b.vbp", "", ".", "D:\\c\\f.frm", "D:\\c\\f.frm"},
                               {"\\\\host\\a\\b.vbp", "\\\\host\\a\\", "\\\\host\\a", "f.frm", "\\\\host\\a\\f.frm"},
                               {"a\\b.vbp", "a\\", "a", "\\c\\f.frm", "\\c\\f.frm"}});
  } else {
    cases.insert(cases.end(), {{"a\\b.vbp", "", ".", "Forms\\f.frm", "Forms/f.frm"},
                               {"b.vbp", "", ".", "C:\\c\\f.frm", "C:\\c\\f.frm"}});
  }
  for (const Case& c : cases) {
    CAPTURE(c.path);
    CHECK(FolderPart(c.path) == c.part);
    CHECK(FolderOf(c.path) == c.folder);
    CHECK(FileIn(FolderPart(c.path), c.projectPath) == c.file);
  }
}
