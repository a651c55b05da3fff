#include "apps/forms/WizardUser.h"

#include "support/Names.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace formwizard::apps::forms {
namespace {

using support::Names;
using wizard::frmWizard;

[[noreturn]] void Fail(const std::string& where, const std::string& what) { throw NotOffered(where + ": " + what); }

// Chooses the properties of one form and sets their attributes.
class FieldsUser {
 public:
  // With `leftOut`, which takes the names of it, what is not offered is left out; otherwise it is NotOffered.
  FieldsUser(frmWizard& dialog, const FormDescription& form, std::vector<std::string>* leftOut = nullptr)
      : dialog_(dialog), form_(form), leftOut_(leftOut) {}

  void ChooseFields() {
    if (form_.Fields.empty()) Fail(form_.Source, "fields: choose at least one property");
    for (const ui::Node* root : dialog_.tvwAttributes.Nodes.Roots()) roots_.Add(Name(*root));
    for (const FieldChoice& field : form_.Fields) {
      Attempt(field.Property.Value, [&] {
        ChooseField(field.Property);
        chosen_.push_back(&field);
      });
    }
  }

  // The Attributes step is only visited when something is to be set there.
  void SetAttributes() {
    if (std::ranges::any_of(form_.Fields, HasAttributes)) VisitAttributes();
  }

  void VisitAttributes() {
    dialog_.cmdNext.Click();
    for (std::size_t i = 0; i < chosen_.size(); ++i) {
      if (!HasAttributes(*chosen_[i])) continue;
      dialog_.lstFields.ClickItem(static_cast<int>(i));
      SetAttributesOf(*chosen_[i]);
    }
  }

 private:
  void Attempt(const std::string& what, auto&& step) {
    if (!leftOut_) return step();
    try {
      step();
    } catch (const NotOffered&) {
      leftOut_->push_back(what);
    }
  }

  void ChooseField(const GivenText& property) {
    const int before = dialog_.lstSelected.ListCount();
    dialog_.tvwAttributes.ClickNode(PropertyNode(property));
    dialog_.cmdSelectOne.Click();
    if (dialog_.lstSelected.ListCount() == before)
      Fail(property.Where.Text(), "the property " + property.Value + " is chosen twice; name it once");
  }

  static bool HasAttributes(const FieldChoice& field) {
    return field.Caption || field.ReadOnly || field.UpdateAfter || field.Rows || field.Combo;
  }

  // A node's text without the star of a required property.
  static std::string_view Name(const ui::Node& node) {
    const std::string_view text = node.Text;
    return text.starts_with('*') ? text.substr(1) : text;
  }
  static bool IsObject(const ui::Node& node) { return node.Child() != nullptr || node.Expanded; }

  // A name may have dots of its own: of the properties that the path can begin with, the one with the longest name.
  ui::Node& PropertyNode(const GivenText& property) {
    const std::string& path = property.Value;
    ui::Node* meant = Root(path);
    if (meant && !IsObject(*meant)) return *meant;
    for (std::size_t dot = path.rfind('.'); dot != std::string::npos;
         dot = dot == 0 ? dot - 1 : path.rfind('.', dot - 1)) {
      ui::Node* const root = Root(std::string_view(path).substr(0, dot));
      ui::Node* const child = root ? ChildNode(*root, std::string_view(path).substr(dot + 1)) : nullptr;
      if (child) return *child;
      if (!meant) meant = root;
    }
    if (!meant)
      Fail(property.Where.Text(),
           "class " + form_.Class.Value + " offers no property \"" + path + "\"; " + roots_.Answer(path));
    FailBelow(*meant, property);
  }

  ui::Node* Root(std::string_view name) {
    const auto found = roots_.Find(name);
    return found ? dialog_.tvwAttributes.Nodes.Roots()[*found] : nullptr;
  }

  // Null for what the node does not have.
  ui::Node* ChildNode(ui::Node& node, std::string_view name) {
    if (!IsObject(node)) return nullptr;
    dialog_.tvwAttributes.ExpandNode(node);
    const auto found = ChildNames(node).Find(name);
    return found ? node.Children()[*found] : nullptr;
  }
  static Names ChildNames(const ui::Node& node) {
    return {node.Children(), [](const ui::Node* child) { return Name(*child); }};
  }

  // What begins with a property that there is, and goes on with none.
  [[noreturn]] void FailBelow(ui::Node& node, const GivenText& property) {
    const std::string& path = property.Value;
    const std::string name(Name(node));
    const std::string rest =
        path.substr(std::min(path.size(), path.find(name) == 0 ? name.size() + 1 : path.find('.') + 1));
    if (!IsObject(node))
      Fail(property.Where.Text(), "property \"" + name + "\" is no object, so it has no \"" + rest + "\"");
    dialog_.tvwAttributes.ExpandNode(node);
    Fail(property.Where.Text(), "\"" + path + "\" cannot be chosen; " + ChildNames(node).Answer(rest, name + "."));
  }

  void SetAttributesOf(const FieldChoice& field) {
    const std::string& name = field.Property.Value;
    if (field.Caption) dialog_.txtCaption[dialog_.FrontPanel()].Type(*field.Caption);
    if (field.ReadOnly) Attempt(name + " (readOnly)", [&] { SetReadOnly(field); });
    if (field.UpdateAfter)
      Attempt(name + " (updateAfter " + field.UpdateAfter->Value + ")", [&] { SetUpdateAfter(field); });
    if (field.Rows) Attempt(name + " (rows)", [&] { SetRows(field); });
    if (field.Combo) Attempt(name + " (combo " + field.Combo->Query.Value + ")", [&] { SetCombo(field); });
  }

  void SetRows(const FieldChoice& field) {
    const std::size_t panel = dialog_.FrontPanel();
    if (!dialog_.HasRows(panel)) {
      Fail(field.Rows->Where.Text(), "property " + field.Property.Value +
                                         " takes one row; \"rows\" is for lists, arrays, pictures and long texts");
    }
    dialog_.txtRowHeight[panel].Type(std::to_string(field.Rows->Value));
  }

  void SetReadOnly(const FieldChoice& field) {
    if (!dialog_.chkReadOnly.IsShown()) {
      Fail(field.ReadOnly->Where.Text(),
           "property " + field.Property.Value + " cannot be made read-only; only simple properties can");
    }
    if ((dialog_.chkReadOnly.Value() != 0) != field.ReadOnly->Value) dialog_.chkReadOnly.Click();
  }

  void SetUpdateAfter(const FieldChoice& field) {
    if (!dialog_.chkReadOnly.IsShown() || dialog_.chkReadOnly.Value() == 0) {
      Fail(field.UpdateAfter->Where.Text(),
           "property " + field.Property.Value +
               " must be read-only to be updated after another one; add \"readOnly\": true");
    }
    Choose(dialog_.lstUpdateAfter, "field", *field.UpdateAfter);
  }

  void SetCombo(const FieldChoice& field) {
    const auto& [query, column] = *field.Combo;
    if (!dialog_.chkRefCombo.IsShown()) {
      Fail(query.Where.Text(), "property " + field.Property.Value +
                                   " is no reference and cannot be shown as a combo box; leave \"combo\" out");
    }
    if (dialog_.chkRefCombo.Value() == 0) dialog_.chkRefCombo.Click();
    try {
      Choose(dialog_.lstQueryName, "query that returns the object id", query);
      Choose(dialog_.lstQueryColumn, "column of query " + query.Value, column);
    } catch (const NotOffered&) {
      dialog_.chkRefCombo.Click();  // nobody can leave a field whose combo box is half specified
      throw;
    }
  }

  void Choose(ui::ListBox& list, const std::string& what, const GivenText& name) {
    Names names;
    for (int i = 0; i < list.ListCount(); ++i) names.Add(list.List(i));
    const auto found = names.Find(name.Value);
    if (!found) Fail(name.Where.Text(), "there is no " + what + " \"" + name.Value + "\"; " + names.Answer(name.Value));
    list.ClickItem(static_cast<int>(*found));
  }

  frmWizard& dialog_;
  const FormDescription& form_;
  std::vector<std::string>* leftOut_;       // null where nothing may be
  std::vector<const FieldChoice*> chosen_;  // in the order of the dialog's lists
  Names roots_;                             // of the tree of properties
};

bool ClickNode(ui::TreeView& tree, const auto& isMeant) {
  for (ui::Node& node : tree.Nodes.All()) {
    if (!isMeant(node)) continue;
    tree.ClickNode(node);
    return true;
  }
  return false;
}

}  // namespace

bool GoToProperties(frmWizard& dialog, const std::string& system, const std::string& className) {
  dialog.cmdNext.Click();
  if (!ClickNode(dialog.tvwConnection, [&](const ui::Node& node) { return node.Text.Get() == system; })) return false;
  dialog.cmdNext.Click();
  if (!dialog.IsConnected()) return false;
  if (!ClickNode(dialog.tvwClasses, [&](const ui::Node& node) { return node.Tag == className; })) return false;
  dialog.cmdNext.Click();
  return true;
}

std::vector<std::string> GoToAttributes(frmWizard& dialog, const FormDescription& form) {
  std::vector<std::string> leftOut;
  const std::string system = form.System ? form.System->Value : "";
  if (!GoToProperties(dialog, system, form.Class.Value)) return leftOut;
  FieldsUser user(dialog, form, &leftOut);
  user.ChooseFields();
  if (dialog.lstSelected.ListCount() == 0) return leftOut;
  user.VisitAttributes();
  dialog.lstFields.ClickItem(0);
  return leftOut;
}

WizardUser::WizardUser(wizard::WizardServices& services, generator::ide::Vbe& environment, std::string system)
    : services_(services), environment_(environment), system_(std::move(system)) {}

void WizardUser::Make(const FormDescription& form, const ClassListener& atFinish) {
  services_.State = {};
  const std::string system = form.System ? form.System->Value : "";
  if (system_.empty() && system != opened_) dialog_.reset();
  opened_ = system;
  try {
    MakeIn(form, atFinish);
  } catch (const NotOffered&) {
    dialog_.reset();  // it stands in the middle of the choices
    throw;
  }
}

void WizardUser::MakeIn(const FormDescription& form, const ClassListener& atFinish) {
  if (!dialog_ || !dialog_->LoadAgain()) OpenDialog(form);
  const ui::Node& chosen = ChooseClass(form);
  FieldsUser user(*dialog_, form);
  user.ChooseFields();
  user.SetAttributes();
  if (atFinish) atFinish(chosen.Tag, chosen.Text);
  dialog_->cmdFinish.Click();
  dialog_->Unload();
}

std::string WizardUser::System() const {
  const ui::Node* const chosen = dialog_->tvwConnection.SelectedItem.Get();
  return chosen ? chosen->Text.Get() : "";
}

// As far as the class step.
void WizardUser::OpenDialog(const FormDescription& form) {
  classes_.clear();
  classNames_ = {};
  dialog_ = std::make_unique<frmWizard>(services_, environment_);
  dialog_->Load();
  dialog_->cmdNext.Click();
  if (!proposed_) proposed_ = System();
  ChooseSystem(form);
  for (ui::Node& node : dialog_->tvwClasses.Nodes.All()) {
    if (node.Tag.empty()) continue;
    classNames_.Add(node.Tag);
    classes_.push_back(&node);
  }
}

// Where nothing is said, the one that was proposed first: what a form is made for does not depend on those before it.
void WizardUser::ChooseSystem(const FormDescription& form) {
  ui::TreeView& tree = dialog_->tvwConnection;
  const std::string& wanted = !system_.empty() ? system_ : !opened_.empty() ? opened_ : *proposed_;
  if (wanted != System()) {
    const std::string where = !system_.empty() ? "--system " + system_
                              : form.System    ? form.System->Where.Text()
                                               : form.Source;
    const Names names(tree.Nodes.All(), [](const ui::Node& node) { return std::string_view(node.Text); });
    const auto found = names.Find(wanted);
    if (!found) Fail(where, "there is no system \"" + wanted + "\"; " + names.Answer(wanted));
    tree.ClickNode(*std::next(tree.Nodes.All().begin(), static_cast<std::ptrdiff_t>(*found)));
  }
  dialog_->cmdNext.Click();
  if (dialog_->IsConnected()) return;
  Fail(form.Source, dialog_->barStatus.Panels[0].Get() + "; see \"ostrel-form-wizard systems\"");
}

const ui::Node& WizardUser::ChooseClass(const FormDescription& form) {
  const auto found = classNames_.Find(form.Class.Value);
  if (!found) {
    Fail(form.Class.Where.Text(),
         "there is no persistent class \"" + form.Class.Value + "\"; " + classNames_.Answer(form.Class.Value));
  }
  ui::Node& chosen = *classes_[*found];
  dialog_->tvwClasses.ClickNode(chosen);
  dialog_->cmdNext.Click();
  return chosen;
}

}  // namespace formwizard::apps::forms
