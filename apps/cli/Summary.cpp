#include "apps/cli/Summary.h"

#include "apps/cli/UnifiedDiff.h"
#include "runtime/Conversions.h"
#include "support/Messages.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace formwizard::apps::cli {
namespace {

using Json = nlohmann::ordered_json;
using runtime::Int16;
using runtime::Int32;

Json FieldOf(const model::FieldRecord& field, const ui::TextMeasure& measure) {
  return Json{{"property", field.DisplayName},
              {"FieldKind", field.FieldKind.Value()},
              {"ControlName", field.ControlName},
              {"RowCount", field.RowCount.Value()},
              {"MaxWidth", field.MaxWidth.Value()},
              {"ControlTop", field.ControlTop.Value()},
              {"captionWidth", runtime::RoundToInt32(measure.WidthOf(field.Caption)).Value()}};
}

Json Columns(const runtime::OneBased<Int32>& values, Int16 columns) {
  Json list = Json::array();
  for (Int16 column(1); column <= columns && column <= values.UpperBound(); column += Int16(1)) {
    list.push_back(values[column].Value());
  }
  return list;
}

Json Described(const FormResult& result, const model::FormModel& form, const settings::Settings& settings,
               const ui::TextMeasure& measure) {
  Json fields = Json::array();
  for (const Int16 index : form.SelectedFields) fields.push_back(FieldOf(form.Fields[index], measure));
  const Json layout{{"CharWidth", form.CharWidth.Value()},
                    {"ControlWidth", form.ControlWidth.Value()},
                    {"ColumnLefts", Columns(form.ColumnLefts, settings.Columns)},
                    {"ColumnWidths", Columns(form.ColumnWidths, settings.Columns)},
                    {"LabelWidths", Columns(form.LabelWidths, settings.Columns)},
                    {"ContentHeight", form.ContentHeight.Value()},
                    {"FrameHeight", form.FrameHeight.Value()},
                    {"ColumnsWidth", form.ColumnsWidth.Value()},
                    {"FrameWidth", form.FrameWidth.Value()},
                    {"ButtonAreaWidth", settings.ButtonAreaWidth.Value()}};
  return Json{{"class", form.ClassName}, {"component", result.Component}, {"files", result.Files}, {"fields", fields},
              {"layout", layout},        {"failures", result.Failures},   {"notes", result.Notes}};
}

constexpr int Indentation = 2;

std::string TextOf(const Json& json) { return json.dump(Indentation, ' ', false, Json::error_handler_t::replace); }

}  // namespace

std::string LineOf(const FormResult& result, const model::FormModel& form) {
  const auto fields = static_cast<std::size_t>(form.SelectedFields.UpperBound().Value());
  return support::Escaped(result.Component) + ": " + support::Counted(fields, "field") + " of " +
         support::Escaped(form.ClassName) + (result.Failures.empty() ? "\n" : ", incomplete\n");
}

std::string FieldLinesOf(const model::FormModel& form) {
  std::string lines;
  for (const Int16 index : form.SelectedFields) {
    const model::FieldRecord& field = form.Fields[index];
    const auto rows = static_cast<std::size_t>(field.RowCount.Value());
    lines += "  " + support::Escaped(field.DisplayName) + ": " + support::Escaped(field.ControlName) + ", " +
             support::Counted(rows, "row") + '\n';
  }
  return lines;
}

std::string LineOf(const adapters::vb6files::FileChange& change, bool isWritten) {
  const char* const made = change.New ? "wrote " : "removed ";
  const char* const wanted = change.New ? "would write " : "would remove ";
  return (isWritten ? made : wanted) + support::Escaped(change.Path) + '\n';
}

std::string DiffOf(const adapters::vb6files::FileChange& change) {
  const std::string name = support::Escaped(change.Path);
  if (runtime::LowerCase(name).ends_with(".frx")) {
    const auto named = [&](const auto& content) { return content ? name : std::string("/dev/null"); };
    return "Binary files " + named(change.Old) + " and " + named(change.New) + " differ\n";
  }
  return UnifiedDiff(change.Old ? name : "/dev/null", change.Old.value_or(""), change.New ? name : "/dev/null",
                     change.New.value_or(""));
}

// An element stands two steps further in than the summary.
void Summary::Array::Add(const std::string& json) {
  Elements.Add(std::exchange(IsEmpty, false) ? "" : ",");
  Elements.Add(runtime::ReplaceAll("\n" + json, "\n", "\n    "));
}

void Summary::Array::PrintTo(std::ostream& out) {
  out << '[';
  Elements.PrintTo(out);
  out << (IsEmpty ? "]" : "\n  ]");
}

void Summary::Add(const FormResult& result, const model::FormModel& form, const settings::Settings& settings,
                  const ui::TextMeasure& measure) {
  forms_.Add(TextOf(Described(result, form, settings, measure)));
}

void Summary::AddFiles(const std::vector<std::string>& paths) {
  for (const std::string& path : paths) files_.Add(TextOf(path));
}

void Summary::Add(const Difference& difference) {
  differences_.Add(TextOf({{"file", difference.File},
                           {"isThere", difference.IsThere},
                           {"line", difference.Line},
                           {"found", difference.Found},
                           {"expected", difference.Expected}}));
}

void Summary::PrintTo(std::ostream& out, const std::vector<std::string>& warnings,
                      const std::vector<std::string>& notes, const std::string& project) {
  out << "{\n  \"forms\": ";
  forms_.PrintTo(out);
  std::string rest = TextOf({{"warnings", warnings}, {"notes", notes}, {"project", project}});
  rest.erase(rest.rfind('\n'));  // the object goes on
  out << "," << rest.substr(1) << ",\n  \"files\": ";
  files_.PrintTo(out);
  out << ",\n  \"differences\": ";
  differences_.PrintTo(out);
  out << "\n}\n";
}

}  // namespace formwizard::apps::cli
