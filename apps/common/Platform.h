// What the programs ask of the operating system itself.
#pragma once

#include "adapters/profile/ProfileFile.h"
#include "settings/ProfileStore.h"
#include "support/ResourceLibraries.h"
#include "wizard/factory/Factory.h"

#include <cstdint>
#include <filesystem>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::apps::common {

// Empty when it cannot be told.
std::filesystem::path RunningProgram();
// Where the user's programs keep their settings; empty when the user has no folder.
std::filesystem::path ConfigurationRoot();

// What `main` was given behind the program's name, as UTF-8.
std::vector<std::string> Arguments(int argc, char** argv);

// On Windows, whose shells leave that to programs, the files that names with "*" or "?" in their last part stand for,
// in order, quoted or not; a name that no file fits stays as it is. Elsewhere the names themselves.
std::vector<std::string> FilesMeant(std::vector<std::string> names);

// Files by the rules of Windows' profile calls; there also in the machine's code page, so that the add-in reads what
// this program writes. Without a `profile` settings last as long as the program.
std::unique_ptr<settings::ProfileStore> PlatformProfile(const std::string& profile);
// Windows' own libraries there, files that are read by the same rules elsewhere.
std::unique_ptr<support::ResourceLibraries> PlatformLibraries();

// Whether a server of the database can be installed on this system, and its object factory, which is asked for when it
// is first used.
bool CanHaveServer();
std::unique_ptr<wizard::factory::FactoryCreator> InstalledServer();

// As long as the result is kept, standard input and output are the very bytes that the program reads and writes, and a
// console shows what they are in UTF-8, whatever its code page. To be called when std::cout has its last buffer. A
// stream that the caller has closed fails, and no file that is opened takes its place.
std::shared_ptr<void> UseStandardStreams();

// Whether a person sees what is written there as it comes.
enum class StandardStream : std::uint8_t { Output, Error };
bool IsTerminal(StandardStream stream);

enum class Output : std::uint8_t { Standard, Error };
// Whether that leads to a terminal on which a line can be written over.
bool IsTerminal(Output output);

// The bytes of a file, or of standard input for "-"; null when it cannot be opened. A wait for them ends in Interrupted
// when an interruption is kept (see Interruption.h); on Windows a console's input then ends.
std::unique_ptr<std::istream> OpenInput(const std::string& path);

// The keys that a section of a settings file has, in its order; none without the file. support::InputError when it
// cannot be read.
std::vector<adapters::profile::ProfileKey> ProfileKeys(const std::string& profile, std::string_view section);

// From now on, writing to a pipe that nobody reads any more, or more than a file may hold, fails instead of ending the
// program.
void SurviveFailedWrites();

}  // namespace formwizard::apps::common
