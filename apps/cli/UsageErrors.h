// What is wrong with a command line, in words.
#pragma once

#include <string>

namespace CLI {
class App;
class ParseError;
}  // namespace CLI

namespace formwizard::apps::cli {

// A sentence on why the parser has ended, which names the command and its help. A word that nobody knows comes before
// anything that is missing, for it may be what is missing, mistyped.
std::string Explained(const CLI::App& program, const CLI::ParseError& end);

}  // namespace formwizard::apps::cli
