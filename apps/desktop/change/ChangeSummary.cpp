#include "apps/desktop/change/ChangeSummary.h"

#include "adapters/qt/Text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace formwizard::apps::desktop {
namespace {

using vbtext::Change;

constexpr std::size_t MostNames = 8;

void AddOnce(std::vector<std::string>& names, const std::string& name) {
  if (std::ranges::find(names, name) == names.end()) names.push_back(name);
}

// A property stands for the control that it belongs to.
std::string ThingOf(const vbtext::Difference& difference) {
  const std::string_view name = difference.Name;
  return std::string(difference.What == "property" ? name.substr(0, name.rfind('.')) : name);
}

// What everything below a new control gets.
bool IsPlace(const vbtext::Difference& difference) {
  constexpr std::array<std::string_view, 9> places{"ScaleHeight", "ScaleWidth",   "Top",         "Left",    "Height",
                                                   "Width",       "ClientHeight", "ClientWidth", "TabIndex"};
  const std::string_view name = difference.Name;
  return difference.What == "property" && std::ranges::find(places, name.substr(name.rfind('.') + 1)) != places.end();
}

}  // namespace

QString Listed(const Texts& texts, const std::vector<std::string>& names) {
  QStringList listed;
  for (const std::string& name : names) {
    if (listed.size() < static_cast<qsizetype>(MostNames)) listed << adapters::qt::Text(name);
  }
  const QString all = listed.join(", ");
  return names.size() <= MostNames ? all : texts(T::AndMore, all, QString::number(names.size() - MostNames));
}

QString SummaryOf(const Texts& texts, const UpdateChoices& update, const system::CodePage& codePage) {
  const auto all = kept::DifferencesOf(update.Form().Sides.Mine, update.Result().Form);
  const bool isOnlyPlaces = std::ranges::all_of(all, IsPlace);
  std::vector<std::string> added, changed, gone;
  for (const vbtext::Difference& each : all) {
    if (IsPlace(each) && !isOnlyPlaces) continue;
    const bool isThing = each.What != "property";  // one that comes or goes changes its control
    std::vector<std::string>& names = isThing && each.Kind == Change::Added     ? added
                                      : isThing && each.Kind == Change::Removed ? gone
                                                                                : changed;
    AddOnce(names, codePage.Decode(ThingOf(each)));
  }
  QStringList lines;
  for (const auto& [text, names] :
       {std::pair{T::SummaryNew, &added}, std::pair{T::SummaryChanged, &changed}, std::pair{T::SummaryGone, &gone}}) {
    if (!names->empty()) lines << texts(text, Listed(texts, *names));
  }
  if (lines.empty()) lines << texts(T::SummaryOnlyChoices);
  for (const std::string& note : update.Result().Notes) lines << adapters::qt::Text(codePage.Decode(note));
  for (const std::string& message : update.Form().Messages) lines << adapters::qt::Text(message);
  lines << texts(T::WrittenWhenSaved);
  return lines.join("\n");
}

QString ConflictsIn(const Texts& texts, const UpdateChoices& update, const system::CodePage& codePage) {
  std::vector<std::string> names;
  for (const UpdateChoices::Conflict& each : update.Conflicts()) {
    names.push_back(codePage.Decode(std::string(kept::ShortName(each.Name))));
  }
  return Listed(texts, names);
}

}  // namespace formwizard::apps::desktop
