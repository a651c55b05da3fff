// The controls of one form: their classes, properties, order, containers and places in the tab order.
#pragma once

#include "adapters/vb6files/Caseless.h"
#include "adapters/vb6files/ControlClasses.h"
#include "adapters/vb6files/ControlLibraries.h"
#include "adapters/vb6files/PropertyText.h"
#include "adapters/vb6files/Scale.h"
#include "adapters/vb6files/Texts.h"
#include "adapters/vb6files/Values.h"
#include "generator/ide/Ide.h"
#include "system/CodePage.h"

#include <deque>
#include <memory_resource>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::adapters::vb6files {

class Designer;

class Control final : public generator::ide::VBControl {
 public:
  // The name is kept by the designer.
  Control(Designer& designer, const ControlClass& controlClass, std::string_view name);

  std::string Name() const override;
  void SetProperty(const PropertyName& name, const generator::ide::PropertyValue& value) override;
  void SetContainer(const std::shared_ptr<generator::ide::VBControl>& container) override;

  const ControlClass& Class() const { return class_; }
  // "Begin" to "End", children included, `level` times three blanks deep.
  void AppendTo(FormText& out, int level, FrxBuilder& frx) const;
  bool IsVisible() const;

 private:
  friend class Designer;
  struct Value {
    const PropertyRow* Row;
    PropertyData Data;
  };

  void Set(const PropertyRow& row, const PropertyData& data);
  const PropertyData* ValueOf(const PropertyName& name) const;
  double NumberOf(const PropertyName& name) const;
  void CheckSettable(const PropertyRow& row) const;
  void AppendProperties(FormText& out, int level, FrxBuilder& frx) const;
  void AppendWritten(FormText& out, const Value& value, FrxBuilder& frx) const;
  bool IsWritten(const Value& value) const;
  void SetPlace(const PropertyRow& row, double value);
  void SetScale(const PropertyRow& row, double value);
  void SetNumber(const PropertyName& name, double value);
  double ClientExtent(const PropertyName& dimension) const;
  double ScaleWidth() const;
  double ScaleHeight() const;
  Scale ClientScale() const;

  Designer& designer_;
  const ControlClass& class_;
  std::string_view name_;                // bytes in the code page
  std::pmr::vector<Value> values_;       // in the order of the file
  std::pmr::vector<Control*> children_;  // oldest first
  Control* parent_ = nullptr;
  mutable std::size_t tabIndex_ = 0;  // as of the last rendering
};

// The control behind a handle; null for none, and for another environment's.
Control* OwnControl(generator::ide::VBControl* control);

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
  const Control* Find(std::string_view name) const { return Named(name); }

  // The first name that a control was to have and could not, since the designer was made.
  const std::optional<RefusedName>& FirstRefused() const { return refused_; }

  bool UsesLibrary(std::string_view library) const;
  // A menu bar is there when a menu of the top level is visible.
  bool HasMenuBar() const;
  // All controls, from the level below the form.
  void AppendTo(FormText& out, FrxBuilder& frx) const;

  const system::CodePage& CodePageOfForm;

 private:
  friend class Control;

  std::string_view DefaultName(std::string_view stem);
  Control* Named(std::string_view name) const;
  void ListYoungest();
  void Rename(Control& control, std::string_view name);
  void Check(std::string_view name);
  void Refuse(std::string_view name, std::string_view problem);
  void Move(Control& control, Control& container);
  void SetTabIndex(Control& control, int index);
  static void AppendLayers(const std::pmr::vector<Control*>& controls, FormText& out, int level, FrxBuilder& frx);

  const ControlLibraries& libraries_;
  const Scale& formScale_;
  static constexpr std::size_t MostOften = 64;  // controls

  Texts texts_{16384};  // of the controls, with all that follows
  std::pmr::deque<Control> controls_{&texts_};
  std::pmr::unordered_map<std::string_view, Control*, CaselessHash, CaselessEqual> byName_{MostOften, &texts_};
  Control* unlisted_ = nullptr;                   // the youngest, as long as it has its default name: most are renamed
  std::pmr::vector<Control*> topLevel_{&texts_};  // oldest first
  std::pmr::vector<Control*> tabOrder_{&texts_};
  std::optional<RefusedName> refused_;
};

}  // namespace formwizard::adapters::vb6files
