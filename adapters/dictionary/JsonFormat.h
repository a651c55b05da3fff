// The JSON form of a class dictionary: which objects it has and their members.
#pragma once

#include "wizard/factory/Dictionary.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace formwizard::adapters::dictionary {

// The objects and arrays of the format; an array is known by what it holds.
enum class Shape : std::uint8_t {
  Root,
  Systems,
  System,
  Classes,
  Class,
  Properties,
  Property,
  Queries,
  Query,
  Columns,
  Params
};

// A column of the object's own row, or an array of what belongs to it.
struct Member {
  std::string_view Key;
  const wizard::factory::Column* Of;  // null for an array
  Shape Array;
  bool IsRequired;
};

// The members of an object, in the order in which they are written: first its columns. Empty for an array.
std::span<const Member> MembersOf(Shape shape);

// The table that the objects go to, or the texts of an array of texts.
std::optional<wizard::factory::Table> TableOf(Shape shape);

// What the elements of an array of objects are; nothing for an array of texts.
std::optional<Shape> ElementOf(Shape array);

}  // namespace formwizard::adapters::dictionary
