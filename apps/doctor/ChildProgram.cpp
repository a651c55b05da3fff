#include "apps/doctor/ChildProgram.h"

namespace formwizard::apps::doctor {

std::optional<std::string> ChildProgram::NextLine(std::chrono::milliseconds limit) {
  const Clock::time_point deadline = Clock::now() + limit;
  for (std::size_t searched = 0;;) {
    const std::size_t end = unread_.find('\n', searched);
    if (end != std::string::npos) {
      std::string line = unread_.substr(0, end);
      unread_.erase(0, end + 1);
      return line;
    }
    searched = unread_.size();
    if (status_) return {};
    switch (process_->Read(unread_, deadline)) {
      case ChildProcess::Reading::Read:
        break;
      case ChildProcess::Reading::TimeIsOver:
        return {};
      case ChildProcess::Reading::Ended:
        status_ = process_->Wait();
        break;
    }
  }
}

}  // namespace formwizard::apps::doctor
