// The objects of a form description: their members, what each takes and what becomes of it.
#pragma once

#include "adapters/dictionary/JsonInput.h"
#include "apps/forms/FormDescription.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace formwizard::apps::forms {

// The text of a description while it is read.
struct DescriptionInput {
  adapters::dictionary::JsonInput& Text;
  std::shared_ptr<const std::string> Name;

  // Where the value begins that was read last.
  Origin OfValue() const { return At(Text.BeginOfValue()); }
  // Of the last character, or behind all of them.
  Origin Here() const { return At(Text.Here()); }

 private:
  Origin At(adapters::dictionary::Place place) const { return {Name, place.Line, place.Column}; }
};

// A value as it is met, or the beginning of an object or an array.
struct Token {
  enum class Kind : std::uint8_t { Null, Boolean, Integer, Float, Text, Object, Array };

  Kind Is;
  std::string_view Text;  // of a text; of anything else as it is written
  std::int64_t Integer;   // also what a Boolean is
  const DescriptionInput& In;

  Origin From() const { return In.OfValue(); }
  GivenText Given() const { return {std::string(Text), From()}; }
};

// What an object or array is. Settings and Class are objects with any names for members, Forms and Fields arrays.
enum class Part : std::uint8_t { Forms, Form, Settings, Fields, Field, Combo, Made, Class, Property };

// What may stand in a member.
enum class Takes : std::uint8_t { Text, Line, Boolean, Rows, CodePage, Width, Object, Array };

// What becomes of its value: where a field or a property is meant, of the last one.
struct Member {
  std::string_view Name;
  Takes Value;
  bool IsRequired;
  void (*Set)(FormDescription& form, const Token& value);
  std::optional<Part> Opens = std::nullopt;  // what begins with it
};

// None for an array, and for an object with any names.
std::span<const Member> MembersOf(Part part);

// Empty when the value may stand there, otherwise what was expected.
std::string ExpectedInsteadOf(const Token& value, Takes takes);

}  // namespace formwizard::apps::forms
