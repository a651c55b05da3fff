// Runs the Form_Resize of a form file on the places and sizes that stand in the file.
#pragma once

#include "adapters/vb6files/FormTree.h"
#include "runtime/Conversions.h"

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace formwizard::tests {

// The scroll bars that are seen afterwards, a blank behind each, when the client area is so many units narrower.
inline std::string ScrollBarsOf(const adapters::vb6files::FormTree& file, double narrower) {
  std::map<std::string, double> values{{"me.scalewidth", file.Form.Number("ScaleWidth") - narrower},
                                       {"me.scaleheight", file.Form.Number("ScaleHeight")}};
  for (const auto& control : file.Form.Children) {
    for (const std::string side : {"Width", "Height"}) {
      values[runtime::LowerCase(control.Name + "." + side)] =
          control.Number(side) * file.Form.Number("Scale" + side) / file.Form.Number("Client" + side);
    }
  }
  const auto sum = [&](std::istream& words) {  // to the comparison's sign, or to Then
    double total = 0, sign = 1;
    for (std::string word; words >> word && word != "<" && word != "Then";) {
      if (word == "-" || word == "+") sign = word == "-" ? -1 : 1;
      if (word.size() > 1) total += sign * values.at(runtime::LowerCase(word));
    }
    return total;
  };
  std::map<std::string, bool> seen;
  std::vector<bool> runs{true};
  std::istringstream lines(file.Code.substr(file.Code.find("Sub Form_Resize()\r\n") + 19));
  for (std::string line; std::getline(lines, line) && line != "End Sub\r";) {
    std::istringstream words(line);
    std::string first;
    words >> first;
    if (first == "If") {
      const double left = sum(words);
      runs.push_back(left < sum(words) && runs.back());
    } else if (first == "Else") {
      runs.back() = !runs.back() && runs[runs.size() - 2];
    } else if (first == "End") {
      runs.pop_back();
    } else if (runs.back() && first.ends_with(".Visible")) {
      seen[first] = line.find("True") != std::string::npos;
    }
  }
  std::string names;
  for (const auto& [name, isSeen] : seen) names += isSeen ? name.substr(0, name.find('.')) + " " : "";
  return names;
}

}  // namespace formwizard::tests
