// What the writers of one generation share: the form to write, the settings, the environment and the new component.
#pragma once

#include "generator/ide/Ide.h"
#include "model/FormModel.h"
#include "settings/Settings.h"
#include "support/ErrorReport.h"
#include "support/Strings.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace formwizard::generator {

using model::FieldRecord;
using runtime::Int16;
using runtime::Int32;

// Lives as long as the add-in is loaded: a second generation continues the numbering of the first. The environment
// clamps tab indexes itself.
struct GeneratorState {
  Int16 TabIndexCounter;
};

class Generation {
 public:
  // Everything handed in must outlive the generation.
  Generation(model::FormModel& form, const settings::Settings& settings, const support::Strings& strings,
             const support::ErrorReport& report, ide::Vbe& environment, GeneratorState& state)
      : Form(form), Settings(settings), Strings(strings), Report(report), Environment(environment), State(state) {}

  model::FormModel& Form;
  const settings::Settings& Settings;
  const support::Strings& Strings;
  const support::ErrorReport& Report;
  ide::Vbe& Environment;
  GeneratorState& State;

  // Filled by WriteForm, read by the procedure writers.
  std::shared_ptr<ide::VBComponent> NewComponent;
  std::shared_ptr<ide::CodeModule> NewCodeModule;
  std::shared_ptr<ide::VBControls> FormDesigner;
  std::shared_ptr<ide::VBControl> CurrentControl;  // the control most recently added
  std::shared_ptr<ide::VBControl> MainFrame;       // the container of labels, data controls and command buttons
  std::string CaptionNew, CaptionFind, CaptionSave, CaptionClose, CaptionExit, CaptionDelete;

  // Adds a control without a container, makes it CurrentControl and names it.
  void AddControl(std::string_view progId, std::string_view name);
  // Sets a property of CurrentControl; every value is given as text. Error 91 without a current control.
  void SetProperty(const ide::PropertyName& name, std::string_view text);
  // Gives CurrentControl the next tab index.
  void SetTabIndex();
  // Moves CurrentControl into MainFrame.
  void MoveIntoMainFrame();
  // The counter's value, which then grows by one; error 6 past 32767.
  Int16 NextTabIndex();

  // The selected fields that show this property, in selection order. The text must outlive the generation.
  const std::vector<Int16>& FieldsShowing(std::string_view propertyName);
  // A reference label has a context menu when its field is the first reference label of the selection with its
  // PropertyName, so that a reference shown twice gets one menu and one pair of handlers.
  bool HasContextMenu(Int16 field);

 private:
  std::unordered_map<std::string_view, std::vector<Int16>> fieldsByProperty_;
};

// The object behind a handle; error 91 when there is none.
template <typename Object>
Object& Required(const std::shared_ptr<Object>& handle) {
  if (!handle) runtime::Raise(runtime::ObjectVariableNotSet);
  return *handle;
}

// Writes the form component, its properties and its controls. Reports failures and goes on.
void WriteForm(Generation& run);
// What the name of a form for a class begins with; a number may follow.
std::string FormStem(std::string_view classCaption);
// The stem, followed by 2, 3 ... while a component of exactly that name exists.
std::string UniqueComponentName(const std::string& stem, ide::VBProject& project);
// What WriteProcedures begins with, by which a form is known as one of the class.
std::string FirstLineOfCode(std::string_view className);

// Writes the code of the form into the component that WriteForm left behind. Errors of the writers that have no report
// of their own pass to the caller.
void WriteProcedures(Generation& run);

}  // namespace formwizard::generator
