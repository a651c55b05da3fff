// The controls of other makers that generated forms use.
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "generator/ide/ActiveX.h"

namespace formwizard::apps::doctor {
namespace {

struct Control {
  generator::ide::ActiveXControl Used;
  const char* File;   // in the system folder
  const char* Maker;  // who brings it
};

constexpr const char* ThisEnvironment = "Visual Basic 6";

// The class of a name, "{...}", or that of its current version; nothing when neither is registered.
std::optional<std::string> ClassOf(const std::string& progId) {
  if (auto id = RegistryText(HKEY_CLASSES_ROOT, progId + "\\CLSID")) return id;
  const auto current = RegistryText(HKEY_CLASSES_ROOT, progId + "\\CurVer");
  return current ? RegistryText(HKEY_CLASSES_ROOT, *current + "\\CLSID") : std::nullopt;
}

// What of the control is not as 32-bit programs need it; empty for nothing. `file` becomes that of its class.
std::string FaultOf(const std::string& progId, std::string& file) {
  const auto id = ClassOf(progId);
  const std::string key = "CLSID\\" + id.value_or("");
  const auto server = id ? RegistryText(HKEY_CLASSES_ROOT, key + "\\InprocServer32") : std::nullopt;
  if (!server) return progId + " is not registered";
  file = MeantBy32Bits(*server);
  if (!IsFile(file)) return file + ", which " + progId + " is registered with, is not there";
  const auto library = RegistryText(HKEY_CLASSES_ROOT, key + "\\TypeLib");
  if (!library || !HasKey(HKEY_CLASSES_ROOT, "TypeLib\\" + *library)) {
    return "the type library of " + progId + " is not registered";
  }
  return "";
}

Finding Look(const Control& control) {
  std::string file;
  const std::string fault = FaultOf(std::string(control.Used.ProgId), file);
  if (fault.empty()) return {State::Good, file};
  if (file.empty() && !HasEnvironment()) {
    return {State::NotInstalled, fault + "; it comes with " + control.Maker};
  }
  const std::string path = SystemFolder() + "\\" + control.File;
  return {State::Fault, fault + "; generated forms use it",
          IsFile(path) ? "as an administrator, " + RegisteringCommand(path)
                       : std::string("install ") + control.Maker + " again"};
}

}  // namespace

Finding CommonControls() { return Look({generator::ide::ListView, "mscomctl.ocx", ThisEnvironment}); }
Finding CommonDialog() { return Look({generator::ide::CommonDialog, "comdlg32.ocx", ThisEnvironment}); }
Finding QueryControl() { return Look({generator::ide::Query, "OSTRELQUERY.OCX", "the server's client"}); }

}  // namespace formwizard::apps::doctor
