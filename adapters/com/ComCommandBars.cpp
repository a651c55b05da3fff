#include "adapters/com/ComCommandBars.h"

namespace formwizard::adapters::com {

namespace ide = generator::ide;
using ide::Int32;

std::shared_ptr<ide::CommandBarControls> ComCommandBarControl::Controls() {
  return std::make_shared<ComCommandBarControls>(control_.Child(L"CommandBar").Child(L"Controls"));
}

bool ComCommandBarControl::BeginGroup() const { return control_.Get(L"BeginGroup").ToBool(); }

void ComCommandBarControl::SetBeginGroup(bool value) { control_.Put(L"BeginGroup", value); }

void ComCommandBarControl::SetCaption(std::string_view caption) { control_.Put(L"Caption", caption); }

void ComCommandBarControl::SetOnAction(std::string_view action) { control_.Put(L"OnAction", action); }

void ComCommandBarControl::PasteFace() { control_.Call(L"PasteFace"); }

void ComCommandBarControl::Delete() { control_.Call(L"Delete"); }

Int32 ComCommandBarControls::Count() const { return controls_.Get(L"Count").ToInt32(); }

std::shared_ptr<ide::CommandBarControl> ComCommandBarControls::Item(Int32 index) {
  Object control = controls_.Item(index);
  return control ? std::make_shared<ComCommandBarControl>(std::move(control)) : nullptr;
}

std::shared_ptr<ide::CommandBarControl> ComCommandBarControls::Add(ide::CommandBarControlType type) {
  return std::make_shared<ComCommandBarControl>(controls_.Child(L"Add", Int32(static_cast<int>(type))));
}

}  // namespace formwizard::adapters::com
