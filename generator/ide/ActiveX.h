// The ActiveX controls of generated forms.
#pragma once

#include <string_view>

namespace formwizard::generator::ide {

struct ActiveXControl {
  std::string_view Class;   // what controls are added by, and what a form's file calls them
  std::string_view ProgId;  // what a project's toolbox is asked for
};

inline constexpr ActiveXControl Query{"OSTRELQUERYLib.OstrelQuery", "OSTRELQUERY.OstrelQueryCtrl.1"};
inline constexpr ActiveXControl CommonDialog{"MSCOMDLG.CommonDialog", "MSCOMDLG.CommonDialog"};
inline constexpr ActiveXControl ListView{"MSComctlLib.ListView", "MSComctlLib.ListViewCtrl"};

}  // namespace formwizard::generator::ide
