// The writers that make up a generation, each one section of the form or of its code.
#pragma once

#include "generator/Generation.h"

namespace formwizard::generator {

// Controls. Each reports its own failures.
void WriteConFrame(Generation& run);   // scroll bars, main frame, fields, command buttons; leaves on an error
void WriteConHelper(Generation& run);  // query control, file dialog, hidden list; goes on after an error
void WriteConField(Generation& run, Int16 column,
                   FieldRecord& field);  // label and data control; goes on after an error
void WriteConMenus(Generation& run);     // object menu and popup menus; leaves on an error

// Code, in the order in which the procedures stand in the module.
void WriteSubCommon(Generation& run);
void WriteSubEnableScreen(Generation& run);
void WriteSubEraseScreen(Generation& run);
void WriteSubSyncObjectToScreen(Generation& run);
void WriteSubSyncScreenToObject(Generation& run);
void WriteSubActions(Generation& run);
void WriteSubControlEvents(Generation& run);
void WriteSubContextMenus(Generation& run);

}  // namespace formwizard::generator
