// Takes the last save of a project back.
#pragma once

#include "adapters/vb6files/FileChange.h"
#include "system/FileSystem.h"

#include <string>

namespace formwizard::adapters::vb6files {

// Brings back what the last save replaced or removed and removes what it has added, as one. What that replaces is kept
// in its turn, so that a second call takes the first one back. The listener hears of every file; with `dryRun` nothing
// is written. support::InputError when there is nothing to undo; support::SaveError, with nothing changed, when a file
// has changed since that save, naming it, or an operation fails.
void Undo(system::FileSystem& files, const std::string& projectFile, bool dryRun, const ChangeListener& listener);

}  // namespace formwizard::adapters::vb6files
