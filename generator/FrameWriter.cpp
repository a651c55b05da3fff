#include "generator/Writers.h"
#include "generator/ide/ActiveX.h"

#include <array>
#include <initializer_list>

namespace formwizard::generator {
namespace {

struct Property {
  ide::PropertyName Name;
  std::string_view Text;
};

void SetProperties(Generation& run, std::initializer_list<Property> properties) {
  for (const auto& [name, text] : properties) run.SetProperty(name, text);
}

// Stand on the form itself; its resize procedure places and shows them.
void WriteScrollBars(Generation& run) {
  run.AddControl("VB.HScrollBar", "HSCroll");
  SetProperties(run, {{"Left", "0"},
                      {"Top", Text(run.Form.FrameHeight)},
                      {"Height", "255"},
                      {"Width", "1200"},
                      {"Visible", "0"},
                      {"LargeChange", "24"}});
  run.AddControl("VB.VScrollBar", "VSCroll");
  SetProperties(run, {{"Left", Text(run.Form.FrameWidth)},
                      {"Top", "0"},
                      {"Height", "1200"},
                      {"Width", "255"},
                      {"Visible", "0"},
                      {"LargeChange", "24"}});
  run.AddControl("VB.PictureBox", "picPatch");
  SetProperties(
      run, {{"Left", "0"}, {"Top", "0"}, {"Height", "255"}, {"Width", "255"}, {"Visible", "0"}, {"BorderStyle", "0"}});
}

void WriteMainFrame(Generation& run) {
  run.AddControl("VB.Frame", "fra_Main");
  run.MainFrame = run.CurrentControl;
  SetProperties(run, {{"Left", "0"},
                      {"Top", "0"},
                      {"Height", Text(run.Form.FrameHeight)},
                      {"Width", Text(run.Form.FrameWidth)},
                      {"Visible", "1"},
                      {"BorderStyle", "0"}});
  run.SetTabIndex();
  run.SetProperty("Caption", "fra_Main");
}

void WriteFields(Generation& run) {
  for (Int16 column(1); column <= run.Settings.Columns; column += Int16(1)) {
    for (const Int16 field : run.Form.LayoutGrid[column]) WriteConField(run, column, run.Form.Fields[field]);
  }
}

void WriteConButton(Generation& run, std::string_view name, std::string_view caption, std::string_view top) {
  run.AddControl("VB.CommandButton", name);
  SetProperties(
      run, {{"Caption", caption}, {"Height", "385"}, {"Left", Text(run.Settings.Spacing + run.Form.ColumnsWidth)}});
  run.SetTabIndex();
  SetProperties(run, {{"Top", top}, {"Width", "1095"}});
  run.MoveIntoMainFrame();
}

// In pairs: 390 twips from button to button inside a pair, 480 between pairs.
void WriteButtons(Generation& run) {
  WriteConButton(run, "cmd__New", run.CaptionNew, "240");
  WriteConButton(run, "cmd__Find", run.CaptionFind, "630");
  WriteConButton(run, "cmd__Save", run.CaptionSave, "1110");
  WriteConButton(run, "cmd__Delete", run.CaptionDelete, "1500");
  WriteConButton(run, "cmd__Close", run.CaptionClose, "1980");
  WriteConButton(run, "cmd__Exit", run.CaptionExit, "2370");
}

bool HasReferenceCombo(const model::FormModel& form) {
  for (const Int16 field : form.SelectedFields) {
    if (form.Fields[field].FieldKind == model::kind::ReferenceCombo) return true;
  }
  return false;
}

}  // namespace

void WriteConFrame(Generation& run) {
  support::LeaveOnError(run.Report, "WriteConFrame", [&] {
    WriteScrollBars(run);
    WriteMainFrame(run);
    WriteFields(run);
    if (run.Settings.Button) WriteButtons(run);
  });
}

void WriteConHelper(Generation& run) {
  const support::ResumeNext step(run.Report, [] { return std::string("WriteConHelper "); });  // blank included
  step([&] { run.AddControl(ide::Query.Class, "OstrelQuery1"); });
  step([&] { run.AddControl(ide::CommonDialog.Class, "dlgCommon"); });
  if (!HasReferenceCombo(run.Form)) return;
  step([&] { run.AddControl("VB.ListBox", "lst__Hidden"); });  // keeps the object ids of all combo boxes
  step([&] { run.SetProperty("Height", "450"); });
  step([&] { run.SetTabIndex(); });
  step([&] { run.SetProperty("Top", "-450"); });
  step([&] { run.SetProperty("Visible", "0"); });
}

}  // namespace formwizard::generator
