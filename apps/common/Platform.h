// What the programs ask of the operating system itself.
#pragma once

#include "settings/ProfileStore.h"
#include "support/ResourceLibraries.h"
#include "wizard/factory/Factory.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace formwizard::apps::common {

// Empty when it cannot be told.
std::filesystem::path RunningProgram();
// Where the user's programs keep their settings.
std::filesystem::path ConfigurationRoot();

// What `main` was given behind the program's name, as UTF-8.
std::vector<std::string> Arguments(int argc, char** argv);

// Windows' own profile calls and libraries there, files that are read by the same rules elsewhere.
std::unique_ptr<settings::ProfileStore> PlatformProfile();
std::unique_ptr<support::ResourceLibraries> PlatformLibraries();

// Whether a server of the database can be installed on this system, and its object factory, which is asked for when it
// is first used.
bool CanHaveServer();
std::unique_ptr<wizard::factory::FactoryCreator> InstalledServer();

// As long as the result is kept, standard input and output are the very bytes that the program reads and writes, and a
// console shows them as UTF-8.
std::shared_ptr<void> UseUtf8Streams();

}  // namespace formwizard::apps::common
