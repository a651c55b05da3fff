#include "model/Layout.h"

#include "runtime/Conversions.h"

#include <algorithm>

namespace formwizard::model {
namespace {

constexpr Int16 FirstRowTop(240);
constexpr Int16 TotalControlWidth(4000);  // shared by the columns

Int16 TotalRows(const FormModel& form) {
  Int16 total;
  for (const Int16 field : form.SelectedFields) total = total + form.Fields[field].RowCount;
  return total;
}

// The top of the row below the column's last field.
Int16 PlaceRows(FormModel& form, const LayoutColumn& column) {
  Int16 top = FirstRowTop;
  for (const Int16 index : column) {
    FieldRecord& field = form.Fields[index];
    field.ControlTop = top;
    top = top + field.RowCount * RowPitch;
  }
  return top;
}

// The caption alone is measured, without the required mark.
Int32 WidestCaption(const FormModel& form, const LayoutColumn& column, const ui::TextMeasure& measure) {
  Int32 widest;
  for (const Int16 index : column) {
    const double width = measure.WidthOf(form.Fields[index].Caption);
    if (width > widest.Value()) widest = runtime::RoundToInt32(width);
  }
  return widest;
}

}  // namespace

void ComputePositions(FormModel& form, const settings::Settings& settings) {
  const Int16 columns = settings.Columns;
  const Int16 totalRows = TotalRows(form);
  form.LayoutGrid = OneBased<LayoutColumn>(columns);
  if (columns == Int16(0)) return;  // there is no column to fill; ComputeLayout refuses the setting
  const double rowsPerColumn = static_cast<double>(totalRows.Value()) / columns.Value();

  Int16 column(1);
  Int16 rows(0);
  for (const Int16 field : form.SelectedFields) {
    form.LayoutGrid[column].push_back(field);
    rows = rows + form.Fields[field].RowCount;
    if (column < columns && rows.Value() >= rowsPerColumn) {  // the field that fills a column stays in it
      column = column + Int16(1);
      rows = Int16(0);
    }
  }
}

void ComputeLayout(FormModel& form, settings::Settings& settings, const ui::TextMeasure& measure,
                   std::string_view classCaption) {
  const Int16 columns = settings.Columns;
  form.ClassCaption = classCaption;
  form.ControlWidth = TotalControlWidth / columns;

  Int16 bottom(0);
  for (const LayoutColumn& column : form.LayoutGrid) bottom = std::max(bottom, PlaceRows(form, column));
  form.ContentHeight = settings.Spacing + Int32(bottom);

  for (Int16 c(1); c <= columns; c += Int16(1)) {
    form.LabelWidths[c] = WidestCaption(form, form.LayoutGrid[c], measure);
    form.ColumnWidths[c] = form.LabelWidths[c] + form.ControlWidth + Int16(3) * settings.Spacing;
    form.ColumnLefts[c] = c == Int16(1) ? Int32(0) : form.ColumnWidths[c - Int16(1)] + form.ColumnLefts[c - Int16(1)];
  }
  form.ColumnsWidth = form.ColumnWidths[columns] + form.ColumnLefts[columns];

  if (!settings.Button) settings.ButtonAreaWidth = Int16(0);
  form.FrameHeight = std::max(form.ContentHeight, Int32(settings.MinFrameHeight));
  form.FrameWidth = form.ColumnsWidth + settings.ButtonAreaWidth;
}

}  // namespace formwizard::model
