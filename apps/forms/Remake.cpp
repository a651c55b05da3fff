#include "apps/forms/Remake.h"

#include "adapters/vb6files/ProjectOnDisk.h"
#include "apps/common/Endings.h"
#include "apps/forms/KeptDescription.h"
#include "apps/forms/Workshop.h"
#include "generator/Generation.h"
#include "support/Failures.h"
#include "system/Paths.h"

#include <charconv>
#include <optional>
#include <stdexcept>
#include <utility>

namespace formwizard::apps::forms {
namespace {

namespace vb6files = adapters::vb6files;

class SilentDesktop : public ui::Desktop {
 public:
  void SetMousePointer(ui::MousePointer) override {}
  ui::MessageAnswer ShowMessage(std::string_view text, int style, std::string_view) override {
    messages_.emplace_back(text);
    return (style & ui::AbortRetryIgnore) != 0 ? ui::MessageAnswer::Ignore : ui::MessageAnswer::Ok;
  }
  void ProcessMessages() override {}
  void ShowModal(ui::Form&, ui::Form*) override {
    throw std::logic_error("a form that is made once more shows no dialog");
  }
  std::vector<std::string> TakeMessages() { return std::exchange(messages_, {}); }

 private:
  std::vector<std::string> messages_;
};

// The environment of a form, which has a project of its own.
class Scene : public generator::ide::Vbe {
 public:
  generator::ide::VBProject& ActiveVBProject() override { return Project.value().ActiveVBProject(); }

  std::optional<vb6files::ProjectOnDisk> Project;
};

std::string FileName(const std::string& path) { return path.substr(system::FolderPart(path).size()); }

// 3 for frmPerson3; 1 for a name that is no stem with a number.
int NumberBehind(std::string_view stem, std::string_view name) {
  int number = 1;
  if (!name.starts_with(stem)) return number;
  const std::string_view digits = name.substr(stem.size());
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  const bool isNumber = read.ec == std::errc() && read.ptr == digits.data() + digits.size() && !digits.starts_with('0');
  return isNumber && number > 1 ? number : 1;
}

}  // namespace

// A workshop with one language.
class Remake::Stage {
 public:
  Stage(system::FileSystem& files, const WorkshopOptions& options) : files_(files), Shop(options, desktop_) {
    Shop.WorkIn(scene_);
  }

  Remade Make(const FormDescription& description, const FormToRemake& form, const std::string& program,
              bool describes) {
    kept::FormTexts made;
    Shop.Make(description, {}, [&](const std::string& name, const std::string& caption) {
      Open(form, name, generator::FormStem(caption), made);
    });
    Remade result{{}, std::nullopt, desktop_.TakeMessages()};
    if (!Shop.State().NewComponent) {
      throw NotOffered(description.Source + ": no form was made" +
                       (result.Messages.empty() ? "" : "; " + result.Messages.front()));
    }
    scene_.Project->FinishForms();
    if (describes || made != form.Texts)
      result.Description = KeptDescription(description, made, Shop, {program, form.CodePage, form.IsReused});
    result.Form = std::move(made);
    scene_.Project.reset();
    return result;
  }

 private:
  void Open(const FormToRemake& form, const std::string& className, const std::string& stem, kept::FormTexts& made) {
    const system::CodePage codePage(form.CodePage);
    const std::string name = codePage.Decode(vb6files::NameInForm(form.Texts.Frm));
    const int number = NumberBehind(stem, name);
    std::string text = "Type=Exe\r\n" + form.ObjectLines;
    if (form.IsReused) text += "Form=" + codePage.Encode(FileName(form.File)) + "\r\n";
    if (number > 1) text += "Module=" + codePage.Encode(stem) + "; Module.bas\r\n";  // has the name without the number
    scene_.Project.emplace(files_, std::string(system::FolderPart(form.File)) + "Project.vbp",
                           vb6files::ProjectOptions{form.CodePage, "", text});
    scene_.Project->OnChange([&made](const vb6files::FileChange& change) { Take(change, made); }, true);
    if (!form.IsReused) {
      scene_.Project->CountNewFormsFrom(NumberBehind("Form", vb6files::FirstNameInForm(form.Texts.Frm)));
      return scene_.Project->CountFrom(stem, number);
    }
    made = form.Texts;  // of which only what comes out otherwise is told
    if (!scene_.Project->CompareForm(name, number, generator::FirstLineOfCode(className))) {
      throw NotOffered(form.File + ": the code has no line \"" + generator::FirstLineOfCode(className) +
                       "\", which forms of class " + className + " have; name the class that it was made for");
    }
  }

  static void Take(const vb6files::FileChange& change, kept::FormTexts& made) {
    std::string& text = change.Path.ends_with('m') ? made.Frm : made.Frx;
    text.assign(change.New ? std::string_view(*change.New) : std::string_view());
  }

  system::FileSystem& files_;
  SilentDesktop desktop_;
  Scene scene_;

 public:
  Workshop Shop;
};

Remake::Remake(system::FileSystem& files, std::string dictionary, std::string program)
    : files_(files), dictionary_(std::move(dictionary)), program_(std::move(program)) {}

Remake::~Remake() = default;

Remake::Stage& Remake::StageFor(const FormDescription& description) {
  const std::string language = description.Language ? description.Language->Value : "";
  std::unique_ptr<Stage>& stage = stages_[language];
  try {
    if (!stage) {
      stage = std::make_unique<Stage>(files_, WorkshopOptions{dictionary_, "", false, language, ""});
    }
  } catch (const common::UsageError& error) {
    throw support::InputError(description.Language->Where.Text() + ": " + error.what());
  }
  return *stage;
}

Remade Remake::Make(const FormDescription& description, const FormToRemake& form, bool describes) {
  return StageFor(description).Make(description, form, program_, describes);
}

const OfferedClass& Remake::OfferedTo(const FormDescription& description) {
  const std::string system = description.System ? description.System->Value : "";
  return StageFor(description).Shop.OfferedBy(system, description.Class.Value);
}

}  // namespace formwizard::apps::forms
