// What the controls of a form show and which procedures they have, as its code says it.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

namespace formwizard::apps::desktop {

struct FormOrigin {
  std::string Class;                                        // "Sample.Person"; empty for a form that was not generated
  std::unordered_map<std::string, std::string> Properties;  // by the control's name: "Home.City"
  std::multimap<std::string, std::string> Procedures;       // by the object's name: "Click"
};

// `code` is UTF-8, with any line ends.
FormOrigin OriginOf(std::string_view code);

}  // namespace formwizard::apps::desktop
