// The port to the development environment: the objects of its extensibility model that the generator works on.
//
// Objects are handed out as shared handles; a handle stays valid as long as its component exists in the project. Texts
// are UTF-8. Every operation raises a RuntimeError when the environment refuses it.
#pragma once

#include "generator/ide/PropertyName.h"
#include "runtime/Integer.h"

#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace formwizard::generator::ide {

using runtime::Int16;
using runtime::Int32;

// A property's value as the caller types it; a text is only looked at during the call.
using PropertyValue = std::variant<std::string_view, bool, Int16, Int32>;

enum class ComponentType : int { Form = 5 };

class VBControl {
 public:
  virtual ~VBControl() = default;
  // The value of the property "Name".
  virtual std::string Name() const = 0;
  virtual void SetProperty(const PropertyName& name, const PropertyValue& value) = 0;
  // Moves the control into another control of the same form.
  virtual void SetContainer(const std::shared_ptr<VBControl>& container) = 0;
};

// All controls of one form, at any depth, menus included.
class VBControls {
 public:
  virtual ~VBControls() = default;
  virtual Int32 Count() const = 0;
  // Adds a control of a class ("VB.Label") under a default name; without a container it stands on the form itself.
  virtual std::shared_ptr<VBControl> Add(std::string_view progId, const std::shared_ptr<VBControl>& container) = 0;
};

// The code of one component.
class CodeModule {
 public:
  virtual ~CodeModule() = default;
  virtual Int32 CountOfLines() const = 0;
  // Inserts text, which may hold CRLF line breaks, before the one-based line; CountOfLines() + 1 appends.
  virtual void InsertLines(Int32 line, std::string_view text) = 0;
  // Creates the empty procedure for an event of an object and returns the one-based line of its "Sub".
  virtual Int32 CreateEventProc(std::string_view event, std::string_view object) = 0;
};

class VBComponent {
 public:
  virtual ~VBComponent() = default;
  virtual std::string Name() const = 0;
  virtual void SetName(std::string_view name) = 0;
  // A property of the component itself, such as a form's "Caption".
  virtual void SetProperty(const PropertyName& name, const PropertyValue& value) = 0;
  // The form designer's controls; null for a component without a designer, such as a module.
  virtual std::shared_ptr<VBControls> DesignerControls() = 0;
  virtual std::shared_ptr<CodeModule> Code() = 0;
  // Brings the designer to the front.
  virtual void Activate() = 0;
};

class VBComponents {
 public:
  virtual ~VBComponents() = default;
  // The first component of exactly this name, in collection order, or null.
  virtual std::shared_ptr<VBComponent> Find(std::string_view name) = 0;
  // The lowest number from 2 upward for which no component has exactly the name `stem` & number.
  virtual Int32 FirstFreeNumber(std::string_view stem) const = 0;
  virtual std::shared_ptr<VBComponent> Add(ComponentType type) = 0;
};

class VBProject {
 public:
  virtual ~VBProject() = default;
  // Makes a control class available to the project.
  virtual void AddToolboxProgID(std::string_view progId) = 0;
  virtual VBComponents& Components() = 0;
};

// The running environment.
class Vbe {
 public:
  virtual ~Vbe() = default;
  // Error 91 when no project is open.
  virtual VBProject& ActiveVBProject() = 0;
};

}  // namespace formwizard::generator::ide
