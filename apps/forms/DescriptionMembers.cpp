#include "apps/forms/DescriptionMembers.h"

#include "system/CodePage.h"

#include <algorithm>
#include <array>
#include <limits>

namespace formwizard::apps::forms {
namespace {

constexpr int MostRows = std::numeric_limits<std::int16_t>::max();

constexpr std::array RootMembers{
    Member{"class", Takes::Text, true, [](FormDescription& form, const Token& value) { form.Class = value.Given(); }},
    Member{"settings", Takes::Object, false, [](FormDescription& form, const Token&) { form.Settings.clear(); },
           Part::Settings},
    Member{"fields", Takes::Array, true, [](FormDescription& form, const Token&) { form.Fields.clear(); },
           Part::Fields},
    Member{"system", Takes::Text, false,
           [](FormDescription& form, const Token& value) { form.System = value.Given(); }},
    Member{"language", Takes::Text, false,
           [](FormDescription& form, const Token& value) { form.Language = value.Given(); }},
    Member{"codePage", Takes::CodePage, false,
           [](FormDescription& form, const Token& value) {
             form.CodePage = {static_cast<int>(value.Integer), value.From()};
           }},
    Member{"made", Takes::Object, false, [](FormDescription& form, const Token&) { form.Made.emplace(); }, Part::Made},
    Member{"$schema", Takes::Line, false, [](FormDescription&, const Token&) {}},  // for editors
};
constexpr std::array FieldMembers{
    Member{"property", Takes::Text, true,
           [](FormDescription& form, const Token& value) { form.Fields.back().Property = value.Given(); }},
    Member{"caption", Takes::Line, false,
           [](FormDescription& form, const Token& value) { form.Fields.back().Caption = value.Text; }},
    Member{"readOnly", Takes::Boolean, false,
           [](FormDescription& form, const Token& value) {
             form.Fields.back().ReadOnly = {value.Integer != 0, value.From()};
           }},
    Member{"updateAfter", Takes::Text, false,
           [](FormDescription& form, const Token& value) { form.Fields.back().UpdateAfter = value.Given(); }},
    Member{"rows", Takes::Rows, false,
           [](FormDescription& form, const Token& value) {
             form.Fields.back().Rows = {static_cast<int>(value.Integer), value.From()};
           }},
    Member{"combo", Takes::Object, false,
           [](FormDescription& form, const Token&) { form.Fields.back().Combo = ComboChoice{}; }, Part::Combo},
};
constexpr std::array ComboMembers{
    Member{"query", Takes::Text, true,
           [](FormDescription& form, const Token& value) { form.Fields.back().Combo->Query = value.Given(); }},
    Member{"column", Takes::Text, true,
           [](FormDescription& form, const Token& value) { form.Fields.back().Combo->Column = value.Given(); }},
};

constexpr std::array MadeMembers{
    Member{"program", Takes::Text, true,
           [](FormDescription& form, const Token& value) { form.Made->Program = value.Text; }},
    Member{"form", Takes::Text, true, [](FormDescription& form, const Token& value) { form.Made->Form = value.Text; }},
    Member{"pictures", Takes::Text, false,
           [](FormDescription& form, const Token& value) { form.Made->Pictures = value.Text; }},
    Member{"fields", Takes::Text, true,
           [](FormDescription& form, const Token& value) { form.Made->Fields = value.Text; }},
    Member{"settings", Takes::Text, true,
           [](FormDescription& form, const Token& value) { form.Made->Settings = value.Text; }},
    Member{"reused", Takes::Boolean, false,
           [](FormDescription& form, const Token& value) { form.Made->IsReused = value.Integer != 0; }},
    Member{"class", Takes::Object, true, [](FormDescription& form, const Token&) { form.Made->Class.clear(); },
           Part::Class},
};
kept::Property& LastOf(FormDescription& form) { return form.Made->Class.back(); }
constexpr std::array PropertyMembers{
    Member{"kind", Takes::Text, false,
           [](FormDescription& form, const Token& value) { LastOf(form).Kind = value.Text; }},
    Member{"type", Takes::Line, false,
           [](FormDescription& form, const Token& value) { LastOf(form).Type = value.Text; }},
    Member{"required", Takes::Boolean, false,
           [](FormDescription& form, const Token& value) { LastOf(form).IsRequired = value.Integer != 0; }},
    Member{"readOnly", Takes::Boolean, false,
           [](FormDescription& form, const Token& value) { LastOf(form).IsReadOnly = value.Integer != 0; }},
    Member{"width", Takes::Width, false,
           [](FormDescription& form, const Token& value) { LastOf(form).Width = value.Text; }},
    Member{"caption", Takes::Line, false,
           [](FormDescription& form, const Token& value) { LastOf(form).Caption = value.Text; }},
};

struct PartMembers {
  Part Of;
  std::span<const Member> Members;
};
constexpr std::array Objects{PartMembers{Part::Form, RootMembers}, PartMembers{Part::Field, FieldMembers},
                             PartMembers{Part::Combo, ComboMembers}, PartMembers{Part::Made, MadeMembers},
                             PartMembers{Part::Property, PropertyMembers}};

bool IsCodePage(std::int64_t number) {
  return number == system::Utf8CodePage ||
         std::ranges::find(system::CodePageNumbers(), number) != system::CodePageNumbers().end();
}

}  // namespace

std::span<const Member> MembersOf(Part part) {
  const auto found = std::ranges::find(Objects, part, &PartMembers::Of);
  return found == Objects.end() ? std::span<const Member>() : found->Members;
}

std::string ExpectedInsteadOf(const Token& value, Takes takes) {
  switch (takes) {
    case Takes::Text:
    case Takes::Line:
      if (value.Is != Token::Kind::Text) return "a text";
      // As one types it: a line break would begin a line of code of its own.
      if (std::ranges::any_of(value.Text, [](char c) { return c == '\r' || c == '\n' || c == '\0'; })) {
        return "a text without line breaks";
      }
      return takes == Takes::Text && value.Text.empty() ? "a text that is not empty" : "";
    case Takes::Boolean:
      return value.Is == Token::Kind::Boolean ? "" : "true or false";
    case Takes::Rows:
      if (value.Is == Token::Kind::Integer && value.Integer >= 1 && value.Integer <= MostRows) return "";
      return "a whole number from 1 to " + std::to_string(MostRows);
    case Takes::CodePage:
      return value.Is == Token::Kind::Integer && IsCodePage(value.Integer) ? "" : "the number of a code page";
    case Takes::Width:
      if (value.Is == Token::Kind::Integer) return "";
      return value.Is == Token::Kind::Text ? ExpectedInsteadOf(value, Takes::Line) : "a whole number or a text";
    case Takes::Array:
      return value.Is == Token::Kind::Array ? "" : "an array";
    default:
      return value.Is == Token::Kind::Object ? "" : "an object";
  }
}

}  // namespace formwizard::apps::forms
