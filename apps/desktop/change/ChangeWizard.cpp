#include "apps/desktop/change/ChangeWizard.h"

#include "apps/desktop/preview/ScratchFiles.h"
#include "apps/forms/Choices.h"
#include "apps/forms/Offers.h"
#include "apps/forms/RunProfile.h"
#include "apps/forms/WizardUser.h"
#include "wizard/frmWizard.h"

namespace formwizard::apps::desktop {
namespace {

wizard::WizardPorts WithProfile(const wizard::WizardPorts& ports, settings::ProfileStore& profile) {
  return {.Desktop = ports.Desktop,
          .Measure = ports.Measure,
          .Profiles = profile,
          .Factories = ports.Factories,
          .Libraries = ports.Libraries,
          .ProfileFile = ports.ProfileFile,
          .ProgramFolder = ports.ProgramFolder,
          .Language = ports.Language};
}

}  // namespace

std::optional<forms::FormDescription> ChooseAnew(Environment& environment, const std::string& form,
                                                 const forms::FormDescription& choices,
                                                 const LeftOutListener& onLeftOut) {
  const PreviewProject project = ScratchFor(environment.Project(), environment.ProjectOptions());
  ScratchFiles files(system::RealFileSystem(), project.Path, project.Text);
  adapters::vb6files::ProjectOnDisk scratch(files, project.Path, project.Options);
  const wizard::WizardPorts ports = environment.Ports();
  forms::RunProfile profile(ports.Profiles, ports.ProfileFile);
  profile.Override(choices.Settings);
  wizard::WizardServices services(WithProfile(ports, profile));
  wizard::frmWizard dialog(services, scratch);
  bool isFinished = false;
  dialog.cmdFinish.OnClick = [&, finish = dialog.cmdFinish.OnClick] {
    finish();
    isFinished = dialog.IsUnloaded();
  };
  std::vector<std::string> leftOut;
  environment.ShowWizard(dialog, form,
                         {[&](wizard::frmWizard& played) { leftOut = forms::GoToAttributes(played, choices); },
                          [&] {
                            if (!leftOut.empty()) onLeftOut(leftOut);
                          }});
  if (!isFinished) return {};
  const std::string system = dialog.tvwConnection.SelectedItem.Get()->Text;
  forms::Offers offers(ports.Factories);
  return forms::ChoicesIn(services.State, system, offers.Of(system, services.State.Form.ClassName), &choices);
}

}  // namespace formwizard::apps::desktop
