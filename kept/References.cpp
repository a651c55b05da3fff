#include "kept/References.h"

#include "vbtext/Document.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <utility>

namespace formwizard::kept {
namespace {

using vbtext::HeaderNode;
using vbtext::HeaderProperty;

// Values that are references, in the order of the file.
void Collect(const std::vector<HeaderProperty>& properties, std::vector<std::string_view>& values) {
  for (const HeaderProperty& property : properties) {
    if (vbtext::ReferenceIn(property.Value)) values.push_back(property.Value);
    Collect(property.Members, values);
  }
}
void Collect(const HeaderNode& node, std::vector<std::string_view>& values) {
  Collect(node.Properties, values);
  for (const HeaderNode& child : node.Children) Collect(child, values);
}

std::string MarkFor(const Sides& sides) {
  std::string mark = "@frx";
  for (const FormTexts* form : {&sides.Base, &sides.Mine, &sides.Theirs}) {
    while (form->Frm.find(mark) != std::string::npos) mark += '@';
  }
  return mark;
}

}  // namespace

References::References(const Sides& sides)
    : mark_(MarkFor(sides)), originalMine_(sides.Mine), base_(Named(sides.Base)) {
  mine_ = Named(sides.Mine);
  theirs_ = Named(sides.Theirs);
}

std::string_view References::Named(const FormTexts& form) {
  if (form.Frm.find(".frx\":") == std::string::npos && form.Frx.empty()) return form.Frm;
  const vbtext::Document document = vbtext::DocumentWithoutCode(form.Frm);
  std::vector<std::string_view> values;
  if (document.Root) Collect(*document.Root, values);
  const vbtext::Companion companion(document.Root ? *document.Root : HeaderNode{}, form.Frx);
  std::string& text = texts_.emplace_back();
  std::size_t from = 0;
  for (const std::string_view value : values) {
    const auto at = static_cast<std::size_t>(value.data() - form.Frm.data());
    text.append(form.Frm, from, at - from).append(NameOf(value, companion));
    from = at + value.size();
    if (&form == &originalMine_) valuesOfMine_.emplace_back(value);
  }
  return text.append(form.Frm, from);
}

std::string References::NameOf(std::string_view value, const vbtext::Companion& companion) {
  const vbtext::CompanionReference reference = vbtext::ReferenceIn(value).value();
  const auto bytes = companion.RecordAt(reference.Offset);
  const std::string key = (bytes ? (reference.IsText ? "$" : "#") : "?") + std::string(bytes.value_or(value));
  const auto [found, isNew] = numbers_.emplace(key, records_.size());
  if (isNew) {
    records_.push_back({std::string(bytes.value_or("")), reference.IsText, bytes ? "" : std::string(value)});
  }
  return mark_ + std::to_string(found->second) + mark_;
}

void References::ForEach(std::string_view text, auto&& take) const {
  std::size_t from = 0;
  for (std::size_t at = text.find(mark_); at != std::string_view::npos; at = text.find(mark_, from)) {
    std::size_t number = 0;
    const char* const digits = text.data() + at + mark_.size();
    const char* const end = std::from_chars(digits, text.data() + text.size(), number).ptr;
    take(text.substr(from, at - from), number);
    from = static_cast<std::size_t>(end - text.data()) + mark_.size();
  }
  take(text.substr(from), records_.size());
}

std::vector<std::size_t> References::RecordsIn(std::string_view text) const {
  std::vector<std::size_t> numbers;
  ForEach(text, [&](std::string_view, std::size_t number) { numbers.push_back(number); });
  return numbers;
}

FormTexts References::Resolved(std::string text, std::string_view stem) const {
  if (records_.empty()) return {std::move(text), originalMine_.Frx};
  const bool isMine = RecordsIn(text) == RecordsIn(mine_);
  FormTexts form;
  std::size_t nth = 0;
  ForEach(text, [&](std::string_view before, std::size_t number) {
    form.Frm += before;
    if (number == records_.size()) return;
    const Record& record = records_[number];
    if (isMine) {
      form.Frm += valuesOfMine_[nth++];
    } else if (!record.Lost.empty()) {
      form.Frm += record.Lost;
    } else {
      std::array<char, 24> offset;  // NOLINT(cppcoreguidelines-pro-type-member-init): filled by the next line
      std::snprintf(offset.data(), offset.size(), "%04zX", form.Frx.size());
      form.Frm.append(record.IsText ? "$\"" : "\"").append(stem).append(".frx\":").append(offset.data());
      form.Frx += record.Bytes;
    }
  });
  if (isMine) form.Frx = originalMine_.Frx;
  return form;
}

std::string References::Shown(std::string_view text) const {
  std::string shown;
  ForEach(text, [&](std::string_view before, std::size_t number) {
    shown += before;
    if (number < records_.size()) shown += "(" + std::to_string(records_[number].Bytes.size()) + " bytes of the .frx)";
  });
  return shown;
}

}  // namespace formwizard::kept
