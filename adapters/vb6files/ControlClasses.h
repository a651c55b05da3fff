// The control classes that this environment knows: their properties, events, names and sizes.
#pragma once

#include "generator/ide/PropertyName.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace formwizard::adapters::vb6files {

using generator::ide::PropertyName;

using ClassBits = std::uint16_t;

// One bit a class; a row of a table names the classes that it holds for.
namespace classbit {
inline constexpr ClassBits Form = 1, Label = 2, TextBox = 4, ComboBox = 8, ListBox = 16, CommandButton = 32, Frame = 64,
                           PictureBox = 128, Image = 256, ScrollBar = 512, Menu = 1024, ListView = 2048,
                           CommonDialog = 4096, Query = 8192;
}  // namespace classbit

enum class PropertyType : std::uint8_t {
  Text,
  Boolean,
  Integer,      // 16 bits
  Long,         // 32 bits
  Single,       // a position or size in the scale of the container
  Enumeration,  // written with the name of its value
  Color,        // written in hexadecimal
  Object,       // a picture, font or list: not set through a text
};

// The number that the digits of a table give, 0 for none.
constexpr double WholeNumberIn(std::string_view digits) {
  double number = 0;
  for (const char digit : digits.substr(digits.starts_with('-') ? 1 : 0)) number = number * 10 + (digit - '0');
  return digits.starts_with('-') ? -number : number;
}

// What stands in front of a property's value: the name padded to 16 columns, "=" and three blanks.
struct LineStart {
  constexpr explicit LineStart(std::string_view name) : Size(std::max<std::size_t>(name.size(), 16) + 4) {
    std::ranges::fill(Chars, ' ');
    std::ranges::copy(name, Chars.begin());
    Chars[Size - 4] = '=';
  }

  std::array<char, 24> Chars{};
  std::size_t Size;
};

struct PropertyRow {
  PropertyName Name;
  PropertyType Type;
  std::string_view Default;  // a whole number, or the text of a text
  ClassBits Classes;
  ClassBits AlwaysIn = 0;       // the classes that write it also at its default
  std::string_view Names = "";  // of an enumeration: the names of 0, 1, 2 ..., separated by "|"
  double DefaultNumber = WholeNumberIn(Default);
  LineStart Start = LineStart(Name.Text());
  bool IsOfScale = Name.Text().starts_with("Scale");

  // For names that stand in the table, of which no two have one key.
  constexpr bool Is(const PropertyName& name) const { return Name.Key() == name.Key(); }
};

// In the order in which files list properties: those of the environment's own classes and of the container by name,
// then those of the ActiveX controls in their own order.
std::span<const PropertyRow> PropertyRows();

// The rows of which a new control has a value, by index into PropertyRows, in its order: those that the class writes
// also at their default, and the one that shows the control's name.
std::span<const std::uint8_t> RowsOfNew(ClassBits classBit);

// The row of a class's property; null when the class lacks it.
const PropertyRow* FindProperty(ClassBits classBit, const PropertyName& name);

struct EventRow {
  std::string_view Name;
  std::string_view Parameters;
  ClassBits Classes;
};

// Without regard to case; null when the class lacks the event.
const EventRow* FindEvent(ClassBits classBit, std::string_view name);

// "MSComctlLib" of "MSComctlLib.ListView"; empty for the environment's own classes.
constexpr std::string_view LibraryIn(std::string_view className) {
  return className.starts_with("VB.") ? std::string_view() : className.substr(0, className.find('.'));
}

// Windowed controls stand before lightweight ones in a file, menus last.
enum class Layer : std::uint8_t { Windowed, Lightweight, Menu };

struct ControlClass {
  std::string_view Name;      // as files spell it: "VB.Label"
  std::string_view ProgId;    // another name under which it is asked for, without a version; empty: none
  std::string_view NameStem;  // "Label" of "Label1"
  ClassBits Bit;
  Layer FileLayer;
  int Width, Height;  // of a new control, in twips; 0: it has none
  std::string_view Library = LibraryIn(Name);
};

// By its name or its ProgID, which may have a version behind it (".2"), without regard to case; null for an unknown
// class.
const ControlClass* FindControlClass(std::string_view progId);

}  // namespace formwizard::adapters::vb6files
