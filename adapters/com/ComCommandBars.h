// The command bars of the running environment, and the clicks on their controls.
#pragma once

#include "adapters/com/Automation.h"
#include "generator/ide/CommandBars.h"

#include <memory>
#include <string_view>

namespace formwizard::adapters::com {

class ComCommandBarControl : public generator::ide::CommandBarControl {
 public:
  explicit ComCommandBarControl(Object control) : control_(std::move(control)) {}

  std::shared_ptr<generator::ide::CommandBarControls> Controls() override;
  bool BeginGroup() const override;
  void SetBeginGroup(bool value) override;
  void SetCaption(std::string_view caption) override;
  void SetOnAction(std::string_view action) override;
  void PasteFace() override;
  void Delete() override;

  const Object& Automation() const { return control_; }

 private:
  Object control_;
};

class ComCommandBarControls : public generator::ide::CommandBarControls {
 public:
  explicit ComCommandBarControls(Object controls) : controls_(std::move(controls)) {}

  generator::ide::Int32 Count() const override;
  std::shared_ptr<generator::ide::CommandBarControl> Item(generator::ide::Int32 index) override;
  std::shared_ptr<generator::ide::CommandBarControl> Add(generator::ide::CommandBarControlType type) override;

 private:
  Object controls_;
};

// The interface through which the environment tells of clicks, and its one event.
constexpr GUID CommandBarControlEvents{0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};
constexpr DISPID ClickEvent = 1;

// `source` is what the environment hands out for a control. The clicks on it arrive until the result is destroyed,
// which may happen during a click.
std::unique_ptr<generator::ide::CommandBarEvents> ListenToClicks(ComPtr<IUnknown> source,
                                                                 generator::ide::CommandBarEvents::Click onClick);

}  // namespace formwizard::adapters::com
