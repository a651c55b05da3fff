// The controls of a form designer of the running environment.
#pragma once

#include "adapters/com/Automation.h"
#include "generator/ide/Ide.h"

#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::com {

class ComControl : public generator::ide::VBControl {
 public:
  explicit ComControl(Object control) : control_(std::move(control)) {}

  std::string Name() const override;
  void SetProperty(const generator::ide::PropertyName& name, const generator::ide::PropertyValue& value) override;
  void SetContainer(const std::shared_ptr<generator::ide::VBControl>& container) override;

  const Object& Automation() const { return control_; }

 private:
  Object control_;
};

class ComControls : public generator::ide::VBControls {
 public:
  explicit ComControls(Object controls) : controls_(std::move(controls)) {}

  generator::ide::Int32 Count() const override;
  // A control in another one is added to that one's own list: this is how the environment nests menus.
  std::shared_ptr<generator::ide::VBControl> Add(std::string_view progId,
                                                 const std::shared_ptr<generator::ide::VBControl>& container) override;

 private:
  Object controls_;
};

}  // namespace formwizard::adapters::com
