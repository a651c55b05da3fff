#include "apps/common/WindowsConsole.h"

#include "system/Text.h"

#include <windows.h>

#include <algorithm>
#include <iostream>
#include <optional>
#include <streambuf>
#include <string>
#include <utility>

namespace formwizard::apps::common {
namespace {

// How many of the bytes are whole characters, or no characters at all.
std::size_t LengthWithoutHalf(std::string_view utf8) {
  const std::string_view end = utf8.substr(utf8.size() - std::min<std::size_t>(utf8.size(), 3));
  for (std::size_t i = 0; i < end.size(); ++i) {
    const auto byte = static_cast<unsigned char>(end[i]);
    const std::size_t length = byte >= 0xF0 ? 4 : byte >= 0xE0 ? 3 : byte >= 0xC0 ? 2 : 1;
    if (i + length > end.size()) return utf8.size() - end.size() + i;
  }
  return utf8.size();
}

// Takes UTF-8.
class ConsoleBuffer : public std::streambuf {
 public:
  explicit ConsoleBuffer(HANDLE console) : console_(console) {}

 protected:
  std::streamsize xsputn(const char* text, std::streamsize count) override {
    waiting_.append(text, static_cast<std::size_t>(count));
    const bool isDone = waiting_.size() < Most || sync() == 0;
    return isDone ? count : 0;
  }
  int_type overflow(int_type unit) override {
    const char c = traits_type::to_char_type(unit);
    return traits_type::eq_int_type(unit, traits_type::eof()) || xsputn(&c, 1) == 1 ? traits_type::not_eof(unit)
                                                                                    : traits_type::eof();
  }
  int sync() override {
    const std::size_t length = LengthWithoutHalf(waiting_);
    const std::wstring all = system::Wide(std::string_view(waiting_).substr(0, length));
    waiting_.erase(0, length);
    std::wstring_view rest = all;
    while (!rest.empty()) {
      DWORD written = 0;
      const auto wanted = static_cast<DWORD>(std::min(rest.size(), Most));
      if (!::WriteConsoleW(console_, rest.data(), wanted, &written, nullptr) || written == 0) return -1;
      rest.remove_prefix(written);
    }
    return 0;
  }

 private:
  static constexpr std::size_t Most = 8192;  // older systems take no more than 64 KB at once

  HANDLE console_;
  std::string waiting_;
};

// Gives the stream its own buffer back.
class Redirection {
 public:
  Redirection(std::ostream& stream, HANDLE console) : stream_(stream), buffer_(console), own_(stream.rdbuf(&buffer_)) {}
  ~Redirection() {
    stream_.flush();
    stream_.rdbuf(own_);
  }
  Redirection(const Redirection&) = delete;
  Redirection& operator=(const Redirection&) = delete;

 private:
  std::ostream& stream_;
  ConsoleBuffer buffer_;
  std::streambuf* own_;
};

}  // namespace

std::shared_ptr<void> ShowOnConsole() {
  auto both = std::make_shared<std::pair<std::optional<Redirection>, std::optional<Redirection>>>();
  const auto redirect = [](std::optional<Redirection>& redirection, std::ostream& stream, DWORD which) {
    const HANDLE handle = ::GetStdHandle(which);
    DWORD mode = 0;
    if (::GetConsoleMode(handle, &mode)) redirection.emplace(stream, handle);
  };
  redirect(both->first, std::cout, STD_OUTPUT_HANDLE);
  redirect(both->second, std::cerr, STD_ERROR_HANDLE);
  return both;
}

}  // namespace formwizard::apps::common
