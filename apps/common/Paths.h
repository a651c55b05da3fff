// Where the program and the user keep their files. Paths as texts are UTF-8.
#pragma once

#include <string>

namespace formwizard::apps::common {

// The folder of the running program, with its trailing separator; satellites stand there.
std::string ProgramFolder();

// "outility.ini" beside the program when there is one, else in the user's configuration folder, on Windows the folder
// of application data. Empty when the user has no such folder.
std::string DefaultProfile();

// A link to a project stands for the project: what it names is replaced when the project is saved, not the link.
std::string Resolved(const std::string& project);

}  // namespace formwizard::apps::common
