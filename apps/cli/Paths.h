// Where the program and the user keep their files.
#pragma once

#include <string>

namespace formwizard::apps::cli {

// The folder of the running program, with its trailing separator; satellites stand there.
std::string ProgramFolder();

// "outility.ini" beside the program when there is one, else in the user's configuration folder.
std::string DefaultProfile();

}  // namespace formwizard::apps::cli
