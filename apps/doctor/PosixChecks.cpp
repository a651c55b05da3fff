// What is looked at where there is no add-in: the command line's own files, and what the desktop program needs.
#include "apps/common/Paths.h"
#include "apps/common/Platform.h"
#include "apps/doctor/ChildProgram.h"
#include "apps/doctor/CommonChecks.h"
#include "apps/doctor/Doctor.h"
#include "support/Failures.h"
#include "system/CodePage.h"
#include "system/FileSystem.h"

#include <array>
#include <system_error>

namespace formwizard::apps::doctor {
namespace {

using namespace std::chrono_literals;

// The system's library converts texts by files of its own, which a small installation may lack.
Finding CodePages() {
  std::string missing;
  for (const int number : system::CodePageNumbers()) {
    try {
      const system::CodePage codePage(number);
    } catch (const support::InputError&) {
      missing += " " + std::to_string(number);
    }
  }
  if (missing.empty()) return {State::Good, "all that a project can be written in"};
  return {State::Fault, "this system cannot convert texts of the code pages" + missing,
          "install all converters of the C library, such as the package glibc-gconv-extra"};
}

std::string DesktopProgram() { return common::ProgramFolder() + "ostrel-form-wizard-desktop"; }
bool HasDesktopProgram() { return system::RealFileSystem().KindOf(DesktopProgram()) != system::FileKind::None; }

Finding Desktop() {
  if (HasDesktopProgram()) return {State::Good, DesktopProgram()};
  return {State::NotInstalled, "the desktop program, which the command line does not need",
          "apt-get install ./ostrel-form-wizard-desktop_*.deb"};
}

// What stands in for the font of the environment's dialogs.
Finding Fonts() {
  if (!HasDesktopProgram()) return {State::NotInstalled, "the desktop program, which alone draws pictures of forms"};
  try {
    ChildProgram matching("fc-match", {"--format=%{family[0]}\\n", "Microsoft Sans Serif,Arial,Liberation Sans"});
    const auto family = matching.NextLine(10s);
    if (family && !family->empty()) return {State::Good, "pictures of forms are drawn in " + *family};
  } catch (const std::system_error&) {
    return {State::Unknown, "cannot be told from here: fc-match is not installed", "apt-get install fontconfig"};
  }
  return {State::Fault, "there is no font, and so no text in pictures of forms", "apt-get install fonts-liberation"};
}

constexpr std::array Table{
    Check{"settings", true, Teller::Any, 10s, OwnSettings},  Check{"languages", true, Teller::Any, 10s, OwnLanguages},
    Check{"code-pages", false, Teller::Any, 10s, CodePages}, Check{"desktop", false, Teller::Any, 10s, Desktop},
    Check{"fonts", false, Teller::Any, 15s, Fonts},
};

}  // namespace

Checks SystemChecks() { return Table; }
Programs SystemPrograms() { return {common::RunningProgram(), {}}; }

}  // namespace formwizard::apps::doctor
