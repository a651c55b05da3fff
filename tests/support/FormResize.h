// Runs the Form_Resize of a form file on the places and sizes that stand in the file.
#pragma once

#include "adapters/vb6files/FormTree.h"
#include "runtime/Conversions.h"

#include <doctest/doctest.h>

#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace formwizard::tests {

class FormResize {
 public:
  explicit FormResize(const adapters::vb6files::FormTree& file) {
    const auto units = [&](const std::string& client, const std::string& scale) {
      Of("Me." + scale) = file.Form.Number(scale);
      return file.Form.Number(scale) / file.Form.Number(client);
    };
    const double x = units("ClientWidth", "ScaleWidth"), y = units("ClientHeight", "ScaleHeight");
    for (const auto& control : file.Form.Children) {
      for (const char* name : {"Left", "Width"}) Of(control.Name + "." + name) = control.Number(name) * x;
      for (const char* name : {"Top", "Height"}) Of(control.Name + "." + name) = control.Number(name) * y;
    }
    const std::string first = "Private Sub Form_Resize()\r\n";
    const std::size_t at = file.Code.find(first);
    REQUIRE(at != std::string::npos);
    code_ = file.Code.substr(at + first.size(), file.Code.find("End Sub", at) - at - first.size());
  }

  double& Of(const std::string& name) { return values_[runtime::LowerCase(name)]; }

  // The controls that are seen afterwards, a blank behind each.
  std::string Run() {
    std::vector<bool> runs{true};
    std::istringstream lines(code_);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream words(line);
      std::string first, second;
      words >> first >> second;
      const std::size_t sign = line.find_first_of("<=");
      const std::string right = line.substr(sign == std::string::npos ? line.size() : sign + 1);
      if (first == "If") {
        runs.push_back(runs.back() && Sum(line.substr(line.find("If") + 2, sign - line.find("If") - 2)) < Sum(right));
      } else if (first == "Else") {
        runs.back() = !runs.back() && runs[runs.size() - 2];
      } else if (first == "End") {
        runs.pop_back();
      } else if (runs.back() && second == "=") {
        Of(first) = Sum(right);
      }
    }
    std::string seen;
    for (const char* name : {"HScroll", "VScroll", "picPatch"}) {
      if (Of(name + std::string(".Visible")) != 0) seen += name + std::string(" ");
    }
    return seen;
  }

 private:
  // Parentheses and the division of a scroll bar's range do not matter here.
  double Sum(const std::string& text) {
    std::istringstream words(text);
    double sum = 0, sign = 1;
    for (std::string word; words >> word && word != "Then" && word != "\\";) {
      std::erase_if(word, [](char c) { return c == '(' || c == ')'; });
      if (word == "-" || word == "+") {
        sign = word == "-" ? -1 : 1;
      } else if (word != "False") {
        sum += sign * (word == "True" ? 1 : values_.at(runtime::LowerCase(word)));
      }
    }
    return sum;
  }

  std::string code_;
  std::map<std::string, double> values_;
};

}  // namespace formwizard::tests
