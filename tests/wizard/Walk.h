// Somebody who goes through the wizard as a script says: "> > class=Sample.Person > +Age +Spouse. > caption=Old !".
#pragma once

#include "tests/support/WizardFixture.h"

namespace formwizard::tests {

struct Walk : WizardFixture {
  // Actions separated by blanks; a number is an index of a list, or of a node from 1. Gives where that leads.
  std::string Do(const std::string& script) {
    std::istringstream words(script);
    for (std::string word; words >> word;) {
      const std::size_t equals = word.find('=');
      Actions.at(word[0] == '+' ? "+" : word.substr(0, equals))(word.substr(word[0] == '+' ? 1 : equals + 1));
    }
    return Where();
  }
  // What the user finds on the Attributes step: the two lists of a combo box.
  std::string Specification() const { return Entries(Dialog.lstQueryName) + "| " + Entries(Dialog.lstQueryColumn); }
  const model::FieldRecord& RecordOf(const std::string& displayName) const {
    return *std::ranges::find(State.Form.Fields, displayName, &model::FieldRecord::DisplayName);
  }

 private:
  using Action = std::function<void(const std::string&)>;
  static Action In(ui::ListBox& list) {
    return [&list](const std::string& index) { list.ClickItem(std::stoi(index)); };
  }
  template <typename Button>
  static Action On(Button& button) {
    return [&button](const std::string&) { button.Click(); };
  }

  const std::map<std::string, Action> Actions{
      {">", On(Dialog.cmdNext)},
      {"<", On(Dialog.cmdBack)},
      {"!", On(Dialog.cmdFinish)},
      {"system", [this](auto& n) { Dialog.tvwConnection.ClickNode(Dialog.tvwConnection.Nodes.Item(std::stoi(n))); }},
      {"class", [this](auto& name) { ChooseClass(name); }},
      {"package", [this](auto& n) { Dialog.tvwClasses.ClickNode(Dialog.tvwClasses.Nodes.Item(std::stoi(n))); }},
      // "+Age", and "+Spouse." for the first property inside
      {"+",
       [this](auto& name) { Select(name.back() == '.' ? Inside(name.substr(0, name.size() - 1)) : Property(name)); }},
      {"twice", [this](auto& name) { DoubleClick(Dialog.tvwAttributes, Property(name)); }},
      {"open", [this](auto& name) { Dialog.tvwAttributes.ExpandNode(Property(name)); }},
      {"shut", [this](auto& name) { Dialog.tvwAttributes.CollapseNode(Property(name)); }},
      {"select", On(Dialog.cmdSelectOne)},
      {"all", On(Dialog.cmdSelectAll)},
      {"drop", On(Dialog.cmdDeSelectOne)},
      {"none", On(Dialog.cmdDeSelectAll)},
      {"up", On(Dialog.cmdMoveUp)},
      {"down", On(Dialog.cmdMoveDown)},
      {"at", In(Dialog.lstSelected)},
      {"-", [this](auto& index) { Dialog.lstSelected.DoubleClickItem(std::stoi(index)); }},
      {"field", In(Dialog.lstFields)},
      {"caption", [this](auto& text) { Dialog.txtCaption[Dialog.FrontPanel()].Type(text); }},
      {"readonly", On(Dialog.chkReadOnly)},
      {"after", In(Dialog.lstUpdateAfter)},
      {"combo", On(Dialog.chkRefCombo)},
      {"query", In(Dialog.lstQueryName)},
      {"column", In(Dialog.lstQueryColumn)}};
};

}  // namespace formwizard::tests
