#include "adapters/vb6files/KeptCode.h"

namespace formwizard::adapters::vb6files {
namespace {

std::string Listed(const std::vector<std::string>& names) {
  constexpr std::size_t most = 10;
  std::string list;
  for (std::size_t i = 0; i < names.size() && i < most; ++i) list += (i > 0 ? ", " : "") + names[i];
  return names.size() > most ? list + " and " + std::to_string(names.size() - most) + " more" : list;
}

}  // namespace

std::string NoteOn(const std::string& form, const KeptCode& kept) {
  std::string note = form + " was the form " + kept.FormerName + ", which had no controls, but code of its own";
  if (!kept.Procedures.empty()) note += ": " + Listed(kept.Procedures);
  note += ". That code stands in front of the new code";
  if (!kept.Procedures.empty()) note += ", whose declarations must come before any procedure: move them to the top";
  if (!kept.Doubled.empty()) note += ". Make one procedure of each that is there twice: " + Listed(kept.Doubled);
  return note;
}

}  // namespace formwizard::adapters::vb6files
