// What a run prints, kept back until it is known to be whole.
#pragma once

#include "apps/cli/Spool.h"

#include <ios>
#include <streambuf>

namespace formwizard::apps::cli {

// Takes what is written to standard output as long as it lives; what was not released is never printed. An error of
// keeping it is support::SaveError, and common::Interrupted ends the run.
class HeldOutput : private std::streambuf {
 public:
  HeldOutput();
  ~HeldOutput() override;
  HeldOutput(const HeldOutput&) = delete;
  HeldOutput& operator=(const HeldOutput&) = delete;

  void Release();

 private:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  void GiveBack();

  Spool kept_;
  std::streambuf* own_;
  std::ios::iostate raised_;  // by standard output before
};

}  // namespace formwizard::apps::cli
