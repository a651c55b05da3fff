// The port to the system's clipboard.
#pragma once

#include <cstddef>
#include <span>

namespace formwizard::ui {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // Replaces what is on the clipboard by a picture, given as the bytes of a bitmap file.
  virtual void SetPicture(std::span<const std::byte> bitmap) = 0;
};

}  // namespace formwizard::ui
