#include "kept/ClassChanges.h"

#include <array>
#include <unordered_map>

namespace formwizard::kept {
namespace {

using ByPath = std::unordered_map<std::string_view, const Property*>;

ByPath PathsOf(const std::vector<Property>& properties) {
  ByPath paths;
  for (const Property& property : properties) paths.emplace(property.Path, &property);
  return paths;
}

const Property* Find(const ByPath& properties, std::string_view path) {
  const auto found = properties.find(path);
  return found == properties.end() ? nullptr : found->second;
}

std::string YesNo(bool is) { return is ? "yes" : "no"; }

struct Attribute {
  std::string_view Name;
  std::string (*Of)(const Property& property);
};
constexpr std::string_view Caption = "caption";
constexpr std::array Attributes{
    Attribute{"kind", [](const Property& property) { return property.Kind; }},
    Attribute{"type", [](const Property& property) { return property.Type; }},
    Attribute{"required", [](const Property& property) { return YesNo(property.IsRequired); }},
    Attribute{"read-only", [](const Property& property) { return YesNo(property.IsReadOnly); }},
    Attribute{"width", [](const Property& property) { return property.Width; }},
    Attribute{Caption, [](const Property& property) { return property.Caption; }},
};

}  // namespace

ClassChanges ChangesOf(const std::vector<Property>& was, const std::vector<Property>& is,
                       const std::vector<ShownField>& shown) {
  ClassChanges changes;
  const ByPath now = PathsOf(is);
  if (was == is) {  // as it mostly is
    for (const ShownField& field : shown) {
      if (!now.contains(field.Property)) changes.Lost.push_back(field.Property);
    }
    return changes;
  }
  const ByPath before = PathsOf(was);
  ByPath known = before;
  for (const ShownField& field : shown) {
    const Property* const old = Find(before, field.Property);
    const Property* const young = Find(now, field.Property);
    if (!young) changes.Lost.push_back(field.Property);
    if (!young || !old) {
      known.emplace(field.Property, nullptr);
      continue;
    }
    for (const Attribute& attribute : Attributes) {
      if (attribute.Name == Caption && field.HasCaption) continue;
      std::string from = attribute.Of(*old), to = attribute.Of(*young);
      if (from != to) changes.Changed.push_back({field.Property, attribute.Name, std::move(from), std::move(to)});
    }
  }
  for (const Property& property : is) {
    if (!known.contains(property.Path)) changes.New.push_back(property);
  }
  return changes;
}

}  // namespace formwizard::kept
