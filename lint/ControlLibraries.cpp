#include "lint/ControlLibraries.h"

#include "runtime/Conversions.h"

#include <algorithm>
#include <array>

namespace formwizard::lint {
namespace {

struct Library {
  std::string_view Name, Identifier;
};
// Those that come with Visual Basic.
constexpr std::array Libraries{
    Library{"ComCtl2", "{FE0065C0-1B7B-11CF-9D53-00AA003C9CB6}"},
    Library{"ComctlLib", "{6B7E6392-850A-101B-AFC0-4210102A8DA7}"},
    Library{"InetCtlsObjects", "{48E59290-9880-11CF-9754-00AA00C00908}"},
    Library{"MSAdodcLib", "{67397AA1-7FB1-11D0-B148-00A0C922E820}"},
    Library{"MSComCtl2", "{86CF1D34-0C5F-11D2-A9FC-0000F8754DA1}"},
    Library{"MSCommLib", "{648A5603-2C6E-101B-82B6-000000000014}"},
    Library{"MSComctlLib", "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}"},
    Library{"MSComDlg", "{F9043C88-F6F2-101A-A3C9-08002B2F49FB}"},
    Library{"MSDataGridLib", "{CDE57A40-8B86-11D0-B3C6-00A0C90AEA82}"},
    Library{"MSDataListLib", "{F0D2F211-CCB0-11D0-A316-00AA00688B10}"},
    Library{"MSFlexGridLib", "{5E9E78A0-531B-11CF-91F6-C2863C385E30}"},
    Library{"MSHierarchicalFlexGridLib", "{0ECD9B60-23AA-11D0-B351-00A0C9055D8E}"},
    Library{"MSMAPI", "{20C62CAE-15DA-101B-B9A8-444553540000}"},
    Library{"MSMask", "{C932BA88-4374-101B-A56C-00AA003668DC}"},
    Library{"MSWinsockLib", "{248DD890-BB45-11CF-9ABC-0080C7E7B78D}"},
    Library{"RichTextLib", "{3B7C8863-D78F-101B-B9B5-04021C009402}"},
    Library{"SHDocVwCtl", "{EAB22AC0-30C1-11CF-A7EB-0000C05BAE0B}"},
    Library{"TabDlg", "{BDC217C8-ED16-11CD-956C-0000C04E4C0A}"},
};

}  // namespace

LibraryLines::LibraryLines(const Subject& subject) : project_(subject.File().Project) {
  const vbtext::LineRange head = subject.Document()->Head;
  for (std::size_t i = head.First; i < head.Behind; ++i) {
    const std::string_view line = subject.Lines()[i].Text;
    if (!vbtext::BeginsWith(line.substr(0, line.find('=')), "Object")) continue;
    hasLines_ = true;
    const std::size_t open = line.find('{'), close = line.find('}');
    if (open < close && close != std::string_view::npos) {
      identifiers_.insert(runtime::LowerCase(line.substr(open, close + 1 - open)));
    }
  }
}

bool LibraryLines::MayHave(std::string_view library) const {
  const auto isIts = [&](std::string_view name) { return runtime::EqualIgnoringCase(name, library); };
  if (isIts("VB") || library.starts_with('{') || (project_ && isIts(*project_))) return true;
  const auto known = std::ranges::find_if(Libraries, [&](const Library& each) { return isIts(each.Name); });
  if (known != Libraries.end()) return identifiers_.contains(runtime::LowerCase(known->Identifier));
  return hasLines_ || !project_;
}

}  // namespace formwizard::lint
