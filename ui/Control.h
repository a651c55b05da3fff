// What every control of a dialog has.
#pragma once

#include "runtime/Integer.h"
#include "ui/Event.h"
#include "ui/Property.h"

#include <string>
#include <string_view>

namespace formwizard::ui {

using runtime::Int16;
using runtime::Int32;

class Form;

struct Font {
  explicit Font(Observed& owner) : Size(owner, 8), Name(owner, "MS Sans Serif"), Charset(owner, 1) {}

  Property<double> Size;  // points
  Property<std::string> Name;
  Property<int> Charset;  // 1: the default one
};

// A view of one control, told what to show.
class ControlObserver {
 public:
  virtual ~ControlObserver() = default;
  // Some property of the control has another value.
  virtual void Changed() = 0;
};

class Control : public Observed {
 public:
  Control() = default;
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  std::string Name;
  std::string Tag;                 // string ids of caption and font, see support/Localization.h
  Form* Parent = nullptr;          // the form that it stands on
  Control* Container = nullptr;    // the frame that it stands in; null: the form itself
  Int32 Left, Top, Width, Height;  // in the container, twips
  ui::Font Font{*this};
  Property<bool> Enabled{*this, true};
  Property<bool> Visible{*this, true};
  Property<std::string> ToolTipText{*this};  // also its name for those who cannot see it

  // Visible with everything that it stands in.
  bool IsShown() const;
  // A control that is hidden or disabled, by itself or with what it stands in, refuses what a user does.
  bool TakesInput() const;
  // Whether a control of this kind can have the focus.
  virtual bool TakesFocus() const { return false; }
  // Whether the tab key stops here, when the control takes input.
  virtual bool IsTabStop() const { return TakesFocus(); }
  // The text in which "&" marks the access key; empty for a kind without one.
  virtual std::string_view CaptionText() const { return {}; }
  // What a user does by the access key, once the control has the focus.
  virtual void PressAccessKey() {}

  // At most one view; null takes it away. It must outlive the control or be taken away.
  void Observe(ControlObserver* observer) { observer_ = observer; }
  void Changed() override {
    if (observer_) observer_->Changed();
  }

 private:
  ControlObserver* observer_ = nullptr;
};

// A control that shows one text.
class CaptionedControl : public Control {
 public:
  Property<std::string> Caption{*this};
  std::string_view CaptionText() const override { return Caption; }
};

// The character behind the first single "&" of a caption, as UTF-8; empty without one. "&&" is an ampersand.
std::string_view AccessKeyOf(std::string_view caption);

}  // namespace formwizard::ui
