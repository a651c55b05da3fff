// The doctor of an installation in a folder of its own, in which one thing after the other is broken.
#include "apps/registration/Registration.h"
#include "tests/support/RunProgram.h"

using namespace formwizard::tests;
using namespace formwizard::apps::registration;

namespace {

constexpr const char* TestClass = "{5B1F0000-0D0C-4000-8000-000000000001}";
constexpr const char* OtherClass = "{5B1F0000-0D0C-4000-8000-000000000002}";
constexpr const char* Paths = "Software\\Microsoft\\Windows\\CurrentVersion\\App Paths\\VB6.EXE";
constexpr const char* Layers = "Software\\Microsoft\\Windows NT\\CurrentVersion\\AppCompatFlags\\Layers";
const std::string Classes = "Software\\Classes\\";
const std::string Server = Classes + "OstrelObject.Factory\\CLSID";
const std::array<std::string, 3> Controls{"MSComctlLib.ListViewCtrl", "MSCOMDLG.CommonDialog",
                                          "OSTRELQUERY.OstrelQueryCtrl.1"};

void Set(HKEY hive, const std::string& key, const std::string& text, const char* name = "") {
  CHECK(::RegSetKeyValueA(hive, key.c_str(), name, REG_SZ, text.c_str(), static_cast<DWORD>(text.size() + 1)) == 0);
}
void Remove(HKEY hive, const std::string& key) { ::RegDeleteTreeA(hive, key.c_str()); }

// All keys and values below a key.
void Collect(HKEY parent, const std::string& name, std::ostream& all) {
  HKEY key = nullptr;
  if (::RegOpenKeyExA(parent, name.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS) return;
  all << '[' << name << ']';
  std::array<char, 512> text{}, bytes{};
  for (DWORD i = 0;; ++i) {
    DWORD length = text.size(), size = bytes.size();
    auto* data = reinterpret_cast<BYTE*>(bytes.data());
    if (::RegEnumValueA(key, i, text.data(), &length, nullptr, nullptr, data, &size) != ERROR_SUCCESS) break;
    all << text.data() << '=' << std::string(bytes.data(), size) << '\n';
  }
  for (DWORD i = 0; ::RegEnumKeyA(key, i, text.data(), text.size()) == ERROR_SUCCESS; ++i) {
    Collect(key, text.data(), all);
  }
  all << "[]";
  ::RegCloseKey(key);
}

class Installation : Pinned {
 public:
  Installation() {
    for (const char* name : {"ostrel-form-wizard.exe", "OstrelFormWizard.dll", "OstrelFormWizardDEU.dll"}) {
      std::filesystem::copy_file(NativePath(BuiltFolder() + name), NativePath(folder_ / name));
    }
    for (const char* name : {"outility.ini", "VB6.EXE", "control.ocx"}) WriteFile(folder_ / name, "");
    Set(HKEY_LOCAL_MACHINE, Paths, folder_ / "VB6.EXE");
    for (const std::string& control : Controls) Set(HKEY_LOCAL_MACHINE, Classes + control + "\\CLSID", TestClass);
    Set(HKEY_LOCAL_MACHINE, Class() + "\\InprocServer32", folder_ / "control.ocx");
    Set(HKEY_LOCAL_MACHINE, Class() + "\\TypeLib", TestClass);
    Set(HKEY_LOCAL_MACHINE, Classes + "TypeLib\\" + TestClass, "");
    CHECK(Register(Scope::Machine, NativePath(folder_ / "OstrelFormWizard.dll")) == 0);
  }
  ~Installation() {
    for (const std::string& control : Controls) Remove(HKEY_LOCAL_MACHINE, Classes + control);
    for (const std::string& key :
         {Class(), Classes + "CLSID\\" + OtherClass, Classes + "TypeLib\\" + TestClass, Server, std::string(Paths)}) {
      Remove(HKEY_LOCAL_MACHINE, key);
    }
    Remove(HKEY_CURRENT_USER, Layers);
    std::filesystem::remove("C:\\windows\\system32\\mscomctl.ocx");
    Unregister(BothScopes);
  }

  static std::string Class() { return Classes + "CLSID\\" + TestClass; }
  std::string operator/(const std::string& name) const { return folder_ / name; }
  void RegisterFor(Scope scope, const std::string& name) const {
    CHECK(Register(scope, NativePath(folder_ / name)) == 0);
  }
  void UnregisterFor(Scope scope) const { CHECK(Unregister(std::array{scope}) == 0); }

  // What the doctor says but that something is good; a last line is the exit status. "F\" is the folder.
  std::string Complaints(const std::string& options) const {
    const Outcome outcome = RunProgram(folder_ / "ostrel-form-wizard.exe", "doctor " + options, output_);
    std::istringstream lines(outcome.Out);
    std::string complaints;
    for (std::string line; std::getline(lines, line);) {
      for (std::size_t at; (at = line.find(folder_ / "")) != std::string::npos;) {
        line.replace(at, (folder_ / "").size(), "F\\");
      }
      if (!line.starts_with("good ") && !line.empty()) complaints += line + "\n";
    }
    return complaints + std::to_string(outcome.Status);
  }
  // Everything that the doctor could change.
  std::string State() const {
    std::ostringstream all;
    for (const auto& [name, bytes] : FilesIn(folder_.Path())) all << name << '=' << bytes << '\n';
    for (const HKEY hive : {HKEY_LOCAL_MACHINE, HKEY_CURRENT_USER}) {
      for (const char* key : {"Software\\Microsoft\\Visual Basic", "Software\\Classes\\OstrelFormWizard.Wizard",
                              "Software\\Classes\\CLSID", Layers, Paths}) {
        Collect(hive, key, all);
      }
    }
    return all.str() + std::to_string(IsInOlderList());
  }

 private:
  TemporaryFolder folder_, output_;
};

// What stands last of what is not good, with the exit status behind it.
const std::string NoServer = "not-installed server: the server's client, which a class dictionary replaces\n";
const std::string Sound = NoServer + "0", Failed = NoServer + "1";

const std::string SystemFolder = "C:\\windows\\system32\\", Again = "; to mend it: install ";
const std::string Regsvr = "as an administrator, " + SystemFolder + "regsvr32 ",
                  Library = "\"F\\OstrelFormWizard.dll\"\n";
const std::string NoTexts = ": this is not a library with texts, or only part of one";
const std::string Mend = "; to mend it: ", Delete =
                                               "reg delete \"HKCU\\Software\\Microsoft\\Visual Basic\\6.0\\Addins\\"
                                               "OstrelFormWizard.Wizard\" /f /reg:32\n";
const std::string TwoLists =
    "warning       listed-once: your list and that of all users both have it; the environment may load it twice" +
    Mend + Delete;

// The lines of what needs the library when there is none; `between` are those in their midst.
std::string WithoutLibrary(const std::string& state, const std::string& why, const std::string& between = "") {
  const auto line = [&](const std::string& id) { return state + id + ": " + why + "\n"; };
  return line("version") + between + line("loading") + line("creation") + line("add-in-settings") +
         line("add-in-languages");
}
std::string Untold(const std::string& why, const std::string& between = "") {
  return WithoutLibrary("unknown       ", "cannot be told: " + why, between);
}
std::string NotRegistered(const std::string& list) {
  return "not-installed registered: the add-in is not registered; to have it: " + Regsvr + Library +
         "not-installed library: the add-in is not registered\n" +
         WithoutLibrary("not-installed ", "the add-in is not registered", list);
}
std::string CannotKeepSettings(const std::string& id, const std::string& who) {
  return "fault         " + id + ": " + who + " cannot keep its settings: F\\outility.ini: changing the file failed: " +
         "Access denied; F\\outility.ini is as it was before" + Mend + "attrib -r \"F\\outility.ini\"\n";
}
// Wine gives nobody classes of one user, as Windows does to administrators.
const std::string NoUsersClass =
    "unknown       creation: cannot be told: this program runs as an administrator and ignores classes of one user\n";

}  // namespace

TEST_CASE("Each fault of an installation is named with what mends it, and nothing changes unless it is to be mended") {
  struct Case {
    std::string What;
    std::function<void(const Installation&)> Break;
    std::string Complaints, AfterFix = "";  // empty: as before
  };
  const Case cases[] = {
      {"nothing", [](const Installation&) {}, Sound},
      {"a language cut off, one without texts",
       [](const Installation& at) {
         WriteFile(at / "OstrelFormWizardDEU.dll", ReadFile(at / "OstrelFormWizardDEU.dll").substr(0, 1000));
         std::filesystem::copy_file(NativePath(at / "OstrelFormWizard.dll"),
                                    NativePath(at / "OstrelFormWizardXYZ.dll"));
       },
       "fault         languages: F\\OstrelFormWizardDEU.dll" + NoTexts + "; F\\OstrelFormWizardXYZ.dll" + NoTexts +
           Again +
           "the programs again, or for English del \"F\\OstrelFormWizardDEU.dll\" & del "
           "\"F\\OstrelFormWizardXYZ.dll\"\n" +
           Failed},
      {"the registered file is missing", [](const Installation& at) { at.RegisterFor(Scope::Machine, "gone.dll"); },
       "fault         library: F\\gone.dll is not there" + Mend + Regsvr + Library +
           Untold("F\\gone.dll is not there") + Failed},
      {"it is no library", [](const Installation& at) { at.RegisterFor(Scope::Machine, "VB6.EXE"); },
       "fault         library: F\\VB6.EXE is no 32-bit library, as the environment needs" + Mend + Regsvr + Library +
           Untold("F\\VB6.EXE is no 32-bit library, as the environment needs") + Failed},
      {"it is another library, without a version",
       [](const Installation& at) { at.RegisterFor(Scope::Machine, "OstrelFormWizardDEU.dll"); },
       "warning       version: F\\OstrelFormWizardDEU.dll tells no version, this program 1.0.0" + Mend + Regsvr +
           Library + "fault         loading: loading F\\OstrelFormWizardDEU.dll fails: Procedure not found" + Again +
           "the add-in again\nfault         creation: creating the add-in fails: Automation error" + Mend + Regsvr +
           "\"F\\OstrelFormWizardDEU.dll\"\n" + Failed},
      {"another version",
       [](const Installation& at) {
         std::string bytes = ReadFile(at / "OstrelFormWizard.dll");
         bytes.at(bytes.find("\xBD\x04\xEF\xFE") + 8) = 7;  // the second number of the file's version
         WriteFile(at / "OstrelFormWizard.dll", bytes);
       },
       "warning       version: F\\OstrelFormWizard.dll is version 1.7.0, this program 1.0.0" + Mend + Regsvr + Library +
           Sound},
      {"an old class of the user", [](const Installation& at) { at.RegisterFor(Scope::User, "old.dll"); },
       "fault         user-class: your own class names F\\old.dll and hides the one for all users, "
       "F\\OstrelFormWizard.dll" +
           Mend + "\"F\\ostrel-form-wizard.exe\" doctor --fix\nfault         library: F\\old.dll is not there" + Mend +
           Regsvr + Library + Untold("F\\old.dll is not there", TwoLists) + Failed,
       "mended        user-class: removed your own class; nothing hides the class for all users\n" + Sound},
      {"the user's class alone names a file that is missing",
       [](const Installation& at) {
         at.UnregisterFor(Scope::Machine);
         at.RegisterFor(Scope::User, "old.dll");
       },
       "fault         library: F\\old.dll is not there" + Mend + SystemFolder + "regsvr32 /n /i:user " + Library +
           Untold("F\\old.dll is not there") + Failed,
       "mended        library: registered F\\OstrelFormWizard.dll for you; F\\OstrelFormWizard.dll is there\n" +
           NoUsersClass + Sound},
      {"the name of the class is missing",
       [](const Installation&) { Remove(HKEY_LOCAL_MACHINE, Classes + "OstrelFormWizard.Wizard"); },
       "fault         registered: incomplete: HKEY_LOCAL_MACHINE\\Software\\Classes\\OstrelFormWizard.Wizard is "
       "missing "
       "or another's" +
           Mend + Regsvr + Library +
           "fault         creation: creating the add-in fails: ActiveX component can't create "
           "object" +
           Mend + Regsvr + Library + Failed},
      {"in no list",
       [](const Installation&) {
         for (const std::wstring& key : KeysOf(List::AddIns)) ::RegDeleteTreeW(HKEY_LOCAL_MACHINE, key.c_str());
       },
       "fault         add-in-list: the add-in is in no list, and so not on the menu" + Mend +
           "\"F\\ostrel-form-wizard.exe\" doctor --fix\n" + Failed,
       "mended        add-in-list: entered the add-in into your list; in your list and in the older list, loaded at "
       "every start\n" +
           Sound},
      {"in two lists", [](const Installation&) { CHECK(EnterUsersList() == 0); }, TwoLists + Sound},
      {"in a list, but not registered",
       [](const Installation& at) {
         at.UnregisterFor(Scope::Machine);
         CHECK(EnterUsersList() == 0);
       },
       NotRegistered(
           "fault         add-in-list: the add-in is not registered, but listed: the environment complains at "
           "every start" +
           Mend + Delete) +
           Failed,
       NotRegistered(
           "mended        add-in-list: took the add-in out of your list; the add-in is not registered, and in "
           "no list\n") +
           Sound},
      {"the environment runs as an administrator, the add-in is the user's",
       [](const Installation& at) {
         at.UnregisterFor(Scope::Machine);
         at.RegisterFor(Scope::User, "OstrelFormWizard.dll");
         Set(HKEY_CURRENT_USER, Layers, "~ RUNASADMIN", (at / "VB6.EXE").c_str());
       },
       "fault         elevation: Visual Basic is set to run as an administrator and then ignores the add-in, which is "
       "registered for you alone" +
           Mend + Regsvr + "/n /i:machine " + Library + NoUsersClass + Failed},
      {"settings that cannot be written",
       [](const Installation& at) {
         ::SetFileAttributesW(NativePath(at / "outility.ini").c_str(), FILE_ATTRIBUTE_READONLY);
       },
       CannotKeepSettings("settings", "the command line") + CannotKeepSettings("add-in-settings", "the add-in") +
           Failed},
      {"a control that is not registered, one without a type library, one without its file",
       [](const Installation& at) {
         Remove(HKEY_LOCAL_MACHINE, Classes + Controls[0]);
         WriteFile(SystemFolder + "mscomctl.ocx", "");
         Set(HKEY_LOCAL_MACHINE, Installation::Class() + "\\TypeLib", "{none}");
         Set(HKEY_LOCAL_MACHINE, Classes + Controls[2] + "\\CLSID", OtherClass);
         Set(HKEY_LOCAL_MACHINE, Classes + "CLSID\\" + OtherClass + "\\InprocServer32", at / "gone.ocx");
       },
       "fault         common-controls: MSComctlLib.ListViewCtrl is not registered; generated forms use it" + Mend +
           Regsvr + "\"" + SystemFolder + "mscomctl.ocx\"\n" +
           "fault         common-dialog: the type library of MSCOMDLG.CommonDialog is not registered; generated forms "
           "use "
           "it" +
           Again + "Visual Basic 6 again\n" +
           "warning       query-control: F\\gone.ocx, which OSTRELQUERY.OstrelQueryCtrl.1 is registered with, is not "
           "there; generated forms use it" +
           Again + "the server's client again\n" + Failed},
      {"a server that cannot be created", [](const Installation&) { Set(HKEY_LOCAL_MACHINE, Server, OtherClass); },
       "warning       server: creating the server's object factory fails: ActiveX component can't create object" +
           Again + "the server's client again\n0"},
      {"no environment, no controls, no add-in",
       [](const Installation& at) {
         Remove(HKEY_LOCAL_MACHINE, Paths);
         for (const std::string& control : Controls) Remove(HKEY_LOCAL_MACHINE, Classes + control);
         at.UnregisterFor(Scope::Machine);
       },
       [] {
         std::string lines = NotRegistered(
             "not-installed add-in-list: the add-in is not registered, and in no list\n"
             "not-installed environment: Visual Basic 6, which the command line does not need\n"
             "not-installed elevation: Visual Basic 6\n");
         for (const auto& [id, name, maker] :
              {std::array{"common-controls: ", "MSComctlLib.ListViewCtrl", "Visual Basic 6"},
               std::array{"common-dialog: ", "MSCOMDLG.CommonDialog", "Visual Basic 6"},
               std::array{"query-control: ", "OSTRELQUERY.OstrelQueryCtrl.1", "the server's client"}}) {
           lines += std::string("not-installed ") + id + name + " is not registered; it comes with " + maker + "\n";
         }
         return lines;
       }() +
           Sound},
  };
  for (const Case& c : cases) {
    CAPTURE(c.What);
    const Installation at;
    c.Break(at);
    const std::string before = at.State();
    CHECK(at.Complaints("") == c.Complaints);
    CHECK(at.State() == before);
    CHECK(at.Complaints("--fix") == (c.AfterFix.empty() ? c.Complaints : c.AfterFix));
    if (c.AfterFix.empty()) CHECK(at.State() == before);
  }
}
