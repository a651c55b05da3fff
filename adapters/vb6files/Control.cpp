#include "adapters/vb6files/Designer.h"
#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <cmath>

namespace formwizard::adapters::vb6files {
namespace {

// Twips that the border of a picture box takes from its inside, both sides together.
constexpr double RaisedBorder = 60, FlatBorder = 30;
constexpr double DropDownListStyle = 2;

// ActiveX controls measure themselves in hundredths of a millimetre.
double Himetric(double twips) { return std::round(twips * 2540 / 1440); }

bool IsNamed(const PropertyRow& row, std::string_view name) { return row.Name == name; }
bool IsScale(const PropertyRow& row) { return row.Name.starts_with("Scale"); }

}  // namespace

Control::Control(Designer& designer, const ControlClass& controlClass, std::string name)
    : designer_(designer), class_(controlClass), name_(std::move(name)) {
  values_.reserve(12);
  for (const std::uint8_t index : AlwaysWritten(class_.Bit)) {
    const PropertyRow& row = PropertyRows()[index];
    values_.push_back({&row, DefaultOf(row)});
    if (IsNamed(row, "Width")) values_.back().Data.Number = class_.Width;
    if (IsNamed(row, "Height")) values_.back().Data.Number = class_.Height;
  }
  // A new control shows its name.
  const bool isMenu = class_.Bit == classbit::Menu;
  for (const std::string_view shown : {"Caption", "Text"}) {
    const PropertyRow* row = isMenu ? nullptr : FindProperty(class_.Bit, shown);
    if (row) Set(*row, {0, name_});
  }
}

std::string Control::Name() const { return designer_.CodePageOfForm.Decode(name_); }

void Control::Set(const PropertyRow& row, PropertyData data) {
  const auto at = std::ranges::lower_bound(values_, &row, {}, &Value::Row);
  if (at != values_.end() && at->Row == &row) {
    at->Data = std::move(data);
  } else {
    values_.insert(at, {&row, std::move(data)});
  }
}

const PropertyData* Control::ValueOf(std::string_view name) const {
  const auto found = std::ranges::find_if(values_, [&](const Value& v) { return v.Row->Name == name; });
  return found == values_.end() ? nullptr : &found->Data;
}

double Control::NumberOf(std::string_view name) const {
  if (const PropertyData* data = ValueOf(name)) return data->Number;
  return DefaultOf(*FindProperty(class_.Bit, name)).Number;
}

void Control::CheckSettable(const PropertyRow& row) const {
  // The font decides the height of a drop-down box.
  if (class_.Bit == classbit::ComboBox && IsNamed(row, "Height")) {
    runtime::Raise(runtime::PropertyReadOnly, "'Height' property is read-only");
  }
}

void Control::SetProperty(std::string_view name, const generator::ide::PropertyValue& value) {
  if (runtime::EqualIgnoringCase(name, "Name")) {
    const auto* text = std::get_if<std::string_view>(&value);
    if (!text) runtime::Raise(runtime::TypeMismatch);
    designer_.Rename(*this, *text);
    return;
  }
  const PropertyRow* row = FindProperty(class_.Bit, name);
  if (!row) {
    runtime::Raise(runtime::PropertyNotFound,
                   "Property '" + std::string(name) + "' not found in " + std::string(class_.Name));
  }
  CheckSettable(*row);
  PropertyData data = Coerced(*row, value, designer_.CodePageOfForm);
  if (IsNamed(*row, "TabIndex")) {
    designer_.SetTabIndex(*this, static_cast<int>(data.Number));
  } else if (IsScale(*row)) {
    SetScale(*row, std::move(data));
  } else if (row->Type == PropertyType::Single) {
    SetPlace(*row, data.Number);
  } else {
    Set(*row, std::move(data));
  }
}

// Given in the units of the container, kept in twips: the number changes with the container, the place does not.
void Control::SetPlace(const PropertyRow& row, double value) {
  const Scale scale = parent_ ? parent_->ClientScale() : designer_.formScale_;
  const Axis& axis = IsNamed(row, "Left") || IsNamed(row, "Width") ? scale.X : scale.Y;
  const bool isOffset = IsNamed(row, "Left") || IsNamed(row, "Top");
  Set(row, {WholeTwips(isOffset ? axis.TwipsTo(value) : axis.TwipsIn(value)), {}});
}

// Setting a part of a scale makes it the user's own, with the other parts as they are.
void Control::SetScale(const PropertyRow& row, PropertyData data) {
  if (IsNamed(row, "ScaleMode")) {
    SetNumber("ScaleLeft", 0);
    SetNumber("ScaleTop", 0);
  } else if (NumberOf("ScaleMode") != UserScale) {
    const double width = ScaleExtent("Width");
    SetNumber("ScaleHeight", ScaleExtent("Height"));
    SetNumber("ScaleWidth", width);
    SetNumber("ScaleMode", UserScale);
  }
  Set(row, std::move(data));
}

void Control::SetNumber(std::string_view name, double value) { Set(*FindProperty(class_.Bit, name), {value, {}}); }

void Control::SetContainer(const std::shared_ptr<generator::ide::VBControl>& container) {
  auto* own = dynamic_cast<Control*>(container.get());
  if (!own) runtime::Raise(runtime::ObjectVariableNotSet);
  if (&own->designer_ != &designer_) runtime::Raise(runtime::InvalidPropertyValue);
  designer_.Move(*this, *own);
}

bool Control::IsVisible() const {
  const PropertyData* visible = ValueOf("Visible");
  return !visible || visible->Number != 0;
}

// Of a picture box, in twips.
double Control::ClientExtent(std::string_view dimension) const {
  const double extent = NumberOf(dimension);
  if (NumberOf("BorderStyle") == 0) return extent;
  return extent - (NumberOf("Appearance") != 0 ? RaisedBorder : FlatBorder);
}

// The same in its own units.
double Control::ScaleExtent(std::string_view dimension) const {
  const double mode = NumberOf("ScaleMode");
  if (mode == UserScale) return NumberOf("Scale" + std::string(dimension));
  const Scale scale = FixedScale(mode);
  return ClientExtent(dimension) / (dimension == "Width" ? scale.X : scale.Y).Twips;
}

// Of what stands on the control; a frame has twips always.
Scale Control::ClientScale() const {
  if (class_.Bit != classbit::PictureBox) return {};
  const double mode = NumberOf("ScaleMode");
  if (mode != UserScale) return FixedScale(mode);
  return UsersScale(NumberOf("ScaleLeft"), NumberOf("ScaleTop"), NumberOf("ScaleWidth"), NumberOf("ScaleHeight"),
                    ClientExtent("Width"), ClientExtent("Height"));
}

std::string Control::WrittenValue(const Value& value, FrxBuilder& frx) const {
  const PropertyRow& row = *value.Row;
  const auto number = [&](double n) { return ValueText(row, {n, {}}, frx); };
  if (IsNamed(row, "TabIndex")) return number(static_cast<double>(tabIndex_));
  if (class_.Bit == classbit::ListView && IsNamed(row, "_ExtentX")) return number(Himetric(NumberOf("Width")));
  if (class_.Bit == classbit::ListView && IsNamed(row, "_ExtentY")) return number(Himetric(NumberOf("Height")));
  if (IsNamed(row, "ScaleWidth")) return number(ScaleExtent("Width"));
  if (IsNamed(row, "ScaleHeight")) return number(ScaleExtent("Height"));
  if (class_.Bit == classbit::TextBox && IsNamed(row, "Text") && NumberOf("MultiLine") != 0) {
    return frx.AddMultiLineText(value.Data.Text);
  }
  return ValueText(row, value.Data, frx);
}

bool Control::IsWritten(const Value& value) const {
  if ((value.Row->AlwaysIn & class_.Bit) != 0) return true;
  // A drop-down list shows an entry, never a text of its own.
  if (class_.Bit == classbit::ComboBox && IsNamed(*value.Row, "Text") && NumberOf("Style") == DropDownListStyle) {
    return false;
  }
  return !IsDefault(*value.Row, value.Data);
}

void Control::AppendProperties(std::string& out, int level, FrxBuilder& frx) const {
  for (const Value& value : values_) {
    if (IsWritten(value)) AppendPropertyLine(out, level, value.Row->Name, WrittenValue(value, frx));
  }
}

void Control::AppendTo(std::string& out, int level, FrxBuilder& frx) const {
  AppendIndent(out, level);
  out += "Begin ";
  out += class_.Name;
  out += ' ';
  out += name_;
  out += " \r\n";
  AppendProperties(out, level + 1, frx);
  Designer::AppendLayers(children_, out, level + 1, frx);
  AppendIndent(out, level);
  out += "End\r\n";
}

}  // namespace formwizard::adapters::vb6files
