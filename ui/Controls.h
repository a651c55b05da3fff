// The simple controls of the dialogs: records of what they show, with the events that the dialogs count on.
#pragma once

#include "runtime/Conversions.h"
#include "ui/Control.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace formwizard::ui {

class Label : public CaptionedControl {};

class Frame : public CaptionedControl {
 public:
  Property<bool> HasBorder{*this, true};
};

// Of frames that lie on top of each other; an index past the end hides all.
inline void ShowOnly(std::span<Frame> frames, std::size_t shown) {
  for (std::size_t i = 0; i < frames.size(); ++i) {
    if (i != shown) frames[i].Visible = false;
  }
  if (shown < frames.size()) frames[shown].Visible = true;
}

class CommandButton : public CaptionedControl {
 public:
  Property<bool> Default{*this, false};  // the one that Enter presses
  Property<bool> Cancel{*this, false};   // the one that Escape presses
  Event<> OnClick;

  bool TakesFocus() const override { return true; }
  void PressAccessKey() override { Click(); }
  // What a user does.
  void Click() {
    if (TakesInput()) OnClick();
  }
};

class CheckBox : public CaptionedControl {
 public:
  Event<> OnClick;

  // 0 unchecked, 1 checked, 2 grey.
  int Value() const { return value_; }
  // Raises Click when the value changes, and only then. Error 380 for any other value.
  void SetValue(int value) {
    if (value < 0 || value > 2) runtime::Raise(runtime::InvalidPropertyValue);
    if (std::exchange(value_, value) == value) return;
    Changed();
    OnClick();
  }
  bool TakesFocus() const override { return true; }
  void PressAccessKey() override { Click(); }
  // What a user does.
  void Click() {
    if (TakesInput()) SetValue(value_ == 0 ? 1 : 0);
  }

 private:
  int value_ = 0;
};

class TextBox : public Control {
 public:
  Event<> Change;

  const std::string& Text() const { return text_; }
  // Raises Change when the text changes.
  void SetText(std::string_view text) {
    if (text_ == text) return;
    text_ = text;
    Changed();
    Change();
  }
  bool TakesFocus() const override { return true; }
  // What a user does: replaces the text by another one.
  void Type(std::string_view text) {
    if (TakesInput()) SetText(text);
  }

 private:
  std::string text_;
};

// The arrows beside a text box, for choosing a number.
class UpDown : public Control {
 public:
  Property<Int16> Min{*this}, Max{*this}, Value{*this};
  TextBox* Buddy = nullptr;  // shows the value that the arrows choose

  // What a user does: the next number up or down, within the bounds.
  void Spin(int by) {
    if (!TakesInput()) return;
    Value = Int16(std::clamp(Value.Get().Value() + by, int{Min.Get().Value()}, int{Max.Get().Value()}));
    if (Buddy) Buddy->SetText(runtime::Text(Value.Get()));
  }
};

class PictureBox : public Control {
 public:
  Property<Int16> Picture{*this};  // index into the pictures of the dialog; 0: none
};

class StatusBar : public Control {
 public:
  std::array<Property<std::string>, 2> Panels{Property<std::string>(*this), Property<std::string>(*this)};
};

// Kinds that a dialog may also have, as far as their texts are localized.
class TabStrip : public Control {
 public:
  std::vector<std::string> TabCaptions;
};
class ListView : public Control {
 public:
  std::vector<std::string> ColumnHeaders;
};
class Toolbar : public Control {
 public:
  struct Button {
    std::string Tag, ToolTipText;
  };
  std::vector<Button> Buttons;
};

}  // namespace formwizard::ui
