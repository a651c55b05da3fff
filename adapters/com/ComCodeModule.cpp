#include "adapters/com/ComCodeModule.h"

namespace formwizard::adapters::com {

using generator::ide::Int32;

Int32 ComCodeModule::CountOfLines() const { return module_.Get(L"CountOfLines").ToInt32(); }

void ComCodeModule::InsertLines(Int32 line, std::string_view text) { module_.Call(L"InsertLines", line, text); }

Int32 ComCodeModule::CreateEventProc(std::string_view event, std::string_view object) {
  return module_.Get(L"CreateEventProc", event, object).ToInt32();
}

}  // namespace formwizard::adapters::com
