#include "apps/cli/HeldOutput.h"

#include "apps/common/Interruption.h"

#include <iostream>
#include <string_view>
#include <utility>

namespace formwizard::apps::cli {

HeldOutput::HeldOutput() : own_(std::cout.rdbuf(this)), raised_(std::cout.exceptions()) {
  std::cout.exceptions(std::ios::badbit);  // what the buffer raises is not to be lost
}

HeldOutput::~HeldOutput() { GiveBack(); }

void HeldOutput::GiveBack() {
  if (!own_) return;
  std::cout.rdbuf(std::exchange(own_, nullptr));  // clears its state
  std::cout.exceptions(raised_);
}

void HeldOutput::Release() {
  GiveBack();
  kept_.PrintTo(std::cout);
}

HeldOutput::int_type HeldOutput::overflow(int_type c) {
  const char text = traits_type::to_char_type(c);
  if (!traits_type::eq_int_type(c, traits_type::eof())) xsputn(&text, 1);
  return traits_type::not_eof(c);
}

std::streamsize HeldOutput::xsputn(const char* text, std::streamsize count) {
  common::CheckInterrupted();
  kept_.Add(std::string_view(text, static_cast<std::size_t>(count)));
  return count;
}

}  // namespace formwizard::apps::cli
