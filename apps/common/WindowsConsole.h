// A console as standard output and standard error have it.
#pragma once

#include <memory>

namespace formwizard::apps::common {

// As long as the result is kept, those of std::cout and std::cerr that lead to a console show all characters there,
// whatever its code page.
std::shared_ptr<void> ShowOnConsole();

}  // namespace formwizard::apps::common
