// A process of the operating system and the pipe that it writes to.
#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace formwizard::apps::doctor {

using Clock = std::chrono::steady_clock;

class ChildProcess {
 public:
  enum class Reading { Read, TimeIsOver, Ended };

  // Ends the process if it still runs.
  virtual ~ChildProcess() = default;
  // Appends what the process has written, waiting for it until the deadline.
  virtual Reading Read(std::string& text, Clock::time_point deadline) = 0;
  // The exit status of a process whose output has ended, which is waited for; of one that the system ended, a number
  // that says why.
  virtual int Wait() = 0;
};

// std::system_error when it cannot be started.
std::unique_ptr<ChildProcess> StartProcess(const std::filesystem::path& program,
                                           const std::vector<std::string>& arguments);

// No box about a fault of this program is shown and waits for somebody.
void FailQuietly();

}  // namespace formwizard::apps::doctor
