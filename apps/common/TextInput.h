// A text that a user names: a file, a pipe, or standard input.
#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <memory>
#include <string>

namespace formwizard::apps::common {

// "-" is standard input. All texts are read as UTF-8, whichever Unicode they are written in (see system::Utf8Input).

// A pipe will do, as a shell makes one of a command's output. `what` is said in messages, such as "form description".
// support::InputError, which names the file, when there is none, it cannot be read, is a folder or a device, or holds
// more than `most` bytes.
std::string ReadText(const std::string& file, const std::string& what, std::size_t most);

// The same for a text of any length, null when it cannot be opened; reading raises support::InputError. `onRead` hears
// how many bytes were read so far.
std::unique_ptr<std::istream> OpenText(const std::string& file, std::function<void(std::size_t)> onRead = {});

// As messages call it.
std::string NameOf(const std::string& file);

}  // namespace formwizard::apps::common
