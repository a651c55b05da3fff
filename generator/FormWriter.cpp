#include "generator/Generation.h"
#include "generator/Writers.h"
#include "generator/ide/ActiveX.h"
#include "runtime/Conversions.h"

#include <array>

namespace formwizard::generator {
namespace {

constexpr std::array<std::string_view, 3> ToolboxProgIDs{ide::Query.ProgId, ide::CommonDialog.ProgId,
                                                         ide::ListView.ProgId};

// The empty start-up form of a new project, or null.
std::shared_ptr<ide::VBComponent> UnusedStartupForm(ide::VBProject& project) {
  std::shared_ptr<ide::VBComponent> form = project.Components().Find("Form1");
  const std::shared_ptr<ide::VBControls> controls = form ? form->DesignerControls() : nullptr;
  return controls && controls->Count() == Int32(0) ? form : nullptr;
}

void WriteFormProperties(Generation& run, auto& step) {
  const model::FormModel& form = run.Form;
  const auto put = [&](const ide::PropertyName& name, auto valueOf) {
    step([&] { Required(run.NewComponent).SetProperty(name, valueOf()); });
  };
  put("Caption", [&] { return std::string_view(form.ClassCaption); });
  put("ControlBox", [] { return true; });
  put("BorderStyle", [&] { return run.Settings.FormSizable ? Int16(2) : Int16(1); });
  put("ScaleMode", [] { return Int16(1); });
  put("Height", [&] { return form.FrameHeight + Int16(300); });
  put("Left", [&] { return run.Settings.Spacing; });
  put("Top", [&] { return run.Settings.Spacing; });
  put("Width", [&] { return form.FrameWidth + run.Settings.Spacing; });
  put("ScaleHeight", [&] { return form.FrameHeight; });
  put("ScaleWidth", [&] { return form.FrameWidth; });
  put("StartUpPosition", [] { return Int16(3); });
}

void LoadCaptions(Generation& run, auto& step) {
  struct Caption {
    std::string Generation::*Member;
    int Id;
  };
  constexpr std::array captions{
      Caption{&Generation::CaptionNew, 200},  Caption{&Generation::CaptionFind, 201},
      Caption{&Generation::CaptionSave, 202}, Caption{&Generation::CaptionClose, 203},
      Caption{&Generation::CaptionExit, 204}, Caption{&Generation::CaptionDelete, 219},
  };
  for (const Caption& caption : captions) {
    step([&] { run.*caption.Member = run.Strings.LoadResStringLocal(caption.Id); });
  }
}

}  // namespace

std::string FormStem(std::string_view classCaption) { return "frm" + runtime::ReplaceAll(classCaption, "%", ""); }

std::string UniqueComponentName(const std::string& stem, ide::VBProject& project) {
  if (!project.Components().Find(stem)) return stem;
  return stem + Text(project.Components().FirstFreeNumber(stem));
}

void WriteForm(Generation& run) {
  const support::ResumeNext step(run.Report, [] { return std::string("WriteForm"); });
  const auto project = [&]() -> ide::VBProject& { return run.Environment.ActiveVBProject(); };

  for (const std::string_view progId : ToolboxProgIDs) step([&] { project().AddToolboxProgID(progId); });
  step([&] { run.NewComponent = UnusedStartupForm(project()); });
  step([&] {
    if (!run.NewComponent) run.NewComponent = project().Components().Add(ide::ComponentType::Form);
  });
  step([&] { run.FormDesigner = Required(run.NewComponent).DesignerControls(); });
  step([&] { Required(run.NewComponent).SetName(UniqueComponentName(FormStem(run.Form.ClassCaption), project())); });
  step([&] { run.NewCodeModule = Required(run.NewComponent).Code(); });
  WriteFormProperties(run, step);
  LoadCaptions(run, step);
  WriteConFrame(run);
  WriteConHelper(run);
  WriteConMenus(run);
}

}  // namespace formwizard::generator
