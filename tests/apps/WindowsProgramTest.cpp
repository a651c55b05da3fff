// What the command line program is to Windows, and what only there can go wrong with its arguments, paths and output.
#include "system/WholeFile.h"
#include "tests/support/RunProgram.h"

#include <windows.h>

using namespace formwizard;
using namespace formwizard::tests;

TEST_CASE("The program's manifest is one, and says what the program relies on") {
  const std::wstring program = NativePath(BuiltProgram("ostrel-form-wizard")).make_preferred();
  ACTCTXW source{};
  source.cbSize = sizeof source;
  source.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
  source.lpSource = program.c_str();
  source.lpResourceName = MAKEINTRESOURCEW(1);
  const HANDLE context = ::CreateActCtxW(&source);
  REQUIRE(context != INVALID_HANDLE_VALUE);
  using Setting = std::tuple<const wchar_t*, const wchar_t*, const wchar_t*>;
  for (const auto& [year, name, expected] : {Setting{L"2005", L"dpiAware", L"true"},
                                             {L"2016", L"dpiAwareness", L"system"},
                                             {L"2016", L"longPathAware", L"true"},
                                             {L"2019", L"activeCodePage", L"UTF-8"}}) {
    const std::wstring space = std::wstring(L"http://schemas.microsoft.com/SMI/") + year + L"/WindowsSettings";
    std::array<wchar_t, 32> value{};
    SIZE_T size = 0;
    CHECK(::QueryActCtxSettingsW(0, context, space.c_str(), name, value.data(), value.size(), &size));
    CHECK(std::wstring(value.data()) == expected);
  }
  ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION level{};
  CHECK(::QueryActCtxW(0, context, nullptr, RunlevelInformationInActivationContext, &level, sizeof level, nullptr));
  CHECK(level.RunLevel == ACTCTX_RUN_LEVEL_AS_INVOKER);
  ::ReleaseActCtx(context);
}

namespace {

struct Place {
  TemporaryFolder Folder;
  Place() {
    CopySample("new-project", Folder / "project");
    CHECK(Run("dictionary import \"" + SourceFolder() + "/samples/dictionary.json\" d.sqlite").Status == 0);
  }
  Outcome Run(const std::string& arguments) const {
    return RunProgram(BuiltProgram("ostrel-form-wizard"), arguments, Folder);
  }
  std::string Generate(const std::string& more) const {
    return "generate --project project/Project1.vbp --dictionary d.sqlite --toolbox \"" + SourceFolder() +
           "/samples/toolbox.ini\" " + more;
  }
};

// Runs the program without a shell, which takes no long command line; returns its exit status.
DWORD RunAlone(const TemporaryFolder& folder, const std::string& arguments, HANDLE output) {
  std::wstring commandLine = NativePath("\"" + BuiltProgram("ostrel-form-wizard") + "\" " + arguments);
  STARTUPINFOW start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = output;
  PROCESS_INFORMATION process{};
  REQUIRE(::CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, folder.Path().c_str(),
                           &start, &process));
  ::WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  ::GetExitCodeProcess(process.hProcess, &status);
  ::CloseHandle(process.hProcess);
  ::CloseHandle(process.hThread);
  return status;
}

// The standard library's removes no long path.
void RemoveAll(const std::string& folder) {
  system::FileSystem& files = system::RealFileSystem();
  for (const std::string& name : files.NamesIn(folder).value_or(std::vector<std::string>())) {
    const std::string path = folder + "/" + name;
    files.KindOf(path) == system::FileKind::Folder ? RemoveAll(path) : files.Remove(path);
  }
  files.RemoveFolder(folder);
}

}  // namespace

TEST_CASE("Settings are shared with the add-in, in the machine's code page, although the program's own is UTF-8") {
  const Place place;
  std::string dictionary = ReadFile(SourceFolder() + "/samples/dictionary.json");
  dictionary.replace(dictionary.find("\"Samples\"") + 1, 7, "Bücher");
  WriteFile(place.Folder / "d.json", dictionary);
  CHECK(place.Run("dictionary import d.json d.sqlite").Status == 0);
  const std::string before =
      "[Other]\r\nName=B\xFC"
      "cher\r\n[OstrelFormWizard]\r\nColumns=2\r\n";
  WriteFile(place.Folder / "own.ini", before);
  const Outcome made = place.Run(place.Generate("--profile own.ini --class Sample.Person --fields Name"));
  CHECK_MESSAGE(made.Status == 0, made.Error);
  CHECK(ReadFile(place.Folder / "own.ini") == before +
                                                  "LastConnect=B\xFC"
                                                  "cher\r\n");
}

TEST_CASE("Names of descriptions may have wildcards, and one that no file fits stays as it is") {
  const Place place;
  for (const char* name : {"my forms/Form2.json", "my forms/form1.json", "my forms/other.json"}) {
    WriteFile(place.Folder / name, "{\"class\":\"Sample.Person\",\"fields\":[\"Name\"]}");
  }
  const Outcome both = place.Run(place.Generate("--dry-run \"my forms\\FORM?.json\""));
  CHECK_MESSAGE(both.Status == 0, both.Error);
  CHECK(Has(both.Out, "frmPerson2.frm"));
  CHECK_FALSE(Has(both.Out, "frmPerson3.frm"));
  const Outcome none = place.Run(place.Generate("--dry-run forms/*.txt"));
  CHECK(none.Status == 3);
  CHECK_MESSAGE(Has(none.Error, "forms/*.txt: there is no such file"), none.Error);
}

TEST_CASE("Long paths work, and longer ones than the machine takes stop the run before anything is written") {
  const Place place;
  system::FileSystem& files = system::RealFileSystem();
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  const HANDLE nowhere = ::CreateFileW(L"NUL", GENERIC_WRITE, 0, &inherited, OPEN_EXISTING, 0, nullptr);
  WriteFile(place.Folder / "form.json", "{\"class\":\"Sample.Person\",\"fields\":[\"Name\"]}");
  const std::string part = "Ordner mit einem langen Namen, Größe und Farbe/";  // 48 bytes
  std::string deep;
  for (int i = 0; i < 28; ++i) deep += part;
  files.CreateFolders(place.Folder / (deep + "project"));
  for (const char* name : {"Project1.vbp", "Form1.frm"}) {
    system::WriteNewFile(files, place.Folder / (deep + "project/" + name),
                         ReadFile(place.Folder / ("project/" + std::string(name))));
  }
  const auto names = files.NamesIn(Utf8(place.Folder.Path()));
  for (const bool isTooLong : {false, true}) {
    for (int i = 0; isTooLong && i < 100; ++i) deep += part;
    const auto at = [&](const std::string& name) { return " \"" + deep + name + "\""; };
    const std::string samples = "\"" + SourceFolder() + "/samples/";
    for (const std::string& arguments :
         {"dictionary import " + samples + "dictionary.json\"" + at("d.sqlite"),
          "dictionary export" + at("d.sqlite") + at("d.json"), "dictionary import" + at("d.json") + at("d.sqlite"),
          "generate form.json --project" + at("project/Project1.vbp") + " --dictionary d.sqlite --toolbox " + samples +
              "toolbox.ini\" --profile" + at("new/own.ini") + " --journal" + at("j")}) {
      CAPTURE(arguments);
      const DWORD status = RunAlone(place.Folder, arguments, nowhere);
      CHECK((isTooLong ? status >= 3 : status == 0));
    }
  }
  CHECK(files.NamesIn(Utf8(place.Folder.Path())) == names);
  ::CloseHandle(nowhere);
  RemoveAll(place.Folder / part.substr(0, part.size() - 1));
}

namespace {

// A console of this process' own while the object lives, of which programs get a screen for their output.
class Console {
 public:
  Console() {
    ::FreeConsole();
    REQUIRE(::AllocConsole());
    SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
    screen_ = ::CreateConsoleScreenBuffer(GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                                          CONSOLE_TEXTMODE_BUFFER, nullptr);
    REQUIRE(screen_ != INVALID_HANDLE_VALUE);
  }
  ~Console() {
    ::CloseHandle(screen_);
    ::FreeConsole();
  }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  // What the program leaves in the first line of the empty screen, without blanks at its end.
  std::string Show(const TemporaryFolder& folder, const std::string& arguments, UINT codePage, SHORT row = 0) {
    CHECK(::SetConsoleOutputCP(codePage));
    constexpr SHORT width = 120;
    DWORD count = 0;
    ::SetConsoleScreenBufferSize(screen_, {width, 50});
    ::FillConsoleOutputCharacterW(screen_, L' ', width * 50, {0, 0}, &count);
    ::SetConsoleCursorPosition(screen_, {0, 0});
    RunAlone(folder, arguments, screen_);
    CHECK(::GetConsoleOutputCP() == codePage);
    std::wstring text(width, L' ');
    CHECK(::ReadConsoleOutputCharacterW(screen_, text.data(), width, {0, row}, &count));
    return Utf8(text.substr(0, text.find_last_not_of(L' ') + 1));
  }

 private:
  HANDLE screen_ = nullptr;
};

}  // namespace

TEST_CASE("A console shows all characters of output and messages, whatever its code page") {
  const Place place;
  WriteFile(place.Folder / "d.json", R"({"systems":[{"name":"Bücher","connect":"Žluťoučký"}]})");
  CHECK(place.Run("dictionary import d.json d.sqlite").Status == 0);
  Console console;
  for (const UINT codePage : {437U, 850U, 1252U, 65001U}) {
    CAPTURE(codePage);
    CHECK(console.Show(place.Folder, "systems --dictionary d.sqlite", codePage, 1) == "Bücher  Žluťoučký");
    CHECK(console.Show(place.Folder, "systems --dictionary Žluťoučký", codePage).find(": Žluťoučký: ") !=
          std::string::npos);
  }
}
