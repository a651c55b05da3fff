// What the properties panel shows of a form or a control: where it comes from, what stands in its file, its procedures.
#pragma once

#include "apps/desktop/basics/Texts.h"
#include "apps/desktop/formview/FormCanvas.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace formwizard::apps::desktop {

// What Enter on a row shows.
enum class LeadsTo : std::uint8_t { Nothing, Procedure, Form };

struct PropertyRow {
  QString Name, Value;
  QString Meaning;       // a sentence
  bool IsTitle = false;  // of a group: it has a name alone
  LeadsTo Leads = LeadsTo::Nothing;
};

// Of the place with this index: each group with its title first, groups that would be empty left out.
std::vector<PropertyRow> PropertiesOf(const FormCanvas& form, std::size_t index, const Texts& texts);

// A control as one tells it from others: "txtCity", "Option1(2)".
QString NameOfObject(const adapters::vb6files::FormNode& node);
// "TextBox" of "VB.TextBox".
QString ClassOfObject(const adapters::vb6files::FormNode& node);

}  // namespace formwizard::apps::desktop
