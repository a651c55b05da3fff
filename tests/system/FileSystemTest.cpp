#include "support/Failures.h"
#include "system/Aside.h"
#include "system/ContentSum.h"
#include "system/Paths.h"
#include "system/WholeFile.h"
#include "tests/support/TemporaryFolder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <numeric>

namespace {

using namespace formwizard;
using namespace formwizard::tests;
using support::InputError;
using support::SaveError;

namespace fs = std::filesystem;

TEST_CASE("The sum of a content tells it from any that differs in a byte or in its length, on every machine") {
  std::string bytes(56, '\0');
  std::iota(bytes.begin(), bytes.end(), '\xC8');
  CHECK(system::ContentSum(bytes) == 0x43BA780A900BE6AD);
  std::set<std::uint64_t> sums;
  for (std::size_t length = 0; length <= 100; ++length) {
    bytes.assign(length, '\0');
    sums.insert(system::ContentSum(bytes));
    for (char& byte : bytes) {
      for (const char other : {'\x01', '\x80'}) {
        byte = other;
        sums.insert(system::ContentSum(bytes));
      }
      byte = '\0';
    }
  }
  CHECK(sums.size() == 101 + 2 * 5050);
}

TEST_CASE("The file system of this machine keeps what saving relies on") {
  const TemporaryFolder temporary;
  const fs::path folder = NativePath(temporary / "Größe 項目");
  fs::create_directories(folder / "Forms");
  const std::string at = Utf8(folder) + "/";
  system::FileSystem& files = system::RealFileSystem();

  WriteNewFile(files, at + "a", "one");
  CHECK_THROWS_AS(WriteNewFile(files, at + "a", "two"), SaveError);
  WriteNewFile(files, at + "b", "two");
  CHECK_FALSE(files.MoveNew(at + "b", at + "a"));
  CHECK(files.Read(at + "a") == "one");
  CHECK(files.MoveNew(at + "b", at + "Forms/c.frm"));
  CHECK_FALSE(files.Read(at + "b"));
  CHECK(files.ReadHead(at + "Forms/c.frm", 2)->Bytes == "tw");
  CHECK_THROWS_WITH_AS(files.Read(at + "Forms/c.frm", 2), doctest::Contains("c.frm: the file has"), InputError);

  CHECK(files.NamesIn(at + "Forms") == std::vector<std::string>{"c.frm"});
  CHECK_FALSE(files.NamesIn(at + "none"));
  CHECK_THROWS_WITH_AS(files.Read(Utf8(folder)), doctest::Contains("this is a folder"), InputError);

  auto lock = files.LockFolder(Utf8(folder));
  CHECK_FALSE(files.LockFolder(Utf8(folder)));
  lock.reset();
  CHECK(files.LockFolder(Utf8(folder)));
  CHECK_THROWS_AS(files.LockFolder(at + "none"), SaveError);

  WriteNewFile(files, at + "d", "new", at + "a");
  files.Replace(at + "d", at + "a");
  CHECK(files.Read(at + "a") == "new");
  if (files.Exchange(at + "a", at + "Forms/c.frm")) CHECK(files.Read(at + "a") == "two");

  CHECK_THROWS_AS(files.FlushFolder(at + "none"), SaveError);
  files.Remove(at + "none");
  CHECK_FALSE(files.RemoveFolder(Utf8(folder)));
  files.Remove(at + "Forms/c.frm");
  CHECK(files.RemoveFolder(at + "Forms"));
  CHECK_FALSE(fs::exists(folder / "Forms"));
}

TEST_CASE("A whole file keeps its permissions and links, and leaves nothing beside it") {
  const TemporaryFolder temporary;
  system::FileSystem& files = system::RealFileSystem();
  const std::string file = temporary / "a/outility.ini";
  CHECK_THROWS_WITH_AS(WriteWholeFile(files, file, "one"), doctest::Contains("there is no folder"), SaveError);
  MakeFolderOf(files, file);
  WriteWholeFile(files, file, "one");
  fs::permissions(NativePath(file), fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write);
  const auto permissions = fs::status(NativePath(file)).permissions();
  std::error_code error;
  fs::create_symlink("outility.ini", NativePath(temporary / "a/link.ini"), error);
  const std::string path = error ? file : temporary / "a/link.ini";
  {
    system::WholeFile given(files, path);
    given.Stream() << std::string(100000, 'x');
  }
  system::WholeFile changed(files, path);
  changed.Stream() << "two";
  CHECK_FALSE(changed.CommitOver("other"));
  CHECK(ReadFile(file) == "one");
  CHECK(changed.CommitOver("one"));
  CHECK(fs::is_symlink(NativePath(temporary / "a/link.ini")) == !error);
  CHECK(fs::status(NativePath(file)).permissions() == permissions);
  for (const auto& [name, bytes] : FilesIn(temporary.Path())) CHECK(bytes == "two");
  CHECK(FilesIn(temporary.Path()).size() == (error ? 1 : 2));
  CHECK_THROWS_WITH_AS(WriteWholeFile(files, temporary / "a", ""), doctest::Contains("this is a folder"), SaveError);
}

TEST_CASE("What a crash has left behind goes with the next write, and nothing else") {
  const TemporaryFolder temporary;
  system::FileSystem& files = system::RealFileSystem();
  const std::string file = temporary / "a.json";
  for (const std::string& name : {system::AsideName("a.json"), system::AsideName("b.json"), std::string("a.json.new"),
                                  std::string("a.json.0123456789abcdef01234567.new")}) {
    WriteFile(temporary / name, "left");
  }
  system::WholeFile first(files, file), second(files, file);  // does not take the first one's for left behind
  first.Write("first");
  second.Write(std::string(300000, '2'));
  second.Commit();
  first.Commit();
  CHECK(ReadFile(file) == "first");
  CHECK(FilesIn(temporary.Path()).size() == 4);
  CHECK(FilesIn(temporary.Path()).contains("a.json.new"));
}

#ifndef _WIN32
TEST_CASE("A pipe, a device and a path that is none are refused at once, for reading and for writing") {
  const TemporaryFolder temporary;
  system::FileSystem& files = system::RealFileSystem();
  REQUIRE(::mkfifo((temporary / "pipe").c_str(), 0600) == 0);
  fs::create_symlink("loop", temporary / "loop");
  std::string deep;
  for (int i = 0; i < 20000; ++i) deep += "a/";
  for (const std::string& path : {temporary / "pipe", std::string("/dev/zero"), temporary / "loop", deep + "p.vbp",
                                  std::string("a\0b", 3), std::string()}) {
    CAPTURE(path);
    CHECK_THROWS_AS(files.Read(path), InputError);
    const bool isOfMachine = path.starts_with("/dev/");  // a fault would replace it
    if (!isOfMachine) CHECK_THROWS_AS(WriteWholeFile(files, path, "x"), SaveError);
  }
  fs::remove(temporary / "loop");
  WriteFile(temporary / "kept", "old");
  fs::create_symlink("kept", temporary / system::AsideName("kept"));  // somebody's link is no file of ours
  WriteWholeFile(files, temporary / "kept", "new");
  CHECK(FilesIn(temporary.Path()).size() == 2);
}
#endif

}  // namespace
