#include "generator/VisualBasic.h"
#include "generator/Writers.h"

namespace formwizard::generator {

std::string FirstLineOfCode(std::string_view className) {
  Lines constant;
  constant.Add(R"(Const m_classname = "{class}")", Values().Set("class", className));
  return constant.Text();
}

void WriteProcedures(Generation& run) {
  Append(Required(run.NewCodeModule), FirstLineOfCode(run.Form.ClassName) + "\r\n");

  WriteSubCommon(run);
  WriteSubEnableScreen(run);
  WriteSubEraseScreen(run);
  WriteSubSyncObjectToScreen(run);
  WriteSubSyncScreenToObject(run);
  WriteSubActions(run);
  WriteSubControlEvents(run);
  WriteSubContextMenus(run);
}

}  // namespace formwizard::generator
