// Places the selected fields on the columns of the form and sizes the form around them.
#pragma once

#include "model/FormModel.h"
#include "settings/Settings.h"
#include "ui/TextMeasure.h"

#include <string_view>

namespace formwizard::model {

inline constexpr Int16 RowPitch(360);  // twips from one layout row to the next

// Distributes the selection over the columns in order, so that they carry about equal numbers of rows. Error 6 when the
// rows do not fit 16 bits.
void ComputePositions(FormModel& form, const settings::Settings& settings);

// Needs the grid of ComputePositions; all results are in twips. Sets settings.ButtonAreaWidth to 0 for a form without
// buttons. Errors 6 for sizes out of range, 9 for more than MostColumns, 11 for none.
void ComputeLayout(FormModel& form, settings::Settings& settings, const ui::TextMeasure& measure,
                   std::string_view classCaption);

}  // namespace formwizard::model
