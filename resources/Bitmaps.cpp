#include "resources/Bitmaps.h"

#include <array>

namespace formwizard::resources {
namespace {

constexpr int CommandBitmap = 9999;

// The bytes of command.bmp.
constexpr unsigned char Command[] = {
#include "resources/CommandBitmap.inc"
};

}  // namespace

std::span<const std::byte> Bitmap(int id) {
  if (id != CommandBitmap) return {};
  return std::as_bytes(std::span(Command));
}

}  // namespace formwizard::resources
