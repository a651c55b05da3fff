// A function a rule: what it looks for stands in the table of Rules.cpp.
#pragma once

#include "lint/Rules.h"
#include "lint/Subject.h"

namespace formwizard::lint {

using Check = void(const Subject& subject, const Report& report);

Check CheckUtf16, CheckUtf8Mark, CheckUtf8, CheckLineEnds, CheckConflictMarkers, CheckLineLengths, CheckContinuations,
    CheckModuleLength;
Check CheckTree, CheckDuplicateControls, CheckControlCount, CheckNameLengths, CheckControlLibraries,
    CheckCompanionReferences;
Check CheckProcedures, CheckBlocks, CheckDuplicateProcedures, CheckHandlers;
Check CheckProjectLines, CheckListedFiles;

}  // namespace formwizard::lint
