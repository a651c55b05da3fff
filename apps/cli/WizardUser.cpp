#include "apps/cli/WizardUser.h"

#include "support/Failures.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace formwizard::apps::cli {
namespace {

using support::InputError;
using wizard::frmWizard;

constexpr std::size_t ShownChoices = 12;

std::string Listed(const std::vector<std::string>& choices) {
  if (choices.empty()) return "none is available";
  std::string text = "available: ";
  for (std::size_t i = 0; i < std::min(choices.size(), ShownChoices); ++i) text += (i == 0 ? "" : ", ") + choices[i];
  if (choices.size() > ShownChoices) text += " and " + std::to_string(choices.size() - ShownChoices) + " more";
  return text;
}

// Of the nodes that have one.
template <typename TextOf>
std::string Listed(ui::TreeView& tree, TextOf textOf) {
  std::vector<std::string> texts;
  for (const ui::Node& node : tree.Nodes.All()) {
    if (!textOf(node).empty()) texts.push_back(textOf(node));
  }
  return Listed(texts);
}

const std::string& TextOf(const ui::Node& node) { return node.Text; }
const std::string& TagOf(const ui::Node& node) { return node.Tag; }

[[noreturn]] void Fail(const FormDescription& form, const std::string& what) {
  throw InputError(form.Source + ": " + what);
}

// Chooses the properties of one form and sets their attributes.
class FieldsUser {
 public:
  FieldsUser(frmWizard& dialog, const FormDescription& form) : dialog_(dialog), form_(form) {}

  void ChooseFields() {
    if (form_.Fields.empty()) Fail("choose at least one property");
    for (ui::Node* root : dialog_.tvwAttributes.Nodes.Roots()) roots_.emplace(Name(*root), root);
    for (const FieldChoice& field : form_.Fields) {
      const int before = dialog_.lstSelected.ListCount();
      dialog_.tvwAttributes.ClickNode(PropertyNode(field.Property));
      dialog_.cmdSelectOne.Click();
      if (dialog_.lstSelected.ListCount() == before) Fail("the property " + field.Property + " is chosen twice");
    }
  }

  // The Attributes step is only visited when something is to be set there.
  void SetAttributes() {
    if (std::ranges::none_of(form_.Fields, HasAttributes)) return;
    dialog_.cmdNext.Click();
    for (std::size_t i = 0; i < form_.Fields.size(); ++i) {
      if (!HasAttributes(form_.Fields[i])) continue;
      dialog_.lstFields.ClickItem(static_cast<int>(i));
      SetAttributesOf(form_.Fields[i]);
    }
  }

 private:
  [[noreturn]] void Fail(const std::string& what) const { cli::Fail(form_, what); }

  static bool HasAttributes(const FieldChoice& field) {
    return field.Caption || field.ReadOnly || field.UpdateAfter || field.Rows || field.Combo;
  }

  // A node's text without the star of a required property.
  static std::string Name(const ui::Node& node) {
    const std::string& text = node.Text;
    return text.starts_with('*') ? text.substr(1) : text;
  }

  ui::Node& PropertyNode(const std::string& path) {
    const std::size_t dot = path.find('.');
    const auto root = roots_.find(path.substr(0, dot));
    if (root == roots_.end()) {
      std::vector<std::string> known;
      for (const ui::Node* node : dialog_.tvwAttributes.Nodes.Roots()) known.push_back(Name(*node));
      Fail("class " + form_.Class + " offers no property \"" + path + "\"; " + Listed(known));
    }
    ui::Node& node = *root->second;
    const bool isObject = node.Child() != nullptr || node.Expanded;
    if (!isObject && dot == std::string::npos) return node;
    if (!isObject)
      Fail("property \"" + path.substr(0, dot) + "\" is no object, so it has no \"" + path.substr(dot + 1) + "\"");
    dialog_.tvwAttributes.ExpandNode(node);
    std::vector<std::string> known;
    for (ui::Node* child : node.Children()) {
      known.push_back(Name(node) + "." + Name(*child));
      if (known.back() == path) return *child;
    }
    Fail("\"" + path + "\" cannot be chosen; " + Listed(known));
  }

  void SetAttributesOf(const FieldChoice& field) {
    const std::size_t panel = dialog_.FrontPanel();
    if (field.Caption) dialog_.txtCaption[panel].Type(*field.Caption);
    if (field.ReadOnly) SetReadOnly(field);
    if (field.UpdateAfter) SetUpdateAfter(field);
    if (field.Rows) {
      if (!dialog_.HasRows(panel)) {
        Fail("property " + field.Property + " takes one row; \"rows\" is for lists, arrays, pictures and long texts");
      }
      dialog_.txtRowHeight[panel].Type(std::to_string(*field.Rows));
    }
    if (field.Combo) SetCombo(field);
  }

  void SetReadOnly(const FieldChoice& field) {
    if (!dialog_.chkReadOnly.IsShown()) {
      Fail("property " + field.Property + " cannot be made read-only; only simple properties can");
    }
    if ((dialog_.chkReadOnly.Value() != 0) != *field.ReadOnly) dialog_.chkReadOnly.Click();
  }

  void SetUpdateAfter(const FieldChoice& field) {
    if (!dialog_.chkReadOnly.IsShown() || dialog_.chkReadOnly.Value() == 0) {
      Fail("property " + field.Property + " must be read-only to be updated after another one");
    }
    Choose(dialog_.lstUpdateAfter, "field", *field.UpdateAfter);
  }

  void SetCombo(const FieldChoice& field) {
    if (!dialog_.chkRefCombo.IsShown()) {
      Fail("property " + field.Property + " is no reference and cannot be shown as a combo box");
    }
    if (dialog_.chkRefCombo.Value() == 0) dialog_.chkRefCombo.Click();
    Choose(dialog_.lstQueryName, "query that returns the object id", field.Combo->Query);
    Choose(dialog_.lstQueryColumn, "column of query " + field.Combo->Query, field.Combo->Column);
  }

  void Choose(ui::ListBox& list, const std::string& what, const std::string& text) {
    std::vector<std::string> known;
    for (int i = 0; i < list.ListCount(); ++i) {
      if (list.List(i) == text) {
        list.ClickItem(i);
        return;
      }
      known.push_back(list.List(i));
    }
    Fail("there is no " + what + " \"" + text + "\"; " + Listed(known));
  }

  frmWizard& dialog_;
  const FormDescription& form_;
  std::unordered_map<std::string, ui::Node*> roots_;
};

}  // namespace

WizardUser::WizardUser(wizard::WizardServices& services, generator::ide::Vbe& environment, std::string system)
    : services_(services), environment_(environment), system_(std::move(system)) {}

void WizardUser::Make(const FormDescription& form) {
  services_.State = {};
  if (!dialog_ || !dialog_->LoadAgain()) OpenDialog(form);
  ChooseClass(form);
  FieldsUser user(*dialog_, form);
  user.ChooseFields();
  user.SetAttributes();
  dialog_->cmdFinish.Click();
  dialog_->Unload();
}

// As far as the class step.
void WizardUser::OpenDialog(const FormDescription& form) {
  classes_.clear();
  dialog_ = std::make_unique<frmWizard>(services_, environment_);
  dialog_->Load();
  dialog_->cmdNext.Click();
  ChooseSystem(form);
  for (ui::Node& node : dialog_->tvwClasses.Nodes.All()) {
    if (!node.Tag.empty()) classes_.emplace(node.Tag, &node);
  }
}

void WizardUser::ChooseSystem(const FormDescription& form) {
  ui::TreeView& tree = dialog_->tvwConnection;
  if (!system_.empty()) {
    const auto found = std::ranges::find(tree.Nodes.All(), system_, TextOf);
    if (found == tree.Nodes.All().end()) {
      Fail(form, "there is no system \"" + system_ + "\"; " + Listed(tree, TextOf));
    }
    tree.ClickNode(*found);
  }
  dialog_->cmdNext.Click();
  if (dialog_->IsConnected()) return;
  Fail(form, dialog_->barStatus.Panels[0].Get() + "; see \"ostrel-form-wizard systems\"");
}

void WizardUser::ChooseClass(const FormDescription& form) {
  const auto found = classes_.find(form.Class);
  if (found == classes_.end()) {
    Fail(form, "there is no persistent class \"" + form.Class + "\"; " + Listed(dialog_->tvwClasses, TagOf));
  }
  dialog_->tvwClasses.ClickNode(*found->second);
  dialog_->cmdNext.Click();
}

}  // namespace formwizard::apps::cli
