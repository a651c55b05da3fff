// The description of the form to generate: its fields, their order, and the places that the layout gives them.
#pragma once

#include "model/ControlKinds.h"
#include "runtime/Integer.h"
#include "runtime/OneBased.h"
#include "settings/Settings.h"

#include <array>
#include <string>
#include <vector>

namespace formwizard::model {

using runtime::Int32;
using runtime::OneBased;

// One property offered by the wizard. Texts are UTF-8.
struct FieldRecord {
  Int16 FieldKind;              // a code of `kind`
  std::string DisplayName;      // dotted path as shown in the wizard's lists
  std::string PropertyName;     // path on the server object, written after "m_object."
  std::string Caption;          // label text
  std::string ReferenceClass;   // reference: the class it refers to
  std::string ReferenceColumn;  // reference: the property of that class that is shown
  std::string PropertyType;     // type name on the server
  std::string RequiredMark;     // "*" for a required property, else empty
  Int32 MaxWidth;               // twips: maximum length times the character width
  std::string IntName;          // base of the control names
  std::string QueryName;        // combo box: the query that fills it
  std::string QueryColumn;      // combo box: the query's column that is shown
  Int16 QueryParamCount;        // combo box: parameters of the query
  Int16 QueryContainId;         // combo box: the query's column that holds the object id
  Int16 RowCount;               // layout rows the control occupies
  Int16 UpdateAfter;            // index of the field whose change refreshes this one; 0 for none
  std::string ControlName;      // name of the data control, given by the form writer
  Int32 ControlTop;             // twips, inside the main frame
};

// The fields of one column, by index into Fields, from the top.
using LayoutColumn = std::vector<Int16>;

struct FormModel {
  OneBased<FieldRecord> Fields;       // one record for every property offered, selected or not
  OneBased<Int16> SelectedFields;     // indexes into Fields, in the order of the form
  OneBased<LayoutColumn> LayoutGrid;  // columns 1 to the Columns setting
  std::string ClassName;              // full name of the selected class
  std::string ClassCaption;           // its name without the package

  // Results of the layout, in twips.
  Int32 ControlWidth;
  OneBased<Int32> ColumnLefts{settings::MostColumns};
  OneBased<Int32> ColumnWidths{settings::MostColumns};
  OneBased<Int32> LabelWidths{settings::MostColumns};
  Int32 ContentHeight;
  Int32 FrameHeight;
  Int32 ColumnsWidth;
  Int32 FrameWidth;

  // The character widths of the dialog's font, in twips, measured when the wizard opens.
  Int16 CharWidth;
  Int16 SixCharWidth;

  // Replaces Fields by ten free records.
  void ResetFieldRecords();
  // The first free record's index; grows Fields by ten when there is none. The caller marks it used by giving it a
  // kind.
  Int16 AllocateFieldRecord();

 private:
  Int16 firstPossiblyFree_ = Int16(1);  // every record before it is in use
};

}  // namespace formwizard::model
