// How far a long run has come, on the last line of a terminal.
#pragma once

#include <chrono>
#include <functional>
#include <ostream>
#include <streambuf>
#include <string>

namespace formwizard::apps::cli {

// Keeps quick runs quiet, changes the line at most five times a second, and takes it away before anything else is
// written to the stream and at its own end.
class Progress : private std::streambuf {
 public:
  using Clock = std::chrono::steady_clock;

  // `what` begins the line, such as "importing". Without `isShown` nothing is ever written. `stream`, whose buffer is
  // this object as long as it lives, must outlive it.
  Progress(std::ostream& stream, std::string what, bool isShown, std::function<Clock::time_point()> now = Clock::now);
  ~Progress() override;
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `done` of `total`, in whatever unit; a `total` of 0 is not known, and `done` counts bytes then.
  void Show(double done, double total);

 private:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  int sync() override { return own_->pubsync(); }
  void Erase();
  std::string LineOf(double done, double total, double seconds) const;

  std::ostream& stream_;
  std::string what_;
  bool isShown_;
  std::function<Clock::time_point()> now_;
  Clock::time_point begun_ = now_(), shown_ = begun_;
  std::streambuf* own_;
  std::size_t length_ = 0;  // of the line that stands there
};

// Whether a run that says so little shows its progress on standard error; `prints` is whether it writes to standard
// output meanwhile, which may be the same terminal.
bool ShowsProgress(bool isQuiet, bool prints);

}  // namespace formwizard::apps::cli
