// What the properties panel shows of a form or a control: where it comes from, what stands in its file, its procedures.
#pragma once

#include "apps/desktop/formview/FormCanvas.h"

#include <QString>

#include <cstddef>
#include <vector>

namespace formwizard::apps::desktop {

// The panel's own texts.
struct PropertyTexts {
  QString Objects = "Object", Properties = "Properties", SelectControl = "Select a control.", Copy = "&Copy";
  QString GeneratedFrom = "Generated from", InTheFile = "In the file", Procedures = "Procedures";
  QString Class = "Class", Property = "Property", Caption = "Caption", ReadOnly = "Read-only";
  QString ClassMeans = "The persistent class that the form was made for.";
  QString PropertyMeans = "The property of the class that this control shows.";
  QString CaptionMeans = "The text of the label in front of this control.";
  QString ReadOnlyMeans = "Whether this control shows the property without changing it.";
  QString InTheFileMeans = "As it stands in the form's file.";
  QString TwipsMeans = "In twips, 15 of which are a pixel at 96 dots per inch.";
  QString TabIndexMeans = "The place in the order in which the Tab key goes through the form, from 0.";
  QString ProcedureMeans = "The procedure that runs on this event.";
};

struct PropertyRow {
  QString Name, Value;
  QString Meaning;       // a sentence
  bool IsTitle = false;  // of a group: it has a name alone
  bool IsProcedure = false;
};

// Of the place with this index: each group with its title first, groups that would be empty left out.
std::vector<PropertyRow> PropertiesOf(const FormCanvas& form, std::size_t index, const PropertyTexts& texts);

// A control as one tells it from others: "txtCity", "Option1(2)".
QString NameOfObject(const adapters::vb6files::FormNode& node);
// "TextBox" of "VB.TextBox".
QString ClassOfObject(const adapters::vb6files::FormNode& node);

}  // namespace formwizard::apps::desktop
