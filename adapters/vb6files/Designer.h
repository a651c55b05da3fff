// The controls of one form: their classes, properties, order, containers and places in the tab order.
#pragma once

#include "adapters/vb6files/ControlClasses.h"
#include "adapters/vb6files/ControlLibraries.h"
#include "adapters/vb6files/PropertyText.h"
#include "adapters/vb6files/Scale.h"
#include "generator/ide/Ide.h"
#include "system/CodePage.h"

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::adapters::vb6files {

class Designer;

class Control final : public generator::ide::VBControl {
 public:
  Control(Designer& designer, const ControlClass& controlClass, std::string name);

  std::string Name() const override;
  void SetProperty(std::string_view name, const generator::ide::PropertyValue& value) override;
  void SetContainer(const std::shared_ptr<generator::ide::VBControl>& container) override;

  const ControlClass& Class() const { return class_; }
  // "Begin" to "End", children included, `level` times three blanks deep.
  void AppendTo(std::string& out, int level, FrxBuilder& frx) const;
  bool IsVisible() const;

 private:
  friend class Designer;
  struct Value {
    const PropertyRow* Row;
    PropertyData Data;
  };

  void Set(const PropertyRow& row, PropertyData data);
  const PropertyData* ValueOf(std::string_view name) const;
  double NumberOf(std::string_view name) const;
  void CheckSettable(const PropertyRow& row) const;
  void AppendProperties(std::string& out, int level, FrxBuilder& frx) const;
  std::string WrittenValue(const Value& value, FrxBuilder& frx) const;
  bool IsWritten(const Value& value) const;
  void SetPlace(const PropertyRow& row, double value);
  void SetScale(const PropertyRow& row, PropertyData data);
  void SetNumber(std::string_view name, double value);
  double ClientExtent(std::string_view dimension) const;
  double ScaleExtent(std::string_view dimension) const;
  Scale ClientScale() const;

  Designer& designer_;
  const ControlClass& class_;
  std::string name_;                // bytes in the code page
  std::vector<Value> values_;       // in the order of the file
  std::vector<Control*> children_;  // oldest first
  Control* parent_ = nullptr;
  mutable std::size_t tabIndex_ = 0;  // as of the last rendering
};

class Designer {
 public:
  // `formScale` is that of the form's client area. All must outlive the designer.
  Designer(const system::CodePage& codePage, const ControlLibraries& libraries, const Scale& formScale)
      : CodePageOfForm(codePage), libraries_(libraries), formScale_(formScale) {}
  Designer(const Designer&) = delete;
  Designer& operator=(const Designer&) = delete;

  std::size_t Count() const { return controls_.size(); }
  // Error 363 for a class that is unknown or whose library the project does not refer to, 380 for a container that
  // takes no such control.
  Control& Add(std::string_view progId, Control* container);
  // Null when the form has no such control; in any case of its letters.
  const Control* Find(std::string_view name) const;

  bool UsesLibrary(std::string_view library) const;
  // A menu bar is there when a menu of the top level is visible.
  bool HasMenuBar() const;
  // All controls, from the level below the form.
  void AppendTo(std::string& out, FrxBuilder& frx) const;

  const system::CodePage& CodePageOfForm;

 private:
  friend class Control;

  std::string DefaultName(std::string_view stem) const;
  void Rename(Control& control, std::string_view name);
  void Move(Control& control, Control& container);
  void SetTabIndex(Control& control, int index);
  static void AppendLayers(const std::vector<Control*>& controls, std::string& out, int level, FrxBuilder& frx);

  const ControlLibraries& libraries_;
  const Scale& formScale_;
  std::deque<Control> controls_;
  std::unordered_map<std::string, Control*> byName_;  // in lower case
  std::vector<Control*> topLevel_;                    // oldest first
  std::vector<Control*> tabOrder_;
};

}  // namespace formwizard::adapters::vb6files
