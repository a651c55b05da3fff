// The program's own pictures: the face of its menu command.
#pragma once

#include <cstddef>
#include <span>

namespace formwizard::resources {

// The bytes of the bitmap file with a resource id; empty for an id that the program lacks.
std::span<const std::byte> Bitmap(int id);

}  // namespace formwizard::resources
