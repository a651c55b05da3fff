// The checks of Windows, in the order in which one explains the next.
#include "apps/common/Platform.h"
#include "apps/doctor/CommonChecks.h"
#include "apps/doctor/Doctor.h"
#include "apps/doctor/windows/System.h"
#include "apps/doctor/windows/WindowsChecks.h"
#include "system/Paths.h"

#include <array>

namespace formwizard::apps::doctor {
namespace {

using namespace std::chrono_literals;

constexpr bool IsRequired = true, IsOptional = false;
constexpr auto Look = 15s, Try = 60s;  // a program may come from a slow disk, and a scanner look at it first

constexpr std::array Table{
    Check{"registered", IsRequired, Teller::Any, Look, Registered},
    Check{"user-class", IsRequired, Teller::Any, Look, UserClass, RemoveUserClass},
    Check{"library", IsRequired, Teller::Any, Look, Library, RegisterForUser},
    Check{"version", IsOptional, Teller::Any, Look, Version},
    Check{"add-in-list", IsRequired, Teller::Any, Look, AddInList, MendList},
    Check{"listed-once", IsOptional, Teller::Any, Look, ListedOnce},
    Check{"environment", IsOptional, Teller::Any, Look, Environment},
    Check{"elevation", IsRequired, Teller::Any, Look, Elevation},
    Check{"loading", IsRequired, Teller::Of32Bits, Try, Loading},
    Check{"creation", IsRequired, Teller::Of32Bits, Try, Creation},
    Check{"settings", IsRequired, Teller::Any, Look, OwnSettings},
    Check{"add-in-settings", IsRequired, Teller::Any, Look, AddInSettings},
    Check{"languages", IsRequired, Teller::Any, Look, OwnLanguages},
    Check{"add-in-languages", IsRequired, Teller::Any, Look, AddInLanguages},
    Check{"common-controls", IsRequired, Teller::Any, Look, CommonControls},
    Check{"common-dialog", IsRequired, Teller::Any, Look, CommonDialog},
    Check{"query-control", IsOptional, Teller::Any, Look, QueryControl},
    Check{"server", IsOptional, Teller::Of32Bits, Try, ServerCreation},
};

std::filesystem::path ProgramOf32Bits() {
  if (sizeof(void*) == 4) return common::RunningProgram();
  const std::string beside = FolderWithSeparator(RegisteredLibrary().value_or("")) + "ostrel-form-wizard.exe";
  return IsFile(beside) && IsOf32Bits(beside) ? system::NativePath(beside) : std::filesystem::path();
}

}  // namespace

Checks SystemChecks() { return Table; }
Programs SystemPrograms() { return {common::RunningProgram(), ProgramOf32Bits()}; }

}  // namespace formwizard::apps::doctor
