#include "generator/VisualBasic.h"
#include "generator/Writers.h"

namespace formwizard::generator {

void WriteProcedures(Generation& run) {
  Lines constant;
  constant.Add(R"(Const m_classname = "{class}")", Values().Set("class", run.Form.ClassName));
  Append(Required(run.NewCodeModule), constant.Text() + "\r\n");

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
