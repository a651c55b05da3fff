#include "vbtext/Values.h"

#include "runtime/Conversions.h"
#include "vbtext/Tokens.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <string>

namespace formwizard::vbtext {
namespace {

using runtime::EqualIgnoringCase;

// Hidden pages of a tabbed dialog keep their controls this far to the left, in twips.
constexpr double FarLeft = 75000;

bool IsOneOf(std::string_view name, auto... names) { return (EqualIgnoringCase(name, names) || ...); }

bool EndsWith(std::string_view name, std::string_view ending) {
  return name.size() >= ending.size() && EqualIgnoringCase(name.substr(name.size() - ending.size()), ending);
}

bool IsPlace(std::string_view property) { return IsOneOf(property, "Left", "Top", "Width", "Height"); }

std::optional<double> NumberIn(std::string_view value) {
  if (EqualIgnoringCase(value.substr(0, 2), "&H")) {
    value.remove_prefix(2);
    if (value.ends_with('&')) value.remove_suffix(1);
    std::uint32_t bits = 0;
    const auto read = std::from_chars(value.data(), value.data() + value.size(), bits, 16);
    const bool isWhole = !value.empty() && read.ec == std::errc() && read.ptr == value.data() + value.size();
    return isWhole ? std::optional<double>(bits) : std::nullopt;
  }
  // What has two meanings as a number is compared as text.
  const bool isPlain =
      std::ranges::all_of(value, [](char c) { return IsDigit(c) || c == '.' || c == '-' || c == 'e'; });
  return isPlain && runtime::IsNumeric(value) ? std::optional<double>(runtime::ToNumber(value)) : std::nullopt;
}

// The sizes of one font at the densities at which forms are saved.
bool IsSameFontSize(double a, double b) {
  constexpr std::array<std::array<double, 2>, 4> pairs{{{6.6, 6.75}, {8.25, 8.4}, {9.6, 9.75}, {11.25, 11.4}}};
  return std::ranges::any_of(pairs,
                             [&](const auto& pair) { return std::min(a, b) == pair[0] && std::max(a, b) == pair[1]; });
}

bool IsSameNumber(std::string_view property, const HeaderNode& control, double a, double b) {
  if (a == b) return true;
  if (EqualIgnoringCase(property, "Left") && std::abs(std::abs(a - b) - FarLeft) <= RoundingOfPlaces) return true;
  if (IsPlace(property)) return std::abs(a - b) <= RoundingOfPlaces;
  if (EqualIgnoringCase(property, "Size")) return IsSameFontSize(a, b);
  if (EqualIgnoringCase(property, "Format") && EndsWith(control.Class, ".DTPicker")) {
    return std::fmod(a, 65536) == std::fmod(b, 65536);
  }
  return false;
}

bool IsSameReference(const CompanionReference& a, const Side& sideA, const CompanionReference& b, const Side& sideB) {
  if (a.IsText != b.IsText) return false;
  const std::optional<std::string_view> recordA = sideA.Records.RecordAt(a.Offset);
  const std::optional<std::string_view> recordB = sideB.Records.RecordAt(b.Offset);
  if (!recordA && !recordB) return a.Offset == b.Offset && EqualIgnoringCase(a.File, b.File);
  return recordA == recordB;
}

bool IsSameValue(std::string_view property, std::string_view a, const Side& sideA, std::string_view b,
                 const Side& sideB) {
  const std::optional<CompanionReference> referenceA = ReferenceIn(a), referenceB = ReferenceIn(b);
  if (referenceA && referenceB) return IsSameReference(*referenceA, sideA, *referenceB, sideB);
  if (a.starts_with('"') || b.starts_with('"')) return a == b;
  const std::optional<double> numberA = NumberIn(a), numberB = NumberIn(b);
  if (numberA && numberB) return IsSameNumber(property, sideA.Control, *numberA, *numberB);
  return IsSameName(a, b);
}

// Values of a new control, for whatever class; those of one class only say so.
struct Default {
  std::string_view Class, Property;
  double Value;
};
constexpr std::array Defaults{Default{"", "Visible", -1},
                              Default{"", "Enabled", -1},
                              Default{"", "TabStop", -1},
                              Default{"VB.", "Appearance", 1},
                              Default{"VB.", "CausesValidation", -1},
                              Default{"VB.", "DragMode", 0},
                              Default{"VB.", "MousePointer", 0},
                              Default{"VB.", "HelpContextID", 0},
                              Default{"VB.", "WhatsThisHelpID", 0},
                              Default{"VB.", "OLEDropMode", 0},
                              Default{"VB.", "LinkMode", 0},
                              Default{"VB.", "ClipControls", -1},
                              Default{"VB.", "AutoRedraw", 0},
                              Default{"VB.", "FontTransparent", -1},
                              Default{"VB.Form", "BorderStyle", 2},
                              Default{"VB.Form", "ControlBox", -1},
                              Default{"VB.Form", "KeyPreview", 0},
                              Default{"VB.Form", "MDIChild", 0},
                              Default{"VB.Form", "WindowState", 0},
                              Default{"VB.Frame", "BorderStyle", 1},
                              Default{"VB.PictureBox", "BorderStyle", 1},
                              Default{"VB.TextBox", "BorderStyle", 1},
                              Default{"VB.TextBox", "Alignment", 0},
                              Default{"VB.TextBox", "Locked", 0},
                              Default{"VB.TextBox", "MaxLength", 0},
                              Default{"VB.TextBox", "MultiLine", 0},
                              Default{"VB.TextBox", "ScrollBars", 0},
                              Default{"VB.Label", "BorderStyle", 0},
                              Default{"VB.Label", "Alignment", 0},
                              Default{"VB.Label", "AutoSize", 0},
                              Default{"VB.Label", "BackStyle", 1},
                              Default{"VB.Label", "WordWrap", 0},
                              Default{"VB.Image", "BorderStyle", 0},
                              Default{"VB.Image", "Stretch", 0},
                              Default{"VB.ComboBox", "Style", 0},
                              Default{"VB.ListBox", "IntegralHeight", -1},
                              Default{"VB.ComboBox", "IntegralHeight", -1},
                              Default{"VB.CommandButton", "Cancel", 0},
                              Default{"VB.CommandButton", "Default", 0}};

bool IsOf(const HeaderNode& control, const Default& row) {
  return EqualIgnoringCase(control.Class.substr(0, row.Class.size()), row.Class) &&
         (row.Class.empty() || row.Class.ends_with('.') || control.Class.size() == row.Class.size());
}

}  // namespace

bool IsTabIndex(std::string_view property) { return EqualIgnoringCase(property, "TabIndex"); }

bool IsDerived(std::string_view property, const HeaderNode& control) {
  if (IsOneOf(property, "_ExtentX", "_ExtentY")) return true;
  // Which page of a tabbed dialog is turned up.
  const bool isPage = EqualIgnoringCase(property, "Tab") || EndsWith(property, ".ControlEnabled") ||
                      (EqualIgnoringCase(property.substr(0, 4), "Tab(") && EndsWith(property, ".Enabled"));
  return isPage && EndsWith(control.Class, ".SSTab");
}

bool IsLeftOut(const HeaderProperty& property, const HeaderNode& control) {
  if (IsDerived(property.Name, control)) return true;
  const std::optional<double> value = NumberIn(property.Value);
  return value && std::ranges::any_of(Defaults, [&](const Default& row) {
           return IsOf(control, row) && EqualIgnoringCase(row.Property, property.Name) && row.Value == *value;
         });
}

bool IsSameProperty(const HeaderProperty& a, const Side& sideA, const HeaderProperty& b, const Side& sideB) {
  if (a.IsGroup != b.IsGroup) return false;
  if (!a.IsGroup) return IsSameValue(a.Name, a.Value, sideA, b.Value, sideB);
  return EqualIgnoringCase(a.Value, b.Value) &&
         std::ranges::equal(a.Members, b.Members, [&](const HeaderProperty& x, const HeaderProperty& y) {
           return IsSameName(x.Name, y.Name) && IsSameProperty(x, sideA, y, sideB);
         });
}

}  // namespace formwizard::vbtext
