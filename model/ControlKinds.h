// The kinds of controls that show a field, and tables with a row for each of them.
#pragma once

#include "runtime/Integer.h"

#include <array>
#include <cstddef>

namespace formwizard::model {

using runtime::Int16;

// Any other code makes the writers write nothing for a field.
namespace kind {
inline constexpr Int16 Free(0);            // a record in no use
inline constexpr Int16 TextBox(1);         // simple editable property
inline constexpr Int16 ReadOnlyLabel(2);   // simple property, shown only
inline constexpr Int16 ReferenceLabel(3);  // reference, shown in a label
inline constexpr Int16 ReferenceCombo(4);  // reference, chosen in a combo box that a class query fills
inline constexpr Int16 ListBox(5);         // list collection
inline constexpr Int16 ListView(6);        // array collection
inline constexpr Int16 Picture(7);         // binary stream
inline constexpr Int16 MultiLine(8);       // character stream
inline constexpr Int16 Last = MultiLine;
}  // namespace kind

// A table with a row for every kind, in their order. A row begins with its kind, FieldKind; one that is missing, out of
// order or too much does not compile.
template <typename Row>
class KindTable {
 public:
  static constexpr std::size_t Size = kind::Last.Value();

  consteval explicit KindTable(const Row (&rows)[Size]) {
    for (std::size_t i = 0; i < Size; ++i) {
      if (rows[i].FieldKind != Int16(i + 1)) EachKindNeedsItsRow();
      rows_[i] = rows[i];
    }
  }

  // Null for what is no kind of control.
  constexpr const Row* Find(Int16 fieldKind) const {
    if (fieldKind < Int16(1) || fieldKind > kind::Last) return nullptr;
    return &rows_[static_cast<std::size_t>(fieldKind.Value()) - 1];
  }

 private:
  static void EachKindNeedsItsRow() {}  // a call is no constant expression

  std::array<Row, Size> rows_{};
};

}  // namespace formwizard::model
