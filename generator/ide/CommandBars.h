// The port to the environment's menus: as much of its command bars as a command on the Add-Ins menu takes.
#pragma once

#include "generator/ide/Ide.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace formwizard::generator::ide {

class CommandBarControls;

// A command or a menu. Every operation raises a RuntimeError when the environment refuses it.
class CommandBarControl {
 public:
  virtual ~CommandBarControl() = default;
  // What stands on the menu behind this control; error 438 for a command, which has none.
  virtual std::shared_ptr<CommandBarControls> Controls() = 0;
  // Whether a separator stands before the control.
  virtual bool BeginGroup() const = 0;
  virtual void SetBeginGroup(bool value) = 0;
  virtual void SetCaption(std::string_view caption) = 0;
  virtual void SetOnAction(std::string_view action) = 0;
  // Takes the control's picture from the clipboard.
  virtual void PasteFace() = 0;
  virtual void Delete() = 0;
};

enum class CommandBarControlType : int { Button = 1 };

class CommandBarControls {
 public:
  virtual ~CommandBarControls() = default;
  virtual Int32 Count() const = 0;
  // Counts from 1; null or an error outside.
  virtual std::shared_ptr<CommandBarControl> Item(Int32 index) = 0;
  // A new control behind the others.
  virtual std::shared_ptr<CommandBarControl> Add(CommandBarControlType type) = 0;
};

// The clicks on one control arrive as long as this object lives.
class CommandBarEvents {
 public:
  virtual ~CommandBarEvents() = default;
  // Clicked control, and two answers that may be left as they are.
  using Click = std::function<void(CommandBarControl& control, bool& handled, bool& cancelDefault)>;
};

// The root object of the running environment, as an add-in gets it.
class Application : public Vbe {
 public:
  // "6.00" for one.
  virtual std::string Version() const = 0;
  // The controls of a command bar; 1 is the menu bar.
  virtual std::shared_ptr<CommandBarControls> CommandBar(Int32 index) = 0;
  virtual std::unique_ptr<CommandBarEvents> ConnectEvents(const std::shared_ptr<CommandBarControl>& control,
                                                          CommandBarEvents::Click onClick) = 0;
};

}  // namespace formwizard::generator::ide
