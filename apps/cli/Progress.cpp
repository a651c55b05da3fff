#include "apps/cli/Progress.h"

#include "apps/common/Platform.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace formwizard::apps::cli {
namespace {

using namespace std::chrono_literals;

constexpr auto Quiet = 500ms;    // a run that is over by then shows nothing
constexpr auto Between = 200ms;  // two changes of the line
constexpr double LongestInSeconds = 90;

std::string Estimate(double seconds) {
  if (seconds < LongestInSeconds) return std::to_string(std::lround(seconds)) + " s left";
  constexpr double secondsOfMinute = 60;
  return std::to_string(std::lround(seconds / secondsOfMinute)) + " min left";
}

}  // namespace

Progress::Progress(std::ostream& stream, std::string what, bool isShown, std::function<Clock::time_point()> now)
    : stream_(stream), what_(std::move(what)), isShown_(isShown), now_(std::move(now)), own_(stream.rdbuf(this)) {}

Progress::~Progress() {
  Erase();
  stream_.rdbuf(own_);
}

void Progress::Show(double done, double total) {
  if (!isShown_) return;
  const Clock::time_point time = now_();
  if (time - begun_ < Quiet || time - shown_ < Between) return;
  const std::string line = LineOf(done, total, std::chrono::duration<double>(time - begun_).count());
  const std::string rest(length_ - std::min(length_, line.size()), ' ');  // of a longer line before
  const std::string text = "\r" + line + rest;
  own_->sputn(text.data(), static_cast<std::streamsize>(text.size()));
  own_->pubsync();
  length_ = line.size() + rest.size();
  shown_ = now_();
}

std::string Progress::LineOf(double done, double total, double seconds) const {
  constexpr double megabyte = 1e6, whole = 100;
  if (total <= 0) return what_ + ": " + std::to_string(std::lround(done / megabyte)) + " MB";
  // Whole numbers stay whole, whatever precision the processor computes in.
  const double percent = std::clamp(done * whole / total, 0.0, whole);
  std::string line = what_ + ": " + std::to_string(static_cast<int>(percent)) + " %";
  return percent > 0 ? line + ", " + Estimate(seconds * (whole - percent) / percent) : line;
}

// By blanks: not every console knows more.
void Progress::Erase() {
  if (length_ == 0) return;
  const std::string text = "\r" + std::string(std::exchange(length_, 0), ' ') + "\r";
  own_->sputn(text.data(), static_cast<std::streamsize>(text.size()));
  own_->pubsync();
}

Progress::int_type Progress::overflow(int_type c) {
  Erase();
  return traits_type::eq_int_type(c, traits_type::eof()) ? traits_type::not_eof(c)
                                                         : own_->sputc(traits_type::to_char_type(c));
}

std::streamsize Progress::xsputn(const char* text, std::streamsize count) {
  Erase();
  return own_->sputn(text, count);
}

bool ShowsProgress(bool isQuiet, bool prints) {
  using common::Output;
  return !isQuiet && common::IsTerminal(Output::Error) && !(prints && common::IsTerminal(Output::Standard));
}

}  // namespace formwizard::apps::cli
