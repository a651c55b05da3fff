// The open project of the running environment and its components.
#pragma once

#include "adapters/com/Automation.h"
#include "generator/ide/Ide.h"

#include <memory>
#include <string>
#include <string_view>

namespace formwizard::adapters::com {

class ComComponent : public generator::ide::VBComponent {
 public:
  explicit ComComponent(Object component) : component_(std::move(component)) {}

  std::string Name() const override;
  void SetName(std::string_view name) override;
  void SetProperty(const generator::ide::PropertyName& name, const generator::ide::PropertyValue& value) override;
  std::shared_ptr<generator::ide::VBControls> DesignerControls() override;
  std::shared_ptr<generator::ide::CodeModule> Code() override;
  void Activate() override;

 private:
  Object component_;
};

class ComComponents : public generator::ide::VBComponents {
 public:
  void Bind(Object components) { components_ = std::move(components); }

  std::shared_ptr<generator::ide::VBComponent> Find(std::string_view name) override;
  generator::ide::Int32 FirstFreeNumber(std::string_view stem) const override;
  std::shared_ptr<generator::ide::VBComponent> Add(generator::ide::ComponentType type) override;

 private:
  Object components_;
};

// Stays the same object when another project becomes the open one, so that a reference to it stays valid.
class ComProject : public generator::ide::VBProject {
 public:
  void Bind(Object project) { project_ = std::move(project); }

  void AddToolboxProgID(std::string_view progId) override;
  generator::ide::VBComponents& Components() override;

 private:
  Object project_;
  ComComponents components_;
};

}  // namespace formwizard::adapters::com
