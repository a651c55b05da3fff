// The port to the system's clipboard.
#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace formwizard::ui {

class Clipboard {
 public:
  virtual ~Clipboard() = default;
  // Puts a picture, given as the bytes of a bitmap file, on the clipboard, where `use` finds it; what the user had
  // there is back afterwards. False, with everything as it was and without running `use`, when the clipboard cannot be
  // had or could not be given back.
  virtual bool LendPicture(std::span<const std::byte> bitmap, const std::function<void()>& use) = 0;
};

}  // namespace formwizard::ui
