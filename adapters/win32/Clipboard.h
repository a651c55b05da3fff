// The system's clipboard, which is the user's: what is put there for a moment leaves what was there.
#pragma once

#include <cstddef>
#include <functional>
#include <span>

namespace formwizard::adapters::win32 {

// Puts a bitmap without its file header on the clipboard, runs `use`, and puts back what was there. The bitmap stays
// behind that, unless the user had a picture. A clipboard that another program has open is waited for, half a second in
// all. False, with the clipboard as it was and `use` not run, when it stays so, or when it holds what cannot be kept:
// nothing but handles that are not memory, or what its owner does not render in that time.
bool LendBitmap(std::span<const std::byte> bitmap, const std::function<void()>& use);

}  // namespace formwizard::adapters::win32
