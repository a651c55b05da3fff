#include "apps/desktop/window/ComponentPages.h"

#include "adapters/qt/Text.h"
#include "apps/desktop/window/FormCommands.h"
#include "support/Failures.h"

#include <algorithm>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::qt::Text;
namespace vb6files = adapters::vb6files;

// The bytes of a module or class, without the environment's own lines at its start.
std::string CodeOfModule(const system::CodePage& codePage, const std::string& bytes) {
  const std::string text = codePage.Decode(bytes);
  std::size_t start = 0;
  for (std::size_t line = 0; line < text.size(); line = std::min(text.find('\n', line), text.size() - 1) + 1) {
    if (text.compare(line, 10, "Attribute ") == 0)
      start = std::min(text.find('\n', line), text.size() - 1) + 1;
    else if (start != 0)
      break;
  }
  return text.substr(start);
}

}  // namespace

void ComponentPages::Show(vb6files::ProjectOnDisk* project, const ProjectModel::Component* chosen,
                          const UnsavedUpdates::Updated* updated) {
  form_.SetForm(std::nullopt);
  code_.ShowCode("");
  page_.Bar().Clear();
  panes_.SetHeading(chosen ? Text(chosen->Name) : "", "");
  if (!project || !chosen) {
    page_.ShowInstead().Say(texts_(project ? T::ChooseComponent : T::NoProject));
    return;
  }
  try {
    if (!chosen->IsForm) return ShowModule(*project, chosen->Name);
    ShowForm(chosen->Name,
             updated ? vb6files::FormFiles{updated->Update.Form.Frm, updated->Update.Form.Frx}
                     : project->TextsOf(chosen->Name),
             project->ProjectCodePage());
  } catch (const support::InputError& error) {
    if (chosen->IsGone) return page_.ShowInstead().Say(Text(error.what()));
    OfferCode(Text(error.what()));
  }
}

void ComponentPages::ShowForm(const std::string& name, const vb6files::FormFiles& texts,
                              const system::CodePage& codePage) {
  code_.ShowCode(Text(codePage.Decode(texts.Frm)));  // what there is of a damaged form
  vb6files::FormTree tree = vb6files::ReadFormTree(name, texts.Frm, texts.Frx, codePage);
  code_.ShowCode(Text(tree.Code), ObjectsOf(tree.Form), texts_(T::NoCode));
  form_.SetForm(std::move(tree));
  page_.ShowPicture();
}

void ComponentPages::ShowModule(vb6files::ProjectOnDisk& project, const std::string& name) {
  OfferCode(texts_(T::NoForm, Text(name)));
  code_.ShowCode(Text(CodeOfModule(project.ProjectCodePage(), project.TextsOf(name).Frm)),
                 {"Class", "UserControl", "PropertyPage", "UserDocument"});
}

void ComponentPages::OfferCode(const QString& instead) {
  page_.ShowInstead().Say(instead, texts_(T::ButtonShowCode), [this] { panes_.Show(Pane::Code); });
}

}  // namespace formwizard::apps::desktop
