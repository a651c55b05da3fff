#include "apps/desktop/properties/PropertyRows.h"

#include "adapters/vb6files/ControlClasses.h"
#include "apps/desktop/formview/TextLayout.h"
#include "runtime/Conversions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using adapters::vb6files::FormNode;
using adapters::vb6files::NodeProperty;

struct Meaning {
  std::string_view Property;
  T Text;
};
constexpr std::array Meanings{
    Meaning{"ClientHeight", T::PanelTwipsMeans},
    Meaning{"ClientLeft", T::PanelTwipsMeans},
    Meaning{"ClientTop", T::PanelTwipsMeans},
    Meaning{"ClientWidth", T::PanelTwipsMeans},
    Meaning{"Height", T::PanelTwipsMeans},
    Meaning{"Left", T::PanelTwipsMeans},
    Meaning{"TabIndex", T::PanelTabIndexMeans},
    Meaning{"Top", T::PanelTwipsMeans},
    Meaning{"Width", T::PanelTwipsMeans},
    Meaning{"(Name)", T::MeansName},
    Meaning{"Alignment", T::MeansAlignment},
    Meaning{"Appearance", T::MeansAppearance},
    Meaning{"AutoSize", T::MeansAutoSize},
    Meaning{"BackColor", T::MeansBackColor},
    Meaning{"BackStyle", T::MeansBackStyle},
    Meaning{"BorderStyle", T::MeansBorderStyle},
    Meaning{"Cancel", T::MeansCancel},
    Meaning{"Caption", T::MeansCaption},
    Meaning{"Default", T::MeansDefault},
    Meaning{"Enabled", T::MeansEnabled},
    Meaning{"ForeColor", T::MeansForeColor},
    Meaning{"Icon", T::MeansIcon},
    Meaning{"Index", T::MeansIndex},
    Meaning{"KeyPreview", T::MeansKeyPreview},
    Meaning{"LinkTopic", T::MeansLinkTopic},
    Meaning{"List", T::MeansList},
    Meaning{"Locked", T::MeansLocked},
    Meaning{"MaxButton", T::MeansMaxButton},
    Meaning{"MaxLength", T::MeansMaxLength},
    Meaning{"MDIChild", T::MeansMdiChild},
    Meaning{"MinButton", T::MeansMinButton},
    Meaning{"MousePointer", T::MeansMousePointer},
    Meaning{"MultiLine", T::MeansMultiLine},
    Meaning{"Picture", T::MeansPicture},
    Meaning{"ScaleHeight", T::MeansScale},
    Meaning{"ScaleMode", T::MeansScaleMode},
    Meaning{"ScaleWidth", T::MeansScale},
    Meaning{"ScrollBars", T::MeansScrollBars},
    Meaning{"Shortcut", T::MeansShortcut},
    Meaning{"ShowInTaskbar", T::MeansShowInTaskbar},
    Meaning{"Sorted", T::MeansSorted},
    Meaning{"StartUpPosition", T::MeansStartUpPosition},
    Meaning{"Style", T::MeansStyle},
    Meaning{"TabStop", T::MeansTabStop},
    Meaning{"Tag", T::MeansTag},
    Meaning{"Text", T::MeansText},
    Meaning{"ToolTipText", T::MeansToolTipText},
    Meaning{"Visible", T::MeansVisible},
    Meaning{"WindowState", T::MeansWindowState},
    Meaning{"WordWrap", T::MeansWordWrap},
};

QString MeaningOf(std::string_view property, const Texts& texts) {
  const auto found = std::ranges::find(Meanings, property, &Meaning::Property);
  return texts(found == Meanings.end() ? T::PanelInTheFileMeans : found->Text);
}

QString TrueOrFalse(bool value) { return value ? "True" : "False"; }

// The name that stands at a place between the bars.
std::string_view NameAt(std::string_view names, int place) {
  for (; place > 0 && !names.empty(); --place) names.remove_prefix(std::min(names.find('|'), names.size() - 1) + 1);
  return names.substr(0, names.find('|'));
}

// As the environment's own window shows it: a truth by its word, a choice with its name.
QString ValueOf(const FormNode& node, const NodeProperty& property) {
  using adapters::vb6files::PropertyType;
  const auto* known = adapters::vb6files::FindControlClass(node.Class);
  const bool isForm = runtime::EqualIgnoringCase(node.Class, "VB.Form");
  const adapters::vb6files::ClassBits bit = isForm  ? adapters::vb6files::classbit::Form
                                            : known ? known->Bit
                                                    : adapters::vb6files::ClassBits{};
  const auto* row = adapters::vb6files::FindProperty(bit, property.Name);
  QString value = ShownText(property.Value);
  if (!row || value.isEmpty()) return value;
  if (row->Type == PropertyType::Boolean) return TrueOrFalse(node.Flag(property.Name));
  const double number = node.Number(property.Name);
  if (row->Type != PropertyType::Enumeration || number < 0 || number > 99) return value;
  const std::string_view name = NameAt(row->Names, static_cast<int>(number));
  return name.empty() ? value : value + " - " + ShownText(name);
}

class Rows {
 public:
  void Begin(const QString& title) { title_ = title; }
  void Add(PropertyRow row) {
    if (!title_.isEmpty()) rows_.push_back({std::exchange(title_, ""), "", "", true});
    rows_.push_back(std::move(row));
  }
  std::vector<PropertyRow> Take() { return std::move(rows_); }

 private:
  std::vector<PropertyRow> rows_;
  QString title_;  // of a group that has no row yet
};

void AddOrigin(Rows& rows, const FormCanvas& form, std::size_t index, const Texts& texts) {
  const QString className = ShownText(form.Origin().Class), property = form.PropertyOf(index);
  if (className.isEmpty() || (index > 0 && property.isEmpty())) return;
  rows.Begin(texts(T::PanelGeneratedFrom));
  rows.Add({texts(T::PanelClass), className, texts(T::PanelClassMeans)});
  if (index == 0) return;
  const FormNode& node = *form.Places()[index].Node;
  const bool isReadOnly = node.Class == "VB.Label" || node.Flag("Locked");
  rows.Add({texts(T::PanelProperty), property, texts(T::PanelPropertyMeans)});
  rows.Add({texts(T::PanelCaption), form.LabelCaptionOf(index), texts(T::PanelCaptionMeans)});
  rows.Add({texts(T::PanelReadOnly), TrueOrFalse(isReadOnly), texts(T::PanelReadOnlyMeans)});
}

void AddFile(Rows& rows, const FormNode& node, const Texts& texts) {
  rows.Begin(texts(T::PanelInTheFile));
  rows.Add({"(Name)", ShownText(node.Name), MeaningOf("(Name)", texts)});
  std::vector<const NodeProperty*> properties;
  for (const NodeProperty& property : node.Properties) properties.push_back(&property);
  std::ranges::stable_sort(properties, {}, [](const NodeProperty* property) { return property->Name; });
  for (const NodeProperty* property : properties) {
    rows.Add({ShownText(property->Name), ValueOf(node, *property), MeaningOf(property->Name, texts)});
  }
}

void AddProcedures(Rows& rows, const FormCanvas& form, std::size_t index, const Texts& texts) {
  rows.Begin(texts(T::PanelProcedures));
  const std::string object = index == 0 ? "Form" : form.Places()[index].Node->Name;
  const auto [first, last] = form.Origin().Procedures.equal_range(object);
  for (auto procedure = first; procedure != last; ++procedure) {
    const QString event = ShownText(procedure->second);
    rows.Add({event, ShownText(object) + "_" + event, texts(T::PanelProcedureMeans), false, LeadsTo::Procedure});
  }
}

}  // namespace

std::vector<PropertyRow> PropertiesOf(const FormCanvas& form, std::size_t index, const Texts& texts) {
  Rows rows;
  AddOrigin(rows, form, index, texts);
  AddFile(rows, *form.Places()[index].Node, texts);
  AddProcedures(rows, form, index, texts);
  return rows.Take();
}

QString NameOfObject(const FormNode& node) {
  const std::string* number = node.Find("Index");
  return ShownText(number ? node.Name + "(" + *number + ")" : node.Name);
}

QString ClassOfObject(const FormNode& node) { return ShownText(node.Class.substr(node.Class.find('.') + 1)); }

}  // namespace formwizard::apps::desktop
