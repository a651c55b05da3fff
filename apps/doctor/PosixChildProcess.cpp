#include "apps/doctor/ChildProcess.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <system_error>
#include <thread>

namespace formwizard::apps::doctor {
namespace {

[[noreturn]] void Fail(int error, const std::string& what) {
  throw std::system_error(error, std::generic_category(), what);
}

class PosixProcess : public ChildProcess {
 public:
  PosixProcess(pid_t process, int output) : process_(process), output_(output) {}
  PosixProcess(const PosixProcess&) = delete;
  PosixProcess& operator=(const PosixProcess&) = delete;
  ~PosixProcess() override {
    ::close(output_);
    if (process_ != 0) End();
  }

  Reading Read(std::string& text, Clock::time_point deadline) override {
    pollfd waited{output_, POLLIN, 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    const int ready = ::poll(&waited, 1, static_cast<int>(std::max<decltype(left)>(left, 0)));
    if (ready == 0) return Reading::TimeIsOver;
    std::array<char, 4096> buffer{};
    const ssize_t count = ready < 0 ? -1 : ::read(output_, buffer.data(), buffer.size());
    if (count < 0 && errno != EINTR) Fail(errno, "its output");
    if (count == 0) return Reading::Ended;
    text.append(buffer.data(), count < 0 ? 0 : static_cast<std::size_t>(count));
    return Reading::Read;
  }

  int Wait() override {
    int status = 0;
    while (::waitpid(process_, &status, 0) < 0 && errno == EINTR) {
    }
    process_ = 0;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);  // as a shell tells it
  }

 private:
  // One that the system itself cannot end, for a disk that does not answer, is left behind.
  void End() {
    ::kill(process_, SIGKILL);
    for (int attempt = 0; attempt < 100 && ::waitpid(process_, nullptr, WNOHANG) == 0; ++attempt) {
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
  }

  pid_t process_;
  int output_;
};

class Actions {
 public:
  Actions() { ::posix_spawn_file_actions_init(&actions_); }
  ~Actions() { ::posix_spawn_file_actions_destroy(&actions_); }
  Actions(const Actions&) = delete;
  Actions& operator=(const Actions&) = delete;
  posix_spawn_file_actions_t* Get() { return &actions_; }

 private:
  posix_spawn_file_actions_t actions_{};
};

}  // namespace

std::unique_ptr<ChildProcess> StartProcess(const std::filesystem::path& program,
                                           const std::vector<std::string>& arguments) {
  std::string name = program.string();
  std::vector<std::string> texts = arguments;
  std::vector<char*> pointers{name.data()};
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);

  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) Fail(errno, name);
  Actions actions;
  ::posix_spawn_file_actions_addopen(actions.Get(), STDIN_FILENO, "/dev/null", O_RDONLY, 0);
  ::posix_spawn_file_actions_adddup2(actions.Get(), ends[1], STDOUT_FILENO);
  ::posix_spawn_file_actions_addopen(actions.Get(), STDERR_FILENO, "/dev/null", O_WRONLY, 0);
  pid_t process = 0;
  const int error = ::posix_spawnp(&process, name.c_str(), actions.Get(), nullptr, pointers.data(), environ);
  ::close(ends[1]);
  if (error != 0) {
    ::close(ends[0]);
    Fail(error, name);
  }
  return std::make_unique<PosixProcess>(process, ends[0]);
}

void FailQuietly() {}  // as it is on this system

}  // namespace formwizard::apps::doctor
