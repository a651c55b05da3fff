// The properties of a form itself, and the relation of its outer size to the client area that its file holds.
#pragma once

#include "adapters/vb6files/FormReader.h"
#include "adapters/vb6files/PropertyText.h"
#include "adapters/vb6files/Scale.h"
#include "generator/ide/Ide.h"
#include "system/CodePage.h"
#include "ui/WindowFrame.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace formwizard::adapters::vb6files {

// Whether the text of a form refers to its companion file.
bool HoldsReference(std::string_view frm);

class FormHeader {
 public:
  // A new form of this name, in bytes.
  explicit FormHeader(std::string_view name);
  // A form as read from `frm`. `frx` is its companion file; support::InputError, naming `path`, for a reference past
  // its end.
  FormHeader(const std::string& path, const std::vector<FormProperty>& properties, std::string_view frm,
             std::string_view frx);

  // Errors as Coerced raises them, 422 for a property that a form lacks. With a menu bar the outer height holds it too.
  void SetProperty(const PropertyName& name, const generator::ide::PropertyValue& value,
                   const system::CodePage& codePage, bool hasMenuBar);

  // Of what stands on the form.
  const Scale& ClientScale() const { return scale_; }

  // The property lines, by name.
  void AppendTo(FormText& out, FrxBuilder& frx, bool hasMenuBar) const;

 private:
  struct Read {
    std::string Name, Lines;
    std::string Record;  // of the companion file, when the lines refer to one
  };
  struct Property {
    PropertyName Name;                 // stands in the source or in what was read
    const PropertyRow* Row = nullptr;  // null: a property that is kept as it was read
    double Number = 0;
    std::string Text = {};
    std::unique_ptr<Read> AsRead = {};  // null: it was not in the file
    bool IsSet = false;                 // and what was read no longer holds

    PropertyData Data() const { return {Number, Text}; }
    bool StandsAsRead() const { return AsRead && !IsSet; }
  };

  const Property* Find(const PropertyName& name) const;
  double NumberOf(const PropertyName& name) const;
  Property& Put(const PropertyName& name);
  void SetNumber(const PropertyName& name, double value) { Put(name).Number = value; }
  void SetText(const PropertyName& name, std::string_view text) { Put(name).Text = text; }
  void SetBorderStyle(double style);
  void SetClientSize(const PropertyName& dimension, double outer, double frame);
  void SetScale(const PropertyName& name, double value);
  void RecomputeScale();
  void UpdateScale();
  const ui::WindowFrame& Frame() const;
  static void AppendRead(FormText& out, const Read& read, FrxBuilder& frx);
  double WrittenNumber(const Property& property, bool hasMenuBar) const;

  std::vector<Property> properties_;  // in the order of the file
  Scale scale_;                       // follows from them
  double left_ = 0, top_ = 0;         // of the outer frame, twips
  bool placed_ = false;               // the place is written anew
};

}  // namespace formwizard::adapters::vb6files
