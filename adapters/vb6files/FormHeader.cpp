#include "adapters/vb6files/FormHeader.h"

#include "adapters/vb6files/Values.h"
#include "runtime/Conversions.h"
#include "support/Failures.h"
#include "ui/WindowFrame.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <set>

namespace formwizard::adapters::vb6files {
namespace {

using generator::ide::PropertyValue;

constexpr double MenuBarShift = 105;  // on both axes, of a form with a menu bar that the system places
constexpr double SystemPlaced = 3;    // StartUpPosition "Windows Default"

constexpr std::string_view ReferenceMark = ".frx\":";

bool Precedes(std::string_view a, std::string_view b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : static_cast<unsigned char>(c); };
  return std::ranges::lexicographical_compare(a, b, {}, lower, lower);
}

// The mark, and before it an equals sign and a quotation mark with which the file's name begins.
bool IsReference(std::string_view lines) {
  const std::size_t at = lines.find(ReferenceMark);
  if (at == std::string_view::npos) return false;
  const std::string_view before = lines.substr(0, at);
  return before.rfind('"') != std::string_view::npos && before.find('=') < before.rfind('"');
}

// Where a line's reference begins, its "$" included, and the offset that it gives.
std::size_t ReferenceStart(std::string_view line) {
  const std::size_t quote = line.rfind('"', line.find(ReferenceMark));
  return quote > 0 && line[quote - 1] == '$' ? quote - 1 : quote;
}
std::size_t ReferenceOffset(std::string_view line) {
  const std::string digits(line.substr(line.find(ReferenceMark) + ReferenceMark.size()));
  return std::strtoul(digits.c_str(), nullptr, 16);
}

// Of all references of a form and its controls.
std::set<std::size_t> OffsetsBeforeCode(std::string_view frm) {
  constexpr std::size_t longestOffset = 16;
  frm = frm.substr(0, frm.find("\nAttribute "));
  std::set<std::size_t> offsets;
  for (std::size_t at = 0; (at = frm.find(ReferenceMark, at)) != std::string_view::npos; ++at) {
    offsets.insert(ReferenceOffset(frm.substr(at, ReferenceMark.size() + longestOffset)));
  }
  return offsets;
}

// 0 for a text that is no number or a larger one than there is.
double FiniteNumber(std::string_view text) {
  const double number = runtime::LeadingNumber(text);
  return std::isfinite(number) ? number : 0;
}

}  // namespace

bool HoldsReference(std::string_view frm) { return frm.find(ReferenceMark) != std::string_view::npos; }

FormHeader::FormHeader(std::string_view name) : placed_(true) {
  properties_.reserve(16);
  SetText("Caption", name);
  SetNumber("ClientHeight", 3195);
  SetNumber("ClientLeft", 0);
  SetNumber("ClientTop", 0);
  SetNumber("ClientWidth", 4680);
  SetText("LinkTopic", name);
  SetNumber("StartUpPosition", SystemPlaced);
  RecomputeScale();
}

FormHeader::FormHeader(const std::string& path, const std::vector<FormProperty>& properties, std::string_view frm,
                       std::string_view frx) {
  std::set<std::size_t> offsets = OffsetsBeforeCode(frm);
  offsets.insert(frx.size());
  for (const FormProperty& property : properties) {
    auto read = std::make_unique<Read>(Read{property.Name, property.Lines, {}});
    if (IsReference(property.Lines)) {
      const std::size_t offset = ReferenceOffset(property.Lines);
      if (offset >= frx.size()) {
        throw support::InputError(path + ": property " + property.Name +
                                  " refers to data that its .frx file does not hold; restore the .frx file beside it");
      }
      // It ends where the next one begins, be it of the form or of a control.
      read->Record = frx.substr(offset, *offsets.upper_bound(offset) - offset);
    }
    const PropertyName name(read->Name);
    const double number = FiniteNumber(property.Lines.substr(property.Lines.find('=') + 1));
    properties_.push_back({name, FindProperty(classbit::Form, name), number, {}, std::move(read)});
  }
  left_ = NumberOf("ClientLeft") - Frame().Left();
  top_ = NumberOf("ClientTop") - Frame().Top();
  UpdateScale();
}

const FormHeader::Property* FormHeader::Find(const PropertyName& name) const {
  const auto found = std::ranges::find_if(properties_, [&](const Property& p) { return p.Name == name; });
  return found == properties_.end() ? nullptr : &*found;
}

double FormHeader::NumberOf(const PropertyName& name) const {
  if (const Property* property = Find(name)) return property->Number;
  const PropertyRow* row = FindProperty(classbit::Form, name);
  return row ? row->DefaultNumber : 0;
}

const ui::WindowFrame& FormHeader::Frame() const {
  const double last = static_cast<double>(ui::WindowFrames.size()) - 1;
  return ui::WindowFrames[static_cast<std::size_t>(std::clamp(NumberOf("BorderStyle"), 0.0, last))];
}

// The property that is about to be set: what it was read from no longer holds.
FormHeader::Property& FormHeader::Put(const PropertyName& name) {
  const auto found = std::ranges::find_if(properties_, [&](const Property& p) { return p.Name == name; });
  if (found != properties_.end()) {
    found->IsSet = true;
    return *found;
  }
  const auto at =
      std::ranges::find_if(properties_, [&](const Property& p) { return Precedes(name.Text(), p.Name.Text()); });
  return *properties_.insert(at, {name, FindProperty(classbit::Form, name)});
}

// Choosing a fixed style switches the buttons off that only a sizable form has; they can be switched on again.
void FormHeader::SetBorderStyle(double style) {
  SetNumber("BorderStyle", style);
  placed_ = true;
  const bool isFixed = style == 1 || style == 3 || style == 4 || style == 5;
  if (isFixed) {
    SetNumber("MaxButton", 0);
    SetNumber("MinButton", 0);
  }
  if (style >= 3) SetNumber("ShowInTaskbar", 0);
}

// Setting a part of a scale makes it the user's own, whatever it is set to.
void FormHeader::SetScale(const PropertyName& name, double value) {
  if (name == PropertyName("ScaleMode")) {
    for (const PropertyName& corner : {PropertyName("ScaleLeft"), PropertyName("ScaleTop")}) {
      if (Find(corner)) SetNumber(corner, 0);
    }
  } else {
    SetNumber("ScaleMode", UserScale);
  }
  SetNumber(name, value);
  RecomputeScale();
}

// The user's own scale keeps its numbers, those of any other follow the client area.
void FormHeader::RecomputeScale() {
  UpdateScale();
  if (NumberOf("ScaleMode") == UserScale) return;
  SetNumber("ScaleHeight", NumberOf("ClientHeight") / scale_.Y.Twips);
  SetNumber("ScaleWidth", NumberOf("ClientWidth") / scale_.X.Twips);
}

void FormHeader::UpdateScale() {
  const double mode = NumberOf("ScaleMode");
  scale_ = mode != UserScale ? FixedScale(mode)
                             : UsersScale(NumberOf("ScaleLeft"), NumberOf("ScaleTop"), NumberOf("ScaleWidth"),
                                          NumberOf("ScaleHeight"), NumberOf("ClientWidth"), NumberOf("ClientHeight"));
}

// Whole pixels, as a window has them.
void FormHeader::SetClientSize(const PropertyName& dimension, double outer, double frame) {
  const double client = std::max(WholeTwips(outer) - frame, 0.0);
  SetNumber(dimension, std::round(client / ui::TwipsPerPixel) * ui::TwipsPerPixel);
  RecomputeScale();
}

void FormHeader::SetProperty(const PropertyName& name, const PropertyValue& value, const system::CodePage& codePage,
                             bool hasMenuBar) {
  const PropertyRow* row = FindProperty(classbit::Form, name);
  if (!row)
    runtime::Raise(runtime::PropertyNotFound, "Property '" + std::string(name.Text()) + "' not found in VB.Form");
  if (row->Type == PropertyType::Text) {
    std::string room;
    return SetText(row->Name, CoercedText(value, codePage, room));
  }
  const double number = CoercedNumber(*row, value);
  if (row->Is("Height")) {
    SetClientSize("ClientHeight", number, Frame().Height() + (hasMenuBar ? ui::MenuBarHeight : 0));
  } else if (row->Is("Width")) {
    SetClientSize("ClientWidth", number, Frame().Width());
  } else if (row->Is("Left") || row->Is("Top")) {
    (row->Is("Left") ? left_ : top_) = number;
    placed_ = true;
  } else if (row->Is("BorderStyle")) {
    SetBorderStyle(number);
  } else if (row->IsOfScale) {
    SetScale(row->Name, number);
  } else {
    if (row->Is("StartUpPosition")) placed_ = true;
    SetNumber(row->Name, number);
  }
}

double FormHeader::WrittenNumber(const Property& property, bool hasMenuBar) const {
  const bool isLeft = property.Name == PropertyName("ClientLeft");
  if (!(isLeft || property.Name == PropertyName("ClientTop")) || !(placed_ || hasMenuBar)) return property.Number;
  const bool systemPlaced = NumberOf("StartUpPosition") == SystemPlaced;
  const double shift = systemPlaced && hasMenuBar ? MenuBarShift : 0;
  if (isLeft) return (systemPlaced ? 0 : left_) + Frame().Left() + shift;
  return (systemPlaced ? 0 : top_) + Frame().Top() + shift + (hasMenuBar ? ui::MenuBarHeight : 0);
}

// A record gets a new place in the companion file.
void FormHeader::AppendRead(FormText& out, const Read& read, FrxBuilder& frx) {
  if (read.Record.empty()) {
    out += read.Lines;
    return;
  }
  const std::size_t start = ReferenceStart(read.Lines);
  out += std::string_view(read.Lines).substr(0, start);
  if (read.Lines[start] == '$') out += '$';
  out += frx.AddRecord(read.Record);
  out += "\r\n";
}

void FormHeader::AppendTo(FormText& out, FrxBuilder& frx, bool hasMenuBar) const {
  for (const Property& property : properties_) {
    const double number = WrittenNumber(property, hasMenuBar);
    if (property.StandsAsRead() && number == property.Number) {
      AppendRead(out, *property.AsRead, frx);
    } else if (!property.Row) {
      AppendPropertyLine(out, 1, LineStart(property.Name.Text()), [&] { AppendNumber(out, number); });
    } else if (!IsDefault(*property.Row, property.Data()) || (property.Row->AlwaysIn & classbit::Form) != 0) {
      AppendPropertyLine(out, 1, LineStart(property.Name.Text()),
                         [&] { AppendValue(out, *property.Row, property.Data(), frx); });
    }
  }
}

}  // namespace formwizard::adapters::vb6files
