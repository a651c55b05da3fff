#include "apps/common/Interruption.h"
#include "apps/common/Platform.h"
#include "support/Failures.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <streambuf>

namespace formwizard::apps::common {
namespace {

volatile std::sig_atomic_t kept = 0;  // a handler reaches nothing but what is global

constexpr std::array Stopping{SIGINT, SIGTERM};

void Keep(int signal) {
  kept = signal;
  for (const int each : Stopping) static_cast<void>(std::signal(each, SIG_DFL));
}

// Until there is something to read or a signal comes, also one that comes just before the wait.
void WaitFor(int file) {
  sigset_t stopping{}, before{};
  ::sigemptyset(&stopping);
  for (const int each : Stopping) ::sigaddset(&stopping, each);
  ::pthread_sigmask(SIG_BLOCK, &stopping, &before);
  pollfd wanted{file, POLLIN, 0};
  while (kept == 0 && ::ppoll(&wanted, 1, nullptr, &before) < 0 && errno == EINTR) {
  }
  ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
  CheckInterrupted();
}

class InputFile : public std::istream, private std::streambuf {
 public:
  InputFile(int file, const std::string& name)
      : std::istream(static_cast<std::streambuf*>(this)), file_(file), name_(name) {
    exceptions(std::ios::badbit);
  }
  ~InputFile() override {
    if (file_ != STDIN_FILENO) ::close(file_);
  }
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

 private:
  std::streambuf::int_type underflow() override {
    ::ssize_t count = -1;
    do {
      WaitFor(file_);
      count = ::read(file_, block_.data(), block_.size());
    } while (count < 0 && errno == EINTR);
    if (count < 0) throw support::InputError(name_ + ": the input cannot be read to its end");
    setg(block_.data(), block_.data(), block_.data() + count);
    return count == 0 ? std::streambuf::traits_type::eof() : std::streambuf::traits_type::to_int_type(block_.front());
  }

  int file_;
  std::string name_;
  std::array<char, 1 << 16> block_{};
};

}  // namespace

void KeepInterruptions() {
  for (const int each : Stopping) {
    struct sigaction action {};
    if (::sigaction(each, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) continue;
    action = {};
    action.sa_handler = Keep;  // without SA_RESTART: a wait for input ends
    ::sigaction(each, &action, nullptr);
  }
}

void CheckInterrupted() {
  if (kept != 0) throw Interrupted(kept);
}

int EndInterrupted(const Interrupted& interrupted) {
  static_cast<void>(std::signal(interrupted.Signal(), SIG_DFL));
  static_cast<void>(std::raise(interrupted.Signal()));
  constexpr int endedBySignal = 128;
  return endedBySignal + interrupted.Signal();
}

std::unique_ptr<std::istream> OpenInput(const std::string& path) {
  if (path == "-") return std::make_unique<InputFile>(STDIN_FILENO, "standard input");
  int file = -1;
  do {
    CheckInterrupted();
    file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  } while (file < 0 && errno == EINTR);
  if (file < 0) return nullptr;
  return std::make_unique<InputFile>(file, path);
}

}  // namespace formwizard::apps::common
