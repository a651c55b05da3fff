// The environment's older list of add-ins, a file in the Windows folder.
#pragma once

namespace formwizard::apps::registration {

// The folder may be out of reach; then nothing is entered.
void EnterIntoOlderList();
// With the last line of the section goes the section, with the last section the file.
void RemoveFromOlderList();

}  // namespace formwizard::apps::registration
