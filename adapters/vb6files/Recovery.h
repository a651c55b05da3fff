// What saves leave beside the project: one that was cut off, and the last one that replaced files.
#pragma once

#include "adapters/vb6files/SavePlace.h"
#include "adapters/vb6files/SaveRecord.h"
#include "system/FileSystem.h"

#include <cstdint>
#include <optional>
#include <string>

namespace formwizard::adapters::vb6files {

enum class Saves : std::uint8_t { Sets, All };

// Takes back what saves that were cut off have done, or ends them where the last step was done: of sets, so that nobody
// reads files of two states, or of all. support::InputError when another program is saving there or it cannot be done.
void RecoverSaves(system::FileSystem& files, const std::string& projectFile, Saves which);

// What the last save replaced, when that can be undone; otherwise nothing.
std::optional<SaveRecord> KeptRecord(const SavePlace& place);

// Whoever calls what follows holds the lock of the project's folder.

// The same with all saves.
void RecoverAll(const SavePlace& place);

// Removes what a save that is not done has moved into place. A file that cannot be taken back stays, without anything
// that refers to it; false then. One that was changed since is somebody's.
bool RollBack(const SavePlace& place, const SaveRecord& record);

// After the last step of a save, what the one before it has replaced can no longer be undone: the folder of a set takes
// its place.
void Keep(const SavePlace& place, const std::string& folder);
void DropKept(const SavePlace& place);
// support::SaveError when something else stands in the place of the folder that holds it.
void CheckKeptFolder(const SavePlace& place);

// Only what was made here, the record first: what has none needs nothing more than to be removed. False when there is
// something else.
bool RemoveStaging(const SavePlace& place, const std::string& folder);

}  // namespace formwizard::adapters::vb6files
