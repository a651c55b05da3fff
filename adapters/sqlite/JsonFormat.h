// The JSON form of a class dictionary: which objects it has, their members, types and defaults.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

namespace formwizard::adapters::sqlite {

// The objects and arrays of the format; an array is known by what it holds.
enum class Shape : std::uint8_t { Root, Systems, System, Classes, Class, Properties, Property, Queries, Query, Names };

enum class MemberType : std::uint8_t { Name, Text, Collection, Flag, Count, Array };

struct Member {
  std::string_view Key;
  MemberType Type;
  std::string_view Default;    // of a text; "=Name": the value of the member Name
  std::int64_t DefaultNumber;  // of a Flag or Count
  bool IsRequired;
  Shape ArrayShape;  // of an Array
};

// The members of an object, in the order of the export. Empty for an array.
std::span<const Member> MembersOf(Shape shape);

// What the elements of an array are; a Names array holds texts.
Shape ElementOf(Shape array);

}  // namespace formwizard::adapters::sqlite
