// The code of a component of the running environment.
#pragma once

#include "adapters/com/Automation.h"
#include "generator/ide/Ide.h"

#include <string_view>

namespace formwizard::adapters::com {

class ComCodeModule : public generator::ide::CodeModule {
 public:
  explicit ComCodeModule(Object module) : module_(std::move(module)) {}

  generator::ide::Int32 CountOfLines() const override;
  void InsertLines(generator::ide::Int32 line, std::string_view text) override;
  generator::ide::Int32 CreateEventProc(std::string_view event, std::string_view object) override;

 private:
  Object module_;
};

}  // namespace formwizard::adapters::com
