// The handler that a form connects to an event of one of its controls.
#pragma once

#include <functional>
#include <utility>

namespace formwizard::ui {

// Raising an event that nothing is connected to does nothing.
template <typename... Arguments>
class Event {
 public:
  template <typename Handler>
  Event& operator=(Handler handler) {
    handler_ = std::move(handler);
    return *this;
  }
  void operator()(Arguments... arguments) const {
    if (handler_) handler_(arguments...);
  }

 private:
  std::function<void(Arguments...)> handler_;
};

}  // namespace formwizard::ui
