// What has become of a class since a form was made for it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace formwizard::kept {

// A property that the class offers to forms, as far as a form shows it. Texts are UTF-8.
struct Property {
  std::string Path;  // "Home.City"
  std::string Kind;  // of its field: "text", "list"
  std::string Type, Caption;
  std::string Width;  // in characters; empty when there is no limit
  bool IsRequired = false, IsReadOnly = false;

  bool operator==(const Property&) const = default;
};

// A field of the form.
struct ShownField {
  std::string Property;     // its path
  bool HasCaption = false;  // one of its own, so that the class's does not show
};

// What a property was and is: "caption", "Title", "Name".
struct PropertyChange {
  std::string Property;
  std::string_view What;
  std::string Was, Is;
};

struct ClassChanges {
  std::vector<Property> New;            // that the class did not have when the form was made
  std::vector<std::string> Lost;        // that the form shows
  std::vector<PropertyChange> Changed;  // of those that the form shows

  bool IsEmpty() const { return New.empty() && Lost.empty() && Changed.empty(); }
};

// `was` when the form was made. A property that is shown and stood in neither is lost, too.
ClassChanges ChangesOf(const std::vector<Property>& was, const std::vector<Property>& is,
                       const std::vector<ShownField>& shown);

}  // namespace formwizard::kept
