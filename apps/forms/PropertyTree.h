// The properties of a class as a form can show them, by the paths that choose them.
#pragma once

#include "runtime/Integer.h"
#include "wizard/factory/Factory.h"

#include <functional>
#include <string>
#include <string_view>

namespace formwizard::apps::forms {

struct TreeProperty {
  std::string Path;       // "Home.City"
  std::string_view Kind;  // "object" for one that has others below it, "none" for what no form can show
  std::string Type;
  std::string Caption;  // of its field
  std::string Width;    // its longest value in characters; empty when there is no limit
  bool IsRequired, IsReadOnly;
  std::size_t Depth;        // 0 for a property of the class itself, 1 for one inside an object
  runtime::Int16 RowCount;  // of its field, by the defaults of the settings

  bool IsField() const { return Kind != "object" && Kind != "none"; }
};

// Each property that the wizard offers, with `all` the others too, and the server's row on it. An object comes before
// what is in it; the wizard goes no deeper than into the objects of the class.
void ForEachProperty(wizard::factory::ObjectFactory& factory, const std::string& className, bool all,
                     const std::function<void(const TreeProperty&, wizard::factory::ResultSet& row)>& take);

}  // namespace formwizard::apps::forms
