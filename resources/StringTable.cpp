#include "resources/StringTable.h"

#include <algorithm>
#include <array>

namespace formwizard::resources {
namespace {

struct Entry {
  int Id;
  std::string_view Text;
};

// Ordered by id. "%S1" stands for a text argument, "%N1" and "%N2" for numbers; "&" marks an access key.
constexpr std::array Table{
    // Font sizes, under the ids of the same number, and font names
    Entry{8, "8"},
    Entry{10, "10"},
    Entry{12, "12"},
    Entry{14, "14"},
    Entry{16, "16"},
    Entry{18, "18"},
    Entry{24, "24"},
    Entry{30, "MS Sans Serif"},
    Entry{31, "Courier New"},
    Entry{36, "36"},

    // Wizard frame
    Entry{50, "&Cancel"},
    Entry{51, "< &Back"},
    Entry{52, "&Next >"},
    Entry{53, "&Finish"},
    Entry{54, "Ostrel Form Wizard - Step "},
    Entry{55, " of "},
    Entry{57, " - Connection"},
    Entry{58, " - Class"},
    Entry{59, " - Properties"},
    Entry{60, " - Attributes"},
    Entry{61, " - Finish"},

    // Wizard steps
    Entry{100, "Welcome!"},
    Entry{101,
          "This wizard creates a Visual Basic form for a persistent class of an Ostrel system.  You choose the class, "
          "the properties that the form shows and how each of them is shown; the wizard then adds the form, with its "
          "controls, menus and code, to the open project."},
    Entry{102, "Which Ostrel system would you like to connect to?"},
    Entry{103, "&Settings..."},
    Entry{104, "Which class would you like to use?"},
    Entry{105, "Please select a class:"},
    Entry{106,
          "Which properties would you like to include on the new form?  Click the plus sign to open the embedded "
          "classes if you want to include them."},
    Entry{107,
          "You may specify attributes for each selected property.  Click on a property from the Selected Properties "
          "box then modify its attributes in the Attribute box on the right."},
    Entry{108, "Available Properties:"},
    Entry{109, "Selected Properties:"},
    Entry{110, "DataType Attribute"},
    Entry{111, "Reference Attribute"},
    Entry{112, "Image Attribute"},
    Entry{113, "Collection Attribute"},
    Entry{114, "Ca&ption:"},
    Entry{115, "&ReadOnly"},
    Entry{116, "Update after Field Modification:"},
    Entry{117, "Control Row Height:"},
    Entry{118, "&Show Reference as Combo Box"},
    Entry{119, "Completing the Wizard"},
    Entry{120,
          "You have successfully specified the information necessary to create a Visual Basic form for class %S1."},
    Entry{121, "Press FINISH to create the form now."},
    Entry{122, "MultiLine Attribute"},
    Entry{128, "Height:"},
    Entry{129, "Width:"},
    Entry{130, "Please enter a valid height and width."},
    Entry{140, "Select the property"},
    Entry{141, "Select all properties"},
    Entry{142, "Remove the property"},
    Entry{143, "Remove all properties"},
    Entry{144, "Move the property up"},
    Entry{145, "Move the property down"},

    // Texts of the generated forms
    Entry{200, "&New"},
    Entry{201, "&Find..."},
    Entry{202, "&Save"},
    Entry{203, "&Close"},
    Entry{204, "E&xit"},
    Entry{205, "&Object"},
    Entry{206, "&Add to End"},
    Entry{207, "&Insert"},
    Entry{208, "&Remove"},
    Entry{215, "&Change "},  // the trailing blanks of 215, 216 and 218 are part of the texts
    Entry{216, "&Remove "},
    Entry{217, "Please type new element."},
    Entry{218, "Insert into "},
    Entry{219, "&Delete"},
    Entry{220, "Are you sure that you want to delete this record?"},
    Entry{222, "Index"},
    Entry{223, "Value"},
    Entry{224, "Please enter new index."},
    Entry{225, "Please enter new value."},
    Entry{303, "Cannot create new object."},
    Entry{304, "Can not open object."},
    Entry{305, "Do you want to save?"},
    Entry{306, "Unable to delete record (ID unknown)."},

    // Status bar
    Entry{401, "Populating class list ..."},
    Entry{402, "Populating property list ..."},
    Entry{403, "Connecting to Ostrel system ..."},
    Entry{404, "Unable to connect."},
    Entry{407, "Ready"},
    Entry{408, "Begin creating new form ..."},
    Entry{409, "Computing positions ..."},
    Entry{410, "Computing layout ..."},
    Entry{411, "Writing form and control properties ..."},
    Entry{412, "Writing procedures ..."},
    Entry{413, "Complete."},
    Entry{414, "Connected to %S1."},
    Entry{415, "File saved successfully: "},

    // Settings dialog
    Entry{500, "Ostrel Form Wizard Settings"},
    Entry{501, "Screen Layout"},
    Entry{502, "Number of columns:"},
    Entry{503, "Number of display rows for lists and arrays:"},
    Entry{504, "Number of display rows for images:"},
    Entry{505, "Label Alignment"},
    Entry{506, "&Labels are left justified"},
    Entry{507, "Labels are &right justified"},
    Entry{508, "Form Layout"},
    Entry{509, "Form contains &menus"},
    Entry{510, "Form contains &buttons"},
    Entry{511, "Form contains a &toolbar"},
    Entry{512, "Form contains a &staus bar"},  // the spelling is the required text
    Entry{513, "Form can be &resized"},
    Entry{514, "Number of display rows for multiline textbox:"},
    Entry{550, "&OK"},
    Entry{551, "&Cancel"},
    Entry{552, "Please enter a number between %N1 and %N2."},

    // Reference combo specification
    Entry{600, "You must select both Query name and Column name."},
    Entry{601, "Query Name:"},
    Entry{602, "Column Name:"},
    Entry{603, "Reference Combo Specification"},

    // Error report
    Entry{1002, "Error occurred in procedure %S1 : "},
    Entry{1013, "Error"},
};

static_assert(std::ranges::is_sorted(Table, {}, &Entry::Id));

}  // namespace

std::optional<std::string_view> StringTableText(int id) {
  const auto found = std::ranges::lower_bound(Table, id, {}, &Entry::Id);
  if (found == Table.end() || found->Id != id) return std::nullopt;
  return found->Text;
}

std::vector<int> StringTableIds() {
  std::vector<int> ids;
  ids.reserve(Table.size());
  for (const Entry& entry : Table) ids.push_back(entry.Id);
  return ids;
}

}  // namespace formwizard::resources
