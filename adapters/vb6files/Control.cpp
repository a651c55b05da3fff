#include "adapters/vb6files/Designer.h"
#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <cmath>
#include <typeinfo>

namespace formwizard::adapters::vb6files {
namespace {

// Twips that the border of a picture box takes from its inside, both sides together.
constexpr double RaisedBorder = 60, FlatBorder = 30;
constexpr double DropDownListStyle = 2;

// ActiveX controls measure themselves in hundredths of a millimetre.
double Himetric(double twips) { return std::round(twips * 2540 / 1440); }

}  // namespace

Control::Control(Designer& designer, const ControlClass& controlClass, std::string_view name)
    : designer_(designer), class_(controlClass), name_(name), values_(&designer.texts_), children_(&designer.texts_) {
  values_.reserve(12);
  for (const std::uint8_t index : RowsOfNew(class_.Bit)) {
    const PropertyRow& row = PropertyRows()[index];
    const double number = row.Is("Width") ? class_.Width : row.Is("Height") ? class_.Height : row.DefaultNumber;
    const bool showsName = row.Type == PropertyType::Text && class_.Bit != classbit::Menu;
    values_.push_back({&row, {number, showsName ? name_ : row.Default}});
  }
}

Control* OwnControl(generator::ide::VBControl* control) {
  return control && typeid(*control) == typeid(Control) ? static_cast<Control*>(control) : nullptr;
}

std::string Control::Name() const { return designer_.CodePageOfForm.Decode(name_); }

void Control::Set(const PropertyRow& row, const PropertyData& data) {
  const auto found = std::ranges::find(values_, &row, &Value::Row);
  if (found != values_.end()) {
    found->Data = data;
  } else {
    values_.insert(std::ranges::lower_bound(values_, &row, {}, &Value::Row), {&row, data});
  }
}

const PropertyData* Control::ValueOf(const PropertyName& name) const {
  const auto found = std::ranges::find_if(values_, [&](const Value& v) { return v.Row->Is(name); });
  return found == values_.end() ? nullptr : &found->Data;
}

double Control::NumberOf(const PropertyName& name) const {
  if (const PropertyData* data = ValueOf(name)) return data->Number;
  return FindProperty(class_.Bit, name)->DefaultNumber;
}

void Control::CheckSettable(const PropertyRow& row) const {
  // The font decides the height of a drop-down box.
  if (class_.Bit == classbit::ComboBox && row.Is("Height")) {
    runtime::Raise(runtime::PropertyReadOnly, "'Height' property is read-only");
  }
}

void Control::SetProperty(const PropertyName& name, const generator::ide::PropertyValue& value) {
  if (name == PropertyName("Name")) {
    const auto* text = std::get_if<std::string_view>(&value);
    if (!text) runtime::Raise(runtime::TypeMismatch);
    designer_.Rename(*this, *text);
    return;
  }
  const PropertyRow* row = FindProperty(class_.Bit, name);
  if (!row) {
    runtime::Raise(runtime::PropertyNotFound,
                   "Property '" + std::string(name.Text()) + "' not found in " + std::string(class_.Name));
  }
  CheckSettable(*row);
  if (row->Type == PropertyType::Text) {
    std::string room;
    Set(*row, {0, designer_.texts_.Kept(CoercedText(value, designer_.CodePageOfForm, room))});
    return;
  }
  const double number = CoercedNumber(*row, value);
  if (row->Is("TabIndex")) {
    designer_.SetTabIndex(*this, static_cast<int>(number));
  } else if (row->IsOfScale) {
    SetScale(*row, number);
  } else if (row->Type == PropertyType::Single) {
    SetPlace(*row, number);
  } else {
    Set(*row, {number});
  }
}

// Given in the units of the container, kept in twips: the number changes with the container, the place does not.
void Control::SetPlace(const PropertyRow& row, double value) {
  const Scale scale = parent_ ? parent_->ClientScale() : designer_.formScale_;
  const Axis& axis = row.Is("Left") || row.Is("Width") ? scale.X : scale.Y;
  const bool isOffset = row.Is("Left") || row.Is("Top");
  Set(row, {WholeTwips(isOffset ? axis.TwipsTo(value) : axis.TwipsIn(value))});
}

// Setting a part of a scale makes it the user's own, with the other parts as they are.
void Control::SetScale(const PropertyRow& row, double value) {
  if (row.Is("ScaleMode")) {
    SetNumber("ScaleLeft", 0);
    SetNumber("ScaleTop", 0);
  } else if (NumberOf("ScaleMode") != UserScale) {
    const double width = ScaleWidth();
    SetNumber("ScaleHeight", ScaleHeight());
    SetNumber("ScaleWidth", width);
    SetNumber("ScaleMode", UserScale);
  }
  Set(row, {value});
}

void Control::SetNumber(const PropertyName& name, double value) { Set(*FindProperty(class_.Bit, name), {value}); }

void Control::SetContainer(const std::shared_ptr<generator::ide::VBControl>& container) {
  Control* own = OwnControl(container.get());
  if (!own) runtime::Raise(runtime::ObjectVariableNotSet);
  if (&own->designer_ != &designer_) runtime::Raise(runtime::InvalidPropertyValue);
  designer_.Move(*this, *own);
}

bool Control::IsVisible() const {
  const PropertyData* visible = ValueOf("Visible");
  return !visible || visible->Number != 0;
}

// Of a picture box, in twips.
double Control::ClientExtent(const PropertyName& dimension) const {
  const double extent = NumberOf(dimension);
  if (NumberOf("BorderStyle") == 0) return extent;
  return extent - (NumberOf("Appearance") != 0 ? RaisedBorder : FlatBorder);
}

// The same in its own units.
double Control::ScaleWidth() const {
  const double mode = NumberOf("ScaleMode");
  return mode == UserScale ? NumberOf("ScaleWidth") : ClientExtent("Width") / FixedScale(mode).X.Twips;
}
double Control::ScaleHeight() const {
  const double mode = NumberOf("ScaleMode");
  return mode == UserScale ? NumberOf("ScaleHeight") : ClientExtent("Height") / FixedScale(mode).Y.Twips;
}

// Of what stands on the control; a frame has twips always.
Scale Control::ClientScale() const {
  if (class_.Bit != classbit::PictureBox) return {};
  const double mode = NumberOf("ScaleMode");
  if (mode != UserScale) return FixedScale(mode);
  return UsersScale(NumberOf("ScaleLeft"), NumberOf("ScaleTop"), NumberOf("ScaleWidth"), NumberOf("ScaleHeight"),
                    ClientExtent("Width"), ClientExtent("Height"));
}

void Control::AppendWritten(FormText& out, const Value& value, FrxBuilder& frx) const {
  const PropertyRow& row = *value.Row;
  const auto append = [&](double number) { AppendValue(out, row, {number}, frx); };
  if (row.Is("TabIndex")) return append(static_cast<double>(tabIndex_));
  if (class_.Bit == classbit::ListView && row.Is("_ExtentX")) return append(Himetric(NumberOf("Width")));
  if (class_.Bit == classbit::ListView && row.Is("_ExtentY")) return append(Himetric(NumberOf("Height")));
  if (row.Is("ScaleWidth")) return append(ScaleWidth());
  if (row.Is("ScaleHeight")) return append(ScaleHeight());
  if (class_.Bit == classbit::TextBox && row.Is("Text") && NumberOf("MultiLine") != 0) {
    out += frx.AddMultiLineText(value.Data.Text);
    return;
  }
  AppendValue(out, row, value.Data, frx);
}

bool Control::IsWritten(const Value& value) const {
  if ((value.Row->AlwaysIn & class_.Bit) != 0) return true;
  // A drop-down list shows an entry, never a text of its own.
  if (class_.Bit == classbit::ComboBox && value.Row->Is("Text") && NumberOf("Style") == DropDownListStyle) return false;
  return !IsDefault(*value.Row, value.Data);
}

void Control::AppendProperties(FormText& out, int level, FrxBuilder& frx) const {
  for (const Value& value : values_) {
    if (!IsWritten(value)) continue;
    AppendPropertyLine(out, level, value.Row->Start, [&] { AppendWritten(out, value, frx); });
  }
}

void Control::AppendTo(FormText& out, int level, FrxBuilder& frx) const {
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
